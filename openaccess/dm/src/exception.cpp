#include "oaDMException.h"

#include "base/src/messages.h"

namespace OpenAccess_4 {

namespace {

constexpr impl::MessageFormat formats[] = {
    {oacDMPlugInFailed, "The design-management system '%s' failed on library '%s': %s"},
    {oacCannotFindLibrary, "There is no open library named '%s'."},
    {oacLibNameExists, "A library named '%s' is already open."},
    {oacLibCouldNotCreate, "Library '%s' cannot be created in '%s': %s."},
    {oacLibCouldNotOpen, "Library '%s' cannot be opened from '%s': %s."},
    {oacCannotOpenOpenedLib, "A library named '%s' is already open, from '%s'."},
    {oacLibAccessDenied, "%s access to library '%s' is denied: %s."},
    {oacLibAccessCannotUpgrade, "Read access to library '%s' cannot be raised to write access."},
    {oacLibReleaseNoAccess, "Library '%s' has no access to release."},
    {oacInvalidLibAttribute, "Library '%s' cannot have these attributes: %s."},
    {oacLibFileDamaged, "Library '%s' cannot be read: %s."},
    {oacLibFileFailed, "Library '%s' failed on the disk: %s."},
    {oacDMFileExists, "'%s' already has a file named '%s'."},
    {oacDMFileDoesNotExistOnDisk, "File '%s' does not exist on disk."},
    {oacDMFileNotLocked, "File '%s' is not locked through this object."},
    {oacInvalidContainer, "View '%s' cannot hold files."},
    {oacInvalidDMName, "'%s' is not a legal name of a %s."},
    {oacViewTypeExists, "A view type named '%s' already exists."},
    {oacCellViewNotInSameLib,
     "The cell and the view of a cell view lie in different libraries: '%s' and '%s'."},
    {oacCannotLockDatabase, "'%s' cannot be locked for editing: %s."},
    {oacFileNotWritable, "File '%s' cannot be written: %s."},
    {oacLibDefListFileNotReadable, "Library definition file '%s' cannot be read: %s."},
    {oacLibDefListFileNotWritable, "Library definition file '%s' cannot be written: %s."},
    {oacUndefinedLibDefListMode, "'%c' is no mode of a library definition list."},
    {oacSaveReadOnlyLibDefList, "Library definition list '%s' is open for reading."},
    {oacLibDefExists, "Library definition list '%s' already defines library '%s'."},
    {oacLibDefListRefExists, "Library definition list '%s' already includes '%s'."},
    {oacLibDefListMemNotInList, "The member does not belong to library definition list '%s'."},
    {oacInvalidLibDefText, "'%s' cannot be written into a library definition file."},
    {oacInvalidDMFileLeader, "File '%s' cannot follow file '%s': %s."},
    {oacDMDataNotFound, "There are no data of %s."},
    {oacOpenUndefinedModeDMData,
     "The data of %s cannot be opened in mode '%c'; use 'r', 'a' or 'w'."},
    {oacSaveReadOnlyDMData, "The data of %s are open for reading and cannot be saved."},
    {oacCannotModifyReadModeDMData, "The data of %s are open for reading and cannot be changed."},
    {oacCannotDestroyOpenDMData, "The data of %s are open and cannot be destroyed."},
    {oacMismatchViewType, "View '%s' already exists with view type '%s', not '%s'."},
};

} // namespace

const oaChar* oaDMException::getFormatString() const {
    return impl::findFormat(formats, getMsgId());
}

oaDMError::oaDMError(oaUInt4 msgId, ...) : oaDMException(msgId) {
    va_list args;
    va_start(args, msgId);
    setMsg(args);
    va_end(args);
}

oaDMPlugInError::oaDMPlugInError(oaUInt4 msgId, const oaString& systemName, const oaString& libName,
                                 oaUInt4 plugInMsgId, const oaString& plugInMsg)
    : oaDMError(msgId, static_cast<const oaChar*>(systemName), static_cast<const oaChar*>(libName),
                static_cast<const oaChar*>(plugInMsg)),
      plugInMsgId_(plugInMsgId) {}

} // namespace OpenAccess_4

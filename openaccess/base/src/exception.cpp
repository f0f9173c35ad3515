#include "oaException.h"

#include "base/src/build_names.h"
#include "base/src/format.h"
#include "base/src/messages.h"

namespace OpenAccess_4 {

namespace {

constexpr impl::MessageFormat formats[] = {
    {oacInvalidMajorAPIRev, "The application was built for API revision %u, the library has %u."},
    {oacInvalidAPIRev, "The application was built for API revision %u.%u, the library has %u.%u."},
    {oacInvalidDataModelRev,
     "The application was built for data model revision %u, the library has %u."},
    {oacIncompatibleDatabase,
     "Database '%s' has data model revision %u (build '%s'), the library reads up to %u."},
    {oacInvalidEnumValue, "%d is not a value of %s."},
    {oacInvalidEnumName, "'%s' is not a name of %s."},
    {oacInvalidFileAccessMode, "File '%s' cannot be opened in mode '%c'; use 'r', 'w' or 'a'."},
    {oacFileOpenFailed, "File '%s' cannot be opened in mode '%c': %s."},
    {oacFileNotOpen, "File '%s' is not open."},
    {oacFileReadFailed, "File '%s' cannot be read: %s."},
    {oacFileWriteFailed, "File '%s' cannot be written: %s."},
    {oacFileCloseFailed, "File '%s' cannot be closed: %s."},
    {oacFileCopyFailed, "File '%s' cannot be copied to '%s': %s."},
    {oacFileGetInfoFailed, "The state of file '%s' cannot be read: %s."},
    {oacFileRenameFailed, "'%s' cannot be renamed to '%s': %s."},
    {oacDirCreateFailed, "Directory '%s' cannot be created: %s."},
    {oacUnableToOpenDir, "Directory '%s' cannot be opened: %s."},
    {oacUnableToRemove, "'%s' cannot be removed: %s."},
    {oacGetFullPathFailed, "The full path of '%s' cannot be found: %s."},
    {oacParamTypeMismatch, "Parameter '%s' has type %s, not %s."},
    {oacPackedDataOverrun, "%u bytes at position %u do not fit into a window of %u bytes."},
    {oacInvalidNameInput, "The text given as a name is empty or has a length of 0."},
    {oacScalarNameInvalid, "'%s' is not a scalar name of this name space."},
    {oacVectorNameInvalid, "'%s' is not a vector name of this name space."},
    {oacIndexedNameInvalid, "'%s' is not an indexed name of this name space."},
    {oacBundleNameInvalid, "'%s' is not a bundle name of this name space."},
    {oacHierNameInvalid, "'%s' is not a hierarchical name of this name space."},
    {oacPropNameUsed, "The object already has a property named '%s'."},
    {oacInvalidObjForProp, "An object of type %s cannot have properties or stored values."},
    {oacNotAnEnumOfProp, "'%s' is not one of the values of the property."},
    {oacPropBelowItself, "Property '%s' cannot be moved below itself."},
    {oacGroupNameUsed, "The database already has a group named '%s'."},
    {oacInvalidOwnerForGroup, "Group '%s' cannot be made in an object of type %s: %s."},
    {oacInvalidObjForGroup, "An object of type %s cannot be put into group '%s': %s."},
    {oacObjectAlreadyInGroup, "The object is in group '%s' already, which holds each one once."},
    {oacGroupMemberOfOtherGroup, "The member is not one of group '%s'."},
    {oacGroupDefExists, "A group definition named '%s' already exists."},
    {oacInvalidObject, "The object was destroyed, or its database was closed."},
    {oacTableFull, "The database cannot hold more objects of this kind."},
    {oacStringPoolFull, "The texts of a database cannot pass 4 GiB."},
    {oacPointPoolFull, "The outlines of a database cannot pass 4294967295 points."},
    {oacDatabaseFileDamaged, "File '%s' is not a sound database: it %s."},
    {oacDatabaseFileNotRead, "File '%s' cannot be read: %s."},
    {oacDatabaseFileNotWritten, "File '%s' cannot be written: %s."},
};

} // namespace

oaException::~oaException() = default;

void oaException::setMsg(va_list args) {
    if (const oaChar* format = getFormatString())
        msg_ = impl::formatted(format, args).c_str();
    else
        msg_.format("Unknown message %u.", msgId_);
}

oaError::oaError(oaUInt4 msgId, ...) : oaException(msgId) {
    va_list args;
    va_start(args, msgId);
    setMsg(args);
    va_end(args);
}

const oaChar* oaError::getFormatString() const {
    return impl::findFormat(formats, getMsgId());
}

oaOSError::oaOSError(oaUInt4 msgId, ...) : oaException(msgId) {
    va_list args;
    va_start(args, msgId);
    setMsg(args);
    va_end(args);
}

const oaChar* oaOSError::getFormatString() const {
    return impl::findFormat(formats, getMsgId());
}

oaMemoryError::oaMemoryError(oaUInt4 msgId, ...) : oaException(msgId) {
    va_list args;
    va_start(args, msgId);
    setMsg(args);
    va_end(args);
}

const oaChar* oaMemoryError::getFormatString() const {
    return impl::findFormat(formats, getMsgId());
}

oaSocketError::oaSocketError(oaUInt4 msgId, ...) : oaException(msgId) {
    va_list args;
    va_start(args, msgId);
    setMsg(args);
    va_end(args);
}

const oaChar* oaSocketError::getFormatString() const {
    return impl::findFormat(formats, getMsgId());
}

oaCompatibilityError::oaCompatibilityError(const oaString& databaseName, oaUInt4 dbDataModelRev,
                                           const oaString& dbBuildName)
    : oaException(oacIncompatibleDatabase),
      database_(databaseName),
      appBuildName_(impl::appBuildName()),
      kitBuildName_(impl::kitBuildName()),
      dataModelBuildName_(dbBuildName),
      appDataModelRev_(impl::appDataModelRev()),
      dbDataModelRev_(dbDataModelRev) {
    const oaChar* name = database_;
    const oaChar* build = dataModelBuildName_;
    fill(0, name, dbDataModelRev, build, oacDataModelRevNumber);
}

void oaCompatibilityError::fill(oaUInt4 firstOfArguments, ...) {
    va_list args;
    va_start(args, firstOfArguments);
    setMsg(args);
    va_end(args);
}

const oaChar* oaCompatibilityError::getFormatString() const {
    return impl::findFormat(formats, getMsgId());
}

} // namespace OpenAccess_4

#pragma once

namespace OpenAccess_4 {

/// The messages of the library package.
enum oaDDMsgIds {
    oacDMPlugInFailed = 3001,
    oacCannotFindLibrary,
    oacLibNameExists,
    oacLibCouldNotCreate,
    oacLibCouldNotOpen,
    oacCannotOpenOpenedLib,
    oacLibAccessDenied,
    oacLibAccessCannotUpgrade,
    oacLibReleaseNoAccess,
    oacInvalidLibAttribute,
    oacLibFileDamaged,
    oacLibFileFailed,
    oacDMFileExists,
    oacDMFileDoesNotExistOnDisk,
    oacDMFileNotLocked,
    oacInvalidContainer,
    oacInvalidDMName,
    oacViewTypeExists,
    oacCellViewNotInSameLib,
    oacCannotLockDatabase,
    oacFileNotWritable,
    oacLibDefListFileNotReadable,
    oacLibDefListFileNotWritable,
    oacUndefinedLibDefListMode,
    oacSaveReadOnlyLibDefList,
    oacLibDefExists,
    oacLibDefListRefExists,
    oacLibDefListMemNotInList,
    oacInvalidLibDefText,
    oacInvalidDMFileLeader,
    oacDMDataNotFound,
    oacOpenUndefinedModeDMData,
    oacSaveReadOnlyDMData,
    oacCannotModifyReadModeDMData,
    oacCannotDestroyOpenDMData,
    oacMismatchViewType = 3107,
};

} // namespace OpenAccess_4

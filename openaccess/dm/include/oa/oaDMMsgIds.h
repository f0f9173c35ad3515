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
    oacDMFileExists,
    oacDMFileDoesNotExistOnDisk,
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
    oacLibDefFileRecursiveInclude,
    oacMismatchViewType = 3107,
};

} // namespace OpenAccess_4

#pragma once

namespace OpenAccess_4 {

/// The messages of the base package. 41 is fixed, the other values are free.
enum oaBaseMsgIds {
    oacInvalidMajorAPIRev = 1,
    oacInvalidAPIRev,
    oacInvalidDataModelRev,
    oacIncompatibleDatabase,
    oacInvalidEnumValue,
    oacInvalidEnumName,
    oacInvalidFileAccessMode = 10,
    oacFileOpenFailed,
    oacFileNotOpen,
    oacFileReadFailed,
    oacFileWriteFailed,
    oacFileCloseFailed,
    oacFileCopyFailed,
    oacFileGetInfoFailed,
    oacFileRenameFailed,
    oacDirCreateFailed,
    oacUnableToOpenDir,
    oacUnableToRemove,
    oacGetFullPathFailed,
    oacParamTypeMismatch = 30,
    oacPackedDataOverrun,
    oacInvalidNameInput = 41,
    oacScalarNameInvalid,
    oacVectorNameInvalid,
    oacIndexedNameInvalid,
    oacBundleNameInvalid,
    oacHierNameInvalid,
    oacPropNameUsed = 60,
    oacInvalidObjForProp,
    oacNotAnEnumOfProp,
    oacPropBelowItself,
    oacInvalidObject = 70,
    oacTableFull,
    oacStringPoolFull,
    oacPointPoolFull,
    oacDatabaseFileDamaged = 80,
    oacDatabaseFileNotRead,
    oacDatabaseFileNotWritten,
};

} // namespace OpenAccess_4

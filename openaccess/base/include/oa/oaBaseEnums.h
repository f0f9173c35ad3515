#pragma once

#include "oaNamedEnum.h"

namespace OpenAccess_4 {

enum oaParamTypeEnum {
    oacIntParamType,
    oacFloatParamType,
    oacStringParamType,
    oacAppParamType,
    oacDoubleParamType,
    oacBooleanParamType,
    oacTimeParamType,
};

/// The kind of value that a parameter holds.
OA_NAMED_ENUM(oaParamType);

/// What a directory iterator shows.
enum oaDirIterModeEnum {
    oacFilesDirIterMode,
    oacDirsDirIterMode,
    oacAllDirIterMode,
};

enum oaEndStyleEnum {
    oacTruncateEndStyle,
    oacExtendEndStyle,
    oacVariableEndStyle,
    oacChamferEndStyle,
    oacCustomEndStyle,
};

/// The shape of one end of a path segment.
OA_NAMED_ENUM(oaEndStyle);

enum oaGroupTypeEnum {
    oacCollectionGroupType,
    oacSetGroupType,
};

/// Whether a group may hold an object more than once.
OA_NAMED_ENUM(oaGroupType);

enum oaGroupDeleteWhenEnum {
    oacNeverGroupDeleteWhen,
    oacOnFirstGroupDeleteWhen,
    oacOnLastGroupDeleteWhen,
};

/// When a group goes with its members.
OA_NAMED_ENUM(oaGroupDeleteWhen);

enum oaDomainEnum {
    oacFutureDomain,
    oacNoDomain,
    oacBlockDomain,
    oacOccDomain,
    oacModDomain,
};

/// The domain of a design that an object belongs to.
OA_NAMED_ENUM(oaDomain);

enum oaNameTypeEnum {
    oacEmptyNameType,
    oacScalarNameType,
    oacVectorNameType,
    oacVectorBitNameType,
    oacBundleNameType,
};

/// The form of a name.
OA_NAMED_ENUM(oaNameType);

enum oaDBTypeEnum {
    oacFutureDBType,
    oacBaseDBType,
    oacDesignDBType,
    oacTechDBType,
    oacLibDBType,
    oacWaferDBType,
    oacSessionDBType,
    oacDMDataDBType,
};

/// The kind of a database.
OA_NAMED_ENUM(oaDBType);

} // namespace OpenAccess_4

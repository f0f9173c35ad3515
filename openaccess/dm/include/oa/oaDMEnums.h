#pragma once

#include "oaNamedEnum.h"

namespace OpenAccess_4 {

enum oaLibAccessEnum {
    oacReadLibAccess,
    oacWriteLibAccess,
};

/// The access to a library that a caller asks for.
OA_NAMED_ENUM(oaLibAccess);

enum oaLibAccessLevelEnum {
    oacNoLibAccessLevel,
    oacReadLibAccessLevel,
    oacWriteLibAccessLevel,
};

/// The access to a library that this process has.
OA_NAMED_ENUM(oaLibAccessLevel);

enum oaLibModeEnum {
    oacSharedLibMode,
    oacNonSharedLibMode,
    oacReadOnlyLibMode,
};

/// How processes share a library.
OA_NAMED_ENUM(oaLibMode);

enum oaDMLockStatusEnum {
    oacNotLocked,
    oacLockedByCurrentProcess,
    oacLockedByForeignProcess,
};

/// Who holds the edit lock of a managed file.
OA_NAMED_ENUM(oaDMLockStatus);

enum oaReservedViewTypeEnum {
    oacMaskLayout,
    oacSchematic,
    oacSchematicSymbol,
    oacNetlist,
    oacWafer,
    oacVerilogAMSText,
    oacVHDLAMSText,
    oacVerilogText,
    oacVHDLText,
    oacVerilogAText,
    oacHierDesign,
    oacSystemVerilogText,
    oacSPECTREText,
    oacSPICEText,
    oacHSPICEText,
    oacCDLText,
};

/// The view types that every library knows.
OA_NAMED_ENUM(oaReservedViewType);

/// What is questionable in a library list.
enum oaLibDefListWarningTypeEnum {
    oacNoDefaultLibDefListWarning,
    oacCannotOpenDefaultLibDefListWarning,
    oacSyntaxErrorLibDefListWarning,
    oacCannotOpenIncludeLibDefListWarning,
    oacRecursiveIncludeLibDefListWarning,
    oacMultiDefinitionsLibDefListWarning,
    oacCannotOpenLibLibDefListWarning,
    oacUndefinedVarLibDefListWarning,
    oacLibNameUndefinedLibDefListWarning,
};

/// What changed in a library.
enum oaDMLibModTypeEnum {
    oacSetAttributesLibModType,
};

} // namespace OpenAccess_4

#pragma once

namespace OpenAccess_4 {

/// The messages of the technology package.
enum oaTechMsgIds {
    oacTechAlreadyExists = 2001,
    oacTechLibNotFound,
    oacTechNotFound,
    oacOpenUndefinedModeTech,
    oacSaveReadOnlyTech,
    oacCannotModifyReadModeTech,
    oacInvalidTechViewType,
    oacLayerNameExists,
    oacLayerNumberExists,
    oacPurposeNumberIsReserved,
    oacPurposeNumberExists,
    oacPurposeNameExists,
    oacDerivedLayerDefExists,
    oacDerivedLayerDefIsBuiltIn,
    oacDerivedLayerInvalid,
    oacInvalidDatabaseForValue,
    oacInvalidDBUPerUU,
    oacCannotDestroyOpenTech,
    oacTechAttachedTechLibDetected,
    oacTechNotAttached,
    oacInvalidTechAttachment,
    oacInvalidTechRef,
    oacDerivedLayerParamDefExists,
    oacDerivedLayerParamDefIsBuiltIn,
    oacInvalidDerivedLayerParam,
    oacCannotDestroyOwnedValue,
    oacViaDefNameExists,
    oacInvalidViaDefLayer,
    oacInvalidViaParam,
    oacSiteDefNameExists,
};

} // namespace OpenAccess_4

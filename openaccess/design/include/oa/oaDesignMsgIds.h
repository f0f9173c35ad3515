#pragma once

namespace OpenAccess_4 {

/// The messages of the design package.
enum oaDesignMsgIds {
    oacCannotFindDesign = 1001,
    oacMismatchViewTypeForOpen,
    oacInvalidDesignViewType,
    oacOpenUndefinedModeDesign,
    oacDesignCannotGetReadAccess,
    oacDesignCannotGetWriteAccess,
    oacDesignHasReadNeedWriteAccess,
    oacSaveReadOnlyDesign,
    oacSaveScratchModeDesign,
    oacCannotModifyReadModeDesign,
    oacBlockExists,
    oacNetExists,
    oacInvalidNetName,
    oacTermExists,
    oacInvalidTermName,
    oacTermPositionAlreadyTaken,
    oacPinExists,
    oacPinAndFigNotInSameBlock,
    oacCannotAddNetFigToPin,
    oacLineTooFewPoints,
    oacPathTooFewPoints,
    oacPolygonTooFewPoints,
    oacPolygonHasExtraPoints,
    oacRectBBoxInvalid,
    oacInstNameExists,
    oacInvalidSuperMaster,
    oacInvalidSubMaster,
    oacInvalidPcellMaster,
    oacPcellLinkExists,
    oacPcellEvaluatorNotFound,
    oacPcellInvalidPcellDef,
    oacPcellMasterNotBound,
    oacParamsSuppliedForNonPCellInstMaster,
    oacInvalidDataTypeForParam,
    oacPcellSubMasterNotProduced = 1201,
};

} // namespace OpenAccess_4

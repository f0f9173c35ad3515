#include "oaDesignException.h"

#include "base/src/messages.h"

namespace OpenAccess_4 {

namespace {

constexpr impl::MessageFormat formats[] = {
    {oacCannotFindDesign, "There is no design '%s/%s/%s'."},
    {oacMismatchViewTypeForOpen, "Design '%s/%s/%s' has view type '%s', not '%s'."},
    {oacInvalidDesignViewType, "View type '%s' is not one of a design."},
    {oacOpenUndefinedModeDesign,
     "Design '%s/%s/%s' cannot be opened in mode '%c'; use 'r', 'a' or 'w'."},
    {oacDesignCannotGetReadAccess, "Design '%s/%s/%s' cannot be read: %s"},
    {oacDesignCannotGetWriteAccess, "Design '%s/%s/%s' cannot be edited: %s"},
    {oacDesignHasReadNeedWriteAccess,
     "Design '%s/%s/%s' is open for reading and needs write access."},
    {oacSaveReadOnlyDesign, "Design '%s/%s/%s' is open for reading and cannot be saved."},
    {oacSaveScratchModeDesign, "Design '%s/%s/%s' is a submaster and cannot be saved."},
    {oacCannotModifyReadModeDesign, "Design '%s/%s/%s' is open for reading and cannot be changed."},
    {oacBlockExists, "Design '%s/%s/%s' already has a top block."},
    {oacNetExists, "There is already a net named '%s'."},
    {oacInvalidNetName, "'%s' is not a valid net name: %s."},
    {oacTermExists, "There is already a terminal named '%s'."},
    {oacInvalidTermName, "'%s' is not a valid terminal name: %s."},
    {oacTermPositionAlreadyTaken, "Terminal position %u is already taken by '%s'."},
    {oacPinExists, "Terminal '%s' already has a pin named '%s'."},
    {oacPinAndFigNotInSameBlock, "The pin '%s' and the figure lie in different blocks."},
    {oacCannotAddNetFigToPin, "A figure of a net cannot be added to pin '%s'."},
    {oacLineTooFewPoints, "A line needs at least 2 points, %u given."},
    {oacPathTooFewPoints, "A path needs at least 2 points, %u given."},
    {oacPolygonTooFewPoints, "A polygon needs at least 3 points, %u given."},
    {oacPolygonHasExtraPoints, "The polygon has collinear, repeated or closing points."},
    {oacRectBBoxInvalid, "The box (%d %d) (%d %d) of a rectangle is inverted or has no area."},
    {oacInstNameExists, "There is already an instance named '%s'."},
    {oacInvalidInstName, "'%s' is not a valid instance name: %s."},
    {oacArrayInstEmpty, "An array of %u rows and %u columns has no instances."},
    {oacNetAndFigNotInSameBlock, "The net '%s' and the figure lie in different blocks."},
    {oacCannotAddPinFigToNet, "A figure of a pin cannot be added to net '%s'."},
    {oacTermAndNetNotInSameBlock, "The terminal '%s' and the net lie in different blocks."},
    {oacPinAndTermNotInSameBlock, "The pin '%s' and the terminal lie in different blocks."},
    {oacPathSegTooShort, "A path segment at (%d %d) has no length."},
    {oacArcInvalid,
     "The arc in the box (%d %d) (%d %d) from %g to %g has no area around it or no length."},
    {oacEllipseBBoxInvalid, "The box (%d %d) (%d %d) of an ellipse is inverted or has no area."},
    {oacDonutRadiiInvalid, "The radius %u of a donut is not larger than that of its hole, %u."},
    {oacInvalidAttributeForObject, "There is no attribute %u of an object of type '%s'."},
    {oacNoBlockForDisplay, "Design '%s/%s/%s' has no top block to show a text in."},
    {oacDisplayCannotLeaveDesign,
     "A display of an attribute or property of design '%s/%s/%s' cannot go to another design."},
    {oacDesignHasNoBlock, "Design '%s/%s/%s' has no top block."},
    {oacEvalTextLinkExists, "A text evaluator named '%s' is already registered."},
    {oacCannotDestroyOpenDesign, "Design '%s/%s/%s' is open and cannot be destroyed."},
    {oacCannotSaveAsOpenDesign, "Design '%s/%s/%s' is open and cannot be replaced."},
    {oacInvalidSuperMaster, "Design '%s/%s/%s' is not a pcell super master."},
    {oacInvalidSubMaster, "Design '%s/%s/%s' is not a pcell submaster."},
    {oacInvalidPcellMaster, "Design '%s/%s/%s' is neither a pcell super master nor a submaster."},
    {oacPcellLinkExists, "A pcell evaluator named '%s' is already registered."},
    {oacPcellEvaluatorNotFound, "There is no pcell evaluator named '%s'. %s"},
    {oacPcellInvalidPcellDef, "The pcell definition given is not valid."},
    {oacPcellMasterNotBound, "The pcell master of '%s' is not bound."},
    {oacParamsSuppliedForNonPCellInstMaster,
     "Parameters were given for master '%s/%s/%s', which is not a pcell."},
    {oacInvalidDataTypeForParam,
     "Parameter '%s' does not exist with this type in the pcell '%s/%s/%s'."},
    {oacPcellDefinitionTooLong,
     "The definition data of pcell '%s/%s/%s' is longer than the %u bytes that its evaluator '%s' "
     "asked for."},
    {oacCannotModifySubMaster, "Design '%s/%s/%s' is a pcell submaster and cannot be changed."},
    {oacPcellEvaluatorMissing, "The evaluator '%s' of pcell '%s/%s/%s' is missing: %s."},
    {oacPcellNotEvaluated,
     "Pcell '%s/%s/%s' cannot be evaluated: its evaluator '%s' is missing, or refused it."},
    {oacPcellEvaluatesItself, "Pcell '%s/%s/%s' needs the very submaster that is being evaluated."},
    {oacPcellEvaluationsTooDeep,
     "Pcell '%s/%s/%s' cannot be evaluated: %u evaluations wait for it already."},
    {oacPcellBeingEvaluated,
     "Pcell '%s/%s/%s' is being evaluated; it can neither be closed nor replaced now."},
    {oacCannotModifyImplicitInst,
     "Instance '%s' is a bit of a vector and changes with the vector only."},
    {oacInstTermExists, "Instance '%s' already has a connection to terminal '%s'."},
    {oacInstTermNotInSameBlock, "The instance '%s' and the net lie in different blocks."},
    {oacInstTermsGoAnotherWay,
     "Instance '%s' is not connected by the %ss of terminals, as for terminal '%s'."},
    {oacTermNotInInstMaster, "Terminal '%s' is not one of the master of instance '%s'."},
    {oacInvalidViaDef,
     "The via definition '%s' is not the one of its name that the technology of design '%s/%s/%s' "
     "sees."},
    {oacInvalidViaMaster, "Design '%s/%s/%s' is not the master of a standard via."},
    {oacCannotModifyViaMaster,
     "Design '%s/%s/%s' is the master of a standard via and can neither be changed nor saved."},
    {oacInvalidInstMaster,
     "Design '%s/%s/%s' is the master of a standard via and cannot be that of an instance."},
    {oacPcellSubMasterNotProduced, "The pcell submaster cannot be produced."},
};

} // namespace

const oaChar* oaDesignException::getFormatString() const {
    return impl::findFormat(formats, getMsgId());
}

oaDesignError::oaDesignError(oaUInt4 msgId, ...) : oaDesignException(msgId) {
    va_list args;
    va_start(args, msgId);
    setMsg(args);
    va_end(args);
}

} // namespace OpenAccess_4

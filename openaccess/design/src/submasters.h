#pragma once

namespace OpenAccess_4 {
class oaDesign;
class oaParamArray;
class oaScalarName;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

struct DesignNames;

/// The submaster of `superMaster` for its defaults overlaid by `given`, made and evaluated now when
/// there is none yet. One whose evaluation failed has no block; the pcell observers were told why,
/// once. It is purged with its super master, or when the last design that is bound to it goes.
/// @throws oaDesignError  oacInvalidSuperMaster, oacInvalidDataTypeForParam;
///                        oacPcellEvaluatesItself: it is being evaluated right now;
///                        oacPcellEvaluationsTooDeep: too many evaluations wait for this one
oaDesign* submasterOf(oaDesign* superMaster, const oaParamArray& given);

/// What oaDesign documents for opening with parameters.
oaDesign* openSubmaster(const DesignNames& names, const oaParamArray& given);

/// Brings the submasters of a design in line with it, after it got another definition or content:
/// evaluates them anew, or purges them when it is no super master any more.
void renewSubmasters(oaDesign* superMaster);

/// Has the evaluator fill the super master itself, for its defaults.
/// @throws oaDesignError  oacInvalidSuperMaster, oacCannotModifyReadModeDesign
void evaluateSuperMaster(oaDesign* superMaster);

/// @throws oaDesignError  oacPcellBeingEvaluated: the design, or a submaster of it, is
void requireNotEvaluated(const oaDesign* design);

/// @throws oaDesignError  oacCannotModifySubMaster, oacCannotModifyViaMaster
void requireNoSubmaster(const oaDesign* design);

} // namespace OpenAccess_4::impl

#pragma once

#include "design/src/design_database.h"

namespace OpenAccess_4 {
class oaDesign;
class oaFig;
class oaParamArray;
class oaTransform;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

/// Moves an instance within its block.
void moveInst(oaObject* inst, const oaTransform& xform);

/// Binds the instances of a design, and of their masters down to a number of levels.
void openMastersOf(oaDesign* design, std::uint32_t levels);

/// The submaster for those of these parameters that the super master has; null when it cannot be
/// had.
oaDesign* submasterFor(oaDesign* superMaster, const oaParamArray& given);

/// Puts the defaults of a super master, in its order, under the parameters that were given; leaves
/// these as they are when the design, which may be null, is none.
void addDefaults(oaParamArray& given, const oaDesign* superMaster);

/// Groups the instances of a super master anew, in all open designs, when it has got other
/// parameters, or none.
void regroupInstancesOf(const oaDesign* superMaster);

/// Makes an instance with an automatic name like another one, moved, in a block that may be another
/// one's.
oaFig* copyInst(const oaObject* inst, const oaTransform& xform, DesignDatabase& to);

} // namespace OpenAccess_4::impl

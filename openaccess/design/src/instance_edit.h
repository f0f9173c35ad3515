#pragma once

#include "design/src/design_database.h"

namespace OpenAccess_4 {
class oaDesign;
class oaFig;
class oaTransform;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

/// Moves an instance within its block.
void moveInst(oaObject* inst, const oaTransform& xform);

/// Binds the instances of a design, and of their masters down to a number of levels.
void openMastersOf(oaDesign* design, std::uint32_t levels);

/// Groups the instances of a super master anew, in all open designs, when it has got other
/// parameters, or none.
void regroupInstancesOf(const oaDesign* superMaster);

/// Makes an instance with an automatic name like another one, moved, in a block that may be another
/// one's.
oaFig* copyInst(const oaObject* inst, const oaTransform& xform, DesignDatabase& to);

} // namespace OpenAccess_4::impl

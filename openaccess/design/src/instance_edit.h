#pragma once

#include "design/src/design_database.h"

namespace OpenAccess_4 {
class oaFig;
class oaTransform;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

/// Moves an instance within its block.
void moveInst(oaObject* inst, const oaTransform& xform);

/// Makes an instance with an automatic name like another one, moved, in a block that may be another
/// one's.
oaFig* copyInst(const oaObject* inst, const oaTransform& xform, DesignDatabase& to);

} // namespace OpenAccess_4::impl

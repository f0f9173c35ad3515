#pragma once

#include <vector>

#include <oa/oaDesignDB.h>

#include "comparison/difference.h"
#include "comparison/labels.h"

namespace comparison {

/// Tells how the shapes and vias of two blocks differ. Nets, terminals, pins and instances have
/// labels; shapes that differ get some.
void compareShapes(const Place& place, const oa::oaBlock& was, const oa::oaBlock& is,
                   Labels& labels);

/// A digest of the shapes as they lie, whatever their order and what they are connected with.
std::uint64_t digestOf(const std::vector<const oa::oaPinFig*>& shapes, const Labels& labels);

} // namespace comparison

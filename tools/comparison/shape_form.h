#pragma once

#include <oa/oaDesignDB.h>

#include "comparison/digest.h"
#include "comparison/fields.h"
#include "comparison/labels.h"

namespace comparison {

/// True for what has no name and is compared as a shape: shapes and vias.
bool isDrawn(const oa::oaObject& object);

/// The layer and the purpose of a shape in one word; 0 for a via.
std::uint64_t layerOf(const oa::oaPinFig& shape);

/// The point that a shape is placed by.
oa::oaPoint anchorOf(const oa::oaPinFig& shape);

/// Adds the kind, the geometry relative to the anchor, and everything else that belongs to the
/// shape and not to what it is connected with.
void addForm(Digest& digest, const oa::oaPinFig& shape, const oa::oaPoint& anchor,
             const Labels& labels);

/// The same in words, with places instead of what is relative to the anchor.
Fields formOf(const oa::oaPinFig& shape, const Labels& labels);

/// Tells how the outlines of two shapes of one kind differ.
void compareOutlines(const Place& place, const std::string& object, const oa::oaPinFig& was,
                     const oa::oaPinFig& is);

/// "polygon on M1/drawing (0, 0)-(90, 30)"
std::string describe(const oa::oaPinFig& shape, const Labels& labels);

/// What a shape encloses; of texts and vias the origin.
oa::oaBox extentOf(const oa::oaPinFig& shape);

} // namespace comparison

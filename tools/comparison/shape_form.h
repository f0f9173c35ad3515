#pragma once

#include <oa/oaDesignDB.h>

#include "comparison/digest.h"
#include "comparison/fields.h"
#include "comparison/labels.h"

namespace comparison {

/// True for the kinds of shapes.
bool isShape(const oa::oaObject& object);

/// The point that a shape is placed by.
oa::oaPoint anchorOf(const oa::oaShape& shape);

/// Adds the kind, the geometry relative to the anchor, and everything else that belongs to the
/// shape and not to what it is connected with.
void addForm(Digest& digest, const oa::oaShape& shape, const oa::oaPoint& anchor,
             const Labels& labels);

/// The same in words, with places instead of what is relative to the anchor.
Fields formOf(const oa::oaShape& shape, const Labels& labels);

/// Tells how the outlines of two shapes of one kind differ.
void compareOutlines(const Place& place, const std::string& object, const oa::oaShape& was,
                     const oa::oaShape& is);

/// "polygon on M1/drawing (0, 0)-(90, 30)"
std::string describe(const oa::oaShape& shape, const Labels& labels);

/// What a shape encloses; of texts the origin.
oa::oaBox extentOf(const oa::oaShape& shape);

} // namespace comparison

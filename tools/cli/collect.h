#pragma once

#include <oa/oaDesignDB.h>

#include "drawing/picture.h"

namespace cli {

/// Takes everything that a design shows, with the contents of its instances, into a picture.
///
/// Layer names come from the library's technology, else from the default tables. An instance whose
/// master cannot be had, or whose master contains it, is told in the picture's notes.
/// @throws ovalis::Exception  the database failed.
drawing::Picture collect(oa::oaDesign& design);

} // namespace cli

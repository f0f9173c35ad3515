#pragma once

#include "design/src/shape_records.h"
#include "oa/oaString.h"

namespace OpenAccess_4 {
class oaNameSpace;
}

namespace OpenAccess_4::impl {

class DesignDatabase;

// What a text shows.
oaString textOf(const DesignDatabase& database, const EvalTextRecord& text);
oaString textOf(const DesignDatabase& database, const PropDisplayRecord& display);
oaString textOf(const DesignDatabase& database, const AttrDisplayRecord& display);
oaString textOf(const DesignDatabase& database, const AttrDisplayRecord& display,
                const oaNameSpace& ns);

} // namespace OpenAccess_4::impl

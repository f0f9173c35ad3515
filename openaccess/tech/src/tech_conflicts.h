#pragma once

#include "oa/oaTech.h"

#include <cstdint>

namespace OpenAccess_4::impl {

/// What several technologies of a graph may say otherwise each.
enum class TechSetting : std::uint32_t {
    DBUPerUU,
    UserUnits,
    ManufacturingGrid,
    ClearanceMeasure,
    GateGrounded,
    ProcessFamily,
    Count
};

/// Tells the observers of the conflicts that `tech` is the first to see, and none of those that it
/// refers to. Answers true when there are none.
bool reportConflicts(const oaTech* tech);

/// Tells of those conflicts that a change of `object`, a layer, say, may have made: with its
/// technology and those that see that.
void reportConflictsOf(const oaObject* object);

/// Tells of those conflicts that a change of a setting of `tech` may have made.
void reportConflictsOf(const oaTech* tech, TechSetting setting);

} // namespace OpenAccess_4::impl

#include "oaOrient.h"

#include "base/src/named_enum.h"

namespace OpenAccess_4 {

OA_ENUM_NAMES(oaOrient, "R0", "R90", "R180", "R270", "MY", "MYR90", "MX", "MXR90")

namespace {

// Every orientation is a mirroring at the y axis (or none) followed by quarter turns.
struct Turn {
    bool mirrored;
    int quarters;
};

Turn turnOf(oaOrientEnum orient) {
    return {orient >= oacMY, static_cast<int>(orient) & 3};
}

oaOrientEnum orientOf(Turn turn) {
    return static_cast<oaOrientEnum>((turn.mirrored ? oacMY : oacR0) + (turn.quarters & 3));
}

// Mirroring after a turn is turning back after the mirroring.
Turn sequence(Turn first, Turn second) {
    const int quarters = second.mirrored ? -first.quarters : first.quarters;
    return {first.mirrored != second.mirrored, quarters + second.quarters};
}

Turn inverse(Turn turn) {
    return {turn.mirrored, turn.mirrored ? turn.quarters : -turn.quarters};
}

} // namespace

oaOrient oaOrient::concat(const oaOrient& orient) const {
    return orientOf(sequence(turnOf(*this), turnOf(orient)));
}

oaOrient oaOrient::getRelativeOrient(const oaOrient& orient) const {
    return orientOf(sequence(inverse(turnOf(*this)), turnOf(orient)));
}

} // namespace OpenAccess_4

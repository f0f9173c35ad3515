#include "design/src/shape_edit.h"

#include "oa/oaProp.h"

namespace OpenAccess_4::impl {

void takeOver(DesignDatabase& database, const ObjectRef& from, const ObjectRef& to) {
    Connectivity& connectivity = database.connectivity;
    if (const std::uint32_t net = connectivity.netFigs.ownerOf(from); net != kNone)
        connectivity.netFigs.set(to, net);
    if (const std::uint32_t pin = connectivity.pinFigs.ownerOf(from); pin != kNone)
        connectivity.pinFigs.set(to, pin);
    for (const oaObject* prop : database.properties.of(from))
        database.properties.move(slotOf(prop), to);
}

void copyProperties(const oaObject* from, oaObject* to) {
    const Location location = locationOf(from);
    for (oaObject* object : location.database->properties.of(location.ref))
        copyProperties(object, static_cast<oaProp*>(object)->copyTo(to));
}

std::span<const oaPoint> spanOf(const oaPointArray& points) {
    return {points.getElements(), points.getNumElements()};
}

oaUInt4 countDifferent(const oaPointArray& points) {
    oaUInt4 count = 0;
    for (oaUInt4 i = 0; i < points.getNumElements(); ++i)
        count += i == 0 || points[i] != points[i - 1];
    return count;
}

} // namespace OpenAccess_4::impl

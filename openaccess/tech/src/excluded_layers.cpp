#include "tech/src/excluded_layers.h"

#include "tech/src/tech_conflicts.h"
#include "tech/src/tech_database.h"

namespace OpenAccess_4 {

using namespace impl;

namespace impl {

std::vector<LayerExclusion> exclusionsIn(TechDatabase& tech) {
    std::vector<LayerExclusion> exclusions;
    tech.exclusions.forEach([&](std::uint32_t, const ExclusionRecord& exclusion) {
        exclusions.push_back(
            {static_cast<oaPhysicalLayer*>(tech.layers.handle(exclusion.layer)), exclusion.number});
    });
    return exclusions;
}

} // namespace impl

void oaPhysicalLayer::getExcludedLayers(oaLayerArray& numbers) const {
    numbers.setNumElements(0);
    for (const LayerExclusion& exclusion : exclusionsIn(techDatabaseOf(this)))
        if (exclusion.layer == this)
            numbers.append(exclusion.number);
}

void oaPhysicalLayer::setExcludedLayers(const oaLayerArray& numbers) {
    TechDatabase& tech = techDatabaseOf(this);
    tech.edit();
    tech.forgetExclusions(slotOf(this));
    for (oaUInt4 i = 0; i < numbers.getNumElements(); ++i)
        if (numbers.find(numbers[i]) == i)
            tech.exclusions.add({slotOf(this), numbers[i]});
    reportConflictsOf(this);
}

} // namespace OpenAccess_4

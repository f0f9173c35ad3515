#include "visit.h"

namespace fuzz {

void fill(oa::oaTech* tech) {
    oa::oaPhysicalLayer* metal =
        oa::oaPhysicalLayer::create(tech, "metal", 1, oa::oacMetalMaterial, 4);
    metal->setPrefRoutingDir(oa::oacHorzPrefRoutingDir);
    metal->setManufacturingGrid(5);
    oa::oaPhysicalLayer* poly = oa::oaPhysicalLayer::create(tech, "poly", 2, oa::oacPolyMaterial);
    oa::oaDerivedLayer::create(metal, poly, oa::oacAndLayerOp, "gate", 3);
    oa::oaSizedLayer::create(metal, oa::oacGrowSizeOp, 50, "wide", 4);
    oa::oaPurpose::create(tech, "annotate", 240);
    const oa::oaViewType* layout = oa::oaViewType::get(oa::oacMaskLayout);
    tech->setDBUPerUU(layout, 2000);
    tech->setUserUnits(layout, oa::oacMicron);
    tech->setDefaultManufacturingGrid(5);
    tech->setProcessFamily("family");
    oa::oaIntValue::create(tech, -3);
    oa::oaFltValue::create(tech, 0.5f);
    oa::oaBooleanValue::create(tech, true);
    oa::oaStringValue::create(tech, "value");
    oa::oaStringProp::create(tech, "name", "technology");
    oa::oaIntProp::create(metal, "thickness", 900);
}

} // namespace fuzz

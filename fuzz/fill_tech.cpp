#include "visit.h"

namespace fuzz {

void defineVias(oa::oaTech* tech) {
    oa::oaPhysicalLayer* lower = oa::oaPhysicalLayer::create(tech, "lower", 11);
    oa::oaPhysicalLayer* upper = oa::oaPhysicalLayer::create(tech, "upper", 12);
    const auto name = [](const char* text) { return oa::oaScalarName(oa::oaNativeNS(), text); };
    oa::oaViaParam params;
    params.setCutLayer(13);
    params.setCutColumns(2);
    params.setCutWidth(10);
    params.setCutHeight(10);
    params.setLayer1Enc(oa::oaVector(2, 3));
    params.setCutPatternVal(0, 1, false);
    oa::oaStdViaDef* via = oa::oaStdViaDef::create(tech, "via", lower, upper, params, lower, upper);
    via->setResistancePerCut(1.5f);
    oa::oaStringProp::create(via, "name", "a via");
    oa::oaCustomViaDef::create(tech, "custom via", name("lib"), name("cell"), name("layout"), lower,
                               upper);
    oa::oaCustomViaDef::create(tech, "missing via", name("lib"), name("missing"), name("layout"),
                               lower, upper);
}

namespace {

void defineSites(oa::oaTech* tech) {
    oa::oaScalarSiteDef::create(tech, "site", oa::oacPadSiteDefType, 10, 20, true);
    oa::oaSitePattern pattern;
    pattern.append(oa::oaSiteRef("site", oa::oaTransform(1, 2, oa::oacMX)));
    pattern.append(oa::oaSiteRef("missing", oa::oaTransform(3, 4)));
    oa::oaArraySiteDef::create(tech, "sites", oa::oacCoreSiteDefType, pattern);
}

} // namespace

void fill(oa::oaTech* tech) {
    oa::oaPhysicalLayer* metal =
        oa::oaPhysicalLayer::create(tech, "metal", 1, oa::oacMetalMaterial, 4);
    metal->setPrefRoutingDir(oa::oacHorzPrefRoutingDir);
    metal->setManufacturingGrid(5);
    oa::oaPhysicalLayer* poly = oa::oaPhysicalLayer::create(tech, "poly", 2, oa::oacPolyMaterial);
    oa::oaDerivedLayer::create(metal, poly, oa::oacAndLayerOp, "gate", 3);
    oa::oaSizedLayer::create(metal, oa::oacGrowSizeOp, 50, "wide", 4);
    oa::oaPurpose::create(tech, "annotate", 240);
    defineVias(tech);
    defineSites(tech);
    const oa::oaViewType* layout = oa::oaViewType::get(oa::oacMaskLayout);
    tech->setDBUPerUU(layout, 2000);
    tech->setUserUnits(layout, oa::oacMicron);
    tech->setDefaultManufacturingGrid(5);
    tech->setProcessFamily("family");
    oa::oaIntValue::create(tech, -3);
    oa::oaFltValue::create(tech, 0.5f);
    oa::oaBooleanValue::create(tech, true);
    oa::oaStringValue::create(tech, "value");
    oa::oaUInt8Value::create(tech, 1ull << 40);
    oa::oaLayerValue::create(tech, 2);
    oa::oaDualIntValue::create(tech, 5, -6);
    oa::oaIntRangeValue::create(tech, oa::oaIntRange(oa::oacOpenLeftRangeType, -5, 7));
    oa::oaUInt8RangeValue::create(tech, oa::oaUInt8Range(oa::oacLessThanRangeType, 1ull << 40));
    oa::oaStringProp::create(tech, "name", "technology");
    oa::oaIntProp::create(metal, "thickness", 900);
}

} // namespace fuzz

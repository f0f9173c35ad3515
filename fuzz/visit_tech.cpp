#include "digest.h"
#include "visit.h"

#include <array>

namespace fuzz {

namespace {

constexpr std::array kViewTypes = {oa::oacMaskLayout, oa::oacSchematic, oa::oacSchematicSymbol,
                                   oa::oacNetlist, oa::oacHierDesign};

void visitPhysical(const oa::oaPhysicalLayer* layer, Digest& digest) {
    digest.add(layer->getMaterial());
    digest.add(layer->getMaskNumber());
    digest.add(layer->getPrefRoutingDir());
    digest.add(layer->getManufacturingGrid());
}

void visitDerived(const oa::oaDerivedLayer* layer, Digest& digest) {
    digest.add(layer->getLayer1Num());
    digest.add(layer->getLayer2Num());
    digest.add(layer->getLayer1() != nullptr);
    digest.add(layer->getLayer2() != nullptr);
    digest.add(layer->getOperation());
    digest.add(layer->getDef() != nullptr);
}

void visitSized(const oa::oaSizedLayer* layer, Digest& digest) {
    digest.add(layer->getLayer() != nullptr);
    digest.add(layer->getOperation());
    digest.add(layer->getValue());
}

void visitLayer(const oa::oaTech* tech, const oa::oaLayer* layer, Digest& digest) {
    visitObject(layer, digest);
    oa::oaString name;
    layer->getName(name);
    digest.add(name);
    digest.add(layer->getNumber());
    digest.add(oa::oaLayer::find(tech, name) != nullptr);
    digest.add(oa::oaLayer::find(tech, layer->getNumber()) == layer);
    switch (layer->getType()) {
    case oa::oacPhysicalLayerType:
        return visitPhysical(static_cast<const oa::oaPhysicalLayer*>(layer), digest);
    case oa::oacDerivedLayerType:
        return visitDerived(static_cast<const oa::oaDerivedLayer*>(layer), digest);
    default:
        return visitSized(static_cast<const oa::oaSizedLayer*>(layer), digest);
    }
}

void visitPurpose(const oa::oaTech* tech, const oa::oaPurpose* purpose, Digest& digest) {
    visitObject(purpose, digest);
    oa::oaString name;
    purpose->getName(name);
    digest.add(name);
    digest.add(purpose->getNumber());
    digest.add(purpose->getPurposeType());
    digest.add(oa::oaPurpose::find(tech, name) != nullptr);
}

void visitUnits(const oa::oaTech* tech, Digest& digest) {
    for (const oa::oaReservedViewTypeEnum type : kViewTypes) {
        const oa::oaViewType* viewType = oa::oaViewType::get(type);
        digest.add(tech->isDBUPerUUSet(viewType));
        digest.add(tech->getDBUPerUU(viewType));
        digest.add(tech->getUserUnits(viewType));
        digest.add(tech->uuToDBU(viewType, 1.5));
        digest.add(tech->dbuToUU(viewType, 1500));
    }
    digest.add(tech->getDefaultManufacturingGrid());
}

template <class Value>
void visitPlain(const oa::oaValue* value, Digest& digest) {
    digest.add(static_cast<const Value*>(value)->get());
}

template <class Value, class Range>
void visitRange(const oa::oaValue* value, Digest& digest) {
    Range range;
    static_cast<const Value*>(value)->get(range);
    digest.add(range.getType());
    digest.add(range.getLowerBound());
    digest.add(range.getUpperBound());
}

void visitDual(const oa::oaDualIntValue* value, Digest& digest) {
    digest.add(value->getFirst());
    digest.add(value->getSecond());
}

void visitText(const oa::oaStringValue* value, Digest& digest) {
    oa::oaString text;
    value->get(text);
    digest.add(text);
}

void visitValue(const oa::oaValue* value, Digest& digest) {
    visitObject(value, digest);
    switch (value->getType()) {
    case oa::oacIntValueType:
        return visitPlain<oa::oaIntValue>(value, digest);
    case oa::oacFltValueType:
        return visitPlain<oa::oaFltValue>(value, digest);
    case oa::oacBooleanValueType:
        return visitPlain<oa::oaBooleanValue>(value, digest);
    case oa::oacUInt8ValueType:
        return visitPlain<oa::oaUInt8Value>(value, digest);
    case oa::oacLayerValueType:
        return visitPlain<oa::oaLayerValue>(value, digest);
    case oa::oacIntRangeValueType:
        return visitRange<oa::oaIntRangeValue, oa::oaIntRange>(value, digest);
    case oa::oacUInt8RangeValueType:
        return visitRange<oa::oaUInt8RangeValue, oa::oaUInt8Range>(value, digest);
    case oa::oacDualIntValueType:
        return visitDual(static_cast<const oa::oaDualIntValue*>(value), digest);
    default:
        return visitText(static_cast<const oa::oaStringValue*>(value), digest);
    }
}

void visitStdViaDef(const oa::oaStdViaDef* def, Digest& digest) {
    oa::oaViaParam params;
    def->getParams(params);
    visitViaParam(params, digest);
    digest.add(def->getImplant1Num());
    digest.add(def->getImplant2() != nullptr);
}

void visitViaDef(const oa::oaTech* tech, const oa::oaViaDef* def, Digest& digest) {
    visitObject(def, digest);
    oa::oaString name;
    def->getName(name);
    digest.add(name);
    digest.add(oa::oaViaDef::find(tech, name) != nullptr);
    digest.add(def->getLayer1Num());
    digest.add(def->getLayer2() != nullptr);
    digest.add(def->hasLayer(1));
    digest.add(def->getResistancePerCut());
    if (def->getType() == oa::oacStdViaDefType)
        return visitStdViaDef(static_cast<const oa::oaStdViaDef*>(def), digest);
    const auto* custom = static_cast<const oa::oaCustomViaDef*>(def);
    custom->getLibName(oa::oaNativeNS(), name);
    digest.add(name);
    custom->getCellName(oa::oaNativeNS(), name);
    digest.add(name);
    oa::oaScalarName view;
    custom->getViewName(view);
    view.get(oa::oaNativeNS(), name);
    digest.add(name);
}

void visitSiteDef(const oa::oaSiteDef* def, Digest& digest) {
    visitObject(def, digest);
    oa::oaString name;
    def->getName(name);
    digest.add(name);
    digest.add(def->getSiteDefType());
    digest.add(def->getWidth());
    digest.add(def->getHeight());
    digest.add(def->isSymmetricInX());
    if (def->getType() != oa::oacArraySiteDefType)
        return;
    oa::oaSitePattern pattern;
    static_cast<const oa::oaArraySiteDef*>(def)->getSitePattern(pattern);
    for (oa::oaUInt4 i = 0; i < pattern.getNumElements(); ++i) {
        digest.add(pattern[i].siteName());
        digest.add(pattern[i].transform().offset());
    }
}

} // namespace

void visitViaParam(const oa::oaViaParam& params, Digest& digest) {
    for (int type = 0; type <= oa::oacCutHeightViaParamType; ++type)
        digest.add(params.hasDefault(oa::oaViaParamTypeEnum(type)));
    digest.add(params.hasDefaultCutPattern());
    digest.add(params.getCutPatternVal(0, 1));
    for (const oa::oaUInt4 number :
         {params.getCutLayer(), params.getCutColumns(), params.getCutRows(), params.getCutWidth(),
          params.getCutHeight()})
        digest.add(number);
    for (const oa::oaVector& vector : {params.getLayer1Enc(), params.getOriginOffset()}) {
        digest.add(vector.x());
        digest.add(vector.y());
    }
}

std::uint64_t visitTech(const oa::oaTech* tech) {
    Digest digest;
    visitObject(tech, digest);
    visitUnits(tech, digest);
    oa::oaString family;
    tech->getProcessFamily(family);
    digest.add(family);
    oa::oaIter<oa::oaLayer> layers(tech->getLayers());
    while (const oa::oaLayer* layer = layers.getNext())
        visitLayer(tech, layer, digest);
    oa::oaIter<oa::oaPurpose> purposes(tech->getPurposes());
    while (const oa::oaPurpose* purpose = purposes.getNext())
        visitPurpose(tech, purpose, digest);
    oa::oaIter<oa::oaValue> values(tech->getValues());
    while (const oa::oaValue* value = values.getNext())
        visitValue(value, digest);
    oa::oaIter<oa::oaViaDef> viaDefs(tech->getViaDefs());
    while (const oa::oaViaDef* def = viaDefs.getNext())
        visitViaDef(tech, def, digest);
    oa::oaIter<oa::oaSiteDef> siteDefs(tech->getSiteDefs());
    while (const oa::oaSiteDef* def = siteDefs.getNext())
        visitSiteDef(def, digest);
    return digest.value();
}

} // namespace fuzz

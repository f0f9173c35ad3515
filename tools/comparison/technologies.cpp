#include "comparison/technologies.h"

#include <algorithm>
#include <vector>

#include "comparison/attachments.h"
#include "comparison/groups.h"
#include "comparison/matching.h"
#include "comparison/text.h"
#include "comparison/via_params.h"

namespace comparison {
namespace {

constexpr oa::oaReservedViewTypeEnum viewTypes[] = {
    oa::oacMaskLayout, oa::oacSchematic, oa::oacSchematicSymbol, oa::oacNetlist, oa::oacHierDesign};

template <class Range>
std::string rangeText(const Range& range) {
    return enumText(range.getType()) + " " + numberText(range.getLowerBound()) + ":" +
           numberText(range.getUpperBound());
}

std::string valueText(const oa::oaValue& value) {
    oa::oaString text;
    oa::oaIntRange range;
    oa::oaUInt8Range longRange;
    switch (value.getType()) {
    case oa::oacIntValueType:
        return numberText(static_cast<const oa::oaIntValue&>(value).get());
    case oa::oacFltValueType:
        return numberText(static_cast<const oa::oaFltValue&>(value).get());
    case oa::oacUInt8ValueType:
        return numberText(static_cast<const oa::oaUInt8Value&>(value).get());
    case oa::oacLayerValueType:
        return numberText(static_cast<const oa::oaLayerValue&>(value).get());
    case oa::oacBooleanValueType:
        return yesOrNo(static_cast<const oa::oaBooleanValue&>(value).get());
    case oa::oacDualIntValueType: {
        const auto& dual = static_cast<const oa::oaDualIntValue&>(value);
        return numberText(dual.getFirst()) + " " + numberText(dual.getSecond());
    }
    case oa::oacIntRangeValueType:
        static_cast<const oa::oaIntRangeValue&>(value).get(range);
        return rangeText(range);
    case oa::oacUInt8RangeValueType:
        static_cast<const oa::oaUInt8RangeValue&>(value).get(longRange);
        return rangeText(longRange);
    case oa::oacStringValueType:
        static_cast<const oa::oaStringValue&>(value).get(text);
        return quoted(text);
    default:
        return "of an unknown kind";
    }
}

/// Values have no names.
std::string labelOf(const oa::oaValue& value) {
    return enumText(value.getType()) + " " + valueText(value);
}

void addUnits(Fields& fields, const oa::oaTech& tech) {
    for (const oa::oaReservedViewTypeEnum type : viewTypes) {
        const oa::oaViewType* const viewType = oa::oaViewType::get(type);
        const std::string of = " of " + plainNameOf(*viewType);
        if (tech.isDBUPerUUSet(viewType))
            fields.set("database units per user unit" + of,
                       numberText(tech.getDBUPerUU(viewType, true)));
        if (tech.isUserUnitsSet(viewType))
            fields.set("user unit" + of, enumText(tech.getUserUnits(viewType, true)));
    }
}

std::string refsText(const oa::oaTech& tech, const LibraryNames& libraries, bool isSecond) {
    oa::oaTechHeaderArray headers;
    tech.getTechHeaders(headers, true);
    std::string text;
    for (oa::oaUInt4 at = 0; at < headers.getNumElements(); ++at) {
        oa::oaString name;
        headers[at]->getRefLibName(oa::oaNativeNS(), name);
        const std::string library = ovalis::fromOa(name);
        text += (at == 0 ? "" : ", ") + (isSecond ? libraries.shared(library) : library);
    }
    return text;
}

Fields fieldsOf(const oa::oaTech& tech, const LibraryNames& libraries, bool isSecond) {
    Fields fields;
    addUnits(fields, tech);
    if (tech.isDefaultManufacturingGridSet())
        fields.set("manufacturing grid", numberText(tech.getDefaultManufacturingGrid(true)));
    if (tech.isClearanceMeasureSet())
        fields.set("clearance measure", enumText(tech.getClearanceMeasure(true)));
    if (tech.isGateGroundedSet())
        fields.set("gate grounded", yesOrNo(tech.isGateGrounded(true)));
    if (tech.hasProcessFamily(true)) {
        oa::oaString family;
        tech.getProcessFamily(family, true);
        fields.set("process family", quoted(family));
    }
    fields.set("references", refsText(tech, libraries, isSecond));
    addAttachments(fields, tech);
    return fields;
}

void addPhysical(Fields& fields, const oa::oaPhysicalLayer& layer) {
    const oa::oaUInt4 mask = layer.getMaskNumber();
    fields.set("material", enumText(layer.getMaterial()));
    fields.set("mask number", mask == oa::oacUnsetMaskNumber ? "" : numberText(mask));
    fields.set("routing direction", enumText(layer.getPrefRoutingDir()));
    fields.set("manufacturing grid", numberText(layer.getManufacturingGrid()));
    oa::oaLayerArray excluded;
    layer.getExcludedLayers(excluded);
    std::vector<oa::oaLayerNum> numbers(excluded.getElements(),
                                        excluded.getElements() + excluded.getNumElements());
    std::sort(numbers.begin(), numbers.end());
    std::string text;
    for (const oa::oaLayerNum number : numbers)
        text += (text.empty() ? "" : ", ") + numberText(number);
    fields.set("excluded layers", text);
}

void addDerived(Fields& fields, const oa::oaDerivedLayer& layer) {
    fields.set("first layer", numberText(layer.getLayer1Num()));
    const oa::oaDerivedLayerDef* const def = layer.getDef();
    if (def != nullptr)
        fields.set("definition", quoted(plainNameOf(*def)));
    if (def == nullptr || def->getNumLayers() > 1)
        fields.set("second layer", numberText(layer.getLayer2Num()));
    oa::oaDerivedLayerParamArray params;
    layer.getParams(params);
    for (oa::oaUInt4 at = 0; at < params.getNumElements(); ++at)
        fields.add("parameter " + quoted(plainNameOf(*params[at]->getDef())),
                   valueText(*params[at]->getValue()));
}

void addSized(Fields& fields, const oa::oaSizedLayer& layer) {
    if (const oa::oaLayer* of = layer.getLayer())
        fields.set("layer", numberText(of->getNumber()));
    fields.set("operation", enumText(layer.getOperation()));
    fields.set("size", numberText(layer.getValue()));
}

Fields fieldsOf(const oa::oaLayer& layer) {
    Fields fields;
    fields.set("number", numberText(layer.getNumber()));
    fields.set("kind", enumText(layer.getType()));
    if (layer.getType() == oa::oacPhysicalLayerType)
        addPhysical(fields, static_cast<const oa::oaPhysicalLayer&>(layer));
    else if (layer.getType() == oa::oacDerivedLayerType)
        addDerived(fields, static_cast<const oa::oaDerivedLayer&>(layer));
    else if (layer.getType() == oa::oacSizedLayerType)
        addSized(fields, static_cast<const oa::oaSizedLayer&>(layer));
    addAttachments(fields, layer);
    return fields;
}

Fields fieldsOf(const oa::oaPurpose& purpose) {
    Fields fields;
    fields.set("number", numberText(purpose.getNumber()));
    fields.set("type", enumText(purpose.getPurposeType()));
    addAttachments(fields, purpose);
    return fields;
}

std::string numberOrNone(oa::oaUInt4 number) {
    return number == oa::oacNullIndex ? "" : numberText(number);
}

/// `libraries` is null for the first side.
Fields fieldsOf(const oa::oaViaDef& def, const LibraryNames* libraries) {
    static const oa::oaNativeNS ns;
    Fields fields;
    fields.set("kind", enumText(def.getType()));
    fields.set("first layer", numberText(def.getLayer1Num()));
    fields.set("second layer", numberText(def.getLayer2Num()));
    fields.set("resistance per cut", numberText(def.getResistancePerCut()));
    addAttachments(fields, def);
    if (def.getType() == oa::oacStdViaDefType) {
        const auto& standard = static_cast<const oa::oaStdViaDef&>(def);
        fields.set("first implant", numberOrNone(standard.getImplant1Num()));
        fields.set("second implant", numberOrNone(standard.getImplant2Num()));
        oa::oaViaParam params;
        standard.getParams(params);
        addViaParams(fields, params);
        return fields;
    }
    const auto& custom = static_cast<const oa::oaCustomViaDef&>(def);
    oa::oaString library;
    oa::oaString cell;
    oa::oaString view;
    custom.getLibName(ns, library);
    custom.getCellName(ns, cell);
    custom.getViewName(ns, view);
    const std::string name = ovalis::fromOa(library);
    fields.set("master", (libraries == nullptr ? name : libraries->shared(name)) + "/" +
                             ovalis::fromOa(cell) + "/" + ovalis::fromOa(view));
    return fields;
}

std::string patternText(const oa::oaArraySiteDef& def) {
    oa::oaSitePattern pattern;
    def.getSitePattern(pattern);
    std::string text;
    for (oa::oaUInt4 at = 0; at < pattern.getNumElements(); ++at) {
        const oa::oaTransform& place = pattern[at].transform();
        text += (at == 0 ? "" : ", ") + quoted(pattern[at].siteName()) + " " +
                textOf(place.offset()) + " " + enumText(place.orient());
    }
    return text;
}

Fields fieldsOf(const oa::oaSiteDef& def) {
    Fields fields;
    fields.set("kind", enumText(def.getType()));
    fields.set("type", enumText(def.getSiteDefType()));
    fields.set("symmetric in x", yesOrNo(def.isSymmetricInX()));
    fields.set("symmetric in y", yesOrNo(def.isSymmetricInY()));
    fields.set("symmetric in rotation", yesOrNo(def.isSymmetricInRot()));
    addAttachments(fields, def);
    if (def.getType() == oa::oacArraySiteDefType) {
        fields.set("pattern", patternText(static_cast<const oa::oaArraySiteDef&>(def)));
    } else {
        fields.set("width", numberText(def.getWidth()));
        fields.set("height", numberText(def.getHeight()));
    }
    return fields;
}

template <class Object, class Owner>
Named<Object> named(const oa::oaCollection<Object, Owner>& collection) {
    Named<Object> all;
    oa::oaIter<Object> objects(collection);
    while (const Object* object = objects.getNext())
        all[plainNameOf(*object)] = object;
    return all;
}

/// Layers or purposes. One with the same number and another name has been renamed.
template <class Object>
void compareNumbered(const Place& place, const char* kind, const Named<Object>& was,
                     const Named<Object>& is, Labels& labels) {
    Matching<Object> matching = matchByName(was, is);
    matchByContent<Object>(matching,
                           [](const Object& object) { return numberText(object.getNumber()); });
    const auto labelOf = [kind](const Object& object) {
        return std::string(kind) + " " + quoted(plainNameOf(object));
    };
    for (const auto* pairs : {&matching.both, &matching.renamed})
        for (const auto& [first, second] : *pairs) {
            labels.pair(first, second, labelOf(*first));
            if (pairs == &matching.renamed)
                place.renamed(labelOf(*first), quoted(plainNameOf(*second)));
            compareFields(place, labelOf(*first), fieldsOf(*first), fieldsOf(*second));
        }
    for (const Object* object : matching.removed)
        place.removed(labelOf(*object));
    for (const Object* object : matching.added)
        place.added(labelOf(*object));
}

/// Objects that are known by their names alone.
template <class Object, class FieldsOfFirst, class FieldsOfSecond>
void compareNamed(const Place& place, const char* kind, const Named<Object>& was,
                  const Named<Object>& is, Labels& labels, FieldsOfFirst ofFirst,
                  FieldsOfSecond ofSecond) {
    const Matching<Object> matching = matchByName(was, is);
    const auto labelOf = [kind](const Object& object) {
        return std::string(kind) + " " + quoted(plainNameOf(object));
    };
    for (const auto& [first, second] : matching.both) {
        labels.pair(first, second, labelOf(*first));
        compareFields(place, labelOf(*first), ofFirst(*first), ofSecond(*second));
    }
    for (const Object* object : matching.removed) {
        labels.pair(object, nullptr, labelOf(*object));
        place.removed(labelOf(*object));
    }
    for (const Object* object : matching.added) {
        labels.pair(nullptr, object, labelOf(*object));
        place.added(labelOf(*object));
    }
}

void compareDefinitions(const Place& place, const oa::oaTech& was, const oa::oaTech& is,
                        const LibraryNames& libraries, Labels& labels) {
    compareNamed(
        place, "via definition", named(was.getViaDefs(oa::oacViaDefIterLocal)),
        named(is.getViaDefs(oa::oacViaDefIterLocal)), labels,
        [](const oa::oaViaDef& def) { return fieldsOf(def, nullptr); },
        [&libraries](const oa::oaViaDef& def) { return fieldsOf(def, &libraries); });
    const auto ofSite = [](const oa::oaSiteDef& def) { return fieldsOf(def); };
    compareNamed(place, "site definition", named(was.getSiteDefs(oa::oacSiteDefIterLocal)),
                 named(is.getSiteDefs(oa::oacSiteDefIterLocal)), labels, ofSite, ofSite);
}

struct ValueText {
    std::string text;
    const oa::oaValue* value;

    bool operator<(const ValueText& other) const { return text < other.text; }
};

/// The values that stand for themselves: those of parameters are told with these.
std::vector<ValueText> valuesOf(const oa::oaTech& tech) {
    std::vector<ValueText> texts;
    oa::oaIter<oa::oaValue> values(tech.getValues(oa::oacTechValueIterLocal));
    while (const oa::oaValue* value = values.getNext()) {
        if (value->isOwned())
            continue;
        Fields fields;
        addAttachments(fields, *value);
        texts.push_back({labelOf(*value) + '\0' + textOf(fields), value});
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

/// Of the values that are on one side only, the first ones of a type belong
/// together.
void compareValues(const Place& place, const oa::oaTech& was, const oa::oaTech& is) {
    const std::vector<ValueText> first = valuesOf(was);
    const std::vector<ValueText> second = valuesOf(is);
    std::vector<ValueText> removed;
    std::vector<ValueText> added;
    std::set_difference(first.begin(), first.end(), second.begin(), second.end(),
                        std::back_inserter(removed));
    std::set_difference(second.begin(), second.end(), first.begin(), first.end(),
                        std::back_inserter(added));
    for (const ValueText& old : removed) {
        const auto partner = std::find_if(added.begin(), added.end(), [&](const ValueText& other) {
            return other.value->getType() == old.value->getType();
        });
        if (partner == added.end()) {
            place.removed(labelOf(*old.value));
            continue;
        }
        Fields fields;
        Fields others;
        fields.set("value", valueText(*old.value));
        others.set("value", valueText(*partner->value));
        addAttachments(fields, *old.value);
        addAttachments(others, *partner->value);
        compareFields(place, labelOf(*old.value), fields, others);
        added.erase(partner);
    }
    for (const ValueText& value : added)
        place.added(labelOf(*value.value));
}

} // namespace

void compareTechnologies(const Place& place, const oa::oaTech& was, const oa::oaTech& is,
                         const LibraryNames& libraries) {
    Labels labels;
    labels.pair(&was, &is, "technology");
    compareFields(place, "technology", fieldsOf(was, libraries, false),
                  fieldsOf(is, libraries, true));
    compareNumbered(place, "layer", named(was.getLayers(oa::oacLayerIterLocal)),
                    named(is.getLayers(oa::oacLayerIterLocal)), labels);
    compareNumbered(place, "purpose", named(was.getPurposes(oa::oacPurposeIterLocal)),
                    named(is.getPurposes(oa::oacPurposeIterLocal)), labels);
    compareDefinitions(place, was, is, libraries, labels);
    compareValues(place, was, is);
    compareGroups(place, was, is, labels);
}

} // namespace comparison

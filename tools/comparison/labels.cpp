#include "comparison/labels.h"

#include "comparison/shape_form.h"
#include "comparison/text.h"

namespace comparison {
namespace {

template <class Named>
std::string nameIn(const oa::oaTech* const (&techs)[2], std::uint32_t number) {
    for (const oa::oaTech* tech : techs)
        if (const Named* found = tech == nullptr ? nullptr : Named::find(tech, oa::oaUInt4{number}))
            return plainNameOf(*found);
    return numberText(number);
}

template <class Named>
std::string plainLabel(const char* kind, const oa::oaObject& object) {
    return std::string(kind) + " " + quoted(plainNameOf(static_cast<const Named&>(object)));
}

} // namespace

Labels::Labels(const oa::oaDesign& was, const oa::oaDesign& is)
    : techs_{was.getTech(), is.getTech()} {}

void Labels::pair(const oa::oaObject* was, const oa::oaObject* is, const std::string& label) {
    ++last_;
    labels_[last_] = {last_, was != nullptr && is != nullptr, label};
    if (was != nullptr)
        numbers_[was] = last_;
    if (is != nullptr)
        numbers_[is] = last_;
}

std::uint64_t Labels::numberOf(const oa::oaObject* object) const {
    const auto found = numbers_.find(object);
    return found == numbers_.end() ? 0 : found->second;
}

bool Labels::hasPartner(const oa::oaObject* object) const {
    const auto found = labels_.find(numberOf(object));
    return found != labels_.end() && found->second.hasPartner;
}

std::string Labels::labelOf(const oa::oaObject& object) const {
    const auto found = labels_.find(numberOf(&object));
    return found == labels_.end() ? made(object) : found->second.text;
}

std::string Labels::nameOf(const oa::oaObject& object) const {
    const std::string label = labelOf(object);
    return label.substr(label.find(' ') + 1);
}

// NOLINTNEXTLINE(misc-no-recursion): a property is called by its owner, which may be one
std::string Labels::made(const oa::oaObject& object) const {
    switch (object.getType()) {
    case oa::oacDesignType:
        return "design";
    case oa::oacBlockType:
        return "block";
    case oa::oacTechType:
        return "technology";
    case oa::oacGroupType:
        return plainLabel<oa::oaGroup>("group", object);
    case oa::oacPurposeType:
        return plainLabel<oa::oaPurpose>("purpose", object);
    case oa::oacPhysicalLayerType:
    case oa::oacDerivedLayerType:
    case oa::oacSizedLayerType:
        return plainLabel<oa::oaLayer>("layer", object);
    default:
        break;
    }
    if (object.isProp()) {
        const auto& prop = static_cast<const oa::oaProp&>(object);
        return plainLabel<oa::oaProp>("property", object) + " of " + labelOf(*prop.getOwner());
    }
    if (isDrawn(object))
        return describe(static_cast<const oa::oaPinFig&>(object), *this);
    return "object of the kind " + enumText(object.getType());
}

std::string Labels::layerText(oa::oaLayerNum layer, oa::oaPurposeNum purpose) const {
    std::string& text = layerTexts_[std::uint64_t{layer} << 32 | purpose];
    if (text.empty())
        text = nameIn<oa::oaLayer>(techs_, layer) + "/" + nameIn<oa::oaPurpose>(techs_, purpose);
    return text;
}

} // namespace comparison

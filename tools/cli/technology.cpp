#include "cli/technology.h"

#include <map>
#include <set>
#include <stdexcept>

#include <ovalis/ports.h>

#include "cli/library_access.h"

namespace cli {
namespace {

using component::NamedNumber;

constexpr std::uint32_t firstReservedPurpose = 0xFFFF0000;

/// An open technology that is closed at scope end; without `save` its changes are lost.
class OpenTechnology {
public:
    explicit OpenTechnology(oa::oaLib& lib)
        : tech_(oa::oaTech::exists(&lib, true) ? oa::oaTech::open(&lib, 'a')
                                               : oa::oaTech::create(&lib)) {}
    OpenTechnology(const OpenTechnology&) = delete;
    OpenTechnology& operator=(const OpenTechnology&) = delete;
    ~OpenTechnology() {
        try {
            tech_->close();
        } catch (const oa::oaException&) {
            // It stays open until its library closes, which is next.
        }
    }

    oa::oaTech* get() const { return tech_; }

private:
    oa::oaTech* tech_;
};

/// What has to be added to a technology, found out before anything is changed.
struct Additions {
    std::vector<NamedNumber> layers;
    std::vector<NamedNumber> purposes;
    bool units = false;
    bool userUnits = false;

    bool isEmpty() const { return layers.empty() && purposes.empty() && !units && !userUnits; }
};

template <class Named>
std::string nameOfObject(const Named& object) {
    oa::oaString name;
    object.getName(name);
    return ovalis::fromOa(name);
}

std::string numbered(const std::string& what, const NamedNumber& named) {
    return what + " \"" + named.name + "\" with number " + std::to_string(named.number);
}

bool isAmong(const std::vector<NamedNumber>& names, const NamedNumber& wanted) {
    for (const NamedNumber& known : names)
        if (known.name == wanted.name || known.number == wanted.number)
            return true;
    return false;
}

/// The object that stands in the way of a name and number; null when both are free or belong
/// together already.
template <class Named>
Named* obstacle(oa::oaTech* tech, const NamedNumber& wanted, bool& isThere) {
    Named* byName = Named::find(tech, ovalis::toOa(wanted.name));
    Named* byNumber = Named::find(tech, oa::oaUInt4{wanted.number});
    isThere = byName != nullptr && byName == byNumber;
    if (isThere)
        return nullptr;
    return byName != nullptr ? byName : byNumber;
}

/// Notes what is missing of `wanted`. What stands in the way is an error, or nothing when the name
/// is only a help for readers.
template <class Named>
void note(oa::oaTech* tech, const std::string& what, const NamedNumber& wanted, bool required,
          std::vector<NamedNumber>& additions) {
    bool isThere = false;
    const Named* inTheWay = obstacle<Named>(tech, wanted, isThere);
    if (isThere || isAmong(additions, wanted))
        return;
    if (inTheWay == nullptr) {
        additions.push_back(wanted);
        return;
    }
    if (required)
        throw std::runtime_error("the technology has " +
                                 numbered(what, {nameOfObject(*inTheWay), inTheWay->getNumber()}) +
                                 ", the component needs " + numbered(what, wanted));
}

void noteLayers(oa::oaTech* tech, const component::Component& component,
                const component::Layout& layout, Additions& additions) {
    for (const auto& [key, pair] : ovalis::tessaDefaultLayerPurposePairs())
        note<oa::oaLayer>(tech, "layer", {key.substr(0, key.find(':')), pair.first}, true,
                          additions.layers);
    for (const NamedNumber& layer : component.layerNames)
        note<oa::oaLayer>(tech, "layer", layer, true, additions.layers);
    for (const component::Layer& layer : layout.labelLayers)
        note<oa::oaLayer>(tech, "layer", {layer.name, layer.number}, false, additions.layers);
    if (component.symbol.kind != component::SymbolKind::none) {
        const auto device = ovalis::vexDefaultLayerPurposePairs().at("vex_device:drawing");
        note<oa::oaLayer>(tech, "layer", {"vex_device", device.first}, false, additions.layers);
    }
}

void notePurpose(oa::oaTech* tech, const NamedNumber& purpose, bool required,
                 Additions& additions) {
    const oa::oaPurpose* sameName = oa::oaPurpose::find(tech, ovalis::toOa(purpose.name));
    const bool reserved =
        purpose.number >= firstReservedPurpose || (sameName != nullptr && sameName->isReserved());
    if (!reserved)
        note<oa::oaPurpose>(tech, "purpose", purpose, required, additions.purposes);
}

void notePurposes(oa::oaTech* tech, const component::Component& component,
                  const component::Layout& layout, Additions& additions) {
    for (const NamedNumber& purpose : component.purposeNames)
        notePurpose(tech, purpose, true, additions);
    for (const component::Layer& layer : layout.labelLayers)
        notePurpose(tech, {layer.purpose, layer.purposeNumber}, false, additions);
}

void noteUnits(oa::oaTech* tech, const component::Component& component, Additions& additions) {
    const oa::oaViewType* view = oa::oaViewType::get(oa::oacMaskLayout);
    const oa::oaUserUnitsType wanted(ovalis::toOa(component.userUnit));
    additions.units = !tech->isDBUPerUUSet(view);
    additions.userUnits = !tech->isUserUnitsSet(view);
    const oa::oaUInt4 perUnit = tech->getDBUPerUU(view);
    if (!additions.units && perUnit != component.dbuPerUserUnit)
        throw std::runtime_error("the technology has " + std::to_string(perUnit) +
                                 " database units for each user unit, the component needs " +
                                 std::to_string(component.dbuPerUserUnit));
    const oa::oaUserUnitsType units = tech->getUserUnits(view);
    if (!additions.userUnits && units != wanted)
        throw std::runtime_error("the technology has the user unit " +
                                 ovalis::fromOa(units.getName()) + ", the component needs " +
                                 component.userUnit);
}

void apply(oa::oaTech* tech, const component::Component& component, const Additions& additions) {
    const oa::oaViewType* view = oa::oaViewType::get(oa::oacMaskLayout);
    if (additions.units)
        tech->setDBUPerUU(view, component.dbuPerUserUnit);
    if (additions.userUnits)
        tech->setUserUnits(view, oa::oaUserUnitsType(ovalis::toOa(component.userUnit)));
    for (const NamedNumber& layer : additions.layers)
        oa::oaPhysicalLayer::create(tech, ovalis::toOa(layer.name), layer.number);
    for (const NamedNumber& purpose : additions.purposes)
        oa::oaPurpose::create(tech, ovalis::toOa(purpose.name), purpose.number);
    tech->save();
}

} // namespace

void prepareTechnology(oa::oaLib& lib, const component::Component& component,
                       const component::Layout& layout) {
    calling([&] {
        const OpenTechnology technology(lib);
        Additions additions;
        noteUnits(technology.get(), component, additions);
        noteLayers(technology.get(), component, layout, additions);
        notePurposes(technology.get(), component, layout, additions);
        if (!additions.isEmpty())
            apply(technology.get(), component, additions);
    });
}

} // namespace cli

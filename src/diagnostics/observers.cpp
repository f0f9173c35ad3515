#include "diagnostics/observers.h"

#include <array>

#include "core/names.h"

namespace ovalis {

namespace {

constexpr oa::oaUInt4 priority = 10;

/// Adds what `makeMessage` tells, a key and a line, while the origin is active. Nothing is thrown
/// into the database: a message that cannot be made is lost.
template <class MakeMessage>
void record(msgCollector& collector, msgCollector::OriginType origin,
            MakeMessage makeMessage) noexcept {
    try {
        if (collector.isCollectorActive(origin)) {
            const TStringPair message = makeMessage();
            collector.addMessage(origin, message.get<0>(), message.get<1>());
        }
    } catch (...) {
    }
}

std::string pathOf(const oa::oaDesign& design) {
    oa::oaString lib;
    oa::oaString cell;
    oa::oaString view;
    design.getLibName(nativeNameSpace, lib);
    design.getCellName(nativeNameSpace, cell);
    design.getViewName(nativeNameSpace, view);
    return fromOa(lib) + '/' + fromOa(cell) + '/' + fromOa(view);
}

/// Adds the conflict of a definition, with the type that a database has of it.
void recordType(msgCollector& collector, msgCollector::OriginType origin, const oa::oaString& name,
                const oa::oaType& type) noexcept {
    record(collector, origin, [&] { return TStringPair(fromOa(name), fromOa(type.getName())); });
}

/// A number of the database as a signed one: an enumerator, which may be an application's own, or
/// a layer.
template <class Number>
std::string numberOf(Number value) {
    return std::to_string(static_cast<int>(value));
}

/// The key of a kind of conflict between technologies. The database's own names of the kinds are
/// not these.
std::string keyOf(oa::oaTechConflictTypeEnum type) {
    static constexpr std::array<const char*, 14> keys = {
        "LayerName",       "LayerNum",        "DerivedLayer",        "PurposeName",
        "PurposeNum",      "SiteDefName",     "ViaDefName",          "ViaSpec",
        "AnalysisLibName", "ConstraintName",  "ConstraintGroupName", "ViaVariantName",
        "StdViaVariant",   "CustomViaVariant"};
    const auto number = static_cast<std::size_t>(type);
    return number < keys.size() ? keys[number] : "Conflict[" + numberOf(type) + ']';
}

std::string libOf(const oa::oaTech& tech) {
    oa::oaString lib;
    tech.getLibName(nativeNameSpace, lib);
    return fromOa(lib);
}

std::string numberAndName(const oa::oaLayer& layer) {
    oa::oaString name;
    layer.getName(name);
    return '#' + numberOf(layer.getNumber()) + "='" + fromOa(name) + '\'';
}

} // namespace

msgPcellObserver::msgPcellObserver(msgCollector& collector)
    : oa::oaPcellObserver(priority, true), collector_(collector) {}

void msgPcellObserver::onError(oa::oaDesign* design, const oa::oaString& msg,
                               oa::oaPcellErrorTypeEnum errorType) {
    record(collector_, msgCollector::Pcell, [&] {
        return TStringPair(pathOf(*design), "Error[" + numberOf(errorType) + "]: " + fromOa(msg));
    });
}

msgLibDefListObserver::msgLibDefListObserver(msgCollector& collector)
    : oa::oaVersionedObserver<oa::oaLibDefList, 1>(priority, true), collector_(collector) {}

oa::oaBoolean msgLibDefListObserver::onLoadWarnings(oa::oaLibDefList*, const oa::oaString& msg,
                                                    oa::oaLibDefListWarningTypeEnum type) {
    record(collector_, msgCollector::LibDefs, [&] {
        // The line end belongs to the key, which programs look up.
        return TStringPair("onLoadWarning[" + numberOf(type) + "]\n", fromOa(msg));
    });
    return true; // go on loading
}

msgGroupDefObserver::msgGroupDefObserver(msgCollector& collector)
    : oa::oaVersionedObserver<oa::oaGroupDef, 0>(priority, true), collector_(collector) {}

void msgGroupDefObserver::onConflict(const oa::oaString& name, oa::oaType type) {
    recordType(collector_, msgCollector::GroupDef, name, type);
}

msgAppDefObserver::msgAppDefObserver(msgCollector& collector)
    : oa::oaVersionedObserver<oa::oaAppDef, 0>(priority, true), collector_(collector) {}

void msgAppDefObserver::onConflict(const oa::oaString& name, oa::oaType type) {
    recordType(collector_, msgCollector::AppDef, name, type);
}

msgDerivedLayerDefObserver::msgDerivedLayerDefObserver(msgCollector& collector)
    : oa::oaVersionedObserver<oa::oaDerivedLayerDef, 0>(priority, true), collector_(collector) {}

void msgDerivedLayerDefObserver::onConflict(const oa::oaString& name) {
    record(collector_, msgCollector::DerivedLayerDef,
           [&] { return TStringPair(fromOa(name), "conflict"); });
}

msgDerivedLayerParamDefObserver::msgDerivedLayerParamDefObserver(msgCollector& collector)
    : oa::oaVersionedObserver<oa::oaDerivedLayerParamDef, 0>(priority, true),
      collector_(collector) {}

void msgDerivedLayerParamDefObserver::onConflict(const oa::oaString& name, oa::oaType valueType) {
    recordType(collector_, msgCollector::DerivedLayerParamDef, name, valueType);
}

msgTechObserver::msgTechObserver(msgCollector& collector)
    : oa::oaVersionedObserver<oa::oaTech, 2>(priority, true), collector_(collector) {}

void msgTechObserver::onConflict(oa::oaTech* mostDerivedTech,
                                 oa::oaTechConflictTypeEnum conflictType, oa::oaObjectArray) {
    record(collector_, msgCollector::Tech, [&] {
        return TStringPair(keyOf(conflictType), "mostDerivedTech(Lib)=" + libOf(*mostDerivedTech));
    });
}

void msgTechObserver::onProcessFamilyConflict(const oa::oaTechArray& conflictingTechs) {
    for (oa::oaUInt4 i = 0; i < conflictingTechs.getNumElements(); ++i) {
        record(collector_, msgCollector::Tech, [&] {
            const oa::oaTech& tech = *conflictingTechs[i];
            oa::oaString family;
            tech.getProcessFamily(family, true);
            return TStringPair("ProcessFamilyConflict", libOf(tech) + '|' + fromOa(family));
        });
    }
}

void msgTechObserver::onExcludedLayerConflict(oa::oaTech* mostDerivedTech,
                                              const oa::oaPhysicalLayer* excludingLayer,
                                              const oa::oaLayer* excludedLayer) {
    record(collector_, msgCollector::Tech, [&] {
        return TStringPair("ExcludedLayerConflict",
                           "  mostDerivedTechLibName=" + libOf(*mostDerivedTech) +
                               "  excludingLayer" + numberAndName(*excludingLayer) +
                               "  excludedLayer" + numberAndName(*excludedLayer) + '\n');
    });
}

template <class Observer>
void MessageObservers::add(msgCollector::OriginType origin, msgCollector& collector) {
    if (collector.isCollectorActive(origin)) {
        all_.push_back(std::make_unique<Observer>(collector));
    }
}

MessageObservers::MessageObservers(msgCollector& collector) {
    add<msgPcellObserver>(msgCollector::Pcell, collector);
    add<msgLibDefListObserver>(msgCollector::LibDefs, collector);
    add<msgGroupDefObserver>(msgCollector::GroupDef, collector);
    add<msgAppDefObserver>(msgCollector::AppDef, collector);
    add<msgDerivedLayerDefObserver>(msgCollector::DerivedLayerDef, collector);
    add<msgDerivedLayerParamDefObserver>(msgCollector::DerivedLayerParamDef, collector);
    add<msgTechObserver>(msgCollector::Tech, collector);
}

} // namespace ovalis

#include "tech/src/tech_conflicts.h"

#include "oa/oaDerivedLayer.h"
#include "oa/oaPurpose.h"
#include "oa/oaTechHeader.h"
#include "oa/oaTechObserver.h"
#include "oa/oaViewType.h"
#include "tech/src/derived_layer_keys.h"
#include "tech/src/excluded_layers.h"
#include "tech/src/open_techs.h"
#include "tech/src/tech_database.h"
#include "tech/src/tech_graph.h"
#include "tech/src/tech_units.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>

namespace OpenAccess_4::impl {

namespace {

using Observer = oaVersionedObserver<oaTech, 2>;
using Techs = std::vector<oaTech*>;

template <class Value>
bool contains(const std::vector<Value>& values, const Value& value) {
    return std::ranges::find(values, value) != values.end();
}

/// What one technology says of a setting; nothing when it says nothing.
std::optional<std::string> valueOf(const oaTech* tech, TechSetting setting, std::size_t viewType) {
    TechDatabase& database = techDatabaseOf(tech);
    const SettingsRecord& settings = database.settings();
    const MoreSettingsRecord more = database.moreSettings();
    const auto number = [](std::uint32_t value, std::uint32_t unset) {
        return value == unset ? std::nullopt : std::optional(std::to_string(value));
    };
    switch (setting) {
    case TechSetting::DBUPerUU:
        return number(settings.dbuPerUU[viewType], 0);
    case TechSetting::UserUnits:
        return number(settings.userUnits[viewType], kNone);
    case TechSetting::ManufacturingGrid:
        return number(settings.grid, kNone);
    case TechSetting::ClearanceMeasure:
        return number(more.clearanceMeasure, kNone);
    case TechSetting::GateGrounded:
        return number(more.gateGrounded, kNone);
    default:
        if (settings.processFamily == 0)
            return std::nullopt;
        return std::string(database.strings.text(settings.processFamily));
    }
}

void notify(TechSetting setting, std::size_t viewType, const oaTechArray& techs) {
    switch (setting) {
    case TechSetting::DBUPerUU:
        return Observer::notifyDBUPerUUConflictObservers(techs, unitsViewType(viewType));
    case TechSetting::UserUnits:
        return Observer::notifyUserUnitsConflictObservers(techs, unitsViewType(viewType));
    case TechSetting::ManufacturingGrid:
        return Observer::notifyDefaultManufacturingGridConflictObservers(techs);
    case TechSetting::ClearanceMeasure:
        return Observer::notifyClearanceMeasureConflictObservers(techs);
    case TechSetting::GateGrounded:
        return Observer::notifyGateGroundedConflictObservers(techs);
    default:
        return Observer::notifyProcessFamilyConflictObservers(techs);
    }
}

/// The conflicts that one technology is the first to see.
class Conflicts {
public:
    explicit Conflicts(const oaTech* tech)
        : tech_(const_cast<oaTech*>(tech)), // the observers may change it
          graph_(graphOf(tech)) {
        TechDatabase& database = techDatabaseOf(tech);
        database.refs.forEach([&](std::uint32_t slot, const TechRefRecord&) {
            const auto* header = static_cast<oaTechHeader*>(database.refs.handle(slot));
            if (const oaTech* ref = header->getRefTech())
                graphsBelow_.push_back(graphOf(ref));
        });
    }

    /// Only tells of conflicts of this object.
    void limitTo(const oaObject* object) { involved_ = object; }
    bool found() const { return found_; }

    void reportObjects() {
        if (graph_.size() > 1) {
            reportLayers();
            reportPurposes();
            reportNames(
                oacSiteDefNameTechConflictType,
                [](TechDatabase & tech) -> auto& { return tech.siteDefs; });
            reportNames(
                oacViaDefNameTechConflictType,
                [](TechDatabase & tech) -> auto& { return tech.viaDefs; });
        }
        reportExclusions();
    }

    /// @param changed  only tells of conflicts of this one; null for all
    void reportSetting(TechSetting setting, const oaTech* changed) {
        const bool ofViewTypes =
            setting == TechSetting::DBUPerUU || setting == TechSetting::UserUnits;
        for (std::size_t i = 0; i < (ofViewTypes ? kDesignViewTypes : 1); ++i)
            reportSetting(setting, i, changed);
    }

private:
    struct Place {
        oaTech* tech;
        oaObject* object;
    };
    template <class Key>
    using Places = std::map<Key, std::vector<Place>>;

    /// True when no technology that this one refers to sees all of them.
    bool isNew(const Techs& techs) const {
        return std::ranges::none_of(graphsBelow_, [&](const Techs& below) {
            return std::ranges::all_of(techs, [&](oaTech* tech) { return contains(below, tech); });
        });
    }

    template <class Key>
    void report(oaTechConflictTypeEnum type, const Places<Key>& places) {
        for (const auto& [key, objects] : places) {
            Techs techs;
            oaObjectArray conflicting;
            for (const Place& place : objects) {
                if (!contains(techs, place.tech))
                    techs.push_back(place.tech);
                conflicting.append(place.object);
            }
            const bool meant =
                !involved_ || conflicting.find(const_cast<oaObject*>(involved_)) != oacNullIndex;
            if (techs.size() < 2 || !meant || !isNew(techs))
                continue;
            found_ = true;
            Observer::notifyConflictObservers(tech_, type, conflicting);
        }
    }

    void reportLayers() {
        Places<std::string> names;
        Places<oaLayerNum> numbers;
        Places<std::string> derivations;
        for (oaTech* tech : graph_) {
            TechDatabase& database = techDatabaseOf(tech);
            database.layers.forEach([&](std::uint32_t slot, const LayerRecord& layer) {
                const Place place{tech, database.layers.handle(slot)};
                names[std::string(database.strings.text(layer.name))].push_back(place);
                numbers[layer.number].push_back(place);
                if (layer.kind == LayerKind::Derived)
                    derivations[derivationKey(database, slot)].push_back(place);
            });
        }
        report(oacLayerNameTechConflictType, names);
        report(oacLayerNumTechConflictType, numbers);
        report(oacDerivedLayerTechConflictType, derivations);
    }

    void reportPurposes() {
        Places<std::string> names;
        Places<oaPurposeNum> numbers;
        for (oaTech* tech : graph_) {
            TechDatabase& database = techDatabaseOf(tech);
            database.purposes.forEach([&](std::uint32_t slot, const PurposeRecord& purpose) {
                const Place place{tech, database.purposes.handle(slot)};
                names[std::string(database.strings.text(purpose.name))].push_back(place);
                numbers[purpose.number].push_back(place);
            });
        }
        report(oacPurposeNameTechConflictType, names);
        report(oacPurposeNumTechConflictType, numbers);
    }

    /// Tells of records of different technologies that have one name.
    template <class TableOf>
    void reportNames(oaTechConflictTypeEnum type, TableOf tableOf) {
        Places<std::string> names;
        for (oaTech* tech : graph_) {
            TechDatabase& database = techDatabaseOf(tech);
            auto& table = tableOf(database);
            table.forEach([&](std::uint32_t slot, const auto& record) {
                names[std::string(database.strings.text(record.name))].push_back(
                    {tech, table.handle(slot)});
            });
        }
        report(type, names);
    }

    void reportExclusions() {
        for (oaTech* tech : graph_)
            for (const LayerExclusion& exclusion : exclusionsIn(techDatabaseOf(tech)))
                for (oaTech* other : graph_) {
                    const oaLayer* excluded = oaLayer::find(other, exclusion.number, true);
                    const bool meant =
                        !involved_ || involved_ == excluded || involved_ == exclusion.layer;
                    if (!excluded || !meant || !isNew({tech, other}))
                        continue;
                    found_ = true;
                    Observer::notifyExcludedLayerConflictObservers(tech_, exclusion.layer,
                                                                   excluded);
                }
    }

    void reportSetting(TechSetting setting, std::size_t viewType, const oaTech* changed) {
        Techs techs;
        oaTechArray conflicting;
        std::vector<std::string> values;
        for (oaTech* tech : graph_)
            if (auto value = valueOf(tech, setting, viewType)) {
                techs.push_back(tech);
                conflicting.append(tech);
                values.push_back(std::move(*value));
            }
        const bool agree =
            std::ranges::adjacent_find(values, std::ranges::not_equal_to()) == values.end();
        const bool meant = !changed || std::ranges::find(techs, changed) != techs.end();
        if (agree || !meant || !isNew(techs))
            return;
        found_ = true;
        notify(setting, viewType, conflicting);
    }

    oaTech* tech_;
    Techs graph_;
    std::vector<Techs> graphsBelow_;
    const oaObject* involved_ = nullptr;
    bool found_ = false;
};

/// A technology and those that see it.
Techs withTechsAbove(const oaTech* tech) {
    Techs techs = techsAbove(tech);
    techs.insert(techs.begin(), const_cast<oaTech*>(tech));
    return techs;
}

} // namespace

bool reportConflicts(const oaTech* tech) {
    Conflicts conflicts(tech);
    conflicts.reportObjects();
    for (std::uint32_t setting = 0; setting < std::uint32_t(TechSetting::Count); ++setting)
        conflicts.reportSetting(TechSetting(setting), nullptr);
    return !conflicts.found();
}

void reportConflictsOf(const oaObject* object) {
    if (!Observer::hasObservers())
        return;
    for (const oaTech* tech : withTechsAbove(static_cast<oaTech*>(object->getDatabase()))) {
        Conflicts conflicts(tech);
        conflicts.limitTo(object);
        conflicts.reportObjects();
    }
}

void reportConflictsOf(const oaTech* tech, TechSetting setting) {
    if (!Observer::hasObservers())
        return;
    for (const oaTech* each : withTechsAbove(tech))
        Conflicts(each).reportSetting(setting, tech);
}

} // namespace OpenAccess_4::impl

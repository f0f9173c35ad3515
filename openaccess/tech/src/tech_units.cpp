#include "tech/src/tech_units.h"
#include "oa/oaTech.h"
#include "oa/oaTechException.h"
#include "oa/oaTechObserver.h"
#include "oa/oaViewType.h"
#include "tech/src/tech_conflicts.h"
#include "tech/src/tech_database.h"
#include "tech/src/tech_graph.h"

#include <cmath>
#include <limits>

namespace OpenAccess_4 {

using namespace impl;
using Observer = oaVersionedObserver<oaTech, 2>;

namespace {

constexpr std::array<oaReservedViewTypeEnum, kDesignViewTypes> unitsTypes = {
    oacMaskLayout, oacSchematic, oacSchematicSymbol, oacNetlist, oacHierDesign};

/// The place of a view type among those that have units.
std::size_t unitsIndex(const oaViewType* viewType) {
    for (std::size_t i = 0; i < unitsTypes.size(); ++i)
        if (viewType == oaViewType::get(unitsTypes[i]))
            return i;
    oaString name;
    viewType->getName(name);
    throw oaTechError(oacInvalidTechViewType, static_cast<const oaChar*>(name));
}

bool isMaskLayout(const oaViewType* viewType) {
    return unitsIndex(viewType) == 0;
}

/// The nearest value that `Number` can hold; 0 for what is no number.
template <class Number>
Number nearest(double value) {
    using Limits = std::numeric_limits<Number>;
    if (std::isnan(value))
        return 0;
    if (value <= double(Limits::min()))
        return Limits::min();
    if (value >= double(Limits::max()))
        return Limits::max();
    return Number(std::round(value));
}

SettingsRecord& settingsOf(const oaTech* tech) {
    return techDatabaseOf(tech).settings();
}

/// Changes one of the settings of a view type and tells the observers.
template <class Change>
void changeUnits(oaTech* tech, oaTechModTypeEnum modType, TechSetting setting, Change change) {
    TechDatabase& database = techDatabaseOf(tech);
    database.requireEditable();
    Observer::notifyPreModifyObservers(tech, modType);
    change(database.editSettings());
    Observer::notifyPostModifyObservers(tech, modType);
    reportConflictsOf(tech, setting);
}

} // namespace

oaViewType* impl::unitsViewType(std::size_t index) {
    return oaViewType::get(unitsTypes[index]);
}

oaBoolean oaTech::isDBUPerUUSet(const oaViewType* viewType) const {
    return settingsOf(this).dbuPerUU[unitsIndex(viewType)] != 0;
}

oaUInt4 oaTech::getDBUPerUU(const oaViewType* viewType, oaBoolean local) const {
    const std::size_t index = unitsIndex(viewType);
    const oaUInt4 value = firstInGraph(
        this, local, [&](const oaTech* tech) { return settingsOf(tech).dbuPerUU[index]; });
    return value != 0 ? value : getDefaultDBUPerUU(viewType);
}

void oaTech::setDBUPerUU(const oaViewType* viewType, oaUInt4 value) {
    const std::size_t index = unitsIndex(viewType);
    if (value == 0)
        throw oaTechError(oacInvalidDBUPerUU);
    changeUnits(this, oacSetDBUPerUUTechModType, TechSetting::DBUPerUU,
                [&](SettingsRecord& settings) { settings.dbuPerUU[index] = value; });
}

void oaTech::unsetDBUPerUU(const oaViewType* viewType) {
    const std::size_t index = unitsIndex(viewType);
    changeUnits(this, oacUnsetDBUPerUUTechModType, TechSetting::DBUPerUU,
                [&](SettingsRecord& settings) { settings.dbuPerUU[index] = 0; });
}

oaUInt4 oaTech::getDefaultDBUPerUU(const oaViewType* viewType) {
    return isMaskLayout(viewType) ? 1000 : 160;
}

oaBoolean oaTech::isUserUnitsSet(const oaViewType* viewType) const {
    return settingsOf(this).userUnits[unitsIndex(viewType)] != kNone;
}

oaUserUnitsType oaTech::getUserUnits(const oaViewType* viewType, oaBoolean local) const {
    const std::size_t index = unitsIndex(viewType);
    const oaTech* tech = firstInGraph(this, local, [&](const oaTech* each) {
        return settingsOf(each).userUnits[index] == kNone ? nullptr : each;
    });
    return tech ? oaUserUnitsType(oaUserUnitsTypeEnum(settingsOf(tech).userUnits[index]))
                : getDefaultUserUnits(viewType);
}

void oaTech::setUserUnits(const oaViewType* viewType, oaUserUnitsType value) {
    const std::size_t index = unitsIndex(viewType);
    value.getName(); // refuses what is no unit
    changeUnits(this, oacSetUserUnitsTechModType, TechSetting::UserUnits,
                [&](SettingsRecord& settings) { settings.userUnits[index] = value; });
}

void oaTech::unsetUserUnits(const oaViewType* viewType) {
    const std::size_t index = unitsIndex(viewType);
    changeUnits(this, oacUnsetUserUnitsTechModType, TechSetting::UserUnits,
                [&](SettingsRecord& settings) { settings.userUnits[index] = kNone; });
}

oaUserUnitsType oaTech::getDefaultUserUnits(const oaViewType* viewType) {
    return isMaskLayout(viewType) ? oacMicron : oacInch;
}

oaInt4 oaTech::uuToDBU(const oaViewType* viewType, oaDouble value) const {
    return nearest<oaInt4>(value * getDBUPerUU(viewType));
}

oaUInt4 oaTech::uuToDBUDistance(const oaViewType* viewType, oaDouble value) const {
    return nearest<oaUInt4>(value * getDBUPerUU(viewType));
}

oaUInt8 oaTech::uuToDBUArea(const oaViewType* viewType, oaDouble value) const {
    const double scale = getDBUPerUU(viewType);
    return nearest<oaUInt8>(value * scale * scale);
}

oaDouble oaTech::dbuToUU(const oaViewType* viewType, oaInt4 value) const {
    return value / double(getDBUPerUU(viewType));
}

oaDouble oaTech::dbuToUUDistance(const oaViewType* viewType, oaUInt8 value) const {
    return double(value) / getDBUPerUU(viewType);
}

oaDouble oaTech::dbuToUUArea(const oaViewType* viewType, oaUInt8 value) const {
    const double scale = getDBUPerUU(viewType);
    return double(value) / (scale * scale);
}

} // namespace OpenAccess_4

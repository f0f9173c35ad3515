#include "oa/oaTech.h"
#include "oa/oaTechException.h"
#include "oa/oaViewType.h"
#include "tech/src/tech_database.h"

#include <cmath>
#include <limits>

namespace OpenAccess_4 {

using namespace impl;

namespace {

/// The place of a view type among those that have units.
std::size_t unitsIndex(const oaViewType* viewType) {
    static constexpr std::array<oaReservedViewTypeEnum, kDesignViewTypes> types = {
        oacMaskLayout, oacSchematic, oacSchematicSymbol, oacNetlist, oacHierDesign};
    for (std::size_t i = 0; i < types.size(); ++i)
        if (viewType == oaViewType::get(types[i]))
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

} // namespace

oaBoolean oaTech::isDBUPerUUSet(const oaViewType* viewType) const {
    return settingsOf(this).dbuPerUU[unitsIndex(viewType)] != 0;
}

oaUInt4 oaTech::getDBUPerUU(const oaViewType* viewType, oaBoolean /*local*/) const {
    const oaUInt4 value = settingsOf(this).dbuPerUU[unitsIndex(viewType)];
    return value != 0 ? value : getDefaultDBUPerUU(viewType);
}

void oaTech::setDBUPerUU(const oaViewType* viewType, oaUInt4 value) {
    const std::size_t index = unitsIndex(viewType);
    if (value == 0)
        throw oaTechError(oacInvalidDBUPerUU);
    techDatabaseOf(this).editSettings().dbuPerUU[index] = value;
}

void oaTech::unsetDBUPerUU(const oaViewType* viewType) {
    const std::size_t index = unitsIndex(viewType);
    techDatabaseOf(this).editSettings().dbuPerUU[index] = 0;
}

oaUInt4 oaTech::getDefaultDBUPerUU(const oaViewType* viewType) {
    return isMaskLayout(viewType) ? 1000 : 160;
}

oaBoolean oaTech::isUserUnitsSet(const oaViewType* viewType) const {
    return settingsOf(this).userUnits[unitsIndex(viewType)] != kNone;
}

oaUserUnitsType oaTech::getUserUnits(const oaViewType* viewType, oaBoolean /*local*/) const {
    const std::uint32_t value = settingsOf(this).userUnits[unitsIndex(viewType)];
    return value == kNone ? getDefaultUserUnits(viewType)
                          : oaUserUnitsType(oaUserUnitsTypeEnum(value));
}

void oaTech::setUserUnits(const oaViewType* viewType, oaUserUnitsType value) {
    const std::size_t index = unitsIndex(viewType);
    value.getName(); // refuses what is no unit
    techDatabaseOf(this).editSettings().userUnits[index] = value;
}

void oaTech::unsetUserUnits(const oaViewType* viewType) {
    const std::size_t index = unitsIndex(viewType);
    techDatabaseOf(this).editSettings().userUnits[index] = kNone;
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

#include "oa/oaSiteDef.h"

#include "oa/oaBox.h"
#include "oa/oaTech.h"
#include "oa/oaTechException.h"
#include "tech/src/open_techs.h"
#include "tech/src/tech_conflicts.h"
#include "tech/src/tech_database.h"
#include "tech/src/tech_graph.h"

#include <algorithm>
#include <climits>

namespace OpenAccess_4 {

using namespace impl;

namespace {

enum Symmetry : std::uint8_t { kInX = 1, kInY = 2, kInRot = 4 };

SiteDefRecord& defOf(const oaSiteDef* def) {
    return recordOf<SiteDefRecord>(def);
}

/// The record of a definition, to be changed.
SiteDefRecord& editedDef(const oaSiteDef* def) {
    databaseOf(def).edit();
    return defOf(def);
}

SiteDefRecord newDef(oaSiteDefType type, bool isArray, bool inX, bool inY, bool inRot) {
    type.getName(); // refuses what is no type
    SiteDefRecord def;
    def.siteType = std::uint8_t(type);
    def.isArray = isArray;
    def.symmetry = std::uint8_t((inX ? kInX : 0) | (inY ? kInY : 0) | (inRot ? kInRot : 0));
    return def;
}

std::uint32_t addDef(oaTech* tech, const oaString& name, SiteDefRecord def) {
    TechDatabase& database = techDatabaseOf(tech);
    database.requireEditable();
    if (const oaSiteDef* other = oaSiteDef::find(tech, name))
        throw oaTechError(oacSiteDefNameExists, nameOf(techDatabaseOf(other)).c_str(),
                          static_cast<const oaChar*>(name));
    database.edit();
    def.name = database.strings.intern(std::string_view(name));
    return database.siteDefs.add(def);
}

void addPattern(TechDatabase& tech, std::uint32_t array, const oaSitePattern& pattern) {
    for (oaUInt4 i = 0; i < pattern.getNumElements(); ++i) {
        const oaTransform& place = pattern[i].transform();
        tech.siteRefs.add({array, tech.strings.intern(std::string_view(pattern[i].siteName())),
                           place.xOffset(), place.yOffset(),
                           std::uint32_t(oaOrientEnum(place.orient()))});
    }
}

void forgetPattern(TechDatabase& tech, std::uint32_t array) {
    tech.siteRefs.forEach([&](std::uint32_t slot, const SiteRefRecord& ref) {
        if (ref.array == array)
            tech.siteRefs.destroy(slot);
    });
}

bool isSymmetric(const oaSiteDef* def, Symmetry symmetry) {
    return (defOf(def).symmetry & symmetry) != 0;
}

void setSymmetric(oaSiteDef* def, Symmetry symmetry, bool value) {
    SiteDefRecord& record = editedDef(def);
    record.symmetry =
        std::uint8_t(value ? record.symmetry | symmetry : record.symmetry & ~symmetry);
}

oaCoord coordinate(oaUInt4 length) {
    return oaCoord(std::min<oaUInt4>(length, INT_MAX));
}

/// The extent of the sites of a pattern. Arrays in arrays are left out: they could go round.
struct Extent {
    std::int64_t left = INT64_MAX;
    std::int64_t bottom = INT64_MAX;
    std::int64_t right = INT64_MIN;
    std::int64_t top = INT64_MIN;

    void add(const oaBox& box) {
        left = std::min<std::int64_t>(left, box.left());
        bottom = std::min<std::int64_t>(bottom, box.bottom());
        right = std::max<std::int64_t>(right, box.right());
        top = std::max<std::int64_t>(top, box.top());
    }
    oaUInt4 width() const { return right < left ? 0 : oaUInt4(right - left); }
    oaUInt4 height() const { return top < bottom ? 0 : oaUInt4(top - bottom); }
};

Extent extentOf(const oaSiteDef* array) {
    oaSitePattern pattern;
    static_cast<const oaArraySiteDef*>(array)->getSitePattern(pattern);
    Extent extent;
    for (oaUInt4 i = 0; i < pattern.getNumElements(); ++i) {
        const oaSiteDef* site = oaSiteDef::find(array->getTech(), pattern[i].siteName());
        if (!site || defOf(site).isArray)
            continue;
        oaBox box(0, 0, coordinate(defOf(site).width), coordinate(defOf(site).height));
        box.transform(pattern[i].transform());
        extent.add(box);
    }
    return extent;
}

} // namespace

namespace impl {

oaObject* SiteDefRecord::construct(void* where) const {
    return isArray ? Handles::construct<oaArraySiteDef>(where)
                   : Handles::construct<oaScalarSiteDef>(where);
}

bool TechDatabase::areSitesSound() {
    bool sound = siteDefIndex.isSound();
    siteRefs.forEach([&](std::uint32_t, const SiteRefRecord& ref) {
        sound = sound && siteDefs[ref.array].isArray;
    });
    return sound;
}

} // namespace impl

oaSiteDef* oaSiteDef::find(const oaTech* tech, const oaString& name, oaBoolean local) {
    return firstInGraph(tech, local, [&](const oaTech* each) {
        TechDatabase& database = techDatabaseOf(each);
        const std::uint32_t slot = database.siteDefIndex.find(std::string_view(name));
        return slot == kNone ? nullptr : static_cast<oaSiteDef*>(database.siteDefs.handle(slot));
    });
}

void oaSiteDef::getName(oaString& name) const {
    name = databaseOf(this).strings.chars(defOf(this).name);
}

oaSiteDefType oaSiteDef::getSiteDefType() const {
    return oaSiteDefTypeEnum(defOf(this).siteType);
}

void oaSiteDef::setType(oaSiteDefType type) {
    type.getName(); // refuses what is no type
    editedDef(this).siteType = std::uint8_t(type);
}

oaUInt4 oaSiteDef::getWidth() const {
    return defOf(this).isArray ? extentOf(this).width() : defOf(this).width;
}

oaUInt4 oaSiteDef::getHeight() const {
    return defOf(this).isArray ? extentOf(this).height() : defOf(this).height;
}

oaBoolean oaSiteDef::isSymmetricInX() const {
    return isSymmetric(this, kInX);
}

oaBoolean oaSiteDef::isSymmetricInY() const {
    return isSymmetric(this, kInY);
}

oaBoolean oaSiteDef::isSymmetricInRot() const {
    return isSymmetric(this, kInRot);
}

void oaSiteDef::setSymmetricInX(oaBoolean val) {
    setSymmetric(this, kInX, val);
}

void oaSiteDef::setSymmetricInY(oaBoolean val) {
    setSymmetric(this, kInY, val);
}

void oaSiteDef::setSymmetricInRot(oaBoolean val) {
    setSymmetric(this, kInRot, val);
}

void oaSiteDef::destroy() {
    TechDatabase& tech = techDatabaseOf(this);
    tech.edit();
    const std::uint32_t slot = slotOf(this);
    forgetPattern(tech, slot);
    tech.forgetAttachments({kSiteDefTable, slot});
    tech.siteDefIndex.remove(slot);
    tech.siteDefs.destroy(slot);
}

oaScalarSiteDef* oaScalarSiteDef::create(oaTech* tech, const oaString& name, oaSiteDefType type,
                                         oaUInt4 width, oaUInt4 height, oaBoolean isSymmetricInX,
                                         oaBoolean isSymmetricInY, oaBoolean isSymmetricInRot) {
    SiteDefRecord def = newDef(type, false, isSymmetricInX, isSymmetricInY, isSymmetricInRot);
    def.width = width;
    def.height = height;
    const std::uint32_t slot = addDef(tech, name, def);
    oaObject* added = techDatabaseOf(tech).siteDefs.handle(slot);
    reportConflictsOf(added);
    return static_cast<oaScalarSiteDef*>(added);
}

void oaScalarSiteDef::setWidth(oaUInt4 width) {
    editedDef(this).width = width;
}

void oaScalarSiteDef::setHeight(oaUInt4 height) {
    editedDef(this).height = height;
}

oaArraySiteDef* oaArraySiteDef::create(oaTech* tech, const oaString& name, oaSiteDefType type,
                                       const oaSitePattern& sitePattern, oaBoolean isSymmetricInX,
                                       oaBoolean isSymmetricInY, oaBoolean isSymmetricInRot) {
    const SiteDefRecord def = newDef(type, true, isSymmetricInX, isSymmetricInY, isSymmetricInRot);
    const std::uint32_t slot = addDef(tech, name, def);
    TechDatabase& database = techDatabaseOf(tech);
    addPattern(database, slot, sitePattern);
    oaObject* added = database.siteDefs.handle(slot);
    reportConflictsOf(added);
    return static_cast<oaArraySiteDef*>(added);
}

void oaArraySiteDef::getSitePattern(oaSitePattern& sitePattern) const {
    TechDatabase& tech = techDatabaseOf(this);
    const std::uint32_t array = slotOf(this);
    sitePattern.setNumElements(0);
    tech.siteRefs.forEach([&](std::uint32_t, const SiteRefRecord& ref) {
        if (ref.array == array)
            sitePattern.append(oaSiteRef(tech.strings.chars(ref.site),
                                         oaTransform(ref.x, ref.y, oaOrientEnum(ref.orient))));
    });
}

void oaArraySiteDef::setSitePattern(const oaSitePattern& sitePattern) {
    TechDatabase& tech = techDatabaseOf(this);
    tech.edit();
    forgetPattern(tech, slotOf(this));
    addPattern(tech, slotOf(this), sitePattern);
    tech.noteGarbage();
}

} // namespace OpenAccess_4

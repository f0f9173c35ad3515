#include "oa/oaPurpose.h"

#include "oa/oaTech.h"
#include "oa/oaTechException.h"
#include "tech/src/open_techs.h"
#include "tech/src/tech_conflicts.h"
#include "tech/src/tech_database.h"
#include "tech/src/tech_graph.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

/// The reserved purpose of a name; kReservedPurposes when there is none.
std::uint32_t reservedTypeOf(const oaString& name) {
    std::uint32_t type = 0;
    while (type < kReservedPurposes && name != oaPurposeType(oaPurposeTypeEnum(type)).getName())
        ++type;
    return type;
}

oaPurpose* reserved(TechDatabase& tech, std::uint32_t type) {
    return static_cast<oaPurpose*>(tech.reservedPurposes.handle(type));
}

oaPurpose* purposeIn(TechDatabase& tech, std::uint32_t slot) {
    return slot == kNone ? nullptr : static_cast<oaPurpose*>(tech.purposes.handle(slot));
}

template <class Key>
oaPurpose* findPurpose(const oaTech* tech, Key key, oaBoolean local) {
    return firstInGraph(tech, local, [&](const oaTech* each) {
        TechDatabase& database = techDatabaseOf(each);
        return purposeIn(database, database.purposeIndex.find(key));
    });
}

void requireFreeName(TechDatabase& tech, const oaString& name) {
    const oaPurpose* other = oaPurpose::find(static_cast<oaTech*>(tech.object()), name);
    if (other)
        throw oaTechError(oacPurposeNameExists, nameOf(techDatabaseOf(other)).c_str(),
                          static_cast<const oaChar*>(name));
}

void requireFreeNumber(TechDatabase& tech, oaPurposeNum number) {
    if (number >= kFirstReservedPurposeNumber)
        throw oaTechError(oacPurposeNumberIsReserved, number);
    const oaPurpose* other = oaPurpose::find(static_cast<oaTech*>(tech.object()), number);
    if (other)
        throw oaTechError(oacPurposeNumberExists, nameOf(techDatabaseOf(other)).c_str(), number);
}

/// The technology of a purpose that may be changed.
TechDatabase& requireChangeable(const oaPurpose* purpose) {
    TechDatabase& tech = techDatabaseOf(purpose);
    tech.requireEditable();
    if (purpose->isReserved())
        throw oaTechError(oacPurposeNumberIsReserved, purpose->getNumber());
    return tech;
}

} // namespace

oaPurpose* oaPurpose::create(oaTech* tech, const oaString& name, oaPurposeNum number) {
    TechDatabase& database = techDatabaseOf(tech);
    database.requireEditable();
    requireFreeNumber(database, number);
    requireFreeName(database, name);
    database.edit();
    const StringId id = database.strings.intern(std::string_view(name));
    oaPurpose* purpose = purposeIn(database, database.purposes.add({id, number}));
    reportConflictsOf(purpose);
    return purpose;
}

oaPurpose* oaPurpose::find(const oaTech* tech, const oaString& name, oaBoolean local) {
    const std::uint32_t type = reservedTypeOf(name);
    if (type < kReservedPurposes)
        return reserved(techDatabaseOf(tech), type);
    return findPurpose(tech, std::string_view(name), local);
}

oaPurpose* oaPurpose::find(const oaTech* tech, oaPurposeNum number, oaBoolean local) {
    const std::uint32_t type = reservedPurposeNumber(number);
    if (type < kReservedPurposes)
        return reserved(techDatabaseOf(tech), type);
    return findPurpose(tech, number, local);
}

oaPurpose* oaPurpose::get(oaTech* tech, oaPurposeType type) {
    type.getName(); // refuses what is no type
    return reserved(techDatabaseOf(tech), type);
}

void oaPurpose::getName(oaString& name) const {
    if (isReserved())
        name = getPurposeType().getName();
    else
        name = databaseOf(this).strings.chars(recordOf<PurposeRecord>(this).name);
}

void oaPurpose::setName(const oaString& name) {
    TechDatabase& tech = requireChangeable(this);
    if (name == tech.strings.chars(recordOf<PurposeRecord>(this).name))
        return;
    requireFreeName(tech, name);
    tech.edit();
    tech.purposeIndex.rename(slotOf(this), std::string_view(name));
    reportConflictsOf(this);
}

oaPurposeNum oaPurpose::getNumber() const {
    return recordOf<PurposeRecord>(this).number;
}

void oaPurpose::setNumber(oaPurposeNum number) {
    TechDatabase& tech = requireChangeable(this);
    if (number == getNumber())
        return;
    requireFreeNumber(tech, number);
    tech.edit();
    tech.purposeIndex.renumber(slotOf(this), number);
    reportConflictsOf(this);
}

oaPurposeType oaPurpose::getPurposeType() const {
    return isReserved() ? oaPurposeTypeEnum(slotOf(this)) : oacNoPurposeType;
}

oaBoolean oaPurpose::isReserved() const {
    return tableOf(this).id().number == kReservedPurposeTable;
}

void oaPurpose::destroy() {
    TechDatabase& tech = requireChangeable(this);
    tech.edit();
    const std::uint32_t slot = slotOf(this);
    tech.forgetAttachments({kPurposeTable, slot});
    tech.purposeIndex.remove(slot);
    tech.purposes.destroy(slot);
}

} // namespace OpenAccess_4

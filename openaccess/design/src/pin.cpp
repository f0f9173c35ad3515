#include "oa/oaPin.h"

#include "base/src/source.h"
#include "design/src/shape_edit.h"
#include "oa/oaDesignException.h"
#include "oa/oaTerm.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

std::uint32_t findPin(DesignDatabase& database, std::uint32_t term, std::string_view name) {
    const StringId id = database.strings.find(name);
    return id == kNone ? kNone : database.connectivity.pinNames.find(PinNameKey::of(term, id));
}

void requireFreeName(DesignDatabase& database, std::uint32_t term, const char* name) {
    if (findPin(database, term, name) != kNone)
        throw oaDesignError(oacPinExists,
                            database.strings.chars(database.connectivity.terms[term].name), name);
}

oaPin* createPin(oaTerm* term, const char* name, oaUInt4 accessDir) {
    DesignDatabase& database = designDatabaseOf(term);
    requireFreeName(database, slotOf(term), name);
    database.edit();
    PinRecord pin;
    pin.name = database.strings.intern(name);
    pin.term = slotOf(term);
    pin.accessDir = accessDir;
    Table<PinRecord>& pins = database.connectivity.pins;
    return static_cast<oaPin*>(pins.handle(pins.add(pin)));
}

const char* nameOf(const oaPin* pin) {
    return databaseOf(pin).strings.chars(recordOf<PinRecord>(pin).name);
}

} // namespace

oaPin* oaPin::create(oaTerm* term, oaUInt4 accessDir) {
    DesignDatabase& database = designDatabaseOf(term);
    std::size_t number = database.connectivity.termPins.of(slotOf(term)).size();
    std::string name;
    do
        name = "P__" + std::to_string(number++);
    while (findPin(database, slotOf(term), name) != kNone);
    return createPin(term, name.c_str(), accessDir);
}

oaPin* oaPin::create(oaTerm* term, const oaString& name, oaUInt4 accessDir) {
    return createPin(term, name, accessDir);
}

oaPin* oaPin::find(const oaTerm* term, const oaString& name) {
    DesignDatabase& database = designDatabaseOf(term);
    const std::uint32_t slot = findPin(database, slotOf(term), static_cast<const oaChar*>(name));
    return slot == kNone ? nullptr : static_cast<oaPin*>(database.connectivity.pins.handle(slot));
}

void oaPin::getName(oaString& name) const {
    name = nameOf(this);
}

oaTerm* oaPin::getTerm() const {
    return static_cast<oaTerm*>(
        databaseOf(this).handle({kTermTable, recordOf<PinRecord>(this).term}));
}

oaUInt4 oaPin::getAccessDir() const {
    return recordOf<PinRecord>(this).accessDir;
}

oaPlacementStatus oaPin::getPlacementStatus() const {
    return oaPlacementStatusEnum(recordOf<PinRecord>(this).status);
}

oaPinType oaPin::getPinType() const {
    return oaPinTypeEnum(recordOf<PinRecord>(this).pinType);
}

oaCollection<oaPinFig, oaPin> oaPin::getFigs() const {
    DesignDatabase& database = designDatabaseOf(this);
    std::vector<oaObject*> figs;
    for (const ObjectRef& fig : database.connectivity.pinFigs.figsOf(slotOf(this)))
        figs.push_back(database.handle(fig));
    return collectionOf<oaCollection<oaPinFig, oaPin>>(std::move(figs));
}

void oaPin::setName(const oaString& name) {
    DesignDatabase& database = designDatabaseOf(this);
    PinRecord& pin = recordOf<PinRecord>(this);
    if (name == nameOf(this))
        return;
    requireFreeName(database, pin.term, name);
    database.edit();
    database.connectivity.pinNames.remove(slotOf(this));
    pin.name = database.strings.intern(static_cast<const oaChar*>(name));
    database.connectivity.pinNames.insert(slotOf(this));
    database.noteGarbage();
}

void oaPin::setTerm(oaTerm* term) {
    DesignDatabase& database = designDatabaseOf(this);
    PinRecord& pin = recordOf<PinRecord>(this);
    if (&databaseOf(term) != &database)
        throw oaDesignError(oacPinAndTermNotInSameBlock, nameOf(this));
    if (slotOf(term) == pin.term)
        return;
    requireFreeName(database, slotOf(term), nameOf(this));
    database.edit();
    Connectivity& connectivity = database.connectivity;
    connectivity.pinNames.remove(slotOf(this));
    connectivity.termPins.remove(slotOf(this));
    pin.term = slotOf(term);
    connectivity.pinNames.insert(slotOf(this));
    connectivity.termPins.insert(slotOf(this));
}

void oaPin::setAccessDir(oaUInt4 accessDir) {
    edited(this);
    recordOf<PinRecord>(this).accessDir = accessDir;
}

void oaPin::setPlacementStatus(oaPlacementStatus status) {
    edited(this);
    recordOf<PinRecord>(this).status = std::uint8_t(status);
}

void oaPin::setPinType(oaPinType pinType) {
    edited(this);
    recordOf<PinRecord>(this).pinType = std::uint8_t(pinType);
}

void oaPin::destroy() {
    edited(this).connectivity.destroyPin(slotOf(this));
}

} // namespace OpenAccess_4

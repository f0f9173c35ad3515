#include "base/src/properties.h"

#include "base/src/constant_tables.h"
#include "base/src/database.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"
#include "oa/oaProp.h"
#include "oa/oaProps.h"

#include <array>

namespace OpenAccess_4::impl {

oaObject* PropRecord::construct(void* where) const {
    using Construct = oaObject* (*)(void*);
    static constexpr std::array<Construct, std::size_t(PropKind::Count)> constructors = {
        Handles::construct<oaIntProp>,     Handles::construct<oaIntRangeProp>,
        Handles::construct<oaFloatProp>,   Handles::construct<oaFloatRangeProp>,
        Handles::construct<oaStringProp>,  Handles::construct<oaAppProp>,
        Handles::construct<oaDoubleProp>,  Handles::construct<oaDoubleRangeProp>,
        Handles::construct<oaBooleanProp>, Handles::construct<oaHierProp>,
        Handles::construct<oaTimeProp>,    Handles::construct<oaTimeRangeProp>,
        Handles::construct<oaEnumProp>};
    return constructors[std::size_t(kind)](where);
}

namespace {

const oaChar* typeName(const Database& database, const ObjectRef& ref) {
    return oaType(database.handle(ref)->getType()).getName();
}

} // namespace

bool isTransient(const Database& database, const ObjectRef& object) {
    const TableBase* table = database.table(object.table);
    return table && table->id().kind == kTransientKind && table->id().parameter != kConstantTable;
}

Properties::Properties(Database& database)
    : database_(database), table_(database.addTable<PropRecord>(kPropTable)) {}

oaProp* Properties::create(const ObjectRef& owner, const char* name, PropKind kind,
                           const PropPayload& value) {
    if (!database_.holdsProperties() || isTransient(database_, owner))
        throw oaError(oacInvalidObjForProp, typeName(database_, owner));
    database_.edit();
    const StringId id = database_.strings.intern(name);
    requireFree(owner, name, id);
    const std::uint32_t slot = table_.add({owner, id, kind, value});
    byOwner();
    return static_cast<oaProp*>(table_.handle(slot));
}

oaProp* Properties::find(const ObjectRef& owner, std::string_view name) {
    const StringId id = database_.strings.find(name);
    const std::uint32_t slot = id == kNone ? kNone : slotOf(owner, id);
    return slot == kNone ? nullptr : static_cast<oaProp*>(table_.handle(slot));
}

std::vector<oaObject*> Properties::of(const ObjectRef& owner) {
    std::vector<oaObject*> props;
    for (const std::uint32_t slot : byOwner().slots(owner.key()))
        props.push_back(table_.handle(slot));
    return props;
}

bool Properties::any(const ObjectRef& owner) {
    return byOwner().first(owner.key()) != kNone;
}

void Properties::rename(std::uint32_t slot, const char* name) {
    database_.edit();
    const StringId id = database_.strings.intern(name);
    PropRecord& prop = table_[slot];
    if (prop.name == id)
        return;
    requireFree(prop.owner, name, id);
    prop.name = id;
    database_.noteGarbage();
}

void Properties::remove(std::uint32_t slot) {
    database_.edit();
    database_.forgetAttachments({kPropTable, slot}); // a property may have properties
    byOwner().remove(table_[slot].owner.key(), slot);
    table_.destroy(slot);
}

void Properties::removeAll(const ObjectRef& owner) {
    if (table_.live() == 0)
        return;
    for (const std::uint32_t slot : byOwner().slots(owner.key()))
        remove(slot);
}

void Properties::move(std::uint32_t slot, const ObjectRef& owner) {
    database_.edit();
    PropRecord& prop = table_[slot];
    const oaChar* name = database_.strings.chars(prop.name);
    if (isBelow(owner, slot))
        throw oaError(oacPropBelowItself, name);
    requireFree(owner, name, prop.name);
    byOwner().remove(prop.owner.key(), slot);
    prop.owner = owner;
    index_.append(owner.key(), slot);
}

bool Properties::isBelow(ObjectRef object, std::uint32_t slot) const {
    while (object.table == kPropTable && object.slot != slot)
        object = table_[object.slot].owner;
    return object == ObjectRef{kPropTable, slot};
}

bool Properties::isSound() const {
    // Each walk towards the owner ends at a property that an earlier walk has passed: once each.
    std::vector<std::uint32_t> passedIn(table_.slots(), 0);
    for (std::uint32_t first = 0; first < table_.slots(); ++first) {
        const std::uint32_t walk = first + 1;
        ObjectRef at{kPropTable, first};
        while (at.table == kPropTable && passedIn[at.slot] == 0) {
            passedIn[at.slot] = walk;
            at = table_[at.slot].owner;
        }
        if (at.table == kPropTable && passedIn[at.slot] == walk)
            return false;
    }
    return true;
}

std::uint32_t Properties::slotOf(const ObjectRef& owner, StringId name) {
    std::uint32_t slot = byOwner().first(owner.key());
    while (slot != kNone && table_[slot].name != name)
        slot = index_.next(slot);
    return slot;
}

void Properties::requireFree(const ObjectRef& owner, const char* name, StringId id) {
    if (slotOf(owner, id) != kNone)
        throw oaError(oacPropNameUsed, name);
}

ChainIndex& Properties::byOwner() {
    for (; indexed_ < table_.slots(); ++indexed_)
        index_.append(table_[indexed_].owner.key(), indexed_);
    return index_;
}

} // namespace OpenAccess_4::impl

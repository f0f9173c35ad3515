#include "base/src/app_values.h"

#include "base/src/database.h"
#include "base/src/session.h"
#include "oa/oaAppDef.h"
#include "oa/oaAppDefObserver.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"

namespace OpenAccess_4::impl {

using AppDefObserver = oaVersionedObserver<oaAppDef, 0>;

namespace {

/// A database does not keep how large the values of a definition of data are: they tell it.
void learnSize(oaAppDef* def, std::string_view value) {
    AppDefRecord& record = recordOf<AppDefRecord>(def);
    if (record.ofDatabase && record.kind == AppValueKind::Data && record.defaultText.empty())
        record.defaultText.assign(value.size(), '\0');
}

} // namespace

AppValues::AppValues(Database& database)
    : database_(database),
      defs_(database.addTable<StoredAppDefRecord>(kAppDefTable)),
      stored_{database.addTable<AppValueRecord>(kAppValueTable), {}, 0},
      transient_{
          database.addTable<AppValueRecord>(TableId{kTransientAppValueTable, kTransientKind, 0}),
          {},
          0} {}

const AppValueRecord* AppValues::find(const ObjectRef& owner, const oaAppDef* def) {
    const std::uint32_t number = numberOf(def);
    Values& values = valuesOf(def);
    const std::uint32_t slot = number == kNone ? kNone : values.find(owner, number);
    return slot == kNone ? nullptr : &values.table[slot];
}

AppValueRecord& AppValues::get(const ObjectRef& owner, const oaAppDef* def) {
    if (recordOf<AppDefRecord>(def).persistent && isTransient(database_, owner))
        throw oaError(
            oacInvalidObjForProp,
            static_cast<const oaChar*>(oaType(database_.handle(owner)->getType()).getName()));
    std::uint32_t number = numberOf(def);
    if (number == kNone)
        number = addNumber(def);
    Values& values = valuesOf(def);
    std::uint32_t slot = values.find(owner, number);
    if (slot == kNone) {
        slot = values.table.add({owner, number, 0, 0});
        values.byOwner();
    }
    return values.table[slot];
}

void AppValues::remove(const ObjectRef& owner, const oaAppDef* def) {
    const std::uint32_t number = numberOf(def);
    Values& values = valuesOf(def);
    const std::uint32_t slot = number == kNone ? kNone : values.find(owner, number);
    if (slot != kNone)
        values.remove(slot);
}

void AppValues::removeAll(const ObjectRef& owner) {
    for (Values* values : {&stored_, &transient_}) {
        if (values->table.live() == 0)
            continue;
        for (const std::uint32_t slot : values->byOwner().slots(owner.key()))
            values->remove(slot);
    }
}

void AppValues::removeAll(const oaAppDef* def) {
    const std::uint32_t number = numberOf(def);
    Values& values = valuesOf(def);
    std::vector<std::uint32_t> slots;
    values.table.forEach([&](std::uint32_t slot, const AppValueRecord& value) {
        if (value.def == number)
            slots.push_back(slot);
    });
    for (const std::uint32_t slot : slots)
        values.remove(slot);
}

void AppValues::reportConflicts() {
    if (!AppDefObserver::hasObservers())
        return;
    struct Conflict {
        std::string name;
        oaTypeEnum type;
    };
    std::vector<Conflict> conflicts; // told afterwards: observers may change what is walked through
    defs_.forEach([&](std::uint32_t, const StoredAppDefRecord& def) {
        const std::string_view name = database_.strings.text(def.name);
        if (Session::instance().disagrees(def.kind, database_.strings.text(def.objectClass), name))
            conflicts.push_back({std::string(name), typeOf(def.kind)});
    });
    for (const Conflict& conflict : conflicts)
        AppDefObserver::notifyOnConflictObservers(conflict.name.c_str(), conflict.type);
}

bool AppValues::any(const ObjectRef& owner) {
    return stored_.byOwner().first(owner.key()) != kNone ||
           transient_.byOwner().first(owner.key()) != kNone;
}

bool AppValues::isUsed(const oaAppDef* def) {
    const std::uint32_t number = numberOf(def);
    bool used = false;
    valuesOf(def).table.forEach(
        [&](std::uint32_t, const AppValueRecord& value) { used = used || value.def == number; });
    return used;
}

std::vector<oaObject*> AppValues::definitionsOf(const ObjectRef& owner) {
    std::vector<oaObject*> definitions;
    Session& session = Session::instance();
    for (const std::uint32_t slot : stored_.byOwner().slots(owner.key())) {
        const AppValueRecord& value = stored_.table[slot];
        const StoredAppDefRecord& stored = defs_[value.def];
        oaAppDef* def =
            session.getStoredAppDef(stored.kind, database_.strings.text(stored.objectClass),
                                    database_.strings.text(stored.name));
        learnSize(def, database_.strings.text(value.text));
        definitions.push_back(def);
    }
    for (const std::uint32_t slot : transient_.byOwner().slots(owner.key()))
        definitions.push_back(session.appDefs().handle(transient_.table[slot].def));
    return definitions;
}

AppValues::Values& AppValues::valuesOf(const oaAppDef* def) {
    return recordOf<AppDefRecord>(def).persistent ? stored_ : transient_;
}

std::uint32_t AppValues::numberOf(const oaAppDef* def) {
    const AppDefRecord& record = recordOf<AppDefRecord>(def);
    if (!record.persistent)
        return slotOf(def);
    if (const std::uint32_t* number = numbers_.find(slotOf(def)))
        return *number;
    std::uint32_t found = kNone;
    defs_.forEach([&](std::uint32_t slot, const StoredAppDefRecord& stored) {
        if (stored.kind == record.kind && database_.strings.text(stored.name) == record.name &&
            database_.strings.text(stored.objectClass) == record.objectClass)
            found = slot;
    });
    if (found != kNone)
        numbers_[slotOf(def)] = found;
    return found;
}

std::uint32_t AppValues::addNumber(const oaAppDef* def) {
    const AppDefRecord& record = recordOf<AppDefRecord>(def);
    const std::uint32_t number =
        defs_.add({database_.strings.intern(record.name),
                   database_.strings.intern(record.objectClass), record.kind});
    numbers_[slotOf(def)] = number;
    return number;
}

ChainIndex& AppValues::Values::byOwner() {
    for (; indexed < table.slots(); ++indexed)
        index.append(table[indexed].owner.key(), indexed);
    return index;
}

std::uint32_t AppValues::Values::find(const ObjectRef& owner, std::uint32_t def) {
    std::uint32_t slot = byOwner().first(owner.key());
    while (slot != kNone && table[slot].def != def)
        slot = index.next(slot);
    return slot;
}

void AppValues::Values::remove(std::uint32_t slot) {
    byOwner().remove(table[slot].owner.key(), slot);
    table.destroy(slot);
}

} // namespace OpenAccess_4::impl

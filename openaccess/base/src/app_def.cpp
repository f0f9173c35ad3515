#include "oa/oaAppDefObserver.h"

#include "base/src/session.h"

namespace OpenAccess_4 {

using namespace impl;
using AppDefObserver = oaVersionedObserver<oaAppDef, 0>;

namespace impl {

namespace {

std::string_view textOf(const oaByte* bytes, oaUInt4 size) {
    return {reinterpret_cast<const char*>(bytes), size};
}

const oaByte* bytesOf(std::string_view text, oaUInt4& size) {
    size = oaUInt4(text.size());
    return reinterpret_cast<const oaByte*>(text.data());
}

/// False for a value that a file holds under the name of a definition with another size: clients
/// have made room for the size of the definition.
bool isOfRightSize(const oaAppDef* def, oaUInt4 size) {
    const AppDefRecord& record = recordOf<AppDefRecord>(def);
    return record.kind != AppValueKind::Data || record.defaultText.size() == size;
}

/// Changes the value of an object and tells the observers before and after.
template <class Change>
void changeValue(const oaAppDef* def, oaObject* object, Change change) {
    const Location owner = locationOf(object);
    auto* told = const_cast<oaAppDef*>(def); // observers get the definition that they may change
    owner.database->requireEditable();
    AppDefObserver::notifyPreModifyObservers(object, told);
    owner.database->edit();
    change(owner.database->appValues, owner.ref);
    AppDefObserver::notifyPostModifyObservers(object, told);
}

oaAppDef* addDef(AppDefRecord record) {
    Table<AppDefRecord>& defs = Session::instance().appDefs();
    return static_cast<oaAppDef*>(defs.handle(defs.add(std::move(record))));
}

/// A definition that was known from a database only becomes one of the client's class, in its
/// place: pointers to it stay what they are.
oaAppDef* giveClass(oaAppDef* def, AppDefs::Make make) {
    recordOf<AppDefRecord>(def).make = make;
    Slab* slab = Handles::slabOf(def);
    def->~oaAppDef();
    oaObject* object = make(def);
    Handles::setSlab(object, slab);
    return static_cast<oaAppDef*>(object);
}

/// The session's definition: as it is, or with the wanted default when it was known from a
/// database, which keeps none.
oaAppDef* getDef(const AppDefs::Request& request, const AppDefRecord& wanted) {
    oaAppDef* def = AppDefs::find(request, wanted.make);
    if (!def)
        return addDef(wanted);
    AppDefRecord& record = recordOf<AppDefRecord>(def);
    if (record.ofDatabase) {
        record.defaultBits = wanted.defaultBits;
        record.defaultText = wanted.defaultText;
        record.ofDatabase = false;
    }
    return def;
}

} // namespace

oaAppDef* Session::getStoredAppDef(AppValueKind kind, std::string_view objectClass,
                                   std::string_view name) {
    if (oaAppDef* def = findAppDef(kind, objectClass, name))
        return def;
    AppDefRecord record{std::string(name),
                        std::string(objectClass),
                        kind,
                        true,
                        0,
                        {},
                        &Handles::construct<oaAppDef>};
    record.ofDatabase = true;
    return addDef(std::move(record));
}

oaAppDef* AppDefs::find(const Request& request, Make make) {
    oaAppDef* def = Session::instance().findAppDef(request.kind, request.objectClass, request.name);
    if (def && recordOf<AppDefRecord>(def).ofDatabase)
        return giveClass(def, make);
    return def;
}

oaAppDef* AppDefs::get(const Request& request, oaUInt8 defaultBits, oaBoolean persist, Make make) {
    const AppDefRecord wanted{
        request.name, request.objectClass, request.kind, persist != 0, defaultBits, {}, make};
    return getDef(request, wanted);
}

oaAppDef* AppDefs::get(const Request& request, const oaByte* defaultBytes, oaUInt4 size,
                       oaBoolean persist, Make make) {
    const AppDefRecord wanted{request.name,
                              request.objectClass,
                              request.kind,
                              persist != 0,
                              0,
                              std::string(textOf(defaultBytes, size)),
                              make};
    return getDef(request, wanted);
}

oaUInt8 AppDefs::bits(const oaAppDef* def, const oaObject* object) {
    const Location owner = locationOf(object);
    const AppValueRecord* value = owner.database->appValues.find(owner.ref, def);
    return value ? value->bits : defaultBits(def);
}

void AppDefs::setBits(const oaAppDef* def, oaObject* object, oaUInt8 bits) {
    changeValue(def, object, [&](AppValues& values, const ObjectRef& owner) {
        // A value that equals the default counts as none.
        if (bits == defaultBits(def))
            values.remove(owner, def);
        else
            values.get(owner, def).bits = bits;
    });
}

oaUInt8 AppDefs::defaultBits(const oaAppDef* def) {
    return recordOf<AppDefRecord>(def).defaultBits;
}

const oaByte* AppDefs::bytes(const oaAppDef* def, const oaObject* object, oaUInt4& size) {
    const Location owner = locationOf(object);
    if (const AppValueRecord* value = owner.database->appValues.find(owner.ref, def)) {
        const oaByte* stored = bytesOf(owner.database->strings.text(value->text), size);
        if (isOfRightSize(def, size))
            return stored;
    }
    return defaultBytes(def, size);
}

void AppDefs::setBytes(const oaAppDef* def, oaObject* object, const oaByte* bytes, oaUInt4 size) {
    const std::string_view text = textOf(bytes, size);
    changeValue(def, object, [&](AppValues& values, const ObjectRef& owner) {
        if (text == recordOf<AppDefRecord>(def).defaultText)
            values.remove(owner, def);
        else
            values.get(owner, def).text = databaseOf(object).strings.intern(text);
    });
}

const oaByte* AppDefs::defaultBytes(const oaAppDef* def, oaUInt4& size) {
    return bytesOf(recordOf<AppDefRecord>(def).defaultText, size);
}

} // namespace impl

void oaAppDef::getName(oaString& name) const {
    name = recordOf<AppDefRecord>(this).name.c_str();
}

oaBoolean oaAppDef::isPersistent() const {
    return recordOf<AppDefRecord>(this).persistent;
}

void oaAppDef::destroy(oaObject* object) {
    changeValue(this, object,
                [&](AppValues& values, const ObjectRef& owner) { values.remove(owner, this); });
}

oaBoolean oaAppDef::isUsedIn(const oaObject* database) const {
    return databaseOf(database).appValues.isUsed(this);
}

void oaAppDef::remove(oaObject* database) {
    databaseOf(database).edit();
    databaseOf(database).appValues.removeAll(this);
}

} // namespace OpenAccess_4

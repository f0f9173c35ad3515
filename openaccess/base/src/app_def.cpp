#include "oa/oaAppDef.h"

#include "base/src/session.h"

namespace OpenAccess_4 {

using namespace impl;

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

oaAppDef* addDef(AppDefRecord record) {
    Table<AppDefRecord>& defs = Session::instance().appDefs();
    return static_cast<oaAppDef*>(defs.handle(defs.add(std::move(record))));
}

} // namespace

oaAppDef* AppDefs::find(const Request& request) {
    return Session::instance().findAppDef(request.kind, request.objectClass, request.name);
}

oaAppDef* AppDefs::get(const Request& request, oaUInt8 defaultBits, oaBoolean persist, Make make) {
    if (oaAppDef* def = find(request))
        return def;
    return addDef(
        {request.name, request.objectClass, request.kind, persist != 0, defaultBits, {}, make});
}

oaAppDef* AppDefs::get(const Request& request, const oaByte* defaultBytes, oaUInt4 size,
                       oaBoolean persist, Make make) {
    if (oaAppDef* def = find(request))
        return def;
    return addDef({request.name, request.objectClass, request.kind, persist != 0, 0,
                   std::string(textOf(defaultBytes, size)), make});
}

oaUInt8 AppDefs::bits(const oaAppDef* def, const oaObject* object) {
    const Location owner = locationOf(object);
    const AppValueRecord* value = owner.database->appValues.find(owner.ref, def);
    return value ? value->bits : defaultBits(def);
}

void AppDefs::setBits(const oaAppDef* def, oaObject* object, oaUInt8 bits) {
    const Location owner = locationOf(object);
    owner.database->edit();
    // A value that equals the default counts as none.
    if (bits == defaultBits(def))
        owner.database->appValues.remove(owner.ref, def);
    else
        owner.database->appValues.get(owner.ref, def).bits = bits;
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
    const Location owner = locationOf(object);
    owner.database->edit();
    const std::string_view text = textOf(bytes, size);
    if (text == recordOf<AppDefRecord>(def).defaultText)
        owner.database->appValues.remove(owner.ref, def);
    else
        owner.database->appValues.get(owner.ref, def).text = owner.database->strings.intern(text);
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
    const Location owner = locationOf(object);
    owner.database->edit();
    owner.database->appValues.remove(owner.ref, this);
}

oaBoolean oaAppDef::isUsedIn(const oaObject* database) const {
    return databaseOf(database).appValues.isUsed(this);
}

void oaAppDef::remove(oaObject* database) {
    databaseOf(database).edit();
    databaseOf(database).appValues.removeAll(this);
}

} // namespace OpenAccess_4

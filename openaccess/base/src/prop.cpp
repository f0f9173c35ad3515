#include "oa/oaProp.h"

#include "base/src/database.h"
#include "base/src/prop_text.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

/// Texts of a property's value live in its database: the same value for another database.
PropPayload payloadFor(Database& target, Database& source, const PropRecord& prop) {
    PropPayload value = prop.value;
    const std::size_t texts = prop.kind == PropKind::String                               ? 1
                              : prop.kind == PropKind::App || prop.kind == PropKind::Enum ? 2
                                                                                          : 0;
    for (std::size_t i = 0; i < texts; ++i)
        value.set(target.strings.intern(source.strings.text(prop.value.get<StringId>(i))), i);
    return value;
}

} // namespace

oaProp* oaProp::find(const oaObject* object, const oaString& name, oaBoolean /*crossDomain*/) {
    const Location owner = locationOf(object);
    return owner.database->properties.find(owner.ref, static_cast<const oaChar*>(name));
}

void oaProp::getName(oaString& name) const {
    name = databaseOf(this).strings.chars(recordOf<PropRecord>(this).name);
}

void oaProp::setName(const oaString& name) {
    databaseOf(this).properties.rename(slotOf(this), name);
}

oaObject* oaProp::getOwner() const {
    return databaseOf(this).handle(recordOf<PropRecord>(this).owner);
}

void oaProp::getValue(oaString& value) const {
    value = propText(databaseOf(this), recordOf<PropRecord>(this)).c_str();
}

oaProp* oaProp::copyTo(oaObject* object) const {
    const Location target = locationOf(object);
    Database& source = databaseOf(this);
    const PropRecord prop = recordOf<PropRecord>(this);
    return target.database->properties.create(target.ref, source.strings.chars(prop.name),
                                              prop.kind,
                                              payloadFor(*target.database, source, prop));
}

oaProp* oaProp::moveTo(oaObject* object) {
    const Location target = locationOf(object);
    if (target.database == &databaseOf(this)) {
        target.database->properties.move(slotOf(this), target.ref);
        return this;
    }
    oaProp* moved = copyTo(object);
    destroy();
    return moved;
}

void oaProp::destroy() {
    databaseOf(this).properties.remove(slotOf(this));
}

} // namespace OpenAccess_4

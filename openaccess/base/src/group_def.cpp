#include "oa/oaGroupDef.h"

#include "base/src/session.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"
#include "oa/oaGroupDefObserver.h"

#include <algorithm>

namespace OpenAccess_4 {

using Observer = oaVersionedObserver<oaGroupDef, 0>;

namespace impl {

oaTypeEnum GroupDefRecord::type() const {
    return rules.hierarchical ? oacHierGroupDefType : oacFlatGroupDefType;
}

oaObject* GroupDefRecord::construct(void* where) const {
    return rules.hierarchical ? Handles::construct<oaHierGroupDef>(where)
                              : Handles::construct<oaFlatGroupDef>(where);
}

oaGroupDef* Session::findGroupDef(std::string_view name) {
    std::uint32_t found = kNone;
    groupDefs_.forEach([&](std::uint32_t slot, const GroupDefRecord& def) {
        if (def.name == name)
            found = slot;
    });
    return found == kNone ? nullptr : static_cast<oaGroupDef*>(groupDefs_.handle(found));
}

oaGroupDef* Session::addGroupDef(std::string_view name, GroupDefRules rules) {
    const std::uint32_t slot = groupDefs_.add({std::string(name), std::move(rules)});
    auto* def = static_cast<oaGroupDef*>(groupDefs_.handle(slot));
    Observer::notifyPostCreateObservers(def);
    return def;
}

} // namespace impl

using namespace impl;

namespace {

const GroupDefRecord& recordOf(const oaGroupDef* def) {
    return impl::recordOf<GroupDefRecord>(def);
}

/// The values in the order of their numbers, each once.
template <class Enum>
std::vector<Enum> inOrder(std::vector<Enum> values) {
    std::ranges::sort(values);
    // Clang of this age does not take what std::ranges::unique() answers.
    values.erase(std::unique(values.begin(), values.end()), values.end());
    return values;
}

GroupDefRules rulesFor(const oaTypeArray& types, const oaDBTypeArray& databases) {
    GroupDefRules rules;
    for (oaUInt4 i = 0; i < types.getNumElements(); ++i)
        rules.types.push_back(types[i]);
    for (oaUInt4 i = 0; i < databases.getNumElements(); ++i)
        rules.databases.push_back(databases[i]);
    rules.types = inOrder(std::move(rules.types));
    rules.databases = inOrder(std::move(rules.databases));
    return rules;
}

oaGroupDef* createDef(const oaString& name, GroupDefRules rules) {
    if (oaGroupDef::find(name))
        throw oaError(oacGroupDefExists, static_cast<const oaChar*>(name));
    return Session::instance().addGroupDef(std::string_view(name), std::move(rules));
}

} // namespace

oaGroupDef* oaGroupDef::find(const oaString& name) {
    return Session::instance().findGroupDef(std::string_view(name));
}

void oaGroupDef::getName(oaString& name) const {
    name = recordOf(this).name.c_str();
}

void oaGroupDef::getValidTypes(oaTypeArray& types) const {
    types.setNumElements(0);
    for (const oaTypeEnum type : recordOf(this).rules.types)
        types.append(type);
}

void oaGroupDef::getValidDatabases(oaDBTypeArray& databases) const {
    databases.setNumElements(0);
    for (const oaDBTypeEnum kind : recordOf(this).rules.databases)
        databases.append(kind);
}

oaBoolean oaGroupDef::isBuiltIn() const {
    slotOf(this); // an object that is gone answers nothing
    return false;
}

void oaGroupDef::destroy() {
    Observer::notifyPreDestroyObservers(this);
    Session::instance().groupDefs().destroy(slotOf(this));
}

void oaGroupDef::remove(oaObject* database) {
    databaseOf(database).edit();
    databaseOf(database).groups.destroyGroupsOf(recordOf(this).name);
}

oaFlatGroupDef* oaFlatGroupDef::create(const oaString& name, const oaTypeArray& validTypes,
                                       const oaDBTypeArray& validDatabases) {
    return static_cast<oaFlatGroupDef*>(createDef(name, rulesFor(validTypes, validDatabases)));
}

oaHierGroupDef* oaHierGroupDef::create(const oaString& name, const oaTypeArray& validTypes,
                                       const oaDBTypeArray& validDatabases,
                                       const oaGroupDefArray& validGroupTypes,
                                       oaBoolean recursive) {
    GroupDefRules rules = rulesFor(validTypes, validDatabases);
    rules.hierarchical = true;
    rules.recursive = recursive != 0;
    for (oaUInt4 i = 0; i < validGroupTypes.getNumElements(); ++i)
        rules.groupTypes.push_back(recordOf(validGroupTypes[i]).name);
    rules.groupTypes = inOrder(std::move(rules.groupTypes));
    return static_cast<oaHierGroupDef*>(createDef(name, std::move(rules)));
}

oaBoolean oaHierGroupDef::isValidGroupType(const oaGroupDef* def) const {
    const GroupDefRules& rules = recordOf(this).rules;
    return std::ranges::find(rules.groupTypes, recordOf(def).name) != rules.groupTypes.end() ||
           (rules.recursive && def == this);
}

oaBoolean oaHierGroupDef::isRecursive() const {
    return recordOf(this).rules.recursive;
}

} // namespace OpenAccess_4

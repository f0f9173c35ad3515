#include "oa/oaGroup.h"

#include "base/src/session.h"
#include "base/src/source.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"
#include "oa/oaGroupDef.h"

#include <algorithm>
#include <set>

namespace OpenAccess_4 {

using namespace impl;

namespace {

GroupRecord& recordOf(const oaGroup* group) {
    return impl::recordOf<GroupRecord>(group);
}

const GroupMemberRecord& recordOf(const oaGroupMember* member) {
    return impl::recordOf<GroupMemberRecord>(member);
}

Groups& groupsOf(const oaObject* object) {
    return databaseOf(object).groups;
}

GroupRecord& edited(const oaGroup* group) {
    databaseOf(group).edit();
    return recordOf(group);
}

const oaChar* nameIn(const oaGroup* group) {
    return databaseOf(group).strings.chars(recordOf(group).name);
}

oaDBTypeEnum kindOf(const oaObject* database) {
    if (database->isTech())
        return oacTechDBType;
    return database->isDMData() ? oacDMDataDBType : oacDesignDBType;
}

[[noreturn]] void refuseOwner(const oaString& name, const oaObject* owner, const oaChar* reason) {
    throw oaError(oacInvalidOwnerForGroup, static_cast<const oaChar*>(name),
                  static_cast<const oaChar*>(owner->getType().getName()), reason);
}

oaGroup* createGroup(oaObject* database, const oaString& name, const oaGroupDef* def,
                     oaDomain domain, oaGroupType groupType, oaBoolean isUniqueName,
                     oaBoolean isOrdered, oaGroupDeleteWhen deleteWhen) {
    const Location owner = locationOf(database);
    if (owner.ref != kDatabaseItself || !owner.database->holdsProperties())
        refuseOwner(name, database, "only designs, technologies and data of libraries hold groups");
    if (def) {
        const auto& kinds = impl::recordOf<GroupDefRecord>(def).rules.databases;
        if (!kinds.empty() && std::ranges::find(kinds, kindOf(database)) == kinds.end())
            refuseOwner(name, database, "its definition does not allow that");
    }
    owner.database->requireEditable();
    domain.getName(); // these refuse what is no value
    groupType.getName();
    deleteWhen.getName();
    GroupRecord record;
    record.type = std::uint8_t(groupType);
    record.deleteWhen = std::uint8_t(deleteWhen);
    record.uniqueName = isUniqueName != 0;
    record.ordered = isOrdered != 0;
    record.domain = std::uint8_t(domain);
    return owner.database->groups.create(std::string_view(name), def, record);
}

bool mayHoldGroup(const oaGroup* group, const GroupDefRules& rules, const oaGroup* inner) {
    if (!rules.hierarchical)
        return false;
    const oaGroupDef* def = inner->getDef();
    if (!def)
        return rules.groupTypes.empty() && !rules.recursive;
    const std::string& name = impl::recordOf<GroupDefRecord>(def).name;
    return std::ranges::find(rules.groupTypes, name) != rules.groupTypes.end() ||
           (rules.recursive && def == group->getDef());
}

/// Why an object cannot be in a group; null when it can.
const oaChar* refusal(const oaGroup* group, const oaObject* object) {
    const Location member = locationOf(object);
    if (member.database != &databaseOf(group))
        return "it is in another database";
    if (isTransient(*member.database, member.ref))
        return "it is not stored";
    if (object == group)
        return "it is the group itself";
    const oaDomain domain = group->getGroupDomain();
    if (domain != oacNoDomain && object->getDomain() != domain)
        return "it is not of the domain of the group";
    if (recordOf(group).def == kNone)
        return nullptr;
    const GroupDefRules rules = groupsOf(group).rulesOf(slotOf(group));
    const oaTypeEnum type = object->getType();
    const bool allowed =
        type == oacGroupType
            ? mayHoldGroup(group, rules, static_cast<const oaGroup*>(object))
            : rules.types.empty() || std::ranges::find(rules.types, type) != rules.types.end();
    return allowed ? nullptr : "the definition of the group does not allow it";
}

void requireMemberOf(const oaGroup* group, const oaGroupMember* member) {
    if (member->getGroup() != group)
        throw oaError(oacGroupMemberOfOtherGroup, nameIn(group));
}

} // namespace

oaGroup* oaGroup::create(oaObject* database, const oaString& name, oaGroupType groupType,
                         oaBoolean isUniqueName, oaBoolean isOrdered,
                         oaGroupDeleteWhen deleteWhen) {
    return createGroup(database, name, nullptr, oacNoDomain, groupType, isUniqueName, isOrdered,
                       deleteWhen);
}

oaGroup* oaGroup::create(oaObject* database, const oaString& name, oaDomain domain,
                         oaGroupType groupType, oaBoolean isUniqueName, oaBoolean isOrdered,
                         oaGroupDeleteWhen deleteWhen) {
    return createGroup(database, name, nullptr, domain, groupType, isUniqueName, isOrdered,
                       deleteWhen);
}

oaGroup* oaGroup::create(oaObject* database, const oaString& name, const oaGroupDef* def,
                         oaGroupType groupType, oaBoolean isUniqueName, oaBoolean isOrdered,
                         oaGroupDeleteWhen deleteWhen) {
    return createGroup(database, name, def, oacNoDomain, groupType, isUniqueName, isOrdered,
                       deleteWhen);
}

oaGroup* oaGroup::create(oaObject* database, const oaString& name, const oaGroupDef* def,
                         oaDomain domain, oaGroupType groupType, oaBoolean isUniqueName,
                         oaBoolean isOrdered, oaGroupDeleteWhen deleteWhen) {
    return createGroup(database, name, def, domain, groupType, isUniqueName, isOrdered, deleteWhen);
}

void oaGroup::getName(oaString& name) const {
    name = nameIn(this);
}

void oaGroup::setName(const oaString& name) {
    groupsOf(this).rename(slotOf(this), std::string_view(name));
}

oaGroupType oaGroup::getGroupType() const {
    return oaGroupTypeEnum(recordOf(this).type);
}

void oaGroup::setGroupType(oaGroupType type) {
    type.getName();
    if (type == oacSetGroupType) {
        std::set<std::uint64_t> held;
        for (const std::uint32_t member : groupsOf(this).membersOf(slotOf(this)))
            if (!held.insert(groupsOf(this).members()[member].object.key()).second)
                throw oaError(oacObjectAlreadyInGroup, nameIn(this));
    }
    edited(this).type = std::uint8_t(type);
}

oaGroupDeleteWhen oaGroup::getDeleteWhen() const {
    return oaGroupDeleteWhenEnum(recordOf(this).deleteWhen);
}

void oaGroup::setDeleteWhen(oaGroupDeleteWhen deleteWhen) {
    deleteWhen.getName();
    edited(this).deleteWhen = std::uint8_t(deleteWhen);
}

oaBoolean oaGroup::isUniqueName() const {
    return recordOf(this).uniqueName;
}

void oaGroup::setUniqueName(oaBoolean value) {
    groupsOf(this).setUniqueName(slotOf(this), value != 0);
}

oaBoolean oaGroup::isOrdered() const {
    return recordOf(this).ordered;
}

void oaGroup::setOrdered(oaBoolean value) {
    edited(this).ordered = value != 0;
}

oaBoolean oaGroup::isEmpty() const {
    return groupsOf(this).membersOf(slotOf(this)).empty();
}

oaObject* oaGroup::getOwner() const {
    return getDatabase();
}

oaDomain oaGroup::getGroupDomain() const {
    return oaDomainEnum(recordOf(this).domain);
}

oaGroupDef* oaGroup::getDef() const {
    return groupsOf(this).definitionOf(slotOf(this));
}

oaCollection<oaGroupMember, oaGroup> oaGroup::getMembers() const {
    std::vector<oaObject*> members;
    for (const std::uint32_t slot : groupsOf(this).membersOf(slotOf(this)))
        members.push_back(groupsOf(this).members().handle(slot));
    return collectionOf<oaCollection<oaGroupMember, oaGroup>>(std::move(members));
}

oaGroupMember* oaGroup::getLeader() const {
    auto& members = groupsOf(this).members();
    for (const std::uint32_t slot : groupsOf(this).membersOf(slotOf(this)))
        if (members[slot].leader)
            return static_cast<oaGroupMember*>(members.handle(slot));
    return nullptr;
}

void oaGroup::setLeader(oaGroupMember* leader) {
    if (leader)
        requireMemberOf(this, leader);
    databaseOf(this).edit();
    auto& members = groupsOf(this).members();
    for (const std::uint32_t slot : groupsOf(this).membersOf(slotOf(this)))
        members[slot].leader = members.handle(slot) == leader;
}

oaBoolean oaGroup::hasDefaultConstraintGroup() const {
    slotOf(this); // an object that is gone answers nothing
    return false;
}

void oaGroup::destroy() {
    groupsOf(this).destroyGroup(slotOf(this));
}

oaGroupMember* oaGroupMember::create(oaGroup* group, oaObject* object, oaBoolean isLeader) {
    Groups& groups = groupsOf(group);
    databaseOf(group).requireEditable();
    if (const oaChar* reason = refusal(group, object))
        throw oaError(oacInvalidObjForGroup,
                      static_cast<const oaChar*>(object->getType().getName()), nameIn(group),
                      reason);
    const ObjectRef ref = locationOf(object).ref;
    if (group->getGroupType() == oacSetGroupType && groups.contains(slotOf(group), ref))
        throw oaError(oacObjectAlreadyInGroup, nameIn(group));
    const std::uint32_t slot = groups.addMember(slotOf(group), ref);
    auto* member = static_cast<oaGroupMember*>(groups.members().handle(slot));
    if (isLeader)
        group->setLeader(member);
    return member;
}

oaGroup* oaGroupMember::getGroup() const {
    return static_cast<oaGroup*>(groupsOf(this).groups().handle(recordOf(this).group));
}

oaObject* oaGroupMember::getObject() const {
    return databaseOf(this).handle(recordOf(this).object);
}

oaBoolean oaGroupMember::isLeader() const {
    return recordOf(this).leader;
}

void oaGroupMember::moveAfter(oaGroupMember* member) {
    requireMemberOf(getGroup(), member);
    if (member != this)
        groupsOf(this).place(slotOf(this), slotOf(member));
}

void oaGroupMember::moveToFirst() {
    groupsOf(this).place(slotOf(this), kNone);
}

void oaGroupMember::destroy() {
    groupsOf(this).removeMember(slotOf(this));
}

} // namespace OpenAccess_4

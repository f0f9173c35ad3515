#include "base/src/groups.h"

#include "base/src/database.h"
#include "base/src/session.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"
#include "oa/oaGroup.h"
#include "oa/oaGroupDefObserver.h"

#include <algorithm>

namespace OpenAccess_4::impl {

namespace {

/// Calls `take` with each of the texts that stand one after the other, a NUL behind each.
template <class Take>
void forEachText(std::string_view texts, Take take) {
    while (!texts.empty()) {
        const std::string_view text = texts.substr(0, texts.find('\0'));
        take(text);
        texts.remove_prefix(std::min(text.size() + 1, texts.size()));
    }
}

void addText(std::string& texts, std::string_view text) {
    texts.append(text).push_back('\0');
}

oaTypeEnum typeNamed(std::string_view name) {
    for (int type = 0; type <= oacHierGroupDefType; ++type)
        if (name == static_cast<const oaChar*>(oaType(oaTypeEnum(type)).getName()))
            return oaTypeEnum(type);
    return oacUnknownType;
}

} // namespace

Groups::Groups(Database& database)
    : database_(database),
      defs_(database.addTable<StoredGroupDefRecord>(kGroupDefTable)),
      groups_(database.addTable<GroupRecord>(kGroupTable)),
      members_(database.addTable<GroupMemberRecord>(kGroupMemberTable)) {}

oaGroup* Groups::create(std::string_view name, const oaGroupDef* def, GroupRecord group) {
    requireFree(name, kNone, group.uniqueName);
    database_.edit();
    group.name = database_.strings.intern(name);
    if (def)
        group.def = storedDef(def);
    return static_cast<oaGroup*>(groups_.handle(groups_.add(group)));
}

void Groups::rename(std::uint32_t group, std::string_view name) {
    database_.requireEditable();
    requireFree(name, group, groups_[group].uniqueName);
    database_.edit();
    catchUp();
    byName_.remove(groups_[group].name, group);
    groups_[group].name = database_.strings.intern(name);
    byName_.append(groups_[group].name, group);
    database_.noteGarbage();
}

void Groups::setUniqueName(std::uint32_t group, bool unique) {
    database_.requireEditable();
    requireFree(database_.strings.text(groups_[group].name), group, unique);
    database_.edit();
    groups_[group].uniqueName = unique;
}

void Groups::destroyGroup(std::uint32_t group) {
    database_.edit();
    groups_[group].deleteWhen = oacNeverGroupDeleteWhen; // it goes now, once
    for (const std::uint32_t member : membersOf(group))
        removeMember(member);
    database_.forgetAttachments({kGroupTable, group});
    byName_.remove(groups_[group].name, group);
    groups_.destroy(group);
}

void Groups::destroyGroupsOf(std::string_view def) {
    std::vector<std::uint32_t> found;
    groups_.forEach([&](std::uint32_t slot, const GroupRecord& group) {
        if (group.def != kNone && database_.strings.text(defs_[group.def].name) == def)
            found.push_back(slot);
    });
    for (const std::uint32_t group : found)
        if (groups_.isLive(group))
            destroyGroup(group);
}

std::vector<oaObject*> Groups::named(std::string_view name) {
    catchUp();
    std::vector<oaObject*> found;
    const StringId id = database_.strings.find(name);
    if (id != kNone)
        for (const std::uint32_t group : byName_.slots(id))
            found.push_back(groups_.handle(group));
    return found;
}

oaGroupDef* Groups::definitionOf(std::uint32_t group) {
    if (groups_[group].def == kNone)
        return nullptr;
    const std::string name(database_.strings.text(defs_[groups_[group].def].name));
    oaGroupDef* def = Session::instance().findGroupDef(name);
    return def ? def : Session::instance().addGroupDef(name, rulesOf(group));
}

GroupDefRules Groups::rulesOf(std::uint32_t group) const {
    return rulesIn(defs_[groups_[group].def]);
}

std::vector<std::uint32_t> Groups::membersOf(std::uint32_t group) {
    catchUp();
    std::vector<std::uint32_t> slots = byGroup_.slots(group);
    std::ranges::stable_sort(
        slots, {}, [&](std::uint32_t slot) { return std::pair(members_[slot].rank, slot); });
    return slots;
}

std::uint32_t Groups::addMember(std::uint32_t group, const ObjectRef& object) {
    database_.edit();
    return members_.add({object, group, kNone, 0});
}

void Groups::removeMember(std::uint32_t member) {
    database_.edit();
    database_.forgetAttachments({kGroupMemberTable, member});
    catchUp();
    const GroupMemberRecord record = members_[member];
    const std::uint8_t when = groups_[record.group].deleteWhen;
    const bool isFirst =
        when == oacOnFirstGroupDeleteWhen && membersOf(record.group).front() == member;
    byGroup_.remove(record.group, member);
    byObject_.remove(record.object.key(), member);
    members_.destroy(member);
    if (isFirst || (when == oacOnLastGroupDeleteWhen && byGroup_.count(record.group) == 0))
        destroyGroup(record.group);
}

void Groups::place(std::uint32_t member, std::uint32_t behind) {
    database_.edit();
    std::vector<std::uint32_t> order = membersOf(members_[member].group);
    std::erase(order, member);
    const auto at = behind == kNone ? order.begin() : std::ranges::find(order, behind) + 1;
    order.insert(at, member);
    for (std::uint32_t rank = 0; rank < order.size(); ++rank)
        members_[order[rank]].rank = rank;
}

bool Groups::contains(std::uint32_t group, const ObjectRef& object) {
    catchUp();
    std::uint32_t slot = byObject_.first(object.key());
    while (slot != kNone && members_[slot].group != group)
        slot = byObject_.next(slot);
    return slot != kNone;
}

std::vector<oaObject*> Groups::membershipsOf(const ObjectRef& object, bool leading) {
    catchUp();
    std::vector<oaObject*> found;
    for (const std::uint32_t slot : byObject_.slots(object.key()))
        if (!leading || members_[slot].leader)
            found.push_back(members_.handle(slot));
    return found;
}

bool Groups::holds(const ObjectRef& object) {
    catchUp();
    return byObject_.first(object.key()) != kNone;
}

void Groups::removeAll(const ObjectRef& object) {
    if (members_.live() == 0)
        return;
    catchUp();
    for (const std::uint32_t slot : byObject_.slots(object.key()))
        if (members_.isLive(slot))
            removeMember(slot);
}

void Groups::reportConflicts() {
    using Observer = oaVersionedObserver<oaGroupDef, 0>;
    struct Conflict {
        std::string name;
        oaTypeEnum type;
    };
    std::vector<Conflict> conflicts;
    defs_.forEach([&](std::uint32_t, const StoredGroupDefRecord& def) {
        const std::string_view name = database_.strings.text(def.name);
        const oaGroupDef* known = Session::instance().findGroupDef(name);
        if (known && recordOf<GroupDefRecord>(known).rules != rulesIn(def))
            conflicts.push_back(
                {std::string(name), def.hierarchical ? oacHierGroupDefType : oacFlatGroupDefType});
    });
    for (const Conflict& conflict : conflicts)
        Observer::notifyOnConflictObservers(conflict.name.c_str(), conflict.type);
}

void Groups::requireFree(std::string_view name, std::uint32_t group, bool unique) {
    for (const oaObject* other : named(name))
        if (impl::slotOf(other) != group && (unique || groups_[impl::slotOf(other)].uniqueName))
            throw oaError(oacGroupNameUsed, std::string(name).c_str());
}

std::uint32_t Groups::storedDef(const oaGroupDef* def) {
    const GroupDefRecord& wanted = recordOf<GroupDefRecord>(def);
    std::uint32_t found = kNone;
    defs_.forEach([&](std::uint32_t slot, const StoredGroupDefRecord& stored) {
        if (database_.strings.text(stored.name) == wanted.name && rulesIn(stored) == wanted.rules)
            found = slot;
    });
    if (found != kNone)
        return found;
    std::string types;
    for (const oaTypeEnum type : wanted.rules.types)
        addText(types, static_cast<const oaChar*>(oaType(type).getName()));
    std::string groupTypes;
    for (const std::string& name : wanted.rules.groupTypes)
        addText(groupTypes, name);
    StoredGroupDefRecord stored;
    stored.name = database_.strings.intern(wanted.name);
    stored.types = database_.strings.intern(types);
    stored.groupTypes = database_.strings.intern(groupTypes);
    for (const oaDBTypeEnum kind : wanted.rules.databases)
        stored.databases = std::uint16_t(stored.databases | 1u << kind);
    stored.hierarchical = wanted.rules.hierarchical;
    stored.recursive = wanted.rules.recursive;
    return defs_.add(stored);
}

GroupDefRules Groups::rulesIn(const StoredGroupDefRecord& def) const {
    GroupDefRules rules;
    rules.hierarchical = def.hierarchical != 0;
    rules.recursive = def.recursive != 0;
    forEachText(database_.strings.text(def.types),
                [&](std::string_view name) { rules.types.push_back(typeNamed(name)); });
    for (int kind = 0; kind <= oacDMDataDBType; ++kind)
        if (def.databases >> kind & 1)
            rules.databases.push_back(oaDBTypeEnum(kind));
    forEachText(database_.strings.text(def.groupTypes),
                [&](std::string_view name) { rules.groupTypes.emplace_back(name); });
    return rules;
}

void Groups::catchUp() {
    for (; indexedGroups_ < groups_.slots(); ++indexedGroups_)
        byName_.append(groups_[indexedGroups_].name, indexedGroups_);
    for (; indexedMembers_ < members_.slots(); ++indexedMembers_) {
        byGroup_.append(members_[indexedMembers_].group, indexedMembers_);
        byObject_.append(members_[indexedMembers_].object.key(), indexedMembers_);
    }
}

} // namespace OpenAccess_4::impl

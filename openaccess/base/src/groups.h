#pragma once

#include "base/src/chain_index.h"
#include "base/src/table.h"
#include "base/src/table_numbers.h"
#include "oa/oaBaseEnums.h"

#include <string>
#include <string_view>
#include <vector>

namespace OpenAccess_4 {
class oaGroup;
class oaGroupDef;
class oaGroupMember;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

/// What a group definition allows.
struct GroupDefRules {
    bool hierarchical = false;
    bool recursive = false;
    std::vector<oaTypeEnum> types;       // in the order of their numbers; empty: all
    std::vector<oaDBTypeEnum> databases; // the same
    std::vector<std::string> groupTypes; // names of definitions, in order

    friend bool operator==(const GroupDefRules&, const GroupDefRules&) = default;
};

/// A group definition as a database keeps it for its groups.
struct StoredGroupDefRecord {
    StringId name = 0;
    StringId types = 0;          // names of types, each with a NUL behind it
    StringId groupTypes = 0;     // names of definitions, the same
    std::uint16_t databases = 0; // bit n: the oaDBTypeEnum n is valid
    std::uint8_t hierarchical = 0;
    std::uint8_t recursive = 0;

    static constexpr oaTypeEnum kType = oacUnknownType;
    using Handle = oaObject;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.string(self.types);
        visitor.string(self.groupTypes);
        visitor.enumerator(self.databases, 1u << (oacDMDataDBType + 1));
        visitor.enumerator(self.hierarchical, 2);
        visitor.enumerator(self.recursive, 2);
    }
};

struct GroupRecord {
    StringId name = 0;
    std::uint32_t def = kNone; // slot in the definitions of the database
    std::uint8_t type = oacSetGroupType;
    std::uint8_t deleteWhen = oacNeverGroupDeleteWhen;
    std::uint8_t uniqueName = 1;
    std::uint8_t ordered = 0;
    std::uint8_t domain = oacNoDomain;
    std::uint8_t unused[3] = {};

    static constexpr oaTypeEnum kType = oacGroupType;
    using Handle = oaGroup;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.optionalSlot(kGroupDefTable, self.def);
        visitor.enumerator(self.type, oacSetGroupType + 1);
        visitor.enumerator(self.deleteWhen, oacOnLastGroupDeleteWhen + 1);
        visitor.enumerator(self.uniqueName, 2);
        visitor.enumerator(self.ordered, 2);
        visitor.enumerator(self.domain, oacModDomain + 1);
    }
};

struct GroupMemberRecord {
    ObjectRef object;
    std::uint32_t group = 0;
    std::uint32_t rank = kNone; // members stand by their ranks, and those of one by their slots
    std::uint32_t leader = 0;

    static constexpr oaTypeEnum kType = oacGroupMemberType;
    using Handle = oaGroupMember;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.object(self.object);
        visitor.slot(kGroupTable, self.group);
        visitor.enumerator(self.leader, 2);
    }
};

/// The groups of one database.
class Groups {
public:
    explicit Groups(Database& database);

    Table<GroupRecord>& groups() { return groups_; }
    Table<GroupMemberRecord>& members() { return members_; }

    /// Adds a group, whose `name` and `def` are set here. `def` may be null.
    /// @throws oaError  oacGroupNameUsed
    oaGroup* create(std::string_view name, const oaGroupDef* def, GroupRecord group);
    /// @throws oaError  oacGroupNameUsed
    void rename(std::uint32_t group, std::string_view name);
    /// @throws oaError  oacGroupNameUsed: `unique`, and another group has the name
    void setUniqueName(std::uint32_t group, bool unique);
    void destroyGroup(std::uint32_t group);
    void destroyGroupsOf(std::string_view def);
    std::vector<oaObject*> named(std::string_view name);
    /// The session's definition that a group follows, made when the session does not know it; null
    /// when the group follows none.
    oaGroupDef* definitionOf(std::uint32_t group);
    /// The rules of the definition that a group follows; that must be one.
    GroupDefRules rulesOf(std::uint32_t group) const;

    /// The slots of the members of a group in their order.
    std::vector<std::uint32_t> membersOf(std::uint32_t group);
    std::uint32_t addMember(std::uint32_t group, const ObjectRef& object);
    void removeMember(std::uint32_t member);
    /// Puts a member behind another one of the group, or before all of them for kNone.
    void place(std::uint32_t member, std::uint32_t behind);
    bool contains(std::uint32_t group, const ObjectRef& object);

    std::vector<oaObject*> membershipsOf(const ObjectRef& object, bool leading);
    bool holds(const ObjectRef& object);
    /// Takes an object that is about to be destroyed out of all groups.
    void removeAll(const ObjectRef& object);

    /// Tells the observers of each definition of the database that the session has otherwise.
    void reportConflicts();

private:
    void requireFree(std::string_view name, std::uint32_t group, bool unique);
    std::uint32_t storedDef(const oaGroupDef* def);
    GroupDefRules rulesIn(const StoredGroupDefRecord& def) const;
    void catchUp();

    Database& database_;
    Table<StoredGroupDefRecord>& defs_;
    Table<GroupRecord>& groups_;
    Table<GroupMemberRecord>& members_;
    ChainIndex byName_;
    ChainIndex byGroup_;
    ChainIndex byObject_;
    std::uint32_t indexedGroups_ = 0;
    std::uint32_t indexedMembers_ = 0;
};

} // namespace OpenAccess_4::impl

#pragma once

#include "oa/oaObject.h"
#include "oa/oaString.h"

namespace OpenAccess_4 {

class oaGroupDef;
class oaGroupMember;

/// A named group of objects of one design or technology, saved with it.
class OA_API oaGroup : public oaObject {
public:
    /// Makes an empty group in a design or technology. Where a domain is named, the members must
    /// belong to it; where a definition is, they must follow its rules.
    /// @param isUniqueName  no other group of the database may have the name
    /// @throws oaError  oacGroupNameUsed: a name that must be unique is not;
    ///                  oacInvalidOwnerForGroup: `database` is neither design nor technology, or
    ///                  not of a kind that the definition names
    static oaGroup* create(oaObject* database, const oaString& name,
                           oaGroupType groupType = oacSetGroupType, oaBoolean isUniqueName = true,
                           oaBoolean isOrdered = false,
                           oaGroupDeleteWhen deleteWhen = oacNeverGroupDeleteWhen);
    static oaGroup* create(oaObject* database, const oaString& name, oaDomain domain,
                           oaGroupType groupType = oacSetGroupType, oaBoolean isUniqueName = true,
                           oaBoolean isOrdered = false,
                           oaGroupDeleteWhen deleteWhen = oacNeverGroupDeleteWhen);
    static oaGroup* create(oaObject* database, const oaString& name, const oaGroupDef* def,
                           oaGroupType groupType = oacSetGroupType, oaBoolean isUniqueName = true,
                           oaBoolean isOrdered = false,
                           oaGroupDeleteWhen deleteWhen = oacNeverGroupDeleteWhen);
    static oaGroup* create(oaObject* database, const oaString& name, const oaGroupDef* def,
                           oaDomain domain, oaGroupType groupType = oacSetGroupType,
                           oaBoolean isUniqueName = true, oaBoolean isOrdered = false,
                           oaGroupDeleteWhen deleteWhen = oacNeverGroupDeleteWhen);

    void getName(oaString& name) const;
    /// @throws oaError  oacGroupNameUsed
    void setName(const oaString& name);

    /// Whether it holds an object at most once.
    oaGroupType getGroupType() const;
    /// @throws oaError  oacObjectAlreadyInGroup: it is to be a set, and holds an object twice
    void setGroupType(oaGroupType type);
    /// Whether the group goes when its first, or its last, member goes.
    oaGroupDeleteWhen getDeleteWhen() const;
    void setDeleteWhen(oaGroupDeleteWhen deleteWhen);
    oaBoolean isUniqueName() const;
    /// @throws oaError  oacGroupNameUsed
    void setUniqueName(oaBoolean value);
    /// Whether the order of the members means something to the application. It is kept anyway.
    oaBoolean isOrdered() const;
    void setOrdered(oaBoolean value);
    oaBoolean isEmpty() const;

    /// The database that holds the group.
    oaObject* getOwner() const;
    /// oacNoDomain when none was named.
    oaDomain getGroupDomain() const;
    /// Null when the group follows none. One that the session does not know is made.
    oaGroupDef* getDef() const;

    /// The members in their order.
    oaCollection<oaGroupMember, oaGroup> getMembers() const;
    /// Null when there is none.
    oaGroupMember* getLeader() const;
    /// Null takes the leader away.
    /// @throws oaError  oacGroupMemberOfOtherGroup
    void setLeader(oaGroupMember* leader = nullptr);

    /// False: there are no constraint groups here.
    oaBoolean hasDefaultConstraintGroup() const;

    /// The members stay in the database.
    void destroy();

    OA_HANDLE(oaGroup);
};

/// The place of an object in a group. It goes with the object.
class OA_API oaGroupMember : public oaObject {
public:
    /// Puts an object at the end of a group.
    /// @throws oaError  oacInvalidObjForGroup: the object is in another database, is not stored, is
    ///                  the group itself, or the group's domain or definition does not allow it;
    ///                  oacObjectAlreadyInGroup
    static oaGroupMember* create(oaGroup* group, oaObject* object, oaBoolean isLeader = false);

    oaGroup* getGroup() const;
    oaObject* getObject() const;
    oaBoolean isLeader() const;

    /// @throws oaError  oacGroupMemberOfOtherGroup
    void moveAfter(oaGroupMember* member);
    void moveToFirst();

    /// Takes the object out of the group.
    void destroy();

    OA_HANDLE(oaGroupMember);
};

} // namespace OpenAccess_4

#include "tech_tests.h"

using namespace oa;
using namespace ovalis::test;

namespace {

using Names = std::vector<std::string>;

Names layersOf(const oaGroup* group) {
    Names names;
    oaIter<oaGroupMember> members(group->getMembers());
    while (const oaGroupMember* member = members.getNext())
        names.push_back(nameOf(static_cast<oaLayer*>(member->getObject())) +
                        (member->isLeader() ? "*" : ""));
    return names;
}

oaGroup* only(const oaTech* tech) {
    oaIter<oaGroup> groups(tech->getGroups());
    return groups.getNext();
}

class Group : public testing::Test {
protected:
    NewTech tech{"chip"};
    oaLayer* m1 = oaPhysicalLayer::create(tech, "m1", 1);
    oaLayer* m2 = oaPhysicalLayer::create(tech, "m2", 2);
    oaLayer* m3 = oaPhysicalLayer::create(tech, "m3", 3);
};

} // namespace

TEST_F(Group, HoldsObjectsInTheirOrder) {
    oaGroup* group = oaGroup::create(tech, "stack", oacSetGroupType, true, true);
    EXPECT_TRUE(group->isEmpty());
    oaGroupMember* first = oaGroupMember::create(group, m1);
    oaGroupMember* second = oaGroupMember::create(group, m2, true);
    oaGroupMember* third = oaGroupMember::create(group, m3);
    EXPECT_EQ(layersOf(group), (Names{"m1", "m2*", "m3"}));
    third->moveToFirst();
    first->moveAfter(second);
    EXPECT_EQ(layersOf(group), (Names{"m3", "m2*", "m1"}));
    oaPhysicalLayer* m4 = oaPhysicalLayer::create(tech, "m4", 4);
    oaGroupMember::create(group, m4);
    EXPECT_EQ(layersOf(group), (Names{"m3", "m2*", "m1", "m4"}));
    group->setLeader(first);
    EXPECT_EQ(group->getLeader(), first);
    group->setLeader();
    EXPECT_EQ(group->getLeader(), nullptr);
    second->destroy();
    EXPECT_EQ(layersOf(group), (Names{"m3", "m1", "m4"}));
    EXPECT_TRUE(m2->isValid());
}

TEST_F(Group, IsKnownToItsMembers) {
    oaGroup* group = oaGroup::create(tech, "stack");
    EXPECT_FALSE(m1->inGroup());
    oaGroupMember* member = oaGroupMember::create(group, m1, true);
    EXPECT_TRUE(m1->inGroup());
    EXPECT_TRUE(m1->getGroupMems().includes(member));
    EXPECT_TRUE(m1->getGroupLeaders().includes(member));
    EXPECT_EQ(m2->getGroupMems().getCount(), 0u);
    EXPECT_EQ(member->getGroup(), group);
    EXPECT_EQ(member->getObject(), m1);
    EXPECT_EQ(group->getOwner(), tech);
    EXPECT_TRUE(tech->getGroupsOwnedBy().includes(group));
    EXPECT_TRUE(m1->getGroupsOwnedBy().isEmpty());
    EXPECT_TRUE(group->isGroup());
    EXPECT_TRUE(member->isGroupMember());
    EXPECT_FALSE(group->isGroupMember());
    EXPECT_FALSE(group->hasDefaultConstraintGroup());
}

TEST_F(Group, IsSavedWithItsDatabase) {
    oaGroup* group = oaGroup::create(tech, "stack", oacCollectionGroupType, false, true,
                                     oacOnLastGroupDeleteWhen);
    oaGroupMember::create(group, m2);
    oaGroupMember::create(group, m1, true);
    oaGroupMember::create(group, m2);
    oaGroupMember::create(group, m3)->moveToFirst();
    oaStringProp::create(group, "note", "kept");
    m3->destroy();
    tech.saveAndReopen('a');
    group = only(tech);
    EXPECT_EQ(nameOf(group), "stack");
    EXPECT_EQ(group->getGroupType(), oacCollectionGroupType);
    EXPECT_EQ(group->getDeleteWhen(), oacOnLastGroupDeleteWhen);
    EXPECT_FALSE(group->isUniqueName());
    EXPECT_TRUE(group->isOrdered());
    EXPECT_EQ(group->getGroupDomain(), oacNoDomain);
    EXPECT_EQ(group->getDef(), nullptr);
    EXPECT_EQ(layersOf(group), (Names{"m2", "m1*", "m2"}));
    EXPECT_TRUE(group->hasProp());
}

TEST_F(Group, LosesObjectsThatAreDestroyed) {
    oaGroup* group = oaGroup::create(tech, "stack");
    oaGroupMember::create(group, m1);
    oaGroupMember* gone = oaGroupMember::create(group, m2);
    m2->destroy();
    EXPECT_FALSE(gone->isValid());
    EXPECT_EQ(layersOf(group), Names{"m1"});
}

TEST_F(Group, GoesWithItsMembersWhenItIsToldTo) {
    oaGroup* kept = oaGroup::create(tech, "kept");
    oaGroup* first =
        oaGroup::create(tech, "first", oacSetGroupType, true, false, oacOnFirstGroupDeleteWhen);
    oaGroup* last =
        oaGroup::create(tech, "last", oacSetGroupType, true, false, oacOnLastGroupDeleteWhen);
    for (oaGroup* group : {kept, first, last}) {
        oaGroupMember::create(group, m1);
        oaGroupMember::create(group, m2);
    }
    m2->destroy();
    EXPECT_TRUE(first->isValid());
    m1->destroy();
    EXPECT_TRUE(kept->isValid());
    EXPECT_FALSE(first->isValid());
    EXPECT_FALSE(last->isValid());
}

TEST_F(Group, InAnotherOneGoesOutOfItWithItself) {
    oaGroup* outer =
        oaGroup::create(tech, "outer", oacSetGroupType, true, false, oacOnLastGroupDeleteWhen);
    oaGroup* inner = oaGroup::create(tech, "inner");
    oaGroupMember::create(outer, inner);
    oaGroupMember::create(inner, outer);
    inner->destroy();
    EXPECT_FALSE(outer->isValid());
    EXPECT_TRUE(tech->getGroups().isEmpty());
}

TEST_F(Group, OfASetHoldsAnObjectOnce) {
    oaGroup* group = oaGroup::create(tech, "stack");
    oaGroupMember::create(group, m1);
    EXPECT_EQ(thrown<oaError>(oacObjectAlreadyInGroup, [&] { oaGroupMember::create(group, m1); }),
              "The object is in group 'stack' already, which holds each one once.");
    group->setGroupType(oacCollectionGroupType);
    oaGroupMember::create(group, m1);
    EXPECT_THROW(group->setGroupType(oacSetGroupType), oaError);
}

TEST_F(Group, HasANameOfItsOwnUnlessItIsToldOtherwise) {
    oaGroup* group = oaGroup::create(tech, "stack");
    EXPECT_EQ(thrown<oaError>(oacGroupNameUsed, [&] { oaGroup::create(tech, "stack"); }),
              "The database already has a group named 'stack'.");
    EXPECT_THROW(oaGroup::create(tech, "stack", oacSetGroupType, false), oaError);
    group->setUniqueName(false);
    oaGroup* other = oaGroup::create(tech, "stack", oacSetGroupType, false);
    EXPECT_EQ(tech->getGroupsByName("stack").getCount(), 2u);
    EXPECT_THROW(group->setUniqueName(true), oaError);
    other->setName("other");
    group->setUniqueName(true);
    EXPECT_THROW(other->setName("stack"), oaError);
    EXPECT_EQ(tech->getGroupsByName("stack").getCount(), 1u);
}

TEST_F(Group, RefusesWhatItCannotHold) {
    NewTech other("other");
    oaGroup* group = oaGroup::create(tech, "stack", oacBlockDomain);
    const auto refusal = [&](oaObject* object) {
        return thrown<oaError>(oacInvalidObjForGroup,
                               [&] { oaGroupMember::create(group, object); });
    };
    EXPECT_EQ(refusal(oaPhysicalLayer::create(other, "m1", 1)),
              "An object of type PhysicalLayer cannot be put into group 'stack': it is in another "
              "database.");
    EXPECT_EQ(refusal(group), "An object of type Group cannot be put into group 'stack': it is the "
                              "group itself.");
    EXPECT_EQ(refusal(m1), "An object of type PhysicalLayer cannot be put into group 'stack': it "
                           "is not of the domain of the group.");
    EXPECT_EQ(thrown<oaError>(oacInvalidOwnerForGroup, [&] { oaGroup::create(m1, "group"); }),
              "Group 'group' cannot be made in an object of type PhysicalLayer: only designs, "
              "technologies and data of libraries hold groups.");
    EXPECT_EQ(
        thrown<oaError>(oacInvalidOwnerForGroup, [&] { oaGroup::create(tech.lib(), "group"); }),
        "Group 'group' cannot be made in an object of type Lib: only designs, technologies and "
        "data of libraries hold groups.");
    oaGroup* two = oaGroup::create(tech, "two");
    EXPECT_EQ(
        thrown<oaError>(
            oacGroupMemberOfOtherGroup,
            [&] { two->setLeader(oaGroupMember::create(oaGroup::create(tech, "three"), m1)); }),
        "The member is not one of group 'two'.");
}

TEST_F(Group, IsNotChangedInATechnologyThatIsOpenForReading) {
    oaGroupMember::create(oaGroup::create(tech, "stack"), m1);
    tech.saveAndReopen();
    oaGroup* group = only(tech);
    EXPECT_THROW(oaGroup::create(tech, "other"), oaTechError);
    EXPECT_THROW(group->setName("other"), oaTechError);
    EXPECT_THROW(group->setOrdered(true), oaTechError);
    EXPECT_THROW(group->destroy(), oaTechError);
    EXPECT_THROW(oaGroupMember::create(group, oaLayer::find(tech, 2)), oaTechError);
    EXPECT_EQ(layersOf(group), Names{"m1"});
    EXPECT_EQ(nameOf(group), "stack");
}

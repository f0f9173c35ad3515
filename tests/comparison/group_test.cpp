#include "two_designs.h"

namespace comparison::test {
namespace {

class GroupTest : public TwoDesigns {};

oa::oaRect* square(oa::oaBlock* block, oa::oaCoord x) {
    return oa::oaRect::create(block, 1, drawing, oa::oaBox(x, 0, x + 10, 10));
}

TEST_F(GroupTest, OfTheSameMembersAreTheSame) {
    inBoth([](oa::oaBlock* block) {
        oa::oaGroup* const group = oa::oaGroup::create(block->getDesign(), "g");
        oa::oaGroupMember::create(group, oa::oaNet::create(block, general("n")));
        oa::oaGroupMember::create(group, square(block, 0));
        oa::oaGroupMember::create(group, oa::oaGroup::create(block->getDesign(), "inner"));
    });
    EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(GroupTest, KnowsAMemberThatMoved) {
    for (oa::oaBlock* block : {wasBlock(), isBlock()})
        oa::oaGroupMember::create(oa::oaGroup::create(block->getDesign(), "g"),
                                  square(block, block == isBlock() ? 5 : 0));
    EXPECT_THAT(differences(),
                ElementsAre("rectangle on M1/drawing (0, 0)-(10, 10) moved by (5, 0)"));
}

TEST_F(GroupTest, EveryDifferenceIsOneLine) {
    inBoth([](oa::oaBlock* block) {
        oa::oaGroup* const group = oa::oaGroup::create(block->getDesign(), "g");
        oa::oaGroupMember::create(group, oa::oaNet::create(block, general("n")));
        oa::oaNet::create(block, general("m"));
    });
    oa::oaIter<oa::oaGroup> groups(is().getGroupsOwnedBy());
    oa::oaGroup* const group = groups.getNext();
    oa::oaGroupMember::create(group, oa::oaNet::find(isBlock(), general("m")));
    group->setDeleteWhen(oa::oacOnLastGroupDeleteWhen);
    oa::oaStringProp::create(group, "use", "shield");
    oa::oaGroup::create(&is(), "h");
    EXPECT_THAT(differences(), ElementsAre("group \"g\": deleted when was never, is onLast",
                                           "group \"g\": member net \"m\" added",
                                           "group \"g\": property \"use\" added: \"shield\"",
                                           "group \"h\" added"));
}

TEST_F(GroupTest, OrderCountsWhereTheGroupSaysSo) {
    for (const bool ordered : {false, true})
        for (oa::oaBlock* block : {wasBlock(), isBlock()}) {
            oa::oaGroup* const group =
                oa::oaGroup::create(block->getDesign(), ordered ? "ordered" : "loose",
                                    oa::oacSetGroupType, true, ordered);
            const bool first = block == wasBlock();
            for (const char* name : {first ? "a" : "b", first ? "b" : "a"}) {
                oa::oaNet* net = oa::oaNet::find(block, general(name));
                if (net == nullptr)
                    net = oa::oaNet::create(block, general(name));
                oa::oaGroupMember::create(group, net);
            }
        }
    EXPECT_THAT(differences(), ElementsAre("group \"ordered\": order was net \"a\", net \"b\", is "
                                           "net \"b\", net \"a\""));
}

} // namespace
} // namespace comparison::test

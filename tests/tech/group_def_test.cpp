#include "foreign_library.h"

using namespace oa;
using namespace ovalis::test;

namespace {

using News = std::vector<std::string>;

class GroupDefNews : public oaVersionedObserver<oaGroupDef, 0> {
public:
    GroupDefNews() : oaVersionedObserver(1) {}

    News take() { return std::exchange(news_, {}); }

    void onPostCreate(oaGroupDef* def) override { news_.push_back("create " + nameOf(def)); }
    void onPreDestroy(oaGroupDef* def) override { news_.push_back("destroy " + nameOf(def)); }
    void onConflict(const oaString& name, oaType type) override {
        news_.push_back(std::string(name) + ": " + std::string(type.getName()));
    }

private:
    News news_;
};

oaTypeArray types(std::initializer_list<oaTypeEnum> list) {
    oaTypeArray array;
    for (const oaTypeEnum type : list)
        array.append(type);
    return array;
}

/// A definition that goes with the scope.
template <class Def>
class Scoped {
public:
    template <class... Values>
    explicit Scoped(Values... values) : def_(Def::create(values...)) {}
    ~Scoped() {
        if (def_->isValid())
            def_->destroy();
    }
    Def* operator->() const { return def_; }
    operator Def*() const { return def_; }

private:
    Def* def_;
};

} // namespace

TEST(GroupDef, IsFoundByItsNameUntilItIsDestroyed) {
    oaDBTypeArray databases;
    databases.append(oacTechDBType);
    Scoped<oaFlatGroupDef> def("pairs", types({oacPurposeType, oacPhysicalLayerType}), databases);
    EXPECT_EQ(oaGroupDef::find("pairs"), def);
    EXPECT_EQ(nameOf(static_cast<oaFlatGroupDef*>(def)), "pairs");
    EXPECT_EQ(def->getType(), oacFlatGroupDefType);
    EXPECT_FALSE(def->isBuiltIn());
    EXPECT_TRUE(oaSession::get()->getGroupDefs().includes(def));
    oaTypeArray valid;
    def->getValidTypes(valid);
    ASSERT_EQ(valid.getNumElements(), 2u);
    EXPECT_EQ(valid[0], oacPhysicalLayerType);
    EXPECT_EQ(valid[1], oacPurposeType);
    oaDBTypeArray kinds;
    def->getValidDatabases(kinds);
    ASSERT_EQ(kinds.getNumElements(), 1u);
    EXPECT_EQ(kinds[0], oacTechDBType);
    EXPECT_EQ(
        thrown<oaError>(oacGroupDefExists,
                        [] { oaHierGroupDef::create("pairs", oaTypeArray(), oaDBTypeArray()); }),
        "A group definition named 'pairs' already exists.");
    def->destroy();
    EXPECT_EQ(oaGroupDef::find("pairs"), nullptr);
}

TEST(GroupDef, SaysWhatAGroupMayHold) {
    NewTech tech;
    Scoped<oaFlatGroupDef> def("layers", types({oacPhysicalLayerType}), oaDBTypeArray());
    oaGroup* group = oaGroup::create(tech, "group", def);
    EXPECT_EQ(group->getDef(), def);
    oaGroupMember::create(group, oaPhysicalLayer::create(tech, "m1", 1));
    EXPECT_EQ(
        thrown<oaError>(oacInvalidObjForGroup,
                        [&] { oaGroupMember::create(group, oaPurpose::create(tech, "pin", 1)); }),
        "An object of type Purpose cannot be put into group 'group': the definition of the "
        "group does not allow it.");
    EXPECT_THROW(oaGroupMember::create(group, oaGroup::create(tech, "inner")), oaError);
}

TEST(GroupDef, SaysWhichDatabasesMayHoldAGroup) {
    NewTech tech;
    oaDBTypeArray databases;
    databases.append(oacDesignDBType);
    Scoped<oaFlatGroupDef> def("figures", oaTypeArray(), databases);
    EXPECT_EQ(
        thrown<oaError>(oacInvalidOwnerForGroup, [&] { oaGroup::create(tech, "group", def); }),
        "Group 'group' cannot be made in an object of type Tech: its definition does not allow "
        "that.");
}

TEST(GroupDef, OfAHierarchySaysWhichGroupsAGroupMayHold) {
    NewTech tech;
    Scoped<oaFlatGroupDef> leaf("leaf", oaTypeArray(), oaDBTypeArray());
    oaGroupDefArray inner;
    inner.append(leaf);
    Scoped<oaHierGroupDef> tree("tree", oaTypeArray(), oaDBTypeArray(), inner, true);
    Scoped<oaHierGroupDef> flat("hier", oaTypeArray(), oaDBTypeArray(), inner);
    EXPECT_TRUE(tree->isRecursive());
    EXPECT_TRUE(tree->isValidGroupType(leaf));
    EXPECT_TRUE(tree->isValidGroupType(tree));
    EXPECT_FALSE(flat->isValidGroupType(flat));
    EXPECT_EQ(tree->getType(), oacHierGroupDefType);
    oaGroup* group = oaGroup::create(tech, "group", tree);
    oaGroupMember::create(group, oaGroup::create(tech, "leaf", leaf));
    oaGroupMember::create(group, oaGroup::create(tech, "tree", tree));
    EXPECT_THROW(oaGroupMember::create(group, oaGroup::create(tech, "flat", flat)), oaError);
    EXPECT_THROW(oaGroupMember::create(group, oaGroup::create(tech, "plain")), oaError);
    EXPECT_EQ(group->getMembers().getCount(), 2u);
}

TEST(GroupDef, TakesItsGroupsOutOfADatabase) {
    NewTech tech;
    Scoped<oaFlatGroupDef> def("layers", oaTypeArray(), oaDBTypeArray());
    oaGroup::create(tech, "one", def);
    oaGroup* other = oaGroup::create(tech, "two");
    def->remove(tech);
    EXPECT_EQ(tech->getGroups().getCount(), 1u);
    EXPECT_TRUE(tech->getGroups().includes(other));
}

TEST(GroupDef, TellsWhenItComesAndGoes) {
    GroupDefNews news;
    oaFlatGroupDef::create("told", oaTypeArray(), oaDBTypeArray())->destroy();
    EXPECT_EQ(news.take(), (News{"create told", "destroy told"}));
}

TEST(GroupDef, ThatADatabaseHasOtherwiseIsAConflict) {
    oaDBTypeArray databases;
    databases.append(oacTechDBType);
    Scoped<oaFlatGroupDef> flat("foreign flat", types({oacPhysicalLayerType}), databases);
    Scoped<oaFlatGroupDef> hier("foreign hier", oaTypeArray(), databases);
    Scoped<oaFlatGroupDef> same("foreign group", oaTypeArray(), databases);
    ForeignLibrary foreign;
    GroupDefNews news;
    foreign.open();
    EXPECT_EQ(news.take(), (News{"foreign flat: FlatGroupDef", "foreign hier: HierGroupDef"}));
}

TEST(GroupDef, ThatOnlyADatabaseHasIsMade) {
    ForeignLibrary foreign;
    oaIter<oaGroup> groups(foreign.open()->getGroupsByName("two"));
    oaGroup* group = groups.getNext();
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(oaGroupDef::find("foreign hier"), nullptr);
    oaGroupDef* def = group->getDef();
    EXPECT_EQ(nameOf(def), "foreign hier");
    EXPECT_EQ(def->getType(), oacHierGroupDefType);
    def->destroy();
}

TEST(GroupDef, TellsByTheClassItself) {
    GroupDefNews news;
    oaVersionedObserver<oaGroupDef, 0>::notifyOnConflictObservers("pairs", oacFlatGroupDefType);
    EXPECT_EQ(news.take(), News{"pairs: FlatGroupDef"});
}

#include "foreign_library.h"

using namespace oa;
using namespace ovalis::test;

namespace {

using News = std::vector<std::string>;

class AppDefNews : public oaVersionedObserver<oaAppDef, 0> {
public:
    AppDefNews() : oaVersionedObserver(1) {}

    News take() { return std::exchange(news_, {}); }

    void onPreModify(oaObject* object, oaAppDef* def) override { add("before", object, def); }
    void onPostModify(oaObject* object, oaAppDef* def) override { add("after", object, def); }
    void onConflict(const oaString& name, oaType type) override {
        news_.push_back(std::string(name) + ": " + std::string(type.getName()));
    }

private:
    void add(const std::string& when, oaObject* object, oaAppDef* def) {
        const auto* values = static_cast<oaIntAppDef<oaLayer>*>(def);
        news_.push_back(when + " " + std::to_string(values->get(static_cast<oaLayer*>(object))));
    }

    News news_;
};

} // namespace

TEST(AppDef, TellsOfChangesOfItsValues) {
    NewTech tech;
    oaLayer* layer = oaPhysicalLayer::create(tech, "m1", 1);
    auto* def = oaIntAppDef<oaLayer>::get("app_def_test told");
    AppDefNews news;
    def->set(layer, 5);
    def->destroy(layer);
    EXPECT_EQ(news.take(), (News{"before 0", "after 5", "before 5", "after 0"}));
}

TEST(AppDef, TellsOfNoChangeThatIsRefused) {
    NewTech tech;
    oaPhysicalLayer::create(tech, "m1", 1);
    tech.saveAndReopen();
    AppDefNews news;
    EXPECT_EQ(
        thrown<oaTechError>(
            oacCannotModifyReadModeTech,
            [&] {
                oaIntAppDef<oaLayer>::get("app_def_test refused")->set(oaLayer::find(tech, 1), 5);
            }),
        "The technology of library 'lib' is open for reading and cannot be changed.");
    EXPECT_EQ(news.take(), News());
}

TEST(AppDef, ThatADatabaseHasOtherwiseIsAConflict) {
    oaDoubleAppDef<oaLayer>::get("foreign kind");
    oaIntAppDef<oaLayer>::get("foreign persistence", 0, false);
    oaIntAppDef<oaLayer>::get("foreign same");
    oaDoubleAppDef<oaPurpose>::get("foreign same");
    ForeignLibrary foreign;
    AppDefNews news;
    oaTech* tech = foreign.open();
    const News conflicts = {"foreign kind: AppIntDef", "foreign persistence: AppIntDef"};
    EXPECT_EQ(news.take(), conflicts);
    oaLayer* layer = oaLayer::find(tech, 1);
    EXPECT_EQ(oaDoubleAppDef<oaLayer>::find("foreign kind")->get(layer), 0.0);
    EXPECT_EQ(oaIntAppDef<oaLayer>::find("foreign same")->get(layer), 8);
    tech->revert();
    EXPECT_EQ(news.take(), conflicts);
}

TEST(AppDef, ThatOnlyADatabaseHasIsMade) {
    ForeignLibrary foreign;
    oaLayer* layer = oaLayer::find(foreign.open(), 1);
    oaAppDef* text = nullptr;
    oaIter<oaAppDef> defs(layer->getAppDefs());
    while (oaAppDef* def = defs.getNext())
        if (nameOf(def) == "foreign text")
            text = def;
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->getType(), oacStringAppDefType);
    EXPECT_TRUE(text->isPersistent());
    auto* asked = oaStringAppDef<oaLayer>::get("foreign text", "none");
    EXPECT_EQ(asked, text);
    EXPECT_NE(dynamic_cast<oaStringAppDef<oaLayer>*>(asked), nullptr);
    oaString value;
    asked->get(layer, value);
    EXPECT_EQ(value, "seven");
    asked->getDefault(value);
    EXPECT_EQ(value, "none");
}

TEST(AppDef, TellsByTheClassItself) {
    AppDefNews news;
    oaVersionedObserver<oaAppDef, 0>::notifyOnConflictObservers("angle", oacDoubleAppDefType);
    EXPECT_EQ(news.take(), News{"angle: AppDoubleDef"});
}

TEST(AppDef, OfPointersKeepsThemForTheSession) {
    NewTech tech;
    oaLayer* layer = oaPhysicalLayer::create(tech, "m1", 1);
    auto* def = oaVoidPointerAppDef<oaLayer>::get("app_def_test pointer");
    EXPECT_EQ(def, oaVoidPointerAppDef<oaLayer>::find("app_def_test pointer"));
    EXPECT_EQ(oaType(def->getType()).getName(), "AppVoidPointerDef");
    EXPECT_FALSE(def->isPersistent());
    EXPECT_EQ(def->get(layer), nullptr);
    int target = 0;
    def->set(layer, &target);
    EXPECT_EQ(def->get(layer), &target);
    EXPECT_TRUE(def->isUsedIn(tech));
    EXPECT_EQ(layer->getAppDefs().getCount(), 1u);
    tech.saveAndReopen('a');
    EXPECT_EQ(def->get(oaLayer::find(tech, 1)), nullptr);
    EXPECT_FALSE(def->isUsedIn(tech));
    def->set(oaLayer::find(tech, 1), &target);
    def->remove(tech);
    EXPECT_EQ(def->get(oaLayer::find(tech, 1)), nullptr);
}

TEST(AppDef, OfPointersDisagreesWithADatabaseThatHasNumbersOfItsName) {
    oaVoidPointerAppDef<oaLayer>::get("foreign pointer");
    NewTech tech;
    oaIntAppDef<oaLayer>::get("foreign pointer")->set(oaPhysicalLayer::create(tech, "m", 1), 1);
    AppDefNews news;
    tech.saveAndReopen();
    EXPECT_EQ(news.take(), News{"foreign pointer: AppIntDef"});
}

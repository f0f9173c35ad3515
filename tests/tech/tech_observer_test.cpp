#include "tech_news.h"

#include "support/files.h"

#include <filesystem>

using namespace oa;
using namespace ovalis::test;

TEST(TechObserver, IsToldOfTheLifeOfATechnology) {
    TechNews news;
    {
        NewTech tech("chip");
        EXPECT_EQ(news.take(), News{"create chip"});
        tech->save();
        EXPECT_EQ(news.take(), (News{"save chip", "saved chip"}));
        tech->close();
        EXPECT_EQ(news.take(), News{"purge chip"});
        oaTech* opened = oaTech::open(tech.lib(), 'r');
        EXPECT_EQ(news.take(), News{"open chip"});
        oaTech::open(tech.lib(), 'r');
        EXPECT_EQ(news.take(), News());
        opened->reopen('a');
        EXPECT_EQ(news.take(), (News{"reopen chip r to a", "reopened chip r to a"}));
        oaTech::open(tech.lib(), 'w');
        EXPECT_EQ(news.take(),
                  (News{"reopen chip a to w", "truncate chip", "reopened chip a to w"}));
    }
    EXPECT_EQ(news.take(), News{"purge chip"});
}

TEST(TechObserver, IsToldThatAnOpeningEmptiesAFile) {
    NewTech tech("chip");
    tech->save();
    tech->close();
    TechNews news;
    oaTech::open(tech.lib(), 'w');
    EXPECT_EQ(news.take(), (News{"open chip", "truncate chip"}));
}

TEST(TechObserver, IsToldOfCopies) {
    NewTech tech("chip");
    NewLibrary other("other");
    TechNews news;
    tech->saveAs(name("other"));
    EXPECT_EQ(news.take(), (News{"save as chip", "saved as chip"}));
}

TEST(TechObserver, IsToldOfASaveThatFails) {
    NewTech tech("chip");
    std::filesystem::create_directory(tech.techFile());
    writeText(tech.techFile() + "/file", "in the way");
    TechNews news;
    EXPECT_THROW(tech->save(), oaException);
    EXPECT_EQ(news.take(), (News{"save chip", "not saved chip"}));
}

TEST(TechObserver, IsToldOfSettings) {
    NewTech tech("chip");
    const oaViewType* layout = oaViewType::get(oacMaskLayout);
    TechNews news;
    tech->setDBUPerUU(layout, 10);
    tech->unsetDBUPerUU(layout);
    tech->setUserUnits(layout, oacMil);
    tech->unsetUserUnits(layout);
    EXPECT_EQ(news.take(),
              (News{"modify chip 0", "modified chip 0", "modify chip 8", "modified chip 8",
                    "modify chip 1", "modified chip 1", "modify chip 9", "modified chip 9"}));
    tech->setClearanceMeasure(oacMaxXYClearanceMeasure);
    tech->unsetClearanceMeasure();
    tech->setDefaultManufacturingGrid(5);
    tech->unsetDefaultManufacturingGrid();
    EXPECT_EQ(news.take(),
              (News{"modify chip 2", "modified chip 2", "modify chip 10", "modified chip 10",
                    "modify chip 3", "modified chip 3", "modify chip 11", "modified chip 11"}));
    tech->setGateGrounded(true);
    tech->unsetGateGrounded();
    tech->unsetRefs();
    EXPECT_EQ(news.take(), (News{"modify chip 7", "modified chip 7", "modify chip 12",
                                 "modified chip 12", "modify chip 13", "modified chip 13"}));
}

TEST(TechObserver, IsToldOfReferences) {
    NewTech base("base");
    base->save();
    NewTech chip("chip");
    chip->setRefs(refsTo({base}));
    chip->save();
    chip.reopen();
    base.reopen();
    TechNews news;
    oaTech* opened = oaTech::open(chip.lib());
    EXPECT_EQ(news.take(), (News{"open refs chip", "open base", "opened refs chip", "open chip"}));
    opened->close();
    EXPECT_EQ(news.take(), (News{"purge chip", "purge base"}));
}

TEST(TechObserver, SeesSettingsBeforeAndAfterTheChange) {
    struct Observer : oaVersionedObserver<oaTech> {
        Observer() : oaVersionedObserver(1) {}
        void onPreModify(oaTech* tech, oaTechModTypeEnum) override {
            before = tech->isGateGrounded();
        }
        void onPostModify(oaTech* tech, oaTechModTypeEnum) override {
            after = tech->isGateGrounded();
        }
        oaBoolean before = 2;
        oaBoolean after = 2;
    } observer;
    NewTech tech;
    tech->setGateGrounded(true);
    EXPECT_EQ(observer.before, 0);
    EXPECT_EQ(observer.after, 1);
}

TEST(TechObserver, IsToldByTheClassItself) {
    NewTech tech("chip");
    TechNews news;
    using Observer = oaVersionedObserver<oaTech, 2>;
    EXPECT_TRUE(Observer::hasObservers());
    oaObjectArray objects;
    objects.append(oaPhysicalLayer::create(tech, "m1", 1));
    Observer::notifyConflictObservers(tech, oacViaDefNameTechConflictType, objects);
    Observer::notifyProcessFamilyConflictObservers(refsTo({tech, tech}));
    Observer::notifyUserUnitsConflictObservers(refsTo({tech}), oaViewType::get(oacNetlist));
    EXPECT_EQ(news.take(),
              (News{"conflict 6 chip: chip:m1", "family chip chip", "units netlist chip"}));
}

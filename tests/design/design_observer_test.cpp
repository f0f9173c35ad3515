#include "design_fixture.h"

#include <stdexcept>

using namespace design_test;

namespace {

using Lines = std::vector<std::string>;

/// Notes what it is told of designs, with the mode that they have.
class NotingObserver : public oaObserver<oaDesign> {
public:
    explicit NotingObserver(Lines& lines, const char* prefix = "", oaUInt4 priority = 1)
        : oaObserver<oaDesign>(priority), lines_(lines), prefix_(prefix) {}

    void onFirstOpen(oaDesign* design) override { note("onFirstOpen", design); }
    void onPurge(oaDesign* design) override { note("onPurge", design); }
    void onPreReopen(oaDesign* design, oaChar mode) override {
        note("onPreReopen", design, std::string(1, mode));
    }
    void onPostReopen(oaDesign* design, oaChar mode) override {
        note("onPostReopen", design, std::string(1, mode));
    }
    void onTruncate(oaDesign* design) override {
        note("onTruncate", design, design->getTopBlock() ? "full" : "empty");
    }
    void onPreSave(oaDesign* design) override { note("onPreSave", design); }
    void onPostSave(oaDesign* design, oaBoolean succeeded) override {
        note("onPostSave", design, succeeded ? "done" : "failed");
    }
    void onPreSaveAs(oaDesign* design, const oaScalarName& lib, const oaScalarName& cell,
                     const oaScalarName& view) override {
        note("onPreSaveAs", design, spelled(lib, cell, view));
    }
    void onPostSaveAs(oaDesign* design, const oaScalarName& lib, const oaScalarName& cell,
                      const oaScalarName& view, oaBoolean succeeded) override {
        note("onPostSaveAs", design, spelled(lib, cell, view) + (succeeded ? " done" : " failed"));
    }
    void onPreModify(oaDesign* design, oaDesignModTypeEnum type) override {
        note("onPreModify", design, std::to_string(type) + " " + cellTypeOf(design));
    }
    void onPostModify(oaDesign* design, oaDesignModTypeEnum type) override {
        note("onPostModify", design, std::to_string(type) + " " + cellTypeOf(design));
    }

private:
    void note(const std::string& call, const oaDesign* design, const std::string& more = "") {
        lines_.push_back(prefix_ + call + " " + design->getMode() + (more.empty() ? "" : " ") +
                         more);
    }
    static std::string cellTypeOf(const oaDesign* design) {
        return text(design->getCellType().getName());
    }
    static std::string spelled(const oaScalarName& lib, const oaScalarName& cell,
                               const oaScalarName& view) {
        std::string result;
        for (const oaScalarName* each : {&lib, &cell, &view}) {
            oaString part;
            each->get(oaNativeNS(), part);
            result += (result.empty() ? "" : "/") + text(part);
        }
        return result;
    }

    Lines& lines_;
    std::string prefix_;
};

class DesignObserverTest : public testing::Test {
protected:
    DesignObserverTest()
        : lib(oaLib::create(name("lib"), (directory.str() + "/lib").c_str())), observer(lines) {}
    ~DesignObserverTest() override { lib->close(); }

    static oaDesign* open(oaChar mode) {
        return oaDesign::open(name("lib"), name("cell"), name("layout"),
                              oaViewType::get(oacMaskLayout), mode);
    }
    Lines takeLines() { return std::exchange(lines, {}); }

    ovalis::test::TemporaryDirectory directory;
    oaLib* lib;
    Lines lines;
    NotingObserver observer;
};

} // namespace

TEST_F(DesignObserverTest, IsToldOfTheFirstOpeningAndOfThePurge) {
    oaDesign* design = open('w');
    EXPECT_EQ(takeLines(), Lines{"onFirstOpen w"});
    open('r')->close();
    EXPECT_EQ(takeLines(), Lines());
    design->save();
    EXPECT_EQ(takeLines(), (Lines{"onPreSave w", "onPostSave w done"}));
    design->close();
    EXPECT_EQ(takeLines(), Lines{"onPurge w"});
    EXPECT_EQ(open('r')->getMode(), 'r');
    EXPECT_EQ(takeLines(), Lines{"onFirstOpen r"});
    lib->close();
    EXPECT_EQ(takeLines(), Lines{"onPurge r"});
    lib = oaLib::open(name("lib"), (directory.str() + "/lib").c_str());
}

TEST_F(DesignObserverTest, IsToldOfAnotherMode) {
    oaDesign* design = open('w');
    oaBlock::create(design);
    design->save();
    takeLines();
    design->reopen('r');
    EXPECT_EQ(takeLines(), (Lines{"onPreReopen w r", "onPostReopen r w"}));
    open('a');
    EXPECT_EQ(takeLines(), (Lines{"onPreReopen r a", "onPostReopen a r"}));
    open('r');
    EXPECT_EQ(takeLines(), Lines());
    design->reopen('w');
    EXPECT_EQ(takeLines(), (Lines{"onPreReopen a w", "onTruncate w empty", "onPostReopen w a"}));
}

TEST_F(DesignObserverTest, IsToldWhenAnOpeningEmptiesWhatIsOnDisk) {
    oaDesign* design = open('w');
    oaBlock::create(design);
    design->save();
    design->close();
    takeLines();
    open('w');
    EXPECT_EQ(takeLines(), (Lines{"onFirstOpen w", "onTruncate w empty"}));
}

TEST_F(DesignObserverTest, IsToldOfSavingUnderOtherNames) {
    oaDesign* design = open('w');
    takeLines();
    design->saveAs(name("lib"), name("copy"), name("layout"));
    EXPECT_EQ(takeLines(),
              (Lines{"onPreSaveAs w lib/copy/layout", "onPostSaveAs w lib/copy/layout done"}));
}

TEST_F(DesignObserverTest, IsToldOfASaveThatFails) {
    class Failing : public oaCommon::PlugInBase<IPcell> {
    public:
        oaPcellDef* getPcellDef() override { return new oaPcellDef(this); }
        void getName(oaString& name) override { name = "failing"; }
        void onBind(oaDesign*, oaPcellDef*) override {}
        void onUnbind(oaDesign*, oaPcellDef* def) override { delete def; }
        void onEval(oaDesign*, oaPcellDef*) override {}
        void onRead(oaDesign*, oaMapFileWindow&, oaUInt4&, oaPcellDef*) override {}
        void onWrite(oaDesign*, oaMapFileWindow&, oaUInt4&, oaPcellDef*) override {}
        oaUInt4 calcDiskSize(oaPcellDef*) const override { throw std::runtime_error("no size"); }
    };
    auto* evaluator = new Failing;
    oaPcellLink* link = oaPcellLink::create(evaluator);
    oaDesign* design = open('w');
    design->defineSuperMaster(evaluator->getPcellDef(), oaParamArray());
    takeLines();
    EXPECT_THROW(design->save(), std::runtime_error);
    EXPECT_EQ(takeLines(), (Lines{"onPreSave w", "onPostSave w failed"}));
    EXPECT_THROW(design->saveAs(name("lib"), name("copy"), name("layout")), std::runtime_error);
    EXPECT_EQ(takeLines(),
              (Lines{"onPreSaveAs w lib/copy/layout", "onPostSaveAs w lib/copy/layout failed"}));
    design->purge();
    link->destroy();
}

TEST_F(DesignObserverTest, IsNotToldOfWhatIsRefused) {
    open('w')->save();
    oaDesign* design = open('r');
    design->reopen('r');
    takeLines();
    EXPECT_THROW(design->save(), oaDesignError);
    EXPECT_THROW(design->setCellType(oacPadCellType), oaDesignError);
    EXPECT_THROW(design->reopen('x'), oaDesignError);
    EXPECT_EQ(takeLines(), Lines());
}

TEST_F(DesignObserverTest, IsToldOfAnotherCellType) {
    oaDesign* design = open('w');
    takeLines();
    design->setCellType(oacPadCellType);
    EXPECT_EQ(takeLines(), (Lines{"onPreModify w 0 none", "onPostModify w 0 pad"}));
}

TEST_F(DesignObserverTest, IsCalledByPriorityAndOnlyWhileEnabled) {
    NotingObserver earlier(lines, "earlier ", 0);
    NotingObserver later(lines, "later ", 2);
    later.enable(false);
    open('w');
    EXPECT_EQ(takeLines(), (Lines{"earlier onFirstOpen w", "onFirstOpen w"}));
}

TEST_F(DesignObserverTest, CanBeCalledByAnybody) {
    oaDesign* design = open('w');
    takeLines();
    EXPECT_TRUE(oaObserver<oaDesign>::hasObservers());
    oaObserver<oaDesign>::notifyPostSaveObservers(design, true);
    oaObserver<oaDesign>::notifyPostModifyObservers(design, oacSetTopModDesignModType);
    EXPECT_EQ(takeLines(), (Lines{"onPostSave w done", "onPostModify w 1 none"}));
}

// What the database reports reaches the collectors that observe it.

#include <gtest/gtest.h>

#include "diagnostics/collector_fixture.h"
#include "support/files.h"
#include "support/library_fixture.h"

using namespace ovalis;
using namespace oa;
using ovalis::test::Lines;
using ovalis::test::Setting;

namespace {

/// An evaluator of its own name that fails with the text it is given.
class FailingPcell : public oaCommon::PlugInBase<IPcell> {
public:
    oaPcellDef* getPcellDef() override { return new oaPcellDef(this); } // deleted by onUnbind()
    void getName(oaString& name) override { name = "failing"; }
    void onBind(oaDesign*, oaPcellDef*) override {}
    void onUnbind(oaDesign*, oaPcellDef* def) override { delete def; }
    void onEval(oaDesign*, oaPcellDef*) override { throw oaCommon::ExceptionBase(5, "broken"); }
    void onRead(oaDesign*, oaMapFileWindow&, oaUInt4&, oaPcellDef*) override {}
    void onWrite(oaDesign*, oaMapFileWindow&, oaUInt4&, oaPcellDef*) override {}
    oaUInt4 calcDiskSize(oaPcellDef*) const override { return 0; }
};

/// A library with a pcell that cannot be evaluated.
class PcellMessages : public test::LibraryTest {
protected:
    PcellMessages() : evaluator_(new FailingPcell), link_(oaPcellLink::create(evaluator_)) {
        oaDesign& master = design("cell", "layout", 'w');
        oaParamArray defaults;
        defaults.append(oaParam("size", oaInt4(1)));
        master.defineSuperMaster(evaluator_->getPcellDef(), defaults);
        master.save();
        master.close();
    }
    ~PcellMessages() override {
        closeLibrary();
        if (link_ != nullptr) {
            link_->destroy();
        }
    }

    void evaluate() {
        oaParamArray params;
        params.append(oaParam("size", oaInt4(2)));
        const oaNativeNS ns;
        oaDesign::open(oaScalarName(ns, "lib"), oaScalarName(ns, "cell"),
                       oaScalarName(ns, "layout"), params);
    }

    void forgetEvaluator() {
        link_->destroy();
        link_ = nullptr;
    }

private:
    FailingPcell* evaluator_; // belongs to the link
    oaPcellLink* link_;
};

class LibDefMessages : public test::FolderTest {
protected:
    ~LibDefMessages() override {
        if (oaLibDefList* list = oaLibDefList::getTopList()) {
            list->destroy();
        }
    }

    /// Opens the libraries of a list with this text.
    void load(const std::string& text) {
        test::writeText(filePath("lib.defs"), text);
        oaLibDefList::openLibs(pathOf("lib.defs").c_str());
    }
};

} // namespace

TEST_F(PcellMessages, TellOfEvaluationsThatFail) {
    const Setting setting(std::nullopt);
    const msgCollector collector;
    evaluate();
    EXPECT_EQ(collector.getAvailableChapterKeys_ordered(), Lines{"Pcell"});
    EXPECT_EQ(collector.getAvailableErrorKeys(), Lines{"lib/cell/layout"});
    EXPECT_EQ(collector.getLines("Pcell", "lib/cell/layout"), Lines{"Error[2]: broken"});
    EXPECT_TRUE(collector.containsErrors());
}

TEST_F(PcellMessages, TellOfEvaluatorsThatAreMissing) {
    closeLibrary();
    forgetEvaluator();
    const LibPtr library = openLib(pathOf("lib"), false, "other");
    const Setting setting("Pcell");
    const msgCollector collector;
    const oaNativeNS ns;
    oaDesign::open(oaScalarName(ns, "other"), oaScalarName(ns, "cell"), oaScalarName(ns, "layout"),
                   'r');
    const Lines lines = collector.getLines("Pcell", "other/cell/layout");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].substr(0, 10), "Error[6]: ");
}

TEST_F(PcellMessages, TellOfNumbersThatEvaluatorsMakeUp) {
    const Setting setting("Pcell");
    const msgCollector collector;
    oaDesign& master = design("cell", "layout", 'r');
    oaPcellObserver::notifyErrorObservers(&master, "odd", oaUInt4(1234));
    oaPcellObserver::notifyErrorObservers(&master, "odder", oaUInt4(0xFFFFFFFF));
    EXPECT_EQ(collector.getLines("Pcell", "lib/cell/layout"),
              (Lines{"Error[1234]: odd", "Error[-1]: odder"}));
}

TEST_F(PcellMessages, ThatCannotBeMadeAreNotThrownIntoTheDatabase) {
    const Setting setting("Pcell");
    const msgCollector collector;
    oaDesign& master = design("cell", "layout", 'r');
    master.purge();
    EXPECT_NO_THROW(oaPcellObserver::notifyErrorObservers(&master, "late", oacPcellEvalError));
    EXPECT_EQ(collector.getAvailableChapterKeys_ordered(), Lines());
}

TEST_F(PcellMessages, ReachEveryCollectorThatObserves) {
    const Setting setting("Pcell");
    const msgCollector first;
    const msgCollector second;
    const msgCollector copy(first);
    evaluate();
    EXPECT_TRUE(first.containsErrors());
    EXPECT_TRUE(second.containsErrors());
    EXPECT_FALSE(copy.containsErrors());
}

TEST_F(PcellMessages, AreNotCollectedOtherwise) {
    const Setting setting("all:Pcell");
    const msgCollector collector;
    evaluate();
    EXPECT_EQ(collector.getAvailableChapterKeys_ordered(), Lines());
}

TEST_F(PcellMessages, AreNoLongerCollectedWhenTheOriginWasTakenAway) {
    const Setting setting("Pcell");
    msgCollector collector;
    const Setting nothing("0");
    collector = msgCollector();
    evaluate();
    EXPECT_EQ(collector.getAvailableChapterKeys_ordered(), Lines());
}

TEST_F(PcellMessages, ComeAfterObserversOfALowerPriority) {
    struct Probe : oaPcellObserver {
        Probe(oaUInt4 priority, const msgCollector& collector)
            : oaPcellObserver(priority), collector_(collector) {}
        void onError(oaDesign*, const oaString&, oaPcellErrorTypeEnum) override {
            found = collector_.containsErrors();
        }
        bool found = false;
        const msgCollector& collector_;
    };
    const Setting setting("Pcell");
    const msgCollector collector;
    const Probe before(9, collector);
    const Probe after(11, collector);
    evaluate();
    EXPECT_FALSE(before.found);
    EXPECT_TRUE(after.found);
}

TEST_F(LibDefMessages, StandUnderTheKindOfTheWarning) {
    const Setting setting(std::nullopt);
    const msgCollector collector;
    load("INCLUDE missing.defs\nINCLUDE other.defs\nINCLUDE missing.defs\nFROB\n");
    EXPECT_EQ(collector.getAvailableParagraphKeys("LibDefs"),
              (Lines{"onLoadWarning[2]\n", "onLoadWarning[3]\n"}));
    const Lines lines = collector.getLines("LibDefs", "onLoadWarning[3]\n");
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_NE(lines[0].find("missing.defs"), std::string::npos) << lines[0];
    EXPECT_NE(lines[1].find("other.defs"), std::string::npos) << lines[1];
    EXPECT_FALSE(collector.containsErrors());
}

TEST_F(LibDefMessages, ThatAreEqualAreKeptOnce) {
    const Setting setting("LibDefs");
    const msgCollector collector;
    load("INCLUDE missing.defs\n");
    oaLibDefList::getTopList()->destroy();
    load("INCLUDE missing.defs\n");
    EXPECT_EQ(collector.getLines("LibDefs", "onLoadWarning[3]\n").size(), 1U);
}

TEST_F(LibDefMessages, LetTheLoadingGoOn) {
    const Setting setting("LibDefs");
    const msgCollector collector;
    EXPECT_TRUE((oaVersionedObserver<oaLibDefList, 1>::notifyLoadWarningsObservers(
        nullptr, "text", oacNoDefaultLibDefListWarning)));
    EXPECT_EQ(collector.getLines("LibDefs", "onLoadWarning[0]\n"), Lines{"text"});
}

TEST_F(LibDefMessages, AreNotCollectedWithoutTheirOrigin) {
    const Setting setting("ErrChannel");
    testing::internal::CaptureStderr();
    {
        const msgCollector collector;
        load("INCLUDE missing.defs\n");
        EXPECT_EQ(collector.getAvailableChapterKeys_ordered(), Lines());
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "\n");
}

#include "submaster_fixture.h"

#include <gmock/gmock.h>

using namespace oa;
using namespace ovalis::test;
using ::testing::ElementsAre;
using ::testing::StartsWith;

namespace {

/// Evaluations that do not work out.
class EvaluationFailure : public SubmasterFixture {
protected:
    /// Opens a submaster whose evaluation throws `failure` after it has drawn.
    template <class Failure>
    void evaluateThrowing(const Failure& failure) {
        evaluator->meanwhile = [&](oaDesign*, oaInt4) { throw failure; };
        EXPECT_EQ(openSubmaster(sized(30)), nullptr);
    }
};

TEST_F(EvaluationFailure, OfAnyKindIsToldAndAnsweredWithNull) {
    const auto told = [&](const std::string& text) {
        return Lines{"onPreEval", "onEval 30", "onError 2 " + text};
    };
    evaluateThrowing(oaDesignError(oacPcellSubMasterNotProduced));
    EXPECT_EQ(takeLines(), told("The pcell submaster cannot be produced."));
    evaluateThrowing(oaError(oacInvalidObject));
    EXPECT_EQ(takeLines(), told(std::string(oaError(oacInvalidObject).getMsg())));
    evaluateThrowing(oaCommon::ExceptionBase(5, "out of a plug-in"));
    EXPECT_EQ(takeLines(), told("out of a plug-in"));
    evaluateThrowing(std::runtime_error("out of the library"));
    EXPECT_EQ(takeLines(), told("out of the library"));
    struct Wordless : oaCommon::ExceptionBase {
        using ExceptionBase::ExceptionBase;
        const char* getMsg() const override { return nullptr; }
    };
    evaluateThrowing(Wordless(5, "not told"));
    EXPECT_EQ(takeLines(), told("The evaluator failed without a message."));
    evaluateThrowing(42);
    EXPECT_EQ(takeLines(), told("The evaluator failed without a message."));
    EXPECT_EQ(findSuperMaster(), nullptr); // nothing keeps it open
}

TEST_F(EvaluationFailure, LeavesASubmasterWithoutABlockThatIsNotEvaluatedAgain) {
    oaDesign* superMaster = openCell('r');
    evaluateThrowing(std::runtime_error("broken"));
    const std::vector<oaDesign*> submasters = submastersOf(superMaster);
    ASSERT_EQ(submasters.size(), 1u);
    EXPECT_EQ(observer->failed, submasters[0]);
    EXPECT_TRUE(submasters[0]->isSubMaster());
    EXPECT_EQ(submasters[0]->getTopBlock(), nullptr);
    EXPECT_EQ(paramsOf(submasters[0], true), effective(30));
    EXPECT_FALSE(submasters[0]->isModified());
    takeLines();
    evaluator->meanwhile = nullptr;
    EXPECT_EQ(openSubmaster(sized(30)), nullptr);
    EXPECT_EQ(takeLines(), Lines());
}

TEST_F(EvaluationFailure, DoesNotStandInTheWayOfOtherSubmasters) {
    oaDesign* superMaster = openCell('r');
    evaluateThrowing(std::runtime_error("broken"));
    evaluator->meanwhile = nullptr;
    EXPECT_EQ(widthOf(openSubmaster(sized(31))), 31);
    EXPECT_EQ(submastersOf(superMaster).size(), 2u);
}

TEST_F(EvaluationFailure, IsOneWhenTheSubmasterStaysWithoutABlock) {
    evaluator->meanwhile = [](oaDesign* design, oaInt4) { design->getTopBlock()->destroy(); };
    EXPECT_EQ(openSubmaster(sized(30)), nullptr);
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 30", "onPostEval"}));
}

TEST_F(EvaluationFailure, MayComeFromAnObserver) {
    observer->failing = "not now";
    EXPECT_EQ(openSubmaster(sized(30)), nullptr);
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onError 2 not now"}));
}

TEST_F(EvaluationFailure, IsDroppedWhenAnObserverOfErrorsFailsAsWell) {
    class Failing : public oaPcellObserver {
    public:
        Failing() : oaPcellObserver(0) {}
        void onError(oaDesign*, const oaString&, oaPcellErrorTypeEnum) override {
            throw std::runtime_error("again");
        }
    } failing;
    evaluateThrowing(std::runtime_error("broken"));
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 30", "onError 2 broken"}));
}

TEST_F(EvaluationFailure, EndsAPcellThatNeedsItself) {
    evaluator->meanwhile = [](oaDesign*, oaInt4 size) { openSubmaster(sized(size)); };
    EXPECT_EQ(openSubmaster(sized(30)), nullptr);
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 30",
                                  "onError 2 Pcell 'lib/square/layout' needs the very submaster "
                                  "that is being evaluated."}));
}

TEST_F(EvaluationFailure, EndsAPcellThatNeedsAnotherOneEachTime) {
    oaInt4 last = 0;
    evaluator->meanwhile = [&](oaDesign*, oaInt4 size) {
        last = size;
        openSubmaster(sized(size + 1));
    };
    EXPECT_NE(openSubmaster(sized(1)), nullptr); // the one before the last failed, and was told
    EXPECT_EQ(last, 64);
    const Lines told = takeLines();
    EXPECT_EQ(std::count(told.begin(), told.end(),
                         "onError 2 Pcell 'lib/square/layout' cannot be evaluated: 64 evaluations "
                         "wait for it already."),
              1);
}

TEST_F(EvaluationFailure, IsToBeExpectedWhereTheEvaluatorIsMissing) {
    link->destroy();
    evaluator = new SquarePcell(lines); // for the fixture's last look
    oaDesign* superMaster = openCell('r');
    EXPECT_THAT(takeLines(), ElementsAre(StartsWith(
                                 "onError 6 The evaluator 'square' of pcell 'lib/square/layout' is "
                                 "missing: Plug-in 'square': there is no square.plg in ")));
    EXPECT_EQ(observer->failed, superMaster);
    EXPECT_EQ(openSubmaster(sized(30)), nullptr);
    EXPECT_EQ(takeLines(), Lines{"onError 2 Pcell 'lib/square/layout' cannot be evaluated: its "
                                 "evaluator 'square' is missing, or refused it."});
    EXPECT_EQ(observer->failed, submastersOf(superMaster).at(0));
    link = oaPcellLink::create(evaluator);
}

TEST_F(EvaluationFailure, IsMendedWhenTheEvaluatorComesAndTheSuperMasterIsOpenedAgain) {
    link->destroy();
    openCell('r');
    openSubmaster(sized(30));
    evaluator = new SquarePcell(lines);
    link = oaPcellLink::create(evaluator);
    takeLines();
    oaDesign* superMaster = openCell('r');
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 30", "onPostEval drawn"}));
    EXPECT_EQ(widthOf(submastersOf(superMaster).at(0)), 30);
}

TEST_F(EvaluationFailure, OfASuperMasterLeavesItWithoutABlock) {
    oaDesign* superMaster = openCell('a');
    evaluator->meanwhile = [](oaDesign*, oaInt4) { throw std::runtime_error("broken"); };
    superMaster->evalSuperMaster();
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 10", "onError 2 broken"}));
    EXPECT_EQ(observer->failed, superMaster);
    EXPECT_EQ(superMaster->getTopBlock(), nullptr);
}

TEST_F(EvaluationFailure, MeetsADatabaseThatKeepsItsDesigns) {
    const std::string expected = "Pcell 'lib/square/layout' is being evaluated; it can neither be "
                                 "closed nor replaced now.";
    evaluator->meanwhile = [&](oaDesign* design, oaInt4) {
        oaDesign* superMaster = design->getSuperMaster();
        const auto refusedNow = [&](auto call) { return refused(oacPcellBeingEvaluated, call); };
        EXPECT_EQ(refusedNow([&] { design->purge(); }), expected);
        EXPECT_EQ(refusedNow([&] { superMaster->purge(); }), expected);
        EXPECT_EQ(refusedNow([&] { superMaster->revert(); }), expected);
        EXPECT_EQ(refusedNow([&] { superMaster->reopen('w'); }), expected);
        EXPECT_EQ(refusedNow([&] { lib->close(); }), expected);
        design->close();
        openCell('r')->close();
        EXPECT_EQ(
            refused(oacCannotModifyReadModeDesign, [&] { superMaster->undefineSuperMaster(); }),
            "Design 'lib/square/layout' is open for reading and cannot be changed.");
    };
    EXPECT_EQ(widthOf(openSubmaster(sized(30))), 30);
}

TEST_F(EvaluationFailure, IsOneOfTheStepsThatObserversAreToldOf) {
    for (const auto& [call, kind] : {std::pair("onRead", 3), std::pair("onBind", 0)}) {
        evaluator->failing = call;
        oaDesign* design = openCell('r');
        EXPECT_EQ(takeLines(), Lines{"onError " + std::to_string(kind) + " no " + call});
        EXPECT_EQ(observer->failed, design);
        EXPECT_EQ(design->getPcellDef(), nullptr);
        design->close();
    }
    evaluator->failing.clear();
    oaDesign* design = openCell('a');
    for (const auto& [call, kind] : {std::pair("calcDiskSize", 5), std::pair("onWrite", 4)}) {
        evaluator->failing = call;
        EXPECT_THROW(design->save(), oaCommon::IException);
        EXPECT_EQ(takeLines(), Lines{"onError " + std::to_string(kind) + " no " + call});
    }
    evaluator->failing = "onUnbind";
    design->close();
    EXPECT_EQ(takeLines(), Lines{"onError 1 no onUnbind"});
}

TEST_F(EvaluationFailure, IsReportedByEvaluatorsWithNumbersOfTheirOwn) {
    evaluator->meanwhile = [](oaDesign* design, oaInt4) {
        oaPcellObserver::notifyErrorObservers(design, "by number", 1234);
        oaPcellObserver::notifyErrorObservers(design, "by name", oacPcellWriteError);
    };
    EXPECT_NE(openSubmaster(sized(30)), nullptr);
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 30", "onError 1234 by number",
                                  "onError 4 by name", "onPostEval drawn"}));
    observer->enable(false);
    oaPcellObserver::notifyErrorObservers(nullptr, "to nobody", 1);
    EXPECT_EQ(takeLines(), Lines());
}

} // namespace

#include <gtest/gtest.h>

#include "pcell_place.h"

namespace cli::test {
namespace {

using ovalis::test::EnvironmentOverride;

/// Libraries whose technologies disagree, and in "chip" a design "top".
class CollectedErrors : public testing::Test {
protected:
    CollectedErrors() {
        const ovalis::test::NoBrokers noBrokers;
        EXPECT_EQ(ovalis::test::runProgram(ovalis::test::builtProgram("incremental_technologies"),
                                           {work_.path("")})
                      .exitCode,
                  0);
    }

    std::string chip() const { return work_.path("chip"); }

    /// Puts a pcell into "top" that nobody has evaluated.
    void placePcell() const {
        EXPECT_EQ(ovalisHere({"pcell", chip(), "coil", "layout", "SKRPcell"}).status, 0);
        EXPECT_EQ(ovalisHere({"place", chip(), "top", "layout", "I1", "0", "0", "--master", chip(),
                              "coil", "layout"})
                      .status,
                  0);
    }

    Outcome draw(const std::string& picture = "top.svg") const {
        return ovalisHere({"draw", chip(), "top", "layout", "-o", work_.path(picture)});
    }

    std::string wrote() const { return "wrote " + work_.path("top.svg") + "\n"; }

    const Workplace work_;
};

const std::string pcellReport =
    "OA report summary:\n"
    "  Pcell:\n"
    "    chip/coil/layout: Error[2]: The pcell submaster cannot be produced.\n"
    "OA report summary end\n";

const std::string wholeReport =
    "OA report summary:\n"
    "  Pcell:\n"
    "    chip/coil/layout: Error[2]: The pcell submaster cannot be produced.\n"
    "  Tech:\n"
    "    LayerName: mostDerivedTech(Lib)=chip\n"
    "    LayerNum: mostDerivedTech(Lib)=chip\n"
    "    ProcessFamilyConflict:\n"
    "      base|rf40\n"
    "      metal|rf28\n"
    "OA report summary end\n";

} // namespace

TEST_F(CollectedErrors, EndACommandWithTheReport) {
    placePcell();
    EXPECT_EQ(draw(), (Outcome{0, "", wrote() + pcellReport}));
    const EnvironmentOverride setting("TESSA_OAINFO", "Pcell:Tech");
    EXPECT_EQ(draw(), (Outcome{0, "", wrote() + wholeReport}));
    const std::string text = work_.path("top.txt");
    EXPECT_EQ(ovalisHere({"describe", chip(), "-o", text}),
              (Outcome{0, "", "wrote " + text + "\n" + wholeReport}));
}

TEST_F(CollectedErrors, AreNoneWhereThereAreOnlyConflicts) {
    const EnvironmentOverride setting("TESSA_OAINFO", "all");
    EXPECT_EQ(draw(), (Outcome{0, "", wrote()}));
}

TEST_F(CollectedErrors, AreNotToldWhenNobodyWantsThem) {
    placePcell();
    for (const char* value : {"0", "00x", "Tech", "all:Pcell"}) {
        const EnvironmentOverride setting("TESSA_OAINFO", value);
        EXPECT_EQ(draw(), (Outcome{0, "", wrote()})) << value;
    }
}

TEST_F(CollectedErrors, FollowTheLineOfAFailure) {
    placePcell();
    const Outcome failed = draw("absent/top.svg");
    EXPECT_EQ(failed.status, 2);
    EXPECT_EQ(failed.out, "");
    EXPECT_TRUE(failed.talk.starts_with("ovalis: ")) << failed.talk;
    EXPECT_EQ(failed.talk.substr(failed.talk.find('\n') + 1), pcellReport);
}

TEST_F(CollectedErrors, AreToldOnceByTheReport) {
    placePcell();
    EXPECT_EQ(ovalisHere({"report", chip()}), (Outcome{1, pcellReport, ""}));
}

TEST_F(CollectedErrors, AreToldOnceByAnEvaluation) {
    placePcell();
    const Outcome failed = ovalisHere({"evaluate", chip(), "coil", "layout"});
    EXPECT_EQ(failed.status, 1);
    EXPECT_NE(failed.talk.find("The pcell submaster cannot be produced."), std::string::npos);
    EXPECT_EQ(failed.talk.find("OA report"), std::string::npos) << failed.talk;
}

TEST_F(CollectedErrors, AreToldOnceByACollectorThatReportsItself) {
    placePcell();
    const EnvironmentOverride setting("TESSA_OAINFO", "alldbg:LibDefs");
    EXPECT_EQ(ovalisProgram({"draw", chip(), "top", "layout", "-o", work_.path("top.svg")}),
              (Outcome{0, "", wrote() + wholeReport + "\n"}));
}

TEST_F(CollectedErrors, TellOfEvaluatorsThatAreMissing) {
    {
        const EnvironmentOverride plugIns("OA_PLUGIN_PATH", pluginDirectory());
        ASSERT_EQ(ovalisProgram({"pcell", chip(), "coil", "layout", "spiral"}).status, 0);
    }
    const Outcome told = ovalisProgram({"hash", chip(), "coil", "layout"});
    EXPECT_EQ(told.status, 0);
    EXPECT_TRUE(told.talk.starts_with("OA report summary:\n"
                                      "  Pcell:\n"
                                      "    chip/coil/layout: Error[6]: The evaluator 'spiral' of "
                                      "pcell 'chip/coil/layout' is missing"))
        << told.talk;
    EXPECT_TRUE(told.talk.ends_with("OA report summary end\n")) << told.talk;
}

} // namespace cli::test

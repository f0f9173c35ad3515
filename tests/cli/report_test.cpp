#include <gtest/gtest.h>

#include "workplace.h"

namespace cli::test {
namespace {

/// A library with an exported component, and a cell with one that nobody has evaluated.
class Report : public ::testing::Test {
protected:
    Report() {
        EXPECT_EQ(work_.exportIt().status, 0);
        // What an export writes there includes a file of the design environment.
        ovalis::test::writeText(work_.library() + "/lib.defs", "DEFINE lib .\n");
    }

    void place() {
        EXPECT_EQ(ovalisHere({"place", work_.library(), "top", "layout", "I1", "0", "0", "--master",
                              work_.library(), "coil", "layout", "--param", "N=5"})
                      .status,
                  0);
    }

    Outcome report(const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {"report", work_.library()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ovalisHere(arguments);
    }

    Workplace work_;
};

} // namespace

TEST_F(Report, OfALibraryWithoutFaultsIsEmpty) {
    EXPECT_EQ(report(), (Outcome{0, "", ""}));
    EXPECT_EQ(report({"--json"}), (Outcome{0, "[]\n", ""}));
    EXPECT_EQ(report({"coil", "layout"}), (Outcome{0, "", ""}));
}

TEST_F(Report, NamesPcellsThatCannotBeEvaluated) {
    place();
    const Outcome outcome = report();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.out.starts_with("OA report summary:\n"
                                        "  Pcell:\n"
                                        "    lib/coil/layout: Error[2]: "))
        << outcome.out;
    EXPECT_TRUE(outcome.out.ends_with("OA report summary end\n"));
    EXPECT_EQ(report({"top", "layout"}).out, outcome.out);
    EXPECT_EQ(report({"coil", "layout"}), (Outcome{0, "", ""}));
}

TEST_F(Report, GivesTheSameToPrograms) {
    place();
    const Outcome outcome = report({"--json"});
    EXPECT_EQ(outcome.status, 1);
    const auto messages = nlohmann::json::parse(outcome.out);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0]["origin"], "Pcell");
    EXPECT_EQ(messages[0]["key"], "lib/coil/layout");
    EXPECT_NE(report().out.find(std::string(messages[0]["line"])), std::string::npos);
}

TEST_F(Report, HasTheOriginsAskedFor) {
    place();
    EXPECT_EQ(report({"--origins", "Tech"}), (Outcome{0, "", ""}));
    EXPECT_EQ(report({"--origins", "all:Tech"}).status, 1);
    const ovalis::test::EnvironmentOverride setting("TESSA_OAINFO", "0");
    EXPECT_EQ(report(), (Outcome{0, "", ""}));
    EXPECT_EQ(report({"--origins", "Pcell"}).status, 1);
}

TEST_F(Report, NamesWhatIsWrongInTheLibraryList) {
    ovalis::test::writeText(work_.library() + "/lib.defs", "DEFINE lib .\nINCLUDE none.defs\n");
    const Outcome outcome = report();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.starts_with("OA report summary:\n"
                                        "  LibDefs:\n"
                                        "    onLoadWarning[3]\n"
                                        ": "))
        << outcome.out;
}

TEST_F(Report, GoesOnBehindADesignThatCannotBeOpened) {
    place();
    ovalis::test::writeText(work_.library() + "/coil/symbol/symbol.oa", "damaged");
    const Outcome outcome = report();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.talk.starts_with("coil/symbol: ")) << outcome.talk;
    EXPECT_NE(outcome.out.find("lib/coil/layout"), std::string::npos);
}

TEST_F(Report, RefusesHalfANameAndWhatIsMissing) {
    EXPECT_EQ(report({"coil"}),
              (Outcome{2, "", "ovalis: a design is named by its cell and its view\n"}));
    EXPECT_EQ(report({"none", "layout"}).status, 2);
}

} // namespace cli::test

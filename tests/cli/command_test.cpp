#include <gtest/gtest.h>

#include "pcell_place.h"

namespace cli::test {
namespace {

using ovalis::test::readText;
using ovalis::test::TemporaryDirectory;
using ovalis::test::writeText;

TEST(Command, TellsItsVersion) {
    EXPECT_EQ(ovalisProgram({"--version"}), (Outcome{0, "ovalis 0.1.0\n", ""}));
}

struct WrongUsage {
    std::vector<std::string> arguments;
    const char* talk;
};

TEST(Command, WrongUsageIsOneLineAndStatus2) {
    const WrongUsage wrong[] = {
        {{}, "ovalis: A subcommand is required (see ovalis --help)\n"},
        {{"exprot"}, "ovalis: no command \"exprot\" (see ovalis --help)\n"},
        {{"export"}, "ovalis: COMPONENT is required (see ovalis --help)\n"},
        {{"export", "c.json"}, "ovalis: --lib is required (see ovalis --help)\n"},
        {{"draw", "lib", "cell"}, "ovalis: VIEW is required (see ovalis --help)\n"},
        {{"list", "lib", "cell", "more"},
         "ovalis: The following argument was not expected: more (see ovalis --help)\n"},
        {{"check", "lib", "--json"},
         "ovalis: The following argument was not expected: --json (see ovalis --help)\n"},
    };
    for (const WrongUsage& usage : wrong)
        EXPECT_EQ(ovalisHere(usage.arguments), (Outcome{2, "", usage.talk}));
}

TEST(Command, AnEmptyValueIsWrongUsage) {
    const WrongUsage wrong[] = {
        {{"describe", ""}, "DIR"},
        {{"report", ""}, "DIR"},
        {{"diff", "", ""}, "SIDES"},
        {{"diff", "lib", ""}, "SIDES"},
        {{"describe", "lib", "coil", ""}, "VIEW"},
        {{"describe", "lib", "-o", ""}, "-o"},
        {{"files", "lib", "--add", ""}, "--add"},
        {{"files", "lib", "--remove", ""}, "--remove"},
        {{"files", "lib", "--add=", "--json"}, "--add"},
        {{"check", "lib", "--name", ""}, "--name"},
        {{"report", "lib", "--origins", ""}, "--origins"},
        {{"cache", "list", "--libs", ""}, "--libs"},
        {{"evaluate", "lib", "coil", "layout", "--draw", ""}, "--draw"},
        {{"evaluate", "lib", "coil", "layout", "--param", ""}, "--param"},
        {{"place", "lib", "top", "layout", "I1", "", "0", "--master", "lib", "a", "b"}, "X"},
        {{"place", "lib", "top", "layout", "I1", "0", "0", "--master", "lib", "", "b"}, "--master"},
        {{"libs", ""}, "FILE"},
    };
    for (const WrongUsage& usage : wrong)
        EXPECT_EQ(ovalisHere(usage.arguments),
                  (Outcome{2, "",
                           "ovalis: " + std::string(usage.talk) +
                               ": the value is empty (see ovalis --help)\n"}));
}

TEST(Command, AnUnreadableComponentIsOneLineAndStatus2) {
    const Workplace work;
    const std::string file = work.path("absent.json");
    EXPECT_EQ(ovalisProgram({"export", file, "--lib", work.library()}),
              (Outcome{2, "", "ovalis: " + file + ": no such file\n"}));
    EXPECT_FALSE(std::filesystem::exists(work.library()));
}

TEST(Command, ABadComponentNamesFileAndKey) {
    Workplace work;
    work.component["ports"][1]["name"] = "A";
    EXPECT_EQ(
        work.exportIt(),
        (Outcome{2, "",
                 "ovalis: " + work.path("component.json") +
                     ": /ports/1/name: expected a port name not used before, found \"A\"\n"}));
    EXPECT_FALSE(std::filesystem::exists(work.library()));
}

TEST(Command, APathWithBlanksIsRefusedInTheLibrarysWords) {
    const Workplace work;
    const std::string path = work.path("my lib");
    EXPECT_EQ(ovalisHere({"export", work.componentFile(), "--lib", path}),
              (Outcome{2, "",
                       "ovalis: " + path +
                           ": Specified OpenAccess library path is not compatible with VEX: do "
                           "not use whitespaces.\n"}));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(Command, AMissingLibraryIsAFailure) {
    const Workplace work;
    const Outcome expected{2, "", "ovalis: OA Library not found at " + work.library() + "\n"};
    EXPECT_EQ(ovalisHere({"check", work.library()}), expected);
    EXPECT_EQ(ovalisHere({"list", work.library()}), expected);
    EXPECT_EQ(ovalisHere({"draw", work.library(), "a", "b"}), expected);
    EXPECT_EQ(ovalisHere({"copy", work.library(), work.path("copy")}), expected);
}

TEST(Check, ListsWhatIsMissingWithStatus1) {
    const Workplace work;
    ovalis::createLib(work.library(), "lib").reset();
    EXPECT_EQ(ovalisProgram({"check", work.library()}),
              (Outcome{1,
                       "TechDB units per user-unit not set\nTechDB user-units not set\n"
                       "TechDB layers for tessa not found\nlib.defs not found\n",
                       ""}));
}

TEST(Check, NamesViewsWithoutTheirDesign) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    writeText(work.library() + "/coil/symbol/symbol.oa", "");
    std::filesystem::remove(work.library() + "/coil/layout/layout.oa");
    EXPECT_EQ(ovalisHere({"check", work.library()}),
              (Outcome{1,
                       "coil/layout: layout.oa has no content\n"
                       "coil/symbol: symbol.oa has no content\n",
                       ""}));
}

TEST(Check, ReportsAPathWithBlanks) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    std::filesystem::rename(work.library(), work.path("my lib"));
    EXPECT_EQ(ovalisHere({"check", work.path("my lib"), "--name", "lib"}),
              (Outcome{1,
                       "Specified OpenAccess library path is not compatible with VEX: do not use "
                       "whitespaces.\n",
                       ""}));
}

TEST(List, ShowsViewsSortedByName) {
    Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    work.component["name"] = "a_longer_name";
    work.component["symbol"]["kind"] = "none";
    ASSERT_EQ(work.exportIt().status, 0);
    EXPECT_EQ(ovalisProgram({"list", work.library()}),
              (Outcome{0,
                       "a_longer_name  layout  maskLayout\n"
                       "coil           layout  maskLayout\n"
                       "coil           symbol  schematicSymbol\n",
                       ""}));
    EXPECT_EQ(ovalisHere({"list", work.library(), "a_longer_name"}),
              (Outcome{0, "a_longer_name  layout  maskLayout\n", ""}));
}

TEST(List, SaysOnStandardErrorThatBrokersAreNotConfigured) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const ovalis::test::EnvironmentOverride home("PCELLBROKER_HOME", std::nullopt);
    const auto listed = ovalis::test::runProgram(ovalis::test::builtProgram("ovalis"),
                                                 {"list", work.library(), "none"});
    EXPECT_EQ(listed.exitCode, ovalisHere({"list", work.library(), "none"}).status);
    EXPECT_EQ(withoutCarriageReturns(listed.errors).substr(0, 72),
              "pcellBrokerClient: registerPcellEvaluators: PCELLBROKER_HOME is not set\n");
}

TEST(List, WritesJsonForPrograms) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const Outcome listed = ovalisProgram({"list", work.library(), "--json"});
    EXPECT_EQ(listed.status, 0);
    EXPECT_EQ(nlohmann::json::parse(listed.out), nlohmann::json::parse(R"({
        "library": "lib",
        "cells": [{"name": "coil", "views": [{"name": "layout", "type": "maskLayout"},
                                             {"name": "symbol", "type": "schematicSymbol"}]}]
    })"));
}

TEST(List, AnEmptyLibraryHasNoLines) {
    const Workplace work;
    ovalis::createVEXCompatibleLib(work.library(), "lib").reset();
    EXPECT_EQ(ovalisHere({"list", work.library()}), (Outcome{0, "", ""}));
}

TEST(List, NamesACellThatIsNotThere) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    EXPECT_EQ(ovalisHere({"list", work.library(), "other"}),
              (Outcome{2, "", "ovalis: " + work.library() + ": no cell \"other\"\n"}));
}

TEST(Draw, WritesSvgToStandardOutput) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const Outcome drawn = ovalisProgram({"draw", work.library(), "coil", "layout"});
    EXPECT_EQ(drawn.status, 0);
    EXPECT_EQ(drawn.talk, "");
    EXPECT_TRUE(drawn.out.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg "));
    EXPECT_TRUE(drawn.out.ends_with("</svg>\n"));
    EXPECT_NE(drawn.out.find("<title>lib / coil / layout</title>"), std::string::npos);
}

TEST(Draw, WritesTheSameIntoAFile) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string file = work.path("symbol.svg");
    EXPECT_EQ(ovalisProgram({"draw", work.library(), "coil", "symbol", "-o", file}),
              (Outcome{0, "", "wrote " + file + "\n"}));
    EXPECT_EQ(ovalisHere({"draw", work.library(), "coil", "symbol"}).out, readText(file));
}

TEST(Draw, ShowsWhatTheCacheHasForInstances) {
    PcellPlace work;
    const auto figures = [](const Outcome& drawn) {
        const std::size_t begin = drawn.out.find("<g stroke-linejoin");
        return drawn.out.substr(begin, drawn.out.find("<circle") - begin);
    };
    const auto note = "instance I1 has no master to show";
    ASSERT_EQ(work.place("I1").status, 0);
    const Outcome without = ovalisProgram({"draw", work.library(), "top", "layout"});
    EXPECT_NE(without.out.find(note), std::string::npos) << without.out;
    work.put();
    const std::string list = work.path("all.defs");
    writeText(list, "DEFINE lib lib\n");
    const Outcome named = ovalisProgram({"draw", work.library(), "top", "layout", "--libs", list});
    EXPECT_NE(named.out.find(note), std::string::npos) << named.out;
    const Outcome with = ovalisProgram({"draw", work.library(), "top", "layout"});
    EXPECT_EQ(with.status, 0);
    EXPECT_EQ(with.out.find(note), std::string::npos) << with.out;
    EXPECT_NE(with.out.find("<title>lib / top / layout</title>"), std::string::npos);
    EXPECT_NE(figures(with).find("d=\"M0 0h90v30h-90zm0 30h90l-45 30z\""), std::string::npos)
        << with.out;
    work.put({"--libs", list});
    EXPECT_EQ(ovalisProgram({"draw", work.library(), "top", "layout", "--libs", list}), with);
}

TEST(Draw, NamesAViewThatIsNotThere) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    for (const std::string view : {"coil/schematic", "other/layout"}) {
        const auto slash = view.find('/');
        EXPECT_EQ(
            ovalisHere({"draw", work.library(), view.substr(0, slash), view.substr(slash + 1)}),
            (Outcome{2, "", "ovalis: " + work.library() + ": no cell view \"" + view + "\"\n"}));
    }
}

TEST(Draw, AFileThatCannotBeWrittenIsNamed) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string file = work.path("absent/picture.svg");
    const Outcome drawn = ovalisHere({"draw", work.library(), "coil", "symbol", "-o", file});
    EXPECT_EQ(drawn.status, 2);
    EXPECT_NE(drawn.talk.find(file), std::string::npos);
    EXPECT_EQ(std::count(drawn.talk.begin(), drawn.talk.end(), '\n'), 1);
}

} // namespace
} // namespace cli::test

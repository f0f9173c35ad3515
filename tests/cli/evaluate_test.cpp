#include <gtest/gtest.h>

#include "diagnosis/installation.h"
#include "pcell_place.h"

namespace cli::test {
namespace {

using ovalis::test::EnvironmentOverride;
using ovalis::test::readText;
using ovalis::test::writeText;

/// What the database finds wrong in the list beside a cache entry, which names a variable that the
/// environment of the tests lacks.
std::string listWarning(const std::string& entry) {
    return entry.substr(0, entry.rfind(".vexPcells")) +
           "lib.defs:1: variable 'MOLTRAX_DIR' is not set.";
}

TEST(Hash, IsThatOfTheNamesAndAllParameters) {
    PcellPlace work;
    EXPECT_EQ(work.onCoil({"hash"}), (Outcome{0, identityOf2 + "\n", ""}));
    EXPECT_EQ(work.onCoil({"hash"}, {"--param", "N=2"}), (Outcome{0, identityOf2 + "\n", ""}));
    EXPECT_EQ(work.onCoil({"hash"}, {"--param", "N=3"}), (Outcome{0, identityOf3 + "\n", ""}));
    EXPECT_EQ(work.onCoil({"hash"}, {"--param", "N=9", "--param", "N=3"}),
              (Outcome{0, identityOf3 + "\n", ""}));
}

TEST(Hash, IsExplainedFieldByField) {
    PcellPlace work;
    EXPECT_EQ(work.onCoil({"hash"}, {"--explain", "--param", "N=3"}),
              (Outcome{0,
                       "    0  6c 69 62 00                                      library \"lib\"\n"
                       "    4  63 6f 69 6c 00                                   cell \"coil\"\n"
                       "    9  6c 61 79 6f 75 74 00                             view \"layout\"\n"
                       "   16  01 00 00 00                                      parameters 1\n"
                       "   20  4e 00                                            "
                       "parameter 1 name \"N\"\n"
                       "   22  00                                               "
                       "parameter 1 type int\n"
                       "   23  03 00 00 00                                      "
                       "parameter 1 value 3\n" +
                           identityOf3 + "\n",
                       ""}));
}

TEST(Hash, LongFieldsTakeSeveralRows) {
    PcellPlace work;
    const std::string library = work.path("more");
    ASSERT_EQ(
        ovalisHere({"pcell", library, "a_cell_with_a_long_name", "layout", "PSNPcell"}).status, 0);
    const Outcome hash =
        ovalisHere({"hash", library, "a_cell_with_a_long_name", "layout", "--explain"});
    EXPECT_NE(hash.out.find("    5  61 5f 63 65 6c 6c 5f 77 69 74 68 5f 61 5f 6c 6f  cell "
                            "\"a_cell_with_a_long_name\"\n"
                            "   21  6e 67 5f 6e 61 6d 65 00\n"
                            "   29  6c 61"),
              std::string::npos)
        << hash.out;
}

TEST(Hash, WrongParametersAreOneLineAndListWhatThereIs) {
    PcellPlace work;
    const struct {
        const char* param;
        const char* talk;
    } rows[] = {
        {"n=3", "ovalis: no parameter \"n\"; there are N (int)\n"},
        {"N=3.5",
         "ovalis: parameter \"N\" is of the type int, which \"3.5\" is not; there are N (int)\n"},
        {"N", "ovalis: \"N\" is no NAME=VALUE; there are N (int)\n"},
    };
    for (const auto& row : rows)
        for (const char* command : {"hash", "evaluate"})
            EXPECT_EQ(work.onCoil({command}, {"--param", row.param}), (Outcome{2, "", row.talk}));
}

TEST(Evaluate, NamesWhatIsNoPcell) {
    PcellPlace work;
    EXPECT_EQ(ovalisHere({"evaluate", work.library(), "coil", "symbol"}),
              (Outcome{2, "", "ovalis: " + work.library() + ": coil/symbol is no pcell\n"}));
    EXPECT_EQ(ovalisHere({"evaluate", work.library(), "coil", "other"}),
              (Outcome{2, "", "ovalis: " + work.library() + ": no cell view \"coil/other\"\n"}));
    EXPECT_EQ(ovalisHere({"evaluate", work.path("absent"), "coil", "layout"}),
              (Outcome{2, "", "ovalis: OA Library not found at " + work.path("absent") + "\n"}));
}

TEST(Evaluate, AMissingEntryIsToldWithNamesParametersAndPath) {
    PcellPlace work;
    const std::string stored = entryPath(work.put());
    const std::string directory = stored.substr(0, stored.size() - identityOf2.size());
    const EnvironmentOverride list("MOLTRAX_DIR", std::nullopt);
    EXPECT_EQ(work.onCoil({"evaluate"}, {"--param", "N=3"}),
              (Outcome{1, "",
                       "ovalis: lib/coil/layout cannot be evaluated by \"PSNPcell\"\n"
                       "  evaluation of lib/coil/layout: The pcell submaster cannot be "
                       "produced.\n"
                       "  parameters: N = 3\n"
                       "  identity: " +
                           identityOf3 +
                           "\n"
                           "  cache: " +
                           directory + identityOf3 +
                           " is not there\n"
                           "  library list: " +
                           listWarning(stored) + "\n"}));
}

TEST(Evaluate, AnEntryServesItsParameters) {
    PcellPlace work;
    const std::string stored = entryPath(work.put());
    Outcome served = work.onCoil({"evaluate"});
    served.out = withoutTime(served.out);
    EXPECT_EQ(served, (Outcome{0,
                               "pcell        lib/coil/layout\n"
                               "parameters   N = 2\n"
                               "evaluator    PSNPcell\n"
                               "identity     " +
                                   identityOf2 +
                                   "\n"
                                   "served by    cache file " +
                                   stored +
                                   "\n"
                                   "shapes       5\n"
                                   "box          0 0 0.09 0.06 (left, bottom, right, top; "
                                   "micron)\n"
                                   "time         T ms\n",
                               ""}));
}

TEST(Evaluate, ADamagedEntryIsAFailureThatNamesIt) {
    PcellPlace work;
    const std::string stored = entryPath(work.put());
    const std::string whole = readText(stored);
    writeText(stored, whole.substr(0, whole.size() / 2));
    const Outcome failed = work.onCoil({"evaluate"});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.out, "");
    EXPECT_NE(failed.talk.find("  cache: " + stored + " cannot be used\n"), std::string::npos)
        << failed.talk;
}

TEST(Evaluate, WhatAnEntryPlacesAndIsMissingIsToldByItself) {
    PcellPlace work;
    ASSERT_EQ(work.place("I1", {"--param", "N=3"}).status, 0);
    const Outcome put = work.onCoil({"cache", "put"}, {"--from", work.library(), "top", "layout"});
    ASSERT_EQ(put.status, 0) << put.talk;
    const EnvironmentOverride list("MOLTRAX_DIR", std::nullopt);
    EXPECT_EQ(work.onCoil({"evaluate"}),
              (Outcome{1, "",
                       "ovalis: lib/coil/layout is evaluated by \"PSNPcell\", but not all that it "
                       "places\n"
                       "  evaluation of lib/coil/layout (N = 3): The pcell submaster cannot be "
                       "produced.\n"
                       "  parameters: N = 2\n"
                       "  identity: " +
                           identityOf2 + "\n  cache: " + entryPath(put) +
                           "\n  library list: " + listWarning(entryPath(put)) + "\n"}));
    work.put({"--param", "N=3"});
    const Outcome served = work.onCoil({"evaluate"});
    EXPECT_EQ(served.status, 0) << served.talk;
    EXPECT_NE(served.out.find("\nshapes       0\nbox          0 -50.5 0.09 -50.44 "),
              std::string::npos)
        << served.out;
}

TEST(Evaluate, UsesTheListThatIsNamed) {
    PcellPlace work;
    std::filesystem::create_directory(work.path("lists"));
    const std::string list = work.path("lists/all.defs");
    writeText(list, "DEFINE lib ../lib\n");
    const std::string stored = entryPath(work.put({"--libs", list}));
    EXPECT_TRUE(std::filesystem::exists(work.path("lists/.vexPcells/" + identityOf2)));
    EXPECT_FALSE(std::filesystem::exists(work.path("lib/.vexPcells")));
    const Outcome served = work.onCoil({"evaluate"}, {"--libs", list});
    EXPECT_EQ(served.status, 0);
    EXPECT_NE(served.out.find("served by    cache file " + stored + "\n"), std::string::npos);
    EXPECT_EQ(work.onCoil({"evaluate"}).status, 1);
}

TEST(Evaluate, ALibraryHasTheNameOfTheListInItsIdentity) {
    PcellPlace work;
    const std::string list = work.path("all.defs");
    writeText(list, "DEFINE other lib\n");
    const Outcome hash = work.onCoil({"hash"}, {"--libs", list, "--explain"});
    EXPECT_EQ(hash.status, 0);
    EXPECT_NE(hash.out.find("library \"other\"\n"), std::string::npos) << hash.out;
}

TEST(Evaluate, AListThatIsNotThereIsAFailure) {
    PcellPlace work;
    const Outcome failed = work.onCoil({"evaluate"}, {"--libs", work.path("absent.defs")});
    EXPECT_EQ(failed.status, 2);
    EXPECT_NE(failed.talk.find("absent.defs"), std::string::npos);
}

TEST(Evaluate, WithoutAListThereIsNoCache) {
    PcellPlace work;
    std::filesystem::remove(work.path("lib/lib.defs"));
    EXPECT_EQ(work.onCoil({"evaluate"}),
              (Outcome{1, "",
                       "ovalis: lib/coil/layout cannot be evaluated by \"PSNPcell\"\n"
                       "  evaluation of lib/coil/layout: The pcell submaster cannot be produced.\n"
                       "  parameters: N = 2\n"
                       "  identity: " +
                           identityOf2 +
                           "\n"
                           "  cache: there is no top library list, beside which it would be\n"}));
}

TEST(Evaluate, APlugInDrawsTheSpiral) {
    const EnvironmentOverride plugIns("OA_PLUGIN_PATH", pluginDirectory());
    PcellPlace work;
    ASSERT_EQ(work.makeSpiral().status, 0);
    const std::string picture = work.path("spiral.svg");
    Outcome served = work.evaluateSpiral({"--param", "turns=3", "--draw", picture});
    served.out = withoutTime(served.out);
    const std::string begin =
        "pcell        coils/spiral/layout\n"
        "parameters   shape = square, turns = 3, width = 10, spacing = 5, innerDiameter = 100, "
        "layer = 8, viaLayer = 7, underpassLayer = 6\n"
        "evaluator    spiral\n"
        "identity     ";
    const std::string end = "shapes       5\n"
                            "box          -120 -90 120 90 (left, bottom, right, top; micron)\n"
                            "time         T ms\n";
    EXPECT_TRUE(served.out.starts_with(begin)) << served.out;
    EXPECT_TRUE(served.out.ends_with(end)) << served.out;
    EXPECT_NE(served.out.find("\nserved by    plug-in " + pluginDirectory()), std::string::npos);
    EXPECT_NE(served.out.find("spiral.plg\n"), std::string::npos);
    EXPECT_EQ(served.talk, "wrote " + picture + "\n");
    EXPECT_NE(readText(picture).find("<title>coils / spiral / layout (turns = 3)</title>"),
              std::string::npos);
}

TEST(Evaluate, WhatAPlugInRefusesIsToldInItsWords) {
    const EnvironmentOverride plugIns("OA_PLUGIN_PATH", pluginDirectory());
    PcellPlace work;
    ASSERT_EQ(work.makeSpiral().status, 0);
    const Outcome refused = work.evaluateSpiral({"--param", "turns=0"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_TRUE(refused.talk.starts_with(
        "ovalis: coils/spiral/layout cannot be evaluated by \"spiral\"\n"
        "  evaluation of coils/spiral/layout: turns is 0: it must be 1 to 100\n"
        "  parameters: shape = square, turns = 0, "))
        << refused.talk;
}

TEST(Evaluate, AnUnknownEvaluatorIsAFailure) {
    PcellPlace work;
    {
        const EnvironmentOverride plugIns("OA_PLUGIN_PATH", pluginDirectory());
        ASSERT_EQ(ovalisProgram({"pcell", work.path("coils"), "spiral", "layout", "spiral"}).status,
                  0);
    }
    const Outcome failed = ovalisProgram({"evaluate", work.path("coils"), "spiral", "layout"});
    EXPECT_EQ(failed.status, 1);
    EXPECT_NE(failed.talk.find("plug-in of coils/spiral/layout: The evaluator 'spiral' of pcell "
                               "'coils/spiral/layout' is missing"),
              std::string::npos)
        << failed.talk;
}

/// What the built program says to the source of an evaluation of the spiral, in the environment of
/// an installation of brokers.
nlohmann::json sourceWithBrokers(PcellPlace& work) {
    const auto result =
        ovalis::test::runProgram(ovalis::test::builtProgram("ovalis"),
                                 {"evaluate", work.path("coils"), "spiral", "layout", "--json"});
    return nlohmann::json::parse(result.output)["source"];
}

TEST(Evaluate, ABrokerIsToldThoughThereIsAPlugInToo) {
    PcellPlace work;
    ASSERT_EQ(work.makeSpiral().status, 0);
    diagnosis::test::Installation here;
    here.set("OA_PLUGIN_PATH", pluginDirectory());
    here.change("CONFIG", "spiral:EX");
    here.writeFile();
    using Json = nlohmann::json;
    EXPECT_EQ(sourceWithBrokers(work),
              (Json{{"kind", "broker"},
                    {"path", here.at(diagnosis::test::Installation::program("broker6"))},
                    {"version", 6},
                    {"libraries", "external"}}));
    here.set("TEST_BROKER_TYPES", "another");
    EXPECT_EQ(sourceWithBrokers(work),
              (Json{{"kind", "none"},
                    {"path", nullptr},
                    {"tried", "6 (through broker using external OA libs), "
                              "5 (through broker using external OA libs)"}}));
    here.change("CONFIG", "spiral");
    here.writeFile();
    const Json source = sourceWithBrokers(work);
    EXPECT_EQ(source["kind"], "plug-in");
    EXPECT_TRUE(source["path"].get<std::string>().ends_with("spiral.plg"));
}

TEST(Evaluate, ABrokerThatFailsIsNamed) {
    PcellPlace work;
    ASSERT_EQ(work.makeSpiral().status, 0);
    diagnosis::test::Installation here;
    here.change("CONFIG", "spiral:X");
    here.writeFile();
    const auto result = ovalis::test::runProgram(
        ovalis::test::builtProgram("ovalis"), {"evaluate", work.path("coils"), "spiral", "layout"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(withoutCarriageReturns(result.errors)
                  .find("\n  broker: " +
                        here.at(diagnosis::test::Installation::program("broker6")) + "\n"),
              std::string::npos)
        << result.errors;
}

/// A copy of the command in an installation of its own, which has the example plug-ins.
class InstalledCommand {
public:
    InstalledCommand() {
        const std::filesystem::path built = ovalis::test::builtProgram("ovalis");
        copy(built.parent_path(), "bin", built.filename().string());
        copy(built.parent_path(), "bin", ".dll");
        copy(built.parent_path(), "bin", ".so");
        copy(pluginDirectory(), "data/plugins", "");
        command_ = root() / "bin" / built.filename();
        const std::string variable = platform::libraryPathVariable();
        const std::string before = platform::environmentVariable(variable).value_or("");
        libraries_.emplace(variable, ovalis::test::utf8(root() / "bin") +
                                         platform::pathListSeparator() + before);
    }

    std::filesystem::path root() const { return directory_.path(); }
    const std::filesystem::path& command() const { return command_; }

private:
    /// The files of a directory whose names have a text in them.
    void copy(const std::filesystem::path& from, const char* to, const std::string& part) const {
        std::filesystem::create_directories(root() / to);
        for (const auto& entry : std::filesystem::directory_iterator(from)) {
            const std::string name = ovalis::test::utf8(entry.path().filename());
            const std::filesystem::path copied = root() / to / entry.path().filename();
            if (!entry.is_directory() && name.find(part) != std::string::npos &&
                !std::filesystem::exists(std::filesystem::symlink_status(copied)))
                std::filesystem::copy(entry.path(), copied,
                                      std::filesystem::copy_options::copy_symlinks);
        }
    }

    ovalis::test::TemporaryDirectory directory_;
    std::filesystem::path command_;
    std::optional<EnvironmentOverride> libraries_;
};

TEST(Evaluate, APlugInOfTheInstallationIsToldAsSuch) {
    PcellPlace work;
    {
        const EnvironmentOverride plugIns("OA_PLUGIN_PATH", pluginDirectory());
        ASSERT_EQ(work.makeSpiral().status, 0);
    }
    const EnvironmentOverride plugIns("OA_PLUGIN_PATH", std::nullopt);
    const ovalis::test::NoBrokers noBrokers;
    const InstalledCommand installed;
    const auto told = ovalis::test::runProgram(
        installed.command(), {"evaluate", work.path("coils"), "spiral", "layout", "--json"});
    ASSERT_EQ(told.exitCode, 0) << told.errors;
    const nlohmann::json source = nlohmann::json::parse(told.output)["source"];
    EXPECT_EQ(source["kind"], "plug-in");
    EXPECT_TRUE(std::filesystem::equivalent(source["path"].get<std::string>(),
                                            installed.root() / "data" / "plugins" / "spiral.plg"))
        << source;
}

TEST(Evaluate, AKindOfTheCacheIsNoPlugInThoughThereIsOneOfItsName) {
    PcellPlace work;
    const EnvironmentOverride plugIns("OA_PLUGIN_PATH", work.path("plugins"));
    std::filesystem::create_directory(work.path("plugins"));
    writeText(work.path("plugins/PSNPcell.plg"), "<plugIn lib=\"spiral_pcell\"/>");
    const std::string stored = entryPath(work.put());
    const Outcome told = work.onCoil({"evaluate"}, {"--json"});
    EXPECT_EQ(nlohmann::json::parse(told.out)["source"],
              (nlohmann::json{{"kind", "cache file"}, {"path", stored}}));
}

TEST(Evaluate, LeavesNoLibraryListOpen) {
    PcellPlace work;
    std::filesystem::create_directory(work.path("oalibs"));
    writeText(work.path("oalibs/vex.defs"), "");
    const EnvironmentOverride included("MOLTRAX_DIR", work.path(""));
    work.put();
    EXPECT_EQ(work.onCoil({"evaluate"}).status, 0);
    EXPECT_TRUE(oa::oaLib::getOpenLibs().isEmpty());
    EXPECT_TRUE(oa::oaLibDefList::getLibDefLists().isEmpty());
    EXPECT_EQ(work.onCoil({"evaluate"}, {"--libs", work.path("absent.defs")}).status, 2);
    EXPECT_TRUE(oa::oaLibDefList::getLibDefLists().isEmpty());
}

TEST(Evaluate, WritesJsonForPrograms) {
    const EnvironmentOverride plugIns("OA_PLUGIN_PATH", pluginDirectory());
    PcellPlace work;
    std::filesystem::create_directory(work.path("oalibs"));
    writeText(work.path("oalibs/vex.defs"), "");
    const EnvironmentOverride included("MOLTRAX_DIR", work.path(""));
    ASSERT_EQ(work.makeSpiral().status, 0);
    const Outcome served = work.evaluateSpiral({"--json"});
    EXPECT_EQ(served.status, 0);
    nlohmann::json json = nlohmann::json::parse(served.out);
    EXPECT_GE(json["milliseconds"].get<double>(), 0);
    EXPECT_EQ(json["identity"].get<std::string>().size(), 64u);
    EXPECT_NE(json["source"]["path"].get<std::string>().find("spiral.plg"), std::string::npos);
    json.erase("milliseconds");
    json.erase("identity");
    json["source"].erase("path");
    EXPECT_EQ(json, nlohmann::json::parse(R"({
        "library": "coils", "cell": "spiral", "view": "layout", "evaluator": "spiral",
        "parameters": [
            {"name": "shape", "type": "string", "value": "square"},
            {"name": "turns", "type": "int", "value": 2},
            {"name": "width", "type": "double", "value": 10.0},
            {"name": "spacing", "type": "double", "value": 5.0},
            {"name": "innerDiameter", "type": "double", "value": 100.0},
            {"name": "layer", "type": "int", "value": 8},
            {"name": "viaLayer", "type": "int", "value": 7},
            {"name": "underpassLayer", "type": "int", "value": 6}
        ],
        "evaluated": true, "source": {"kind": "plug-in"}, "shapes": 5,
        "box": [-105.0, -75.0, 105.0, 75.0], "unit": "micron", "errors": [], "warnings": []
    })"));
}

TEST(Evaluate, JsonHasATextForWhatIsNoNumber) {
    PcellPlace work;
    const std::string library = work.path("more");
    ASSERT_EQ(ovalisHere({"pcell", library, "pad", "layout", "PSNPcell", "--param", "w:double=0.1",
                          "--param", "h:float=0.1"})
                  .status,
              0);
    const auto valuesOf = [&](const char* w, const char* h) {
        const Outcome told = ovalisHere(
            {"evaluate", library, "pad", "layout", "--json", "--param", w, "--param", h});
        const nlohmann::json params = nlohmann::json::parse(told.out)["parameters"];
        return nlohmann::json{params[0]["value"], params[1]["value"]};
    };
    EXPECT_EQ(valuesOf("w=nan", "h=-inf"), (nlohmann::json{"nan", "-inf"}));
    EXPECT_EQ(valuesOf("w=inf", "h=0.5"), (nlohmann::json{"inf", 0.5}));
}

TEST(Evaluate, JsonOfAFailureHasWhatTheObserversWereTold) {
    PcellPlace work;
    const EnvironmentOverride list("MOLTRAX_DIR", std::nullopt);
    const std::string stored = entryPath(work.put());
    const Outcome failed = work.onCoil({"evaluate"}, {"--json", "--param", "N=3"});
    EXPECT_EQ(failed.status, 1);
    nlohmann::json json = nlohmann::json::parse(failed.out);
    EXPECT_EQ(json["source"]["kind"], "cache file");
    json.erase("milliseconds");
    json.erase("source");
    EXPECT_EQ(json["warnings"], nlohmann::json::array({listWarning(stored)}));
    json.erase("warnings");
    EXPECT_EQ(json, nlohmann::json::parse(R"({
        "library": "lib", "cell": "coil", "view": "layout", "evaluator": "PSNPcell",
        "parameters": [{"name": "N", "type": "int", "value": 3}],
        "identity": ")" + identityOf3 + R"(",
        "evaluated": false, "shapes": 0, "box": null, "unit": null,
        "errors": [{"kind": "evaluation", "design": "lib/coil/layout",
                    "message": "The pcell submaster cannot be produced.",
                    "parameters": [{"name": "N", "type": "int", "value": 3}]}]
    })"));
}

} // namespace
} // namespace cli::test

#include <gtest/gtest.h>

#include "pcell_place.h"

namespace cli::test {
namespace {

using ovalis::test::EnvironmentOverride;
using ovalis::test::readText;
using ovalis::test::writeText;

std::string sizeOf(const std::string& file) {
    return std::to_string(std::filesystem::file_size(file));
}

TEST(CachePut, StoresAndReplaces) {
    PcellPlace work;
    const Outcome stored = work.put();
    EXPECT_EQ(stored.status, 0);
    EXPECT_EQ(stored.talk, "stored lib/coil/layout: N = 2\n");
    EXPECT_TRUE(stored.out.ends_with(identityOf2 + "\n")) << stored.out;
    EXPECT_TRUE(std::filesystem::exists(work.path("lib/.vexPcells/" + identityOf2)));
    EXPECT_EQ(work.put(), (Outcome{0, stored.out, "replaced lib/coil/layout: N = 2\n"}));
    EXPECT_EQ(treeOf(work.path("lib/.vexPcells")).size(), 1u);
}

TEST(CachePut, TakesTheContentOfAnotherLibrary) {
    PcellPlace work;
    Workplace other;
    other.layout["layers"][0]["polygons"].push_back({{0, 0}, {200, 0}, {200, 10}, {0, 10}});
    ASSERT_EQ(other.exportIt().status, 0);
    std::filesystem::rename(other.library(), work.path("contents"));
    const Outcome stored = work.onCoil(
        {"cache", "put"}, {"--param", "N=3", "--from", work.path("contents"), "coil", "layout"});
    EXPECT_EQ(stored.status, 0) << stored.talk;
    EXPECT_EQ(stored.talk, "stored lib/coil/layout: N = 3\n");
    const Outcome served = work.onCoil({"evaluate"}, {"--param", "N=3"});
    EXPECT_NE(served.out.find("box          0 0 0.2 0.06 "), std::string::npos) << served.talk;
}

TEST(CachePut, NamesWhatIsWrong) {
    PcellPlace work;
    const struct {
        std::vector<std::string> more;
        std::string talk;
    } rows[] = {
        {{"--from", work.library(), "coil", "other"},
         "ovalis: " + work.library() + ": no cell view \"coil/other\"\n"},
        {{"--from", work.path("absent"), "coil", "layout"},
         "ovalis: " + work.path("absent") + ": OA Library not found at " + work.path("absent") +
             "\n"},
        {{"--from", work.library(), "coil", "layout", "--param", "M=1"},
         "ovalis: no parameter \"M\"; there are N (int)\n"},
        {{}, "ovalis: --from is required (see ovalis --help)\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(work.onCoil({"cache", "put"}, row.more), (Outcome{2, "", row.talk}));
    EXPECT_FALSE(std::filesystem::exists(work.path("lib/.vexPcells")));
}

TEST(CachePut, RefusesADesignWithoutContents) {
    PcellPlace work;
    ASSERT_EQ(ovalisHere({"pcell", work.library(), "empty", "layout", "PSNPcell"}).status, 0);
    EXPECT_EQ(work.onCoil({"cache", "put"}, {"--from", work.library(), "empty", "layout"}),
              (Outcome{2, "", "ovalis: " + work.library() + ": empty/layout has no contents\n"}));
}

TEST(CachePut, RefusesAPcellThatIsNotServedFromThere) {
    const EnvironmentOverride plugIns("OA_PLUGIN_PATH", pluginDirectory());
    PcellPlace work;
    ASSERT_EQ(work.makeSpiral().status, 0);
    EXPECT_EQ(ovalisHere({"cache", "put", work.path("coils"), "spiral", "layout", "--from",
                          work.library(), "coil", "layout"}),
              (Outcome{2, "",
                       "ovalis: coils/spiral/layout: the evaluator \"spiral\" does not use the "
                       "cache\n"}));
}

TEST(CacheList, IsEmptyWithoutACache) {
    PcellPlace work;
    EXPECT_EQ(ovalisHere({"cache", "list", work.library()}), (Outcome{0, "", ""}));
}

TEST(CacheList, ShowsSizesAndTheInstancesThatUseAnEntry) {
    PcellPlace work;
    const std::string stored = entryPath(work.put());
    work.put({"--param", "N=3"});
    ASSERT_EQ(work.place("I1").status, 0);
    ASSERT_EQ(work.place("I2", {"--param", "N=2"}).status, 0);
    ASSERT_EQ(work.place("I3", {"--param", "N=4"}).status, 0);
    const std::string size = sizeOf(stored);
    EXPECT_EQ(ovalisHere({"cache", "list", work.library()}),
              (Outcome{0,
                       identityOf3 + "  " + size + " bytes\n" + identityOf2 + "  " + size +
                           " bytes  lib/coil/layout: N = 2; in lib/top/layout:I1, "
                           "lib/top/layout:I2\n",
                       ""}));
}

TEST(CacheList, TakesAListWithoutALibrary) {
    PcellPlace work;
    const std::string list = work.path("all.defs");
    writeText(list, "DEFINE lib lib\n");
    const std::string stored = entryPath(work.put({"--libs", list}));
    ASSERT_EQ(work.place("I1").status, 0);
    EXPECT_EQ(ovalisHere({"cache", "list", "--libs", list}),
              (Outcome{0,
                       identityOf2 + "  " + sizeOf(stored) +
                           " bytes  lib/coil/layout: N = 2; in lib/top/layout:I1\n",
                       ""}));
    EXPECT_EQ(ovalisHere({"cache", "verify", "--libs", list}),
              (Outcome{0, "", "looked at 1 entries and 1 instances\n"}));
}

TEST(CacheList, NeedsALibraryOrAList) {
    for (const char* command : {"list", "verify"})
        EXPECT_EQ(ovalisHere({"cache", command}),
                  (Outcome{2, "", "ovalis: DIR or --libs is required (see ovalis --help)\n"}));
    EXPECT_EQ(ovalisHere({"cache"}),
              (Outcome{2, "", "ovalis: A subcommand is required (see ovalis --help)\n"}));
}

TEST(CacheList, WithoutATopListIsAFailure) {
    PcellPlace work;
    std::filesystem::remove(work.path("lib/lib.defs"));
    EXPECT_EQ(ovalisHere({"cache", "list", work.library()}),
              (Outcome{2, "",
                       "ovalis: there is no top library list: the library has no lib.defs, and "
                       "--libs is not given\n"}));
}

TEST(CacheVerify, FindsNothingWrongInASoundCache) {
    PcellPlace work;
    work.put();
    ASSERT_EQ(work.place("I1").status, 0);
    EXPECT_EQ(ovalisHere({"cache", "verify", work.library()}),
              (Outcome{0, "", "looked at 1 entries and 1 instances\n"}));
}

TEST(CacheVerify, TellsForeignFilesDamageAndMissingEntries) {
    PcellPlace work;
    const std::string stored = entryPath(work.put());
    const std::string whole = readText(stored);
    writeText(stored, whole.substr(0, whole.size() - 100));
    writeText(work.path("lib/.vexPcells/notes.txt"), "mine");
    ASSERT_EQ(work.place("I1", {"--param", "N=3"}).status, 0);
    const Outcome verified = ovalisHere({"cache", "verify", work.library()});
    EXPECT_EQ(verified.status, 1);
    EXPECT_EQ(verified.talk, "looked at 2 entries and 1 instances\n");
    const std::size_t firstLine = verified.out.find('\n') + 1;
    EXPECT_TRUE(verified.out.starts_with("damaged: ")) << verified.out;
    EXPECT_NE(verified.out.substr(0, firstLine).find(identityOf2), std::string::npos);
    EXPECT_EQ(verified.out.substr(firstLine),
              "foreign: notes.txt is no file with the name of an identity\n"
              "missing: " +
                  identityOf3 + "  lib/coil/layout: N = 3; in lib/top/layout:I1\n");
}

TEST(CacheVerify, ADesignThatCannotBeOpenedIsAFinding) {
    PcellPlace work;
    work.put();
    ASSERT_EQ(work.place("I1", {"--param", "N=3"}).status, 0);
    const std::string file = work.path("lib/top/layout/layout.oa");
    writeText(file, readText(file).substr(0, 100));
    const Outcome verified = ovalisHere({"cache", "verify", work.library()});
    EXPECT_EQ(verified.status, 1);
    EXPECT_EQ(verified.talk, "looked at 1 entries and 0 instances\n");
    EXPECT_TRUE(verified.out.starts_with("unread: lib/top/layout: ")) << verified.out;
    EXPECT_EQ(std::count(verified.out.begin(), verified.out.end(), '\n'), 1) << verified.out;
}

TEST(CacheVerify, ALibraryThatCannotBeOpenedIsAFinding) {
    PcellPlace work;
    const std::string list = work.path("all.defs");
    writeText(list, "DEFINE lib lib\nDEFINE gone nowhere\nSOFTDEFINE other absent\n");
    work.put({"--libs", list});
    const Outcome verified = ovalisHere({"cache", "verify", "--libs", list});
    EXPECT_EQ(verified.status, 1);
    EXPECT_EQ(verified.talk, "looked at 1 entries and 0 instances\n");
    EXPECT_TRUE(verified.out.starts_with("unread: ")) << verified.out;
    EXPECT_NE(verified.out.find("library 'gone' cannot be opened"), std::string::npos);
    EXPECT_EQ(std::count(verified.out.begin(), verified.out.end(), '\n'), 1) << verified.out;
}

TEST(CacheVerify, AListThatCannotBeReadIsAFinding) {
    PcellPlace work;
    const std::string list = work.path("all.defs");
    for (const char* wrong : {"FROB\n", "INCLUDE absent.defs\n"}) {
        writeText(list, std::string("DEFINE lib lib\n") + wrong);
        const Outcome verified = ovalisHere({"cache", "verify", "--libs", list});
        EXPECT_EQ(verified.status, 1) << wrong;
        EXPECT_TRUE(verified.out.starts_with("unread: ")) << verified.out;
        EXPECT_NE(verified.out.find("all.defs:2: "), std::string::npos) << verified.out;
        const Outcome listed = ovalisHere({"cache", "list", "--libs", list});
        EXPECT_EQ(listed.status, 0);
        EXPECT_EQ(listed.talk, "remark: " + verified.out.substr(std::string("unread: ").size()));
    }
}

TEST(CacheExplain, AHitNamesTheFile) {
    PcellPlace work;
    const std::string stored = entryPath(work.put());
    EXPECT_EQ(work.onCoil({"cache", "explain"}),
              (Outcome{0, "lib/coil/layout: N = 2\nis served by " + stored + "\n", ""}));
}

TEST(CacheExplain, AnEntryThatCannotBeReadServesNobody) {
    PcellPlace work;
    const std::string stored = entryPath(work.put());
    writeText(stored, "");
    EXPECT_EQ(work.onCoil({"cache", "explain"}),
              (Outcome{1,
                       "lib/coil/layout: N = 2\n"
                       "has an entry that cannot be read: File '" +
                           stored +
                           "' is not a sound database: it is shorter than the header of a "
                           "database file.\n",
                       ""}));
}

TEST(CacheExplain, AMissNamesWhatDiffersFromTheNearestEntry) {
    PcellPlace work;
    work.put();
    ASSERT_EQ(work.place("I1").status, 0);
    EXPECT_EQ(work.onCoil({"cache", "explain"}, {"--param", "N=3"}),
              (Outcome{1,
                       "lib/coil/layout: N = 3\n"
                       "has no entry " +
                           identityOf3 +
                           "\n"
                           "the nearest entry " +
                           identityOf2 +
                           ", which lib/top/layout:I1 uses, differs:\n"
                           "  N: asked for 3, the entry has 2\n",
                       ""}));
}

TEST(CacheExplain, TheNearestEntryDiffersInTheFewestParameters) {
    Workplace work;
    work.component["parameters"] = nlohmann::json::parse(R"([
        {"kind": "int", "name": "A", "value": 1, "description": ""},
        {"kind": "int", "name": "B", "value": 1, "description": ""},
        {"kind": "int", "name": "C", "value": 1, "description": ""}
    ])");
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string lib = work.library();
    const std::vector<std::vector<std::string>> sets = {{"A=2", "B=2"}, {"C=5"}, {"A=9", "B=9"}};
    int count = 0;
    for (const auto& set : sets) {
        std::vector<std::string> put = {"cache",  "put", lib,    "coil",  "layout",
                                        "--from", lib,   "coil", "layout"};
        std::vector<std::string> place = {
            "place",    lib, "top",  "layout", "I" + std::to_string(++count), "0", "0",
            "--master", lib, "coil", "layout"};
        for (const std::string& param : set)
            for (auto* arguments : {&put, &place}) {
                arguments->push_back("--param");
                arguments->push_back(param);
            }
        ASSERT_EQ(ovalisHere(put).status, 0);
        ASSERT_EQ(ovalisHere(place).status, 0);
    }
    const Outcome explained =
        ovalisHere({"cache", "explain", lib, "coil", "layout", "--param", "C=6", "--param", "B=3"});
    EXPECT_EQ(explained.status, 1);
    EXPECT_TRUE(explained.out.ends_with(", which lib/top/layout:I2 uses, differs:\n"
                                        "  B: asked for 3, the entry has 1\n"
                                        "  C: asked for 6, the entry has 5\n"))
        << explained.out;
}

TEST(CacheExplain, AMissWithoutAnAttributedEntrySaysSo) {
    PcellPlace work;
    work.put();
    EXPECT_EQ(work.onCoil({"cache", "explain"}, {"--param", "N=3"}),
              (Outcome{1,
                       "lib/coil/layout: N = 3\nhas no entry " + identityOf3 +
                           "\nno instance uses an entry of this pcell\n",
                       ""}));
}

} // namespace
} // namespace cli::test

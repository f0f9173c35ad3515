// Library definition files that people wrote for their own work. None of the libraries that they
// name is here, and none of the variables is set unless a test says so.

#include "lib_def_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAreArray;

namespace {

class RealLibDefTest : public LibDefTest {
protected:
    void SetUp() override {
        const auto data = sharedData();
        if (!data || !std::filesystem::is_directory(*data / "libdefs"))
            GTEST_SKIP() << "OVALIS_SHARED_DATA names no directory with library definition files";
        // A copy, so that the texts of warnings name files in the test's own folder.
        std::filesystem::copy(*data / "libdefs", directory.path() / "lists",
                              std::filesystem::copy_options::recursive);
    }

    /// Opens a file and answers how many members it has.
    oaUInt4 membersIn(const std::string& file) {
        folder_ = "lists/" + file.substr(0, file.rfind('/')) + "/";
        oaLibDefList::openLibs(path("lists/" + file).c_str());
        return oaLibDefList::getTopList()->getMembers().getCount();
    }

    // The expected warnings, for files of the folder that was opened last.
    void unset(const std::string& file, std::initializer_list<int> lines, const char* variable) {
        for (const int line : lines)
            expected_.push_back("7 " + folder_ + file + ":" + std::to_string(line) +
                                ": variable '" + variable + "' is not set.");
    }
    void missing(const std::string& file, int line, const std::string& name,
                 const std::string& libraryPath) {
        const bool isAbsolute = libraryPath.starts_with('/');
        expected_.push_back("6 " + folder_ + file + ":" + std::to_string(line) + ": library '" +
                            name + "' cannot be opened from '" + (isAbsolute ? "" : folder_) +
                            libraryPath + "': there is no such directory.");
    }
    void expectWarnings() {
        EXPECT_THAT(warnings.texts, ElementsAreArray(expected_));
        EXPECT_TRUE(openLibraries().empty());
    }

    const EnvironmentOverride cdsHome{"CDSHOME", std::nullopt};
    const EnvironmentOverride cdsHomeToo{"CDS_HOME", std::nullopt};
    const EnvironmentOverride cdsRoot{"CDS_ROOT", std::nullopt};
    const EnvironmentOverride pdkDir{"PDK_DIR", std::nullopt};
    const EnvironmentOverride custom{"SYNOPSYS_CUSTOM_INSTALL", std::nullopt};
    const EnvironmentOverride bagTech{"BAG_TECH_CONFIG_DIR", std::nullopt};
    const EnvironmentOverride bagWork{"BAG_WORK_DIR", std::nullopt};

    const std::string nangate =
        "/home/lab.apps/vlsiapps/kits/FreePDK45/stcell/NangateOpenCellLibrary_PDKv1_3_v2010_12/"
        "Back_End/virtuoso/NangateOpenCellLibrary";

private:
    std::string folder_;
    std::vector<std::string> expected_;
};

} // namespace

TEST_F(RealLibDefTest, OfAnAssignedListLacksTheVariablesOfItsTools) {
    EXPECT_EQ(membersIn("wireline/lib.defs"), 6u);
    // Every path starts with the place of a tool or of a technology kit. The assignments between
    // them concern libraries that are defined, so nothing is said about those.
    unset("lib.defs", {1, 3, 5, 7}, "CDSHOME");
    unset("lib.defs", {9, 11}, "PDK_DIR");
    expectWarnings();
}

TEST_F(RealLibDefTest, OfAListBesideItsIncludeFindsThat) {
    EXPECT_EQ(membersIn("aureo/cds.lib"), 12u);
    // The neighbour is included by a relative name; it names tools by a variable.
    unset("cds.lib.core", {1, 2, 3}, "CDS_HOME");
    // Those of the list itself lie beside it, but are not published.
    int line = 1;
    for (const char* name : {"aureo_lib", "aureo_scm3c", "scm3c_outline", "aureo_mask_run",
                             "aureo_test_structure", "aureo_robot", "mems_demo_tf", "aureo_box",
                             "aureo_solar", "aureo_scumv22", "aureo_scumv24"})
        missing("cds.lib", ++line, name, name);
    expectWarnings();
}

TEST_F(RealLibDefTest, OfAFileWithBlanksAndSlashesAtTheEndsOfPathsIsRead) {
    EXPECT_EQ(membersIn("firework/cds.lib"), 57u);
    // Nine libraries of a simulator, by a variable. The 48 others lie below a directory that is
    // not published; their paths end in a slash and are shown as they are written.
    unset("cds.lib", {2, 3, 4, 5, 6, 7, 8, 9, 10}, "CDS_ROOT");
    std::vector<std::pair<std::string, std::string>> definitions;
    for (const std::string& member : membersOf(oaLibDefList::getTopList())) {
        const std::size_t sign = member.find('=');
        definitions.emplace_back(member.substr(0, sign), member.substr(sign + 1));
    }
    ASSERT_EQ(definitions[9], std::pair(std::string("work"), std::string("./libraries/work/")));
    for (int i = 9; i < 57; ++i)
        missing("cds.lib", i + 2, definitions[std::size_t(i)].first,
                definitions[std::size_t(i)].second.substr(2));
    expectWarnings();
}

TEST_F(RealLibDefTest, OfAKitIncludesTheListOfATool) {
    EXPECT_EQ(membersIn("freepdk3/lib.defs"), 2u);
    // The include is not looked for where its variable is not set: one warning, not two.
    unset("lib.defs", {1}, "SYNOPSYS_CUSTOM_INSTALL");
    missing("lib.defs", 2, "NCSU_TechLib_FreePDK3", "NCSU_TechLib_FreePDK3");
    expectWarnings();
}

TEST_F(RealLibDefTest, OfATeamThatUsesAToolsPlaceholder) {
    EXPECT_EQ(membersIn("shuksan/cds.lib"), 3u);
    // The placeholder is no variable of the environment. The SOFTINCLUDE in line 3 says itself that
    // its file may be missing.
    unset("cds.lib", {4}, "compute:THIS_TOOL_INST_ROOT");
    missing("cds.lib", 5, "ShuksanPDK", "ShuksanPDK");
    expectWarnings();
}

TEST_F(RealLibDefTest, OfAGeneratorIncludesThroughAVariable) {
    const EnvironmentOverride work("BAG_WORK_DIR", path("lists/sky130_bag3"));
    EXPECT_EQ(membersIn("sky130_bag3/cds.lib.core"), 12u);
    unset("cds.lib.core", {22, 23, 24}, "CDSHOME");
    unset("cds.lib.core", {27, 29, 30, 31, 32, 33}, "BAG_TECH_CONFIG_DIR");
    unset("cds.lib.bag", {1}, "BAG_TECH_CONFIG_DIR");
    // Absolute paths of the machine that the file was written on.
    const std::string nda = "/tools/commercial/skywater/swtech130/skywater-src-nda/";
    missing("cds.lib.core", 34, "scs8hd", nda + "scs8hd/V0.0.2/oa/scs8hd");
    missing("cds.lib.core", 35, "scs8hd_dv", nda + "scs8hd/V0.0.2/oa/scs8hd_dv");
    // The included list is found; the generators that it names are not.
    int line = 1;
    for (const std::string name :
         {"aib_ams", "bag3_analog", "bag3_digital", "bag3_magnetics", "bag3_testbenches", "xbase"})
        missing("cds.lib.bag", ++line, name, name + "/OA/" + name);
    expectWarnings();
}

TEST_F(RealLibDefTest, OfACopyOfAnAssignedListLacksTheSameVariables) {
    EXPECT_EQ(membersIn("wireline/cadence/lib.defs"), 6u);
    unset("lib.defs", {1, 3, 5, 7}, "CDSHOME");
    unset("lib.defs", {9, 11}, "PDK_DIR");
    expectWarnings();
}

TEST_F(RealLibDefTest, OfATeamNamesToolsKitsAndItsOwnLibraries) {
    EXPECT_EQ(membersIn("wireline/cds.lib"), 21u);
    // Lines 1 and 2 are comments. What a variable leads to is told when the file is read, what is
    // missing when the libraries are opened, which is later.
    unset("cds.lib", {3, 4, 5, 6}, "CDSHOME");
    unset("cds.lib", {7, 8}, "PDK_DIR");
    // The directory "cadence" is there, but none of the team's libraries in it.
    int line = 8;
    for (const std::string name :
         {"tx_block", "tspc", "test_nangate_with_gpdk", "serializer", "serdes_top_level",
          "rx_ctle_test", "mux", "inverter", "gpdk_test", "freepdk_channel_response_test",
          "equalized_channel", "cml_driver", "channel_response", "DES"})
        missing("cds.lib", ++line, name, "cadence/" + name);
    missing("cds.lib", 23, "NangateOpenCellLibrary", nangate);
    expectWarnings();
}

TEST_F(RealLibDefTest, WithDefinitionsInCommentsLacksOnlyTheOthers) {
    EXPECT_EQ(membersIn("wireline/cadence/cds.lib"), 23u);
    unset("cds.lib", {5, 6, 7, 8}, "CDSHOME");
    unset("cds.lib", {9, 10}, "PDK_DIR");
    missing("cds.lib", 11, "NangateOpenCellLibrary", nangate);
    missing("cds.lib", 14, "gpdk045", "/home/lab.apps/vlsiapps/kits/GPDK045/gpdk045_v_6_0/gpdk045");
    // Lines 12, 26 and 28 say which libraries were removed: comments, about which nothing is said.
    int line = 16;
    for (const std::string name : {"freepdk_channel_response_test", "gpdk_test", "channel_response",
                                   "tx_block", "rx_ctle_test", "test_nangate_with_gpdk",
                                   "cml_driver", "equalized_channel", "serializer"})
        missing("cds.lib", ++line, name, name);
    missing("cds.lib", 27, "inverter", "inverter");
    line = 28;
    for (const std::string name : {"serdes_top_level", "tspc", "comparator_sa_d2s", "mux", "DES"})
        missing("cds.lib", ++line, name, name);
    expectWarnings();
}

TEST_F(RealLibDefTest, OfAGeneratorWithoutItsDirectoryIncludesNothing) {
    EXPECT_EQ(membersIn("sky130_bag3/cds.lib.core"), 12u);
    unset("cds.lib.core", {22, 23, 24}, "CDSHOME");
    unset("cds.lib.core", {27, 29, 30, 31, 32, 33}, "BAG_TECH_CONFIG_DIR");
    // The include in the last line: its variable alone, not also that the file is missing. Nothing
    // about the ASSIGN lines: the attribute DISPLAY is the tool's own, and its libraries are
    // defined.
    unset("cds.lib.core", {44}, "BAG_WORK_DIR");
    const std::string nda = "/tools/commercial/skywater/swtech130/skywater-src-nda/";
    missing("cds.lib.core", 34, "scs8hd", nda + "scs8hd/V0.0.2/oa/scs8hd");
    missing("cds.lib.core", 35, "scs8hd_dv", nda + "scs8hd/V0.0.2/oa/scs8hd_dv");
    expectWarnings();
}

TEST_F(RealLibDefTest, OfGeneratorsAloneLacksTheirVariables) {
    EXPECT_EQ(membersIn("sky130_bag3/cds.lib.bag"), 7u);
    unset("cds.lib.bag", {1}, "BAG_TECH_CONFIG_DIR");
    unset("cds.lib.bag", {2, 3, 4, 5, 6, 7}, "BAG_WORK_DIR");
    expectWarnings();
}

TEST_F(RealLibDefTest, OfToolsAloneLacksTheirVariable) {
    EXPECT_EQ(membersIn("aureo/cds.lib.core"), 3u);
    unset("cds.lib.core", {1, 2, 3}, "CDS_HOME");
    expectWarnings();
}

TEST_F(RealLibDefTest, OfEveryKindAreSavedByteForByte) {
    std::vector<std::filesystem::path> files; // before saving makes others beside them
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(directory.path() / "lists"))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    EXPECT_GE(files.size(), 10u);
    for (const std::filesystem::path& file : files) {
        const std::string text = readText(file);
        // The copy of a file that nobody may write is such a file.
        std::filesystem::permissions(file, std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add);
        oaLibDefList::get(utf8(file).c_str(), 'a')->save();
        EXPECT_EQ(readText(file), text) << file;
    }
}

#include <gtest/gtest.h>

#include "support/environment_override.h"
#include "workplace.h"

#include <ovalis/library_list.h>

namespace cli::test {
namespace {

using ovalis::test::EnvironmentOverride;
using ovalis::test::writeText;

/// Libraries and definition files in a folder of the test's own.
class Libs : public testing::Test {
protected:
    Libs() { ovalis::initOa(); }

    void put(const std::string& name, const std::string& text) const {
        writeText(work_.path(name), text);
    }
    void makeLibrary(const std::string& name) const {
        ovalis::createLib(work_.path(name), "made_" + name).reset();
    }

    /// Runs "ovalis libs"; paths are without the test's folder and have slashes.
    Outcome libs(const std::string& file, const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {"libs", work_.path(file)};
        arguments.insert(arguments.end(), more.begin(), more.end());
        Outcome outcome = ovalisHere(arguments);
        outcome.out = shortened(outcome.out);
        outcome.talk = shortened(outcome.talk);
        return outcome;
    }

    std::string shortened(std::string text) const {
        std::string folder = work_.path("") + "/";
        for (std::string* each : {&text, &folder})
            for (std::size_t at; (at = each->find("\\\\")) != std::string::npos;)
                each->replace(at, 2, "/");
        for (std::string* each : {&text, &folder})
            for (char& c : *each)
                c = c == '\\' ? '/' : c;
        for (std::size_t at; (at = text.find(folder)) != std::string::npos;)
            text.erase(at, folder.size());
        return text;
    }

    const Workplace work_;
};

} // namespace

TEST_F(Libs, ListsDefinitionsInTheirOrder) {
    makeLibrary("a");
    makeLibrary("b");
    put("more.defs", "DEFINE b ./b\n");
    put("lib.defs", "INCLUDE more.defs\nDEFINE a ./a\n");
    EXPECT_EQ(libs("lib.defs"), (Outcome{0,
                                         "b  open  ./b  more.defs\n"
                                         "a  open  ./a  lib.defs\n",
                                         ""}));
    EXPECT_TRUE(oa::oaLib::getOpenLibs().isEmpty());
    EXPECT_TRUE(oa::oaLibDefList::getLibDefLists().isEmpty());
}

TEST_F(Libs, TellsWhichDefinitionOfANameCounts) {
    makeLibrary("one");
    makeLibrary("two");
    put("more.defs", "DEFINE a one\nDEFINE b gone\n");
    put("lib.defs", "INCLUDE more.defs\nDEFINE a two\nDEFINE b one\n");
    EXPECT_EQ(libs("lib.defs"),
              (Outcome{0,
                       "a  overridden           one   more.defs\n"
                       "b  overridden, missing  gone  more.defs\n"
                       "a  open                 two   lib.defs\n"
                       "b  open                 one   lib.defs\n",
                       "ovalis: warning: lib.defs:2: library 'a' is defined again; the definition "
                       "in 'more.defs:1' no longer counts.\n"
                       "ovalis: warning: lib.defs:3: library 'b' is defined again; the definition "
                       "in 'more.defs:2' no longer counts.\n"}));
}

TEST_F(Libs, CountsTheFirstPlaceOfAFileThatIsIncludedTwice) {
    makeLibrary("one");
    makeLibrary("two");
    put("common.defs", "DEFINE a one\n");
    put("lib.defs", "INCLUDE common.defs\nDEFINE a two\nINCLUDE common.defs\n");
    EXPECT_EQ(libs("lib.defs").out, "a  overridden  one  common.defs\n"
                                    "a  open        two  lib.defs\n"
                                    "a  overridden  one  common.defs\n");
}

TEST_F(Libs, EndsWhenFilesLeadBack) {
    makeLibrary("a");
    put("more.defs", "INCLUDE lib.defs\nDEFINE a a\n");
    put("lib.defs", "INCLUDE more.defs\n");
    EXPECT_EQ(libs("lib.defs"),
              (Outcome{0, "a  open  a  more.defs\n",
                       "ovalis: warning: more.defs:1: 'lib.defs' leads back here; it is not "
                       "included again.\n"}));
}

TEST_F(Libs, AreOneWhenALibraryCannotBeOpened) {
    makeLibrary("a");
    std::filesystem::create_directory(work_.path("empty"));
    put("lib.defs", "DEFINE a a\nDEFINE b missing\nDEFINE c empty\n");
    EXPECT_EQ(libs("lib.defs"),
              (Outcome{1,
                       "a  open      a        lib.defs\n"
                       "b  missing   missing  lib.defs\n"
                       "c  not open  empty    lib.defs\n",
                       "ovalis: warning: lib.defs:2: library 'b' cannot be opened from 'missing': "
                       "there is no such directory.\n"
                       "ovalis: warning: lib.defs:3: library 'c' cannot be opened from 'empty': "
                       "the directory holds no library.\n"}));
}

TEST_F(Libs, AreOneWhenTheVariableOfADefinitionIsNotSet) {
    const EnvironmentOverride unset("OVALIS_TEST_UNSET", std::nullopt);
    put("lib.defs", "DEFINE a $OVALIS_TEST_UNSET/a\n");
    EXPECT_EQ(libs("lib.defs"),
              (Outcome{1, "a  variable not set  $OVALIS_TEST_UNSET/a  lib.defs\n",
                       "ovalis: warning: lib.defs:1: variable 'OVALIS_TEST_UNSET' is not set.\n"}));
}

TEST_F(Libs, AreOneWhenASyntaxErrorKeepsAllFromBeingOpened) {
    makeLibrary("a");
    put("lib.defs", "DEFINE a a\nFROB\n");
    EXPECT_EQ(libs("lib.defs"),
              (Outcome{1, "a  not open  a  lib.defs\n",
                       "ovalis: warning: lib.defs:2: 'FROB' is no statement.\n"}));
}

TEST_F(Libs, MayBeMissingWhereTheFileSaysSo) {
    const EnvironmentOverride unset("OVALIS_TEST_UNSET", std::nullopt);
    put("lib.defs", "SOFTDEFINE a missing\nSOFTDEFINE b $OVALIS_TEST_UNSET/b\n"
                    "SOFTINCLUDE missing.defs\n");
    EXPECT_EQ(libs("lib.defs"), (Outcome{0,
                                         "a  missing           missing               lib.defs\n"
                                         "b  variable not set  $OVALIS_TEST_UNSET/b  lib.defs\n",
                                         ""}));
}

TEST_F(Libs, MayBeMissingBesideALineThatHasAFault) {
    const EnvironmentOverride unset("OVALIS_TEST_UNSET", std::nullopt);
    makeLibrary("c");
    put("lib.defs", "INCLUDE $OVALIS_TEST_UNSET/lib.defs\nSOFTDEFINE b $OVALIS_TEST_UNSET/b\n"
                    "DEFINE c c\n");
    const std::string talk =
        "ovalis: warning: lib.defs:1: variable 'OVALIS_TEST_UNSET' is not set.\n";
    EXPECT_EQ(libs("lib.defs"), (Outcome{0,
                                         "b  variable not set  $OVALIS_TEST_UNSET/b  lib.defs\n"
                                         "c  open              c                     lib.defs\n",
                                         talk}));
    put("lib.defs", "define \"b\" $OVALIS_TEST_UNSET/b\n");
    EXPECT_EQ(libs("lib.defs"),
              (Outcome{1, "b  variable not set  $OVALIS_TEST_UNSET/b  lib.defs\n", talk}));
}

TEST_F(Libs, AreListedThoughAFileIsMissing) {
    const EnvironmentOverride unset("MOLTRAX_DIR", std::nullopt);
    ovalis::createVEXCompatibleLib(work_.path("filters"), "filters").reset();
    EXPECT_EQ(libs("filters/lib.defs"),
              (Outcome{0, "filters  open  .  filters/lib.defs\n",
                       "ovalis: warning: filters/lib.defs:1: variable 'MOLTRAX_DIR' is not "
                       "set.\n"}));
}

TEST_F(Libs, ThatAreTakenBackAreNotOpen) {
    makeLibrary("a");
    put("more.defs", "DEFINE a a\n");
    put("lib.defs", "INCLUDE more.defs\nUNDEFINE a\n");
    EXPECT_EQ(libs("lib.defs"), (Outcome{0, "a  not open  a  more.defs\n", ""}));
}

TEST_F(Libs, CanBeWrittenForPrograms) {
    makeLibrary("a");
    put("lib.defs", "DEFINE a a\nDEFINE b missing\n");
    const Outcome outcome = libs("lib.defs", {"--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, R"({
  "file": "lib.defs",
  "libraries": [
    {
      "name": "a",
      "path": "a",
      "directory": "a",
      "file": "lib.defs",
      "effective": true,
      "exists": true,
      "open": true
    },
    {
      "name": "b",
      "path": "missing",
      "directory": "missing",
      "file": "lib.defs",
      "effective": true,
      "exists": false,
      "open": false
    }
  ],
  "warnings": [
    "lib.defs:2: library 'b' cannot be opened from 'missing': there is no such directory."
  ]
}
)");
}

TEST_F(Libs, AreAFailureWithoutAFile) {
    EXPECT_EQ(
        libs("missing.defs"),
        (Outcome{2, "", "ovalis: Error trying to open library definition file: missing.defs\n"}));
}

TEST_F(Libs, ByDefaultAreThoseOfTheWorkingDirectory) {
    makeLibrary("a");
    put("lib.defs", "DEFINE a a\n");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(work_.path(""));
    const Outcome outcome = ovalisProgram({"libs"});
    std::filesystem::current_path(before);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(shortened(outcome.out), "a  open  a  lib.defs\n");
}

/// The library closes the list that it flattens, and leaves those that it includes.
void closeIncludedLists() {
    oa::oaIter<oa::oaLibDefList> walk(oa::oaLibDefList::getLibDefLists());
    std::vector<oa::oaLibDefList*> lists;
    while (oa::oaLibDefList* list = walk.getNext())
        lists.push_back(list);
    for (oa::oaLibDefList* list : lists)
        list->destroy();
}

TEST_F(Libs, StandInTheOrderInWhichTheLibraryFlattensThem) {
    put("b.defs", "SOFTDEFINE b b\nINCLUDE lib.defs\nINCLUDE c.defs\n");
    put("c.defs", "SOFTDEFINE c c\n");
    put("lib.defs", "SOFTDEFINE a a\nINCLUDE c.defs\nINCLUDE b.defs\nSOFTDEFINE d d\n");
    std::string expected;
    for (const ovalis::TStringPair& pair :
         ovalis::getFlattenedLibraryList(work_.path("lib.defs"), nullptr))
        expected += pair.get<0>();
    closeIncludedLists();
    std::string found;
    const nlohmann::json written = nlohmann::json::parse(libs("lib.defs", {"--json"}).out);
    for (const auto& library : written["libraries"])
        found += library["name"].get<std::string>();
    EXPECT_EQ(found, "acbcd");
    EXPECT_EQ(found, expected);
}

} // namespace cli::test

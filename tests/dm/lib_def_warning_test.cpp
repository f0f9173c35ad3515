#include "lib_def_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Each text starts with the number of the warning's type.
class LibDefWarningTest : public LibDefTest {
protected:
    /// What is wrong in the only line of a file.
    std::string warningOf(const std::string& line) {
        warnings.texts.clear();
        read(line)->destroy();
        return warnings.texts.size() == 1 ? warnings.texts[0] : "not one warning";
    }
};

} // namespace

TEST_F(LibDefWarningTest, TellsThatThereIsNoDefaultFile) {
    platform::createDirectory(path("work"));
    const EnvironmentOverride home("HOME", directory.str());
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(directory.path() / "work");
    oaLibDefList::openLibs();
    std::filesystem::current_path(before);
    EXPECT_THAT(warnings.texts,
                ElementsAre("0 There is no file 'lib.defs' in the working directory, in the home "
                            "directory or in the installation."));
    EXPECT_THAT(warnings.lists, ElementsAre(nullptr));
    EXPECT_EQ(oaLibDefList::getTopList(), nullptr);
}

TEST_F(LibDefWarningTest, TellsEverySyntaxErrorAndOpensNothing) {
    makeLibrary("a");
    put("more.defs", "DEFINE\n");
    const oaLibDefList* list = open("DEFINE a a\nFROB a\nDEFINE b\n\nINCLUDE more.defs\n");
    EXPECT_THAT(warnings.texts, ElementsAre("2 lib.defs:2: 'FROB' is no statement.",
                                            "2 lib.defs:3: the form is 'DEFINE name path'.",
                                            "2 more.defs:1: the form is 'DEFINE name path'."));
    EXPECT_THAT(warnings.lists,
                ElementsAre(list, list, oaLibDefList::find(path("more.defs").c_str())));
    EXPECT_THAT(openLibraries(), IsEmpty());
    EXPECT_THAT(membersOf(list), ElementsAre("a=a", "include more.defs"));
}

TEST_F(LibDefWarningTest, TellsTheFormOfEachStatement) {
    const std::string prefix = "2 lib.defs:1: the form is '";
    for (const char* line :
         {"DEFINE", "DEFINE a", "DEFINE a b c", "define a b c d e", "DEFINE a \"\""})
        EXPECT_EQ(warningOf(line), prefix + "DEFINE name path'.") << line;
    EXPECT_EQ(warningOf("SOFTDEFINE a"), prefix + "SOFTDEFINE name path'.");
    EXPECT_EQ(warningOf("INCLUDE a b"), prefix + "INCLUDE path'.");
    EXPECT_EQ(warningOf("SOFTINCLUDE"), prefix + "SOFTINCLUDE path'.");
    EXPECT_EQ(warningOf("ASSIGN a b"), prefix + "ASSIGN name attribute value'.");
    EXPECT_EQ(warningOf("UNDEFINE"), prefix + "UNDEFINE name'.");
    EXPECT_EQ(warningOf("UNASSIGN a"), prefix + "UNASSIGN name attribute'.");
}

TEST_F(LibDefWarningTest, TellsWhatCannotBeRead) {
    EXPECT_EQ(warningOf("DEFINE a \"b"), "2 lib.defs:1: a quotation mark is not closed.");
    EXPECT_EQ(warningOf("DEFINE a\" b"), "2 lib.defs:1: a quotation mark is not closed.");
    EXPECT_EQ(warningOf("DEFINE a \x01"), "2 lib.defs:1: there is a control character.");
    EXPECT_EQ(warningOf(std::string("DEFINE a b\0c", 12)),
              "2 lib.defs:1: there is a control character.");
    EXPECT_EQ(warningOf("- DEFINE a b"), "2 lib.defs:1: '-' is no statement.");
    EXPECT_EQ(warningOf("DEFINE a a\nASSIGN a libMode private\n"),
              "2 lib.defs:2: 'private' is no library mode.");
}

TEST_F(LibDefWarningTest, TellsWhatCannotBeIncluded) {
    platform::createDirectory(path("directory"));
    makeLibrary("a");
    open("INCLUDE missing.defs\nINCLUDE no/missing.defs\nDEFINE a a\n"
         "INCLUDE directory\n");
    EXPECT_THAT(warnings.texts,
                ElementsAre("3 lib.defs:1: the included file 'missing.defs' cannot be read: there "
                            "is no such file.",
                            "3 lib.defs:2: the included file 'no/missing.defs' cannot be read: "
                            "there is no such file.",
                            "3 lib.defs:4: the included file 'directory' cannot be read: it is no "
                            "file."));
    EXPECT_THAT(openLibraries(), ElementsAre("a=a"));
}

TEST_F(LibDefWarningTest, TellsInclusionsThatLeadBack) {
    makeLibrary("a");
    put("b.defs", "INCLUDE c.defs\n");
    put("c.defs", "DEFINE a a\nINCLUDE ./b.defs\nINCLUDE lib.defs\nINCLUDE c.defs\n");
    open("INCLUDE b.defs\n");
    EXPECT_THAT(warnings.texts,
                ElementsAre("4 c.defs:2: 'b.defs' leads back here; it is not included again.",
                            "4 c.defs:3: 'lib.defs' leads back here; it is not included again.",
                            "4 c.defs:4: 'c.defs' leads back here; it is not included again."));
    EXPECT_THAT(openLibraries(), ElementsAre("a=a"));
}

TEST_F(LibDefWarningTest, TellsSecondDefinitionsAndTakesTheLast) {
    makeLibrary("one");
    makeLibrary("two");
    put("more.defs", "\nDEFINE a one\nDEFINE b one\n");
    open("INCLUDE more.defs\nDEFINE a two\nDEFINE b one\nDEFINE b two\n");
    EXPECT_THAT(warnings.texts,
                ElementsAre("5 lib.defs:2: library 'a' is defined again; the definition in "
                            "'more.defs:2' no longer counts.",
                            "5 lib.defs:3: library 'b' is defined again; the definition in "
                            "'more.defs:3' no longer counts.",
                            "5 lib.defs:4: library 'b' is defined again; the definition in "
                            "'lib.defs:3' no longer counts."));
    EXPECT_THAT(openLibraries(), ElementsAre("a=two", "b=two"));
}

TEST_F(LibDefWarningTest, TellsLibrariesThatCannotBeOpened) {
    makeLibrary("good");
    platform::createDirectory(path("empty"));
    platform::createDirectory(path("damaged"));
    put("damaged/.oalib", "nonsense");
    put("file", "");
    open("DEFINE a missing\nDEFINE b no/missing\nDEFINE c empty\nDEFINE d file\nDEFINE e good\n"
         "DEFINE f empty/.\nDEFINE g damaged\n");
    ASSERT_EQ(warnings.texts.size(), 6u);
    const std::string damaged = warnings.texts.back();
    warnings.texts.pop_back();
    EXPECT_THAT(
        warnings.texts,
        ElementsAre("6 lib.defs:1: library 'a' cannot be opened from 'missing': there is no such "
                    "directory.",
                    "6 lib.defs:2: library 'b' cannot be opened from 'no/missing': there is no "
                    "such directory.",
                    "6 lib.defs:3: library 'c' cannot be opened from 'empty': the directory holds "
                    "no library.",
                    "6 lib.defs:4: library 'd' cannot be opened from 'file': there is no such "
                    "directory.",
                    "6 lib.defs:6: library 'f' cannot be opened from 'empty/.': the directory "
                    "holds no library."));
    EXPECT_THAT(damaged,
                testing::StartsWith("6 lib.defs:7: Library 'g' cannot be opened from 'damaged': "));
    EXPECT_THAT(openLibraries(), ElementsAre("e=good"));
}

TEST_F(LibDefWarningTest, TellsVariablesThatAreNotSetAndNothingElseAboutTheirLines) {
    const EnvironmentOverride unset("OVALIS_TEST_UNSET", std::nullopt);
    const oaLibDefList* list =
        open("DEFINE a $OVALIS_TEST_UNSET/a\nINCLUDE ${OVALIS_TEST_UNSET}/lib.defs\n"
             "DEFINE b $(compute:OVALIS_TEST_ROOT)/b\nASSIGN b writePath $OVALIS_TEST_UNSET\n");
    EXPECT_THAT(warnings.texts,
                ElementsAre("7 lib.defs:1: variable 'OVALIS_TEST_UNSET' is not set.",
                            "7 lib.defs:2: variable 'OVALIS_TEST_UNSET' is not set.",
                            "7 lib.defs:3: variable 'compute:OVALIS_TEST_ROOT' is not set.",
                            "7 lib.defs:4: variable 'OVALIS_TEST_UNSET' is not set."));
    EXPECT_THAT(membersOf(list), ElementsAre("a=$OVALIS_TEST_UNSET/a", "include lib.defs",
                                             "b=$(compute:OVALIS_TEST_ROOT)/b"));
}

TEST_F(LibDefWarningTest, TellsStatementsAboutLibrariesThatAreNotDefined) {
    open("ASSIGN a x 1\nUNASSIGN b x\nUNDEFINE c\nDEFINE a a\nUNDEFINE a\nASSIGN a x 1\n");
    EXPECT_THAT(warnings.texts, ElementsAre("8 lib.defs:1: library 'a' is not defined.",
                                            "8 lib.defs:2: library 'b' is not defined.",
                                            "8 lib.defs:3: library 'c' is not defined.",
                                            "8 lib.defs:6: library 'a' is not defined."));
}

TEST_F(LibDefWarningTest, OfAFileAloneComeWhenItIsRead) {
    read("FROB\nDEFINE a $OVALIS_TEST_UNSET\nINCLUDE missing.defs\nDEFINE b missing\n");
    EXPECT_THAT(warnings.texts, ElementsAre("2 lib.defs:1: 'FROB' is no statement.",
                                            "7 lib.defs:2: variable 'OVALIS_TEST_UNSET' is not "
                                            "set."));
    oaLibDefList::get(path("lib.defs").c_str(), 'r');
    EXPECT_EQ(warnings.texts.size(), 2u);
}

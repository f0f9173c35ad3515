#include "lib_def_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class LibDefDialectTest : public LibDefTest {
protected:
    /// What the only line of a file defines, without any warning.
    std::string definition(const std::string& line) {
        oaLibDefList* list = read(line);
        const std::vector<std::string> members = membersOf(list);
        list->destroy();
        return members.size() == 1 && warnings.texts.empty() ? members[0] : "not one definition";
    }
    std::string writePathOf(const char* library) {
        oaString text;
        oaLib::find(scalarName(library))->getWritePath(text);
        return withSlashes(static_cast<const char*>(text));
    }
};

} // namespace

TEST_F(LibDefDialectTest, ReadsOneStatementInManySpellings) {
    for (const char* line :
         {"DEFINE a ./p", "define a ./p", "Define\ta\t./p\t", "  DEFINE   a   ./p  \n",
          "DEFINE a ./p\r\n", "DEFINE a ./p # where it is", "DEFINE a ./p -- where it is",
          "DEFINE \"a\" \"./p\"", "DEFINE a ./\"p\"", "SOFTDEFINE a ./p", "softdefine a ./p\n",
          "\xef\xbb\xbf"
          "DEFINE a ./p\n",
          "\n\n#DEFINE b ./q\n--DEFINE c ./r\n   # DEFINE d\nDEFINE a ./p\n\n"})
        EXPECT_EQ(definition(line), "a=./p") << line;
}

TEST_F(LibDefDialectTest, TakesNamesAndPathsAsTheyStand) {
    EXPECT_EQ(definition("DEFINE a-b.c#1 p#q--r"), "a-b.c#1=p#q--r");
    EXPECT_EQ(definition("DEFINE a \"with blanks/and # and --\""), "a=with blanks/and # and --");
    EXPECT_EQ(definition("DEFINE a C:\\libs\\a"), "a=C:\\libs\\a");
    EXPECT_EQ(definition("DEFINE gr\xc3\xb6\xc3\x9f"
                         "e \xc3\xa4"),
              "gr\xc3\xb6\xc3\x9f"
              "e=\xc3\xa4");
    EXPECT_EQ(definition("DEFINE a ./libraries/work/   \n"), "a=./libraries/work/");
    EXPECT_EQ(definition("DEFINE DEFINE DEFINE"), "DEFINE=DEFINE");
}

TEST_F(LibDefDialectTest, PutsTheValuesOfVariablesIntoPaths) {
    const EnvironmentOverride set("OVALIS_TEST_DIR", "/here and $there");
    for (const char* path : {"$OVALIS_TEST_DIR/p", "${OVALIS_TEST_DIR}/p", "$(OVALIS_TEST_DIR)/p",
                             "\"$OVALIS_TEST_DIR/p\"", "\"$OVALIS_TEST_DIR\"/p"})
        EXPECT_EQ(definition(std::string("DEFINE a ") + path), "a=/here and $there/p") << path;
    EXPECT_EQ(definition("DEFINE a x$OVALIS_TEST_DIR"), "a=x/here and $there");
    EXPECT_EQ(definition("DEFINE $OVALIS_TEST_DIR p"), "$OVALIS_TEST_DIR=p");
}

TEST_F(LibDefDialectTest, LeavesADollarAloneThatNamesNoVariable) {
    for (const char* path : {"$", "a$", "$/p", "${OPEN", "$(OPEN", "${}", "$$"})
        EXPECT_EQ(definition(std::string("DEFINE a ") + path), std::string("a=") + path);
}

TEST_F(LibDefDialectTest, IncludesFilesRelativeToTheirIncluder) {
    const EnvironmentOverride set("OVALIS_TEST_DIR", directory.str());
    platform::createDirectory(path("x"));
    platform::createDirectory(path("x/y"));
    put("x/one.defs", "include y/two.defs\n");
    put("x/y/two.defs", "DEFINE a ../a\nSOFTINCLUDE ../../three.defs\n");
    put("three.defs", "DEFINE b $OVALIS_TEST_DIR/b\n");
    makeLibrary("x/a");
    makeLibrary("b");
    open("INCLUDE x/one.defs\n");
    EXPECT_THAT(openLibraries(), ElementsAre("a=x/a", "b=b"));
    EXPECT_THAT(warnings.texts, IsEmpty());
}

TEST_F(LibDefDialectTest, StaysSilentOnSoftStatementsWithoutATarget) {
    open("SOFTINCLUDE missing.defs\nSOFTINCLUDE $OVALIS_TEST_UNSET/lib.defs\n"
         "SOFTDEFINE a missing\nSOFTDEFINE b $OVALIS_TEST_UNSET/b\n");
    EXPECT_THAT(warnings.texts, IsEmpty());
    EXPECT_THAT(openLibraries(), IsEmpty());
}

TEST_F(LibDefDialectTest, TakesBackWhatIsUndefined) {
    makeLibrary("a");
    makeLibrary("b");
    put("more.defs", "DEFINE a a\nDEFINE b b\nDEFINE c b\n");
    const oaLibDefList* list = open("INCLUDE more.defs\nUNDEFINE a\nDEFINE a b\nUNDEFINE a\n"
                                    "UNDEFINE c\nDEFINE c a\n");
    EXPECT_THAT(openLibraries(), ElementsAre("b=b", "c=a"));
    EXPECT_THAT(membersOf(list), ElementsAre("include more.defs", "c=a"));
    EXPECT_THAT(warnings.texts, IsEmpty());
}

TEST_F(LibDefDialectTest, OpensLibrariesAsIsAssigned) {
    for (const char* name : {"a", "b", "c", "d"})
        makeLibrary(name);
    put("more.defs", "DEFINE b b\nASSIGN b libMode nonShared\n");
    open("DEFINE a a\nASSIGN a libMode readOnly\nASSIGN a writePath w/a\n"
         "INCLUDE more.defs\nASSIGN b LIBMODE Shared\nASSIGN b tmp ./w/b\n"
         "DEFINE c c\nASSIGN c libMode readOnly\nUNASSIGN c libMode\n"
         "DEFINE d d\nASSIGN d TMP w/d\nUNASSIGN d writePath\n"
         "ASSIGN AllLibs TmpRootDir tmp\n");
    EXPECT_THAT(warnings.texts, IsEmpty());
    EXPECT_EQ(oaLib::find(scalarName("a"))->getMode(), oacReadOnlyLibMode);
    EXPECT_EQ(oaLib::find(scalarName("b"))->getMode(), oacSharedLibMode);
    EXPECT_EQ(oaLib::find(scalarName("c"))->getMode(), oacSharedLibMode);
    EXPECT_EQ(writePathOf("a"), path("w/a"));
    EXPECT_EQ(writePathOf("b"), path("w/b"));
    EXPECT_EQ(writePathOf("c"), path("tmp/c"));
    EXPECT_EQ(writePathOf("d"), path("tmp/d"));
}

TEST_F(LibDefDialectTest, ForgetsTheRootOfTemporaryFilesWhenItIsUnassigned) {
    makeLibrary("a");
    open("ASSIGN AllLibs TmpRootDir tmp\nDEFINE a a\nUNASSIGN AllLibs TmpRootDir\n");
    EXPECT_THAT(warnings.texts, IsEmpty());
    EXPECT_EQ(writePathOf("a"), path("a"));
}

TEST_F(LibDefDialectTest, UnassignsAttributes) {
    const oaLibDefList* list = read("DEFINE a a\nASSIGN a x 1\nASSIGN a y 2\nunassign a x\n");
    oaDMAttrArray attributes;
    oaLibDef::find(list, scalarName("a"))->getLibAttributes(attributes);
    ASSERT_EQ(attributes.getNumElements(), 1u);
    EXPECT_TRUE(attributes[0] == oaDMAttr("y", "2"));
}

TEST_F(LibDefDialectTest, TakesAFileThatIsIncludedTwiceOnce) {
    makeLibrary("a");
    put("left.defs", "INCLUDE common.defs\n");
    put("right.defs", "INCLUDE common.defs\n");
    put("common.defs", "DEFINE a a\n");
    open("INCLUDE left.defs\nINCLUDE right.defs\nINCLUDE right.defs\n");
    EXPECT_THAT(openLibraries(), ElementsAre("a=a"));
    EXPECT_THAT(warnings.texts, IsEmpty());
}

TEST_F(LibDefDialectTest, FollowsALongChainOfInclusions) {
    constexpr int length = 500;
    for (int i = 0; i < length; ++i)
        put(std::to_string(i) + ".defs", "INCLUDE " + std::to_string(i + 1) + ".defs\n");
    put(std::to_string(length) + ".defs", "DEFINE a a\n");
    makeLibrary("a");
    open("INCLUDE 0.defs\n");
    EXPECT_THAT(openLibraries(), ElementsAre("a=a"));
}

TEST_F(LibDefDialectTest, ClosesALibraryOfTheNameInAnotherDirectory) {
    makeLibrary("one");
    makeLibrary("two");
    oaLib* before = open("a", "one");
    open("DEFINE a one\n");
    EXPECT_TRUE(before->isValid());
    open("DEFINE a missing\n");
    EXPECT_TRUE(before->isValid());
    open("DEFINE a two\n");
    EXPECT_FALSE(before->isValid());
    EXPECT_THAT(openLibraries(), ElementsAre("a=two"));
}

TEST_F(LibDefDialectTest, FindsLibrariesHoweverTheirDirectoryIsSpelled) {
    makeLibrary("gr\xc3\xb6\xc3\x9f"
                "e");
    makeLibrary("with blank");
    makeLibrary("tilde~1");
    platform::createDirectory(path("deep"));
    open("DEFINE a gr\xc3\xb6\xc3\x9f"
         "e\nDEFINE b \"with blank/\"\nDEFINE c tilde~1\nDEFINE d .//deep/../with\" \"blank//\n");
    EXPECT_THAT(warnings.texts, IsEmpty());
    EXPECT_EQ(openLibraries().size(), 4u);
}

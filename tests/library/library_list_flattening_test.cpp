#include "library_lists.h"

#include <gmock/gmock.h>

using namespace ovalis;
using ovalis::test::EnvironmentOverride;
using ovalis::test::textsOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using LibraryListFlattening = ovalis::test::LibraryListTest;

} // namespace

TEST_F(LibraryListFlattening, KeepsTheOrderAndWhatIsDefinedTwice) {
    put("more.defs", "DEFINE b ./b\nDEFINE a ./other\n");
    EXPECT_THAT(flattened("DEFINE a ./a\nINCLUDE more.defs\nDEFINE c /c\nDEFINE a ./third\n"),
                ElementsAre("a=./a", "b=./b", "a=./other", "c=/c", "a=./third"));
}

TEST_F(LibraryListFlattening, OfAListThatOnlyRefersIsThatOfTheOther) {
    put("below/more.defs", "DEFINE a ./a\nDEFINE b ./b\n");
    EXPECT_THAT(flattened("INCLUDE below/more.defs\n"), ElementsAre("a=./a", "b=./b"));
}

TEST_F(LibraryListFlattening, AnswersNamesAsTheyAreAndPathsWithTheValuesOfVariables) {
    const EnvironmentOverride set("OVALIS_TEST_DIR", "/data/models 2026");
    const EnvironmentOverride unset("OVALIS_TEST_UNSET", std::nullopt);
    EXPECT_THAT(flattened("DEFINE gr\xc3\xb6\xc3\x9f"
                          "e-1.0 ${OVALIS_TEST_DIR}/a\nDEFINE b $OVALIS_TEST_UNSET/b\n"),
                ElementsAre("gr\xc3\xb6\xc3\x9f"
                            "e-1.0=/data/models 2026/a",
                            "b=$OVALIS_TEST_UNSET/b"));
}

TEST_F(LibraryListFlattening, OfAnEmptyListIsEmpty) {
    EXPECT_THAT(flattened(""), IsEmpty());
    EXPECT_THAT(flattened("# nothing yet\n\n"), IsEmpty());
    EXPECT_THAT(getFlattenedLibraryList(nullptr), IsEmpty());
}

TEST_F(LibraryListFlattening, DoesNotEnterAListThatItIsWalking) {
    put("b.defs", "DEFINE b ./b\nINCLUDE lib.defs\nINCLUDE b.defs\nDEFINE c ./c\n");
    EXPECT_THAT(flattened("DEFINE a ./a\nINCLUDE b.defs\nINCLUDE lib.defs\nDEFINE d ./d\n"),
                ElementsAre("a=./a", "b=./b", "c=./c", "d=./d"));
}

TEST_F(LibraryListFlattening, EntersAListAgainThatItHasLeft) {
    put("left.defs", "DEFINE left ./l\nINCLUDE common.defs\n");
    put("right.defs", "INCLUDE common.defs\nDEFINE right ./r\n");
    put("common.defs", "DEFINE a ./a\n");
    EXPECT_THAT(flattened("INCLUDE left.defs\nINCLUDE right.defs\n"),
                ElementsAre("left=./l", "a=./a", "a=./a", "right=./r"));
}

TEST_F(LibraryListFlattening, PassesOverWhatCannotBeRead) {
    const EnvironmentOverride unset("OVALIS_TEST_UNSET", std::nullopt);
    std::filesystem::create_directory(file("directory"));
    EXPECT_THAT(flattened("INCLUDE missing.defs\nSOFTINCLUDE none.defs\nINCLUDE directory\n"
                          "INCLUDE $OVALIS_TEST_UNSET/lib.defs\nSOFTDEFINE a ./a\n"),
                ElementsAre("a=./a"));
    EXPECT_EQ(told(),
              "Load warning from library definition file lib.defs: lib.defs:4: variable "
              "'OVALIS_TEST_UNSET' is not set.\n\n"
              "Load warning from library definition file lib.defs: lib.defs:1: the included "
              "file 'missing.defs' cannot be read: there is no such file.\n\n"
              "Load warning from library definition file lib.defs: lib.defs:3: the included "
              "file 'directory' cannot be read: it is no file.");
}

TEST_F(LibraryListFlattening, DestroysTheListButNoneThatItRefersTo) {
    put("more.defs", "DEFINE a ./a\n");
    flattened("INCLUDE more.defs\n");
    EXPECT_EQ(oa::oaLibDefList::getTopList(), nullptr);
    EXPECT_EQ(oa::oaLibDefList::find(path("lib.defs").c_str()), nullptr);
    EXPECT_NE(oa::oaLibDefList::find(path("more.defs").c_str()), nullptr);
}

TEST_F(LibraryListFlattening, OfAListThatIsThereDestroysNothing) {
    put("lib.defs", "DEFINE a ./a\n");
    const oa::oaLibDefList* list = openLibraryList(path("lib.defs"), nullptr);
    EXPECT_THAT(textsOf(getFlattenedLibraryList(list)), ElementsAre("a=./a"));
    EXPECT_THAT(textsOf(getFlattenedLibraryList(list)), ElementsAre("a=./a"));
    EXPECT_TRUE(list->isValid());
}

TEST_F(LibraryListFlattening, ReadsTheFileAnew) {
    put("more.defs", "DEFINE a ./a\n");
    flattened("INCLUDE more.defs\n");
    put("more.defs", "DEFINE b ./b\n");
    EXPECT_THAT(flattened("INCLUDE more.defs\nDEFINE c ./c\n"), ElementsAre("b=./b", "c=./c"));
}

TEST_F(LibraryListFlattening, FollowsALongChain) {
    constexpr int length = 500;
    for (int i = 0; i < length; ++i)
        put(std::to_string(i) + ".defs", "INCLUDE " + std::to_string(i + 1) + ".defs\n");
    put(std::to_string(length) + ".defs", "DEFINE a ./a\n");
    EXPECT_THAT(flattened("INCLUDE 0.defs\nDEFINE b ./b\n"), ElementsAre("a=./a", "b=./b"));
}

TEST_F(LibraryListFlattening, OfAHundredThousandDefinitionsHoldsThemAll) {
    constexpr int files = 100;
    constexpr int definitions = 1000;
    std::string top;
    for (int i = 0; i < files; ++i) {
        std::string text;
        for (int j = 0; j < definitions; ++j) {
            const std::string name = "lib_" + std::to_string(i) + "_" + std::to_string(j);
            text.append("SOFTDEFINE ").append(name).append(" ./").append(name).append("\n");
        }
        put(std::to_string(i) + ".defs", text);
        top += "INCLUDE " + std::to_string(i) + ".defs\n";
    }
    const std::vector<std::string> all = flattened(top);
    ASSERT_EQ(all.size(), std::size_t(files) * definitions);
    EXPECT_EQ(all.front(), "lib_0_0=./lib_0_0");
    EXPECT_EQ(all[54'321], "lib_54_321=./lib_54_321");
    EXPECT_EQ(all.back(), "lib_99_999=./lib_99_999");
    EXPECT_EQ(messages, "");
}

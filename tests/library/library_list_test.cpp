#include "library_lists.h"

#include <gmock/gmock.h>

using namespace ovalis;
using ovalis::test::EnvironmentOverride;
using ovalis::test::messageIdOf;
using ovalis::test::textsOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class LibraryList : public ovalis::test::LibraryListTest {
protected:
    /// The path of "lib.defs" with this text.
    std::string defs(const std::string& text) const {
        put("lib.defs", text);
        return path("lib.defs");
    }
    static std::string pathOfList(const oa::oaLibDefList* list) {
        oa::oaString text;
        list->getPath(text);
        return fromOa(text);
    }
};

/// Looks on while lists are loaded, and interferes.
class Onlooker : public oa::oaVersionedObserver<oa::oaLibDefList> {
public:
    Onlooker() : oaVersionedObserver(5) {}

    oa::oaBoolean onPreOpenLibs(oa::oaLibDefList*) override {
        directories.push_back(std::filesystem::current_path());
        return !refuses;
    }
    oa::oaBoolean onLoadWarnings(oa::oaLibDefList* list, const oa::oaString&,
                                 oa::oaLibDefListWarningTypeEnum) override {
        if (throwsOwn)
            throw std::logic_error("not today");
        if (throwsOfDatabase)
            list->save(); // which is open for reading
        return true;
    }

    std::vector<std::filesystem::path> directories;
    bool refuses = false;
    bool throwsOwn = false;
    bool throwsOfDatabase = false;
};

} // namespace

TEST_F(LibraryList, IsLoadedWithItsLibraries) {
    makeLibrary("a");
    put("more/lib.defs", "DEFINE b b\n");
    makeLibrary("more/b");
    oa::oaLibDefList* list =
        openLibraryList(defs("DEFINE a a\nINCLUDE more/lib.defs\n"), &messages);
    EXPECT_EQ(list, oa::oaLibDefList::getTopList());
    EXPECT_EQ(pathOfList(list), path("lib.defs"));
    EXPECT_EQ(list->getMembers().getCount(), 2U);
    EXPECT_EQ(oa::oaLib::getOpenLibs().getCount(), 2U);
    EXPECT_EQ(messages, "");
}

TEST_F(LibraryList, ByDefaultIsTheOneOfTheDatabase) {
    const EnvironmentOverride home("HOME", path("home"));
    std::filesystem::create_directory(file("home"));
    std::filesystem::create_directory(file("empty"));
    put("lib.defs", "DEFINE a ./a\n");
    put("home/lib.defs", "DEFINE b ./b\n");
    std::filesystem::current_path(file(""));
    EXPECT_THAT(textsOf(getFlattenedLibraryList("", nullptr)), ElementsAre("a=./a"));
    std::filesystem::current_path(file("empty"));
    EXPECT_THAT(textsOf(getFlattenedLibraryList("", nullptr)), ElementsAre("b=./b"));
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), file("empty")));
}

TEST_F(LibraryList, ByDefaultIsNullWhenThereIsNone) {
    const EnvironmentOverride home("HOME", path("home"));
    std::filesystem::create_directory(file("empty"));
    ASSERT_NE(openLibraryList(defs("DEFINE a a\n"), nullptr), nullptr);
    std::filesystem::current_path(file("empty"));
    // Neither with nor without messages is the older list the answer.
    EXPECT_EQ(openLibraryList("", nullptr), nullptr);
    EXPECT_EQ(openLibraryList("", &messages), nullptr);
    EXPECT_EQ(messages, "Error trying to open library definition file: There is no file "
                        "'lib.defs' in the working directory, in the home directory or in the "
                        "installation.");
    EXPECT_THAT(getFlattenedLibraryList("", nullptr), IsEmpty());
}

TEST_F(LibraryList, IsNullWhenTheFileCannotBeRead) {
    for (const char* name : {"missing.defs", "no/missing.defs", "directory"}) {
        std::filesystem::create_directory(file("directory"));
        EXPECT_EQ(openLibraryList(path(name), &messages), nullptr);
        EXPECT_EQ(told(), std::string("Error trying to open library definition file: ") + name);
        EXPECT_EQ(openLibraryList(path(name), nullptr), nullptr);
        EXPECT_THAT(getFlattenedLibraryList(path(name), nullptr), IsEmpty());
    }
}

TEST_F(LibraryList, IsNullWhenTheFileCannotBeReadThoughAnotherOneIsLoaded) {
    oa::oaLibDefList* other = openLibraryList(defs("DEFINE a a\n"), nullptr);
    EXPECT_EQ(openLibraryList(path("missing.defs"), &messages), nullptr);
    EXPECT_EQ(oa::oaLibDefList::getTopList(), other);
}

TEST_F(LibraryList, IsNullWhenTheFileHasGoneThoughItIsInMemory) {
    const std::string name = defs("DEFINE a a\n");
    ASSERT_NE(openLibraryList(name, nullptr), nullptr);
    std::filesystem::remove(file("lib.defs"));
    EXPECT_EQ(openLibraryList(name, &messages), nullptr);
    EXPECT_EQ(told(), "Error trying to open library definition file: lib.defs");
}

TEST_F(LibraryList, MessagesStandInTheirOrderWithAnEmptyLineBetween) {
    oa::oaLibDefList* list = openLibraryList(defs("DEFINE a missing\nDEFINE b none\n"), &messages);
    EXPECT_NE(list, nullptr);
    EXPECT_EQ(told(), "Load warning from library definition file lib.defs: lib.defs:1: library 'a' "
                      "cannot be opened from 'missing': there is no such directory.\n\n"
                      "Load warning from library definition file lib.defs: lib.defs:2: library 'b' "
                      "cannot be opened from 'none': there is no such directory.");
}

TEST_F(LibraryList, MessagesTellSyntaxErrorsFromOtherWarnings) {
    put("more.defs", "FROB\n");
    EXPECT_NE(openLibraryList(defs("INCLUDE none.defs\nINCLUDE more.defs\nDEFINE\n"), &messages),
              nullptr);
    EXPECT_EQ(told(), "Syntax error in library definition file lib.defs: lib.defs:3: the form is "
                      "'DEFINE name path'.\n\n"
                      "Load warning from library definition file lib.defs: lib.defs:1: the "
                      "included file 'none.defs' cannot be read: there is no such file.\n\n"
                      "Syntax error in library definition file more.defs: more.defs:1: 'FROB' is "
                      "no statement.");
}

TEST_F(LibraryList, MessagesReplaceWhatWasThereOnlyWhenThereIsSomethingToTell) {
    messages = "before";
    static_cast<void>(openLibraryList(defs("SOFTDEFINE a a\n"), &messages));
    EXPECT_EQ(messages, "before");
    static_cast<void>(openLibraryList(defs("FROB\n"), &messages));
    EXPECT_EQ(told(), "Syntax error in library definition file lib.defs: lib.defs:1: 'FROB' is no "
                      "statement.");
}

TEST_F(LibraryList, OfTheCircuitEnvironmentTellsOfItsVariableAndDefinesTheRest) {
    const EnvironmentOverride unset("MOLTRAX_DIR", std::nullopt);
    createVEXCompatibleLib(path("filters"), "filters").reset();
    EXPECT_THAT(textsOf(getFlattenedLibraryList(path("filters/lib.defs"), &messages)),
                ElementsAre("filters=."));
    EXPECT_EQ(told(), "Load warning from library definition file filters/lib.defs: "
                      "filters/lib.defs:1: variable 'MOLTRAX_DIR' is not set.");
    EXPECT_EQ(oa::oaLib::getOpenLibs().getCount(), 1U);
}

TEST_F(LibraryList, IsLoadedInItsOwnDirectory) {
    Onlooker onlooker;
    const std::filesystem::path before = std::filesystem::current_path();
    static_cast<void>(openLibraryList(defs(""), nullptr));
    ASSERT_EQ(onlooker.directories.size(), 1U);
    EXPECT_TRUE(
        std::filesystem::equivalent(onlooker.directories[0], file("lib.defs").parent_path()));
    EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(LibraryList, IsFoundByARelativePath) {
    put("below/lib.defs", "DEFINE a ./a\n");
    std::filesystem::current_path(file(""));
    for (const char* name : {"below/lib.defs", "./below/lib.defs", "below/../below/lib.defs"})
        EXPECT_THAT(textsOf(getFlattenedLibraryList(name, nullptr)), ElementsAre("a=./a")) << name;
    std::filesystem::current_path(file("below"));
    EXPECT_THAT(textsOf(getFlattenedLibraryList("lib.defs", &messages)), ElementsAre("a=./a"));
    EXPECT_EQ(told(), "Load warning from library definition file lib.defs: below/lib.defs:1: "
                      "library 'a' cannot be opened from 'below/a': there is no such directory.");
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), file("below")));
}

TEST_F(LibraryList, ThatIsRefusedIsTheAnswerAllTheSame) {
    makeLibrary("a");
    oa::oaLibDefList* other = openLibraryList(defs(""), nullptr);
    put("other.defs", "DEFINE a a\n");
    Onlooker onlooker;
    onlooker.refuses = true;
    const oa::oaLibDefList* list = openLibraryList(path("other.defs"), &messages);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(pathOfList(list), path("other.defs"));
    EXPECT_EQ(oa::oaLibDefList::getTopList(), other);
    EXPECT_EQ(onlooker.directories.size(), 2U); // asked for the loading, and for the list alone
    EXPECT_EQ(oa::oaLib::getOpenLibs().getCount(), 0U);
}

TEST_F(LibraryList, WorkingDirectoryIsRestoredWhenTheDatabaseThrows) {
    const std::filesystem::path before = std::filesystem::current_path();
    Onlooker onlooker;
    onlooker.throwsOfDatabase = true;
    EXPECT_EQ(openLibraryList(defs("FROB\n"), &messages), nullptr);
    EXPECT_EQ(told(), "Syntax error in library definition file lib.defs: lib.defs:1: 'FROB' is no "
                      "statement.\n\nError trying to open library definition file: lib.defs");
    EXPECT_EQ(std::filesystem::current_path(), before);
    EXPECT_EQ(openLibraryList(path("missing.defs"), nullptr), nullptr);
    EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(LibraryList, WorkingDirectoryIsRestoredWhenAnObserverThrows) {
    const std::filesystem::path before = std::filesystem::current_path();
    Onlooker onlooker;
    onlooker.throwsOwn = true;
    EXPECT_THROW(static_cast<void>(openLibraryList(defs("FROB\n"), &messages)), std::logic_error);
    EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(LibraryList, ObserverOfALoadIsGoneAfterIt) {
    static_cast<void>(openLibraryList(defs("FROB\n"), &messages));
    EXPECT_FALSE(oa::oaVersionedObserver<oa::oaLibDefList>::hasObservers());
}

TEST_F(LibraryList, ThatWasDestroyedIsRefused) {
    oa::oaLibDefList* list = openLibraryList(defs(""), nullptr);
    list->destroy();
    EXPECT_EQ(messageIdOf([&] { static_cast<void>(getFlattenedLibraryList(list)); }),
              oa::oacInvalidObject);
}

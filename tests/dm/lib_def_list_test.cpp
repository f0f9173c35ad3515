#include "lib_def_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class LibDefListTest : public LibDefTest {
protected:
    static std::string pathOf(const oaLibDefList* list) {
        oaString path;
        list->getPath(path);
        return static_cast<const char*>(path);
    }
    static std::string fullPathOf(const oaLibDefList* list) {
        oaString path;
        list->getFullPath(path);
        return withSlashes(static_cast<const char*>(path));
    }
};

/// Another working directory for a scope.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const std::filesystem::path& directory)
        : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(directory);
    }
    ~WorkingDirectory() { std::filesystem::current_path(before_); }

private:
    std::filesystem::path before_;
};

} // namespace

TEST_F(LibDefListTest, OpensWhatItDefinesAndIncludes) {
    makeLibrary("one");
    platform::createDirectory(path("below"));
    makeLibrary("below/two");
    put("below/more.defs", "DEFINE two ./two\n");
    oaLibDefList* list = open("DEFINE one one\nINCLUDE below/more.defs\n");
    EXPECT_THAT(membersOf(list), ElementsAre("one=one", "include more.defs"));
    EXPECT_THAT(openLibraries(), ElementsAre("one=one", "two=below/two"));
    EXPECT_THAT(warnings.texts, IsEmpty());
}

TEST_F(LibDefListTest, OpensALibraryInItsOwnDirectory) {
    makeLibrary("lib1");
    put("lib1/lib.defs", "DEFINE lib1 .\n");
    oaLibDefList::openLibs(path("lib1/lib.defs").c_str());
    EXPECT_THAT(openLibraries(), ElementsAre("lib1=lib1"));
    EXPECT_THAT(membersOf(oaLibDefList::getTopList()), ElementsAre("lib1=."));
}

TEST_F(LibDefListTest, IsTheTopListUntilAnotherOneIsOpened) {
    EXPECT_EQ(oaLibDefList::getTopList(), nullptr);
    oaLibDefList* first = open("");
    EXPECT_EQ(fullPathOf(first), path("lib.defs"));
    put("other.defs", "");
    oaLibDefList::openLibs(path("other.defs").c_str());
    EXPECT_EQ(fullPathOf(oaLibDefList::getTopList()), path("other.defs"));
    oaLibDefList::getTopList()->destroy();
    EXPECT_EQ(oaLibDefList::getTopList(), nullptr);
    EXPECT_TRUE(first->isValid());
}

TEST_F(LibDefListTest, StaysTheTopListWhenAnotherFileCannotBeRead) {
    oaLibDefList* first = open("");
    const std::string missing = path("missing.defs");
    const Thrown thrown = thrownBy([&] { oaLibDefList::openLibs(missing.c_str()); });
    EXPECT_EQ(thrown.id, oacLibDefListFileNotReadable);
    EXPECT_EQ(thrown.text,
              "Library definition file '" + missing + "' cannot be read: there is no such file.");
    EXPECT_EQ(oaLibDefList::getTopList(), first);
}

TEST_F(LibDefListTest, IsReadAgainWhenItIsOpenedAgain) {
    oaLibDefList* list = open("DEFINE a a\n");
    oaIter<oaLibDefListMem> walk(list->getMembers());
    const oaLibDefListMem* before = walk.getNext();
    EXPECT_EQ(open("DEFINE b b\n"), list);
    EXPECT_THAT(membersOf(list), ElementsAre("b=b"));
    EXPECT_FALSE(before->isValid());
}

TEST_F(LibDefListTest, KeepsChangesThatAreNotSavedWhenItIsOpenedAgain) {
    oaLibDefList* list = read("DEFINE a a\n");
    oaLibDef::create(list, scalarName("b"), "b");
    oaLibDefList::openLibs(path("lib.defs").c_str());
    EXPECT_THAT(membersOf(list), ElementsAre("a=a", "b=b"));
}

TEST_F(LibDefListTest, IsFoundByItsFile) {
    EXPECT_EQ(oaLibDefList::find(path("lib.defs").c_str()), nullptr);
    platform::createDirectory(path("x"));
    oaLibDefList* list = read("");
    EXPECT_EQ(list->getType(), oacLibDefListType);
    EXPECT_EQ(oaLibDefList::find(path("x/../lib.defs").c_str()), list);
    EXPECT_EQ(oaLibDefList::get(path("./lib.defs").c_str(), 'r'), list);
    EXPECT_EQ(list->getDatabase(), oaSession::get());
}

TEST_F(LibDefListTest, AnswersThePathItWasAskedForBy) {
    put("lib.defs", "");
    const WorkingDirectory here(directory.path());
    const oaLibDefList* list = oaLibDefList::get("lib.defs", 'r');
    EXPECT_EQ(pathOf(list), "lib.defs");
    EXPECT_EQ(fullPathOf(list), path("lib.defs"));
}

TEST_F(LibDefListTest, IsReadWithoutWhatItIncludes) {
    put("more.defs", "DEFINE b b\n");
    EXPECT_THAT(membersOf(read("DEFINE a a\nINCLUDE more.defs\n")),
                ElementsAre("a=a", "include more.defs"));
    EXPECT_EQ(oaLibDefList::getLibDefLists().getCount(), 1u);
    EXPECT_THAT(openLibraries(), IsEmpty());
    EXPECT_EQ(oaLibDefList::getTopList(), nullptr);
}

TEST_F(LibDefListTest, ReferencesCanBeFollowedFromAnyDirectory) {
    platform::createDirectory(path("below"));
    put("below/more.defs", "DEFINE b b\n");
    put("lib.defs", "INCLUDE ./below/more.defs\n");
    const oaLibDefList* list = nullptr;
    {
        const WorkingDirectory here(directory.path());
        list = oaLibDefList::get("lib.defs", 'r');
    }
    oaIter<oaLibDefListMem> walk(list->getMembers());
    oaString reference;
    static_cast<oaLibDefListRef*>(walk.getNext())->getRefListPath(reference);
    EXPECT_EQ(withSlashes(static_cast<const char*>(reference)), path("below/more.defs"));
    EXPECT_THAT(membersOf(oaLibDefList::get(reference, 'r')), ElementsAre("b=b"));
}

TEST_F(LibDefListTest, OfModeWriteStartsEmptyAndIsOnDiskOnceSaved) {
    put("lib.defs", "DEFINE a a\n");
    oaLibDefList* list = oaLibDefList::get(path("lib.defs").c_str(), 'w');
    EXPECT_EQ(list->getMode(), 'w');
    EXPECT_THAT(membersOf(list), IsEmpty());
    EXPECT_EQ(get("lib.defs"), "DEFINE a a\n");
    oaLibDef::create(list, scalarName("b"), "./b");
    list->save();
    EXPECT_EQ(get("lib.defs"), "DEFINE b ./b\n");
}

TEST_F(LibDefListTest, OfModeAppendHoldsWhatTheFileHolds) {
    put("lib.defs", "DEFINE a a\n");
    EXPECT_THAT(membersOf(oaLibDefList::get(path("lib.defs").c_str(), 'a')), ElementsAre("a=a"));
    EXPECT_THAT(membersOf(oaLibDefList::get(path("new.defs").c_str(), 'a')), IsEmpty());
    EXPECT_FALSE(platform::exists(path("new.defs")));
}

TEST_F(LibDefListTest, InMemoryOnlyChangesItsMode) {
    oaLibDefList* list = read("DEFINE a a\n");
    EXPECT_EQ(oaLibDefList::get(path("lib.defs").c_str(), 'w'), list);
    EXPECT_EQ(list->getMode(), 'w');
    EXPECT_THAT(membersOf(list), ElementsAre("a=a"));
}

TEST_F(LibDefListTest, RefusesModesAndFilesThatAreNone) {
    const std::string file = path("lib.defs");
    const std::string deep = path("no/lib.defs");
    EXPECT_EQ(thrownBy([&] { oaLibDefList::get(file.c_str(), 'x'); }).text,
              "'x' is no mode of a library definition list.");
    EXPECT_EQ(thrownBy([&] { oaLibDefList::get(file.c_str(), 'r'); }).text,
              "Library definition file '" + file + "' cannot be read: there is no such file.");
    EXPECT_EQ(thrownBy([&] { oaLibDefList::get(deep.c_str(), 'w'); }).text,
              "Library definition file '" + deep +
                  "' cannot be written: there is no such directory.");
    EXPECT_EQ(thrownBy([&] { oaLibDefList::get(directory.str().c_str(), 'a'); }).id,
              oacLibDefListFileNotWritable);
    EXPECT_TRUE(oaLibDefList::getLibDefLists().isEmpty());
}

TEST_F(LibDefListTest, IsCreatedOnlyWhereNoneIs) {
    oaLibDefList* list = oaLibDefList::create(path("new.defs").c_str());
    EXPECT_EQ(list->getMode(), 'w');
    list->save();
    EXPECT_EQ(get("new.defs"), "");
    EXPECT_EQ(thrownBy([&] { oaLibDefList::create(path("new.defs").c_str()); }).text,
              "Library definition file '" + path("new.defs") +
                  "' cannot be written: it exists already.");
}

TEST_F(LibDefListTest, SavesOnlyWhatIsOpenForWriting) {
    oaLibDefList* list = read("DEFINE a a\n");
    EXPECT_EQ(withSlashes(thrownBy([&] { list->save(); }).text),
              "Library definition list '" + path("lib.defs") + "' is open for reading.");
    list->saveAs(path("copy.defs").c_str());
    EXPECT_EQ(get("copy.defs"), "DEFINE a a\n");
    const Thrown thrown = thrownBy([&] { list->saveAs(path("no/copy.defs").c_str()); });
    EXPECT_EQ(thrown.id, oacLibDefListFileNotWritable);
    EXPECT_EQ(fullPathOf(list), path("lib.defs"));
}

TEST_F(LibDefListTest, IsDestroyedWithItsMembersOnly) {
    oaLibDefList* list = read("DEFINE a a\n");
    oaIter<oaLibDefListMem> walk(list->getMembers());
    const oaLibDefListMem* member = walk.getNext();
    EXPECT_EQ(member->getList(), list);
    list->destroy();
    EXPECT_FALSE(list->isValid());
    EXPECT_FALSE(member->isValid());
    EXPECT_EQ(get("lib.defs"), "DEFINE a a\n");
    EXPECT_EQ(thrownBy([&] { list->open(); }).id, oacInvalidObject);
}

TEST_F(LibDefListTest, OpensItsLibrariesWithoutBecomingTheTopList) {
    makeLibrary("a");
    read("DEFINE a a\n")->open();
    EXPECT_THAT(openLibraries(), ElementsAre("a=a"));
    EXPECT_EQ(oaLibDefList::getTopList(), nullptr);
}

TEST_F(LibDefListTest, ByDefaultLiesInTheWorkingDirectoryOrAtHome) {
    platform::createDirectory(path("home"));
    platform::createDirectory(path("work"));
    const EnvironmentOverride home("HOME", path("home"));
    const WorkingDirectory here(directory.path() / "work");
    oaString text;
    oaLibDefList::getDefaultFileName(text);
    EXPECT_STREQ(text, "lib.defs");
    oaLibDefList::getDefaultPath(text);
    EXPECT_STREQ(text, "");
    put("home/lib.defs", "");
    oaLibDefList::getDefaultPath(text);
    EXPECT_EQ(withSlashes(static_cast<const char*>(text)), path("home/lib.defs"));
    put("work/lib.defs", "");
    oaLibDefList::getDefaultPath(text);
    EXPECT_STREQ(text, "lib.defs");
    oaLibDefList::openLibs();
    EXPECT_EQ(fullPathOf(oaLibDefList::getTopList()), path("work/lib.defs"));
}

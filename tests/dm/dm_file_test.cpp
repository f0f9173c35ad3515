#include "dm_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
using DMFileTest = DMTest;
} // namespace

TEST_F(DMFileTest, IsAnEntryBeforeItIsAFile) {
    oaLib* lib = createWritable("lib");
    oaCell* cell = oaCell::get(lib, scalarName("cell"));
    EXPECT_EQ(oaDMFile::find(cell, "itemdef.skr"), nullptr);
    oaDMFile* file = oaDMFile::create(cell, "itemdef.skr");
    EXPECT_FALSE(file->existsOnDisk());
    EXPECT_EQ(oaDMFile::find(cell, "itemdef.skr"), file);
    EXPECT_THAT(namesIn(cell->getDMFiles()), ElementsAre("itemdef.skr"));
    EXPECT_EQ(file->getParent(), cell);
    EXPECT_FALSE(file->isPrimary());
    EXPECT_THAT(namesOnDisk("lib/cell"), IsEmpty());
    ovalis::test::writeText(pathOf(file), "text");
    EXPECT_TRUE(file->existsOnDisk());
    EXPECT_EQ(file->getOnDiskSize(), 4U);
    EXPECT_EQ(get("lib/cell/itemdef.skr"), "text");
}

TEST_F(DMFileTest, KnowsItsPathInEveryContainer) {
    oaLib* lib = createWritable("lib");
    oaCellView* cellView = make(lib, "cell", "layout", oacMaskLayout);
    oaString text;
    lib->getFullPath(text);
    const std::string top(text);
    const std::string cell = platform::joinPath(top, "cell");
    EXPECT_EQ(pathOf(oaDMFile::create(lib, "a")), platform::joinPath(top, "a"));
    EXPECT_EQ(pathOf(oaDMFile::create(cellView->getCell(), "a")), platform::joinPath(cell, "a"));
    EXPECT_EQ(pathOf(oaDMFile::create(cellView, "a")),
              platform::joinPath(platform::joinPath(cell, "layout"), "a"));
}

TEST_F(DMFileTest, IsFoundOnceItIsOnDisk) {
    oaLib* lib = createWritable("lib");
    put("lib/lib.defs", "x");
    put("lib/tech.db", "x");
    platform::createDirectory(path("lib/directory.d"));
    EXPECT_NE(oaDMFile::find(lib, "lib.defs"), nullptr);
    EXPECT_EQ(oaDMFile::find(lib, "directory.d"), nullptr);
    EXPECT_THAT(namesIn(lib->getDMFiles()), ElementsAre("lib.defs", "tech.db"));
}

TEST_F(DMFileTest, BooksOfTheLibraryAreNotShown) {
    oaLib* lib = createWritable("lib");
    oaCellView* cellView = make(lib, "cell", "layout", oacMaskLayout);
    ASSERT_TRUE(cellView->getPrimary()->getLock());
    EXPECT_THAT(namesIn(lib->getDMFiles()), IsEmpty());
    EXPECT_THAT(namesIn(cellView->getDMFiles()), ElementsAre("layout.oa"));
    EXPECT_EQ(oaDMFile::find(lib, ".oalib"), nullptr);
    EXPECT_EQ(oaDMFile::find(cellView, "master.tag"), nullptr);
    for (const char* name : {".oalib", "master.tag", "layout.oa.cdslck", "a/b", ""}) {
        const Thrown thrown = thrownBy([&] { oaDMFile::create(cellView, name); });
        EXPECT_EQ(thrown.id, oacInvalidDMName);
        EXPECT_EQ(thrown.text, std::string("'") + name + "' is not a legal name of a file.");
    }
    EXPECT_EQ(oaDMFile::find(cellView, "../layout/master.tag"), nullptr);
}

TEST_F(DMFileTest, IsMadeOnce) {
    oaLib* lib = createWritable("lib");
    oaDMFile::create(lib, "entry");
    put("lib/there", "x");
    oaString full;
    lib->getFullPath(full);
    for (const char* name : {"entry", "there"}) {
        const Thrown thrown = thrownBy([&] { oaDMFile::create(lib, name); });
        EXPECT_EQ(thrown.id, oacDMFileExists);
        EXPECT_EQ(thrown.text,
                  "'" + std::string(full) + "' already has a file named '" + name + "'.");
    }
}

TEST_F(DMFileTest, CopiesAFileIn) {
    oaLib* lib = createWritable("lib");
    put("source", "content");
    oaDMFile* file = oaDMFile::create(lib, "copy", path("source").c_str());
    EXPECT_EQ(get("lib/copy"), "content");
    EXPECT_EQ(file->getOnDiskSize(), 7U);
    const Thrown thrown =
        thrownBy([&] { oaDMFile::create(lib, "other", path("missing").c_str()); });
    EXPECT_EQ(thrown.id, oacFileCopyFailed);
    EXPECT_THAT(thrown.text, testing::StartsWith("File '" + path("missing") + "'"));
    EXPECT_EQ(oaDMFile::find(lib, "other"), nullptr);
    EXPECT_THAT(namesIn(lib->getDMFiles()), ElementsAre("copy"));
}

TEST_F(DMFileTest, IsDestroyedWithTheFileOnDisk) {
    oaLib* lib = createWritable("lib");
    put("lib/file", "x");
    oaDMFile* file = oaDMFile::find(lib, "file");
    file->destroy();
    EXPECT_FALSE(file->isValid());
    EXPECT_FALSE(platform::exists(path("lib/file")));
    EXPECT_EQ(oaDMFile::find(lib, "file"), nullptr);
    oaDMFile* entry = oaDMFile::create(lib, "entry");
    entry->destroy();
    EXPECT_EQ(oaDMFile::find(lib, "entry"), nullptr);
}

TEST_F(DMFileTest, StaysAnEntryWhenItsFileGoes) {
    oaLib* lib = createWritable("lib");
    put("lib/file", "x");
    oaDMFile* file = oaDMFile::find(lib, "file");
    platform::removeFile(path("lib/file"));
    EXPECT_EQ(oaDMFile::find(lib, "file"), file);
    EXPECT_FALSE(file->existsOnDisk());
    const Thrown thrown = thrownBy([&] { file->getOnDiskSize(); });
    EXPECT_EQ(thrown.id, oacDMFileDoesNotExistOnDisk);
    EXPECT_EQ(thrown.text, "File '" + pathOf(file) + "' does not exist on disk.");
}

TEST_F(DMFileTest, ForgetsUnwrittenEntriesOnClosing) {
    oaLib* lib = createWritable("lib");
    oaDMFile::create(lib, "never");
    lib->close();
    lib = open("lib", "lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_TRUE(lib->getDMFiles().isEmpty());
}

TEST_F(DMFileTest, IsFoundAsItIsSpelledOnTheDisk) {
    oaLib* lib = createWritable("lib");
    put("lib/lib.defs", "x");
    EXPECT_EQ(oaDMFile::find(lib, "LIB.DEFS"), nullptr);
    EXPECT_THAT(namesIn(lib->getDMFiles()), ElementsAre("lib.defs"));
    if (platform::exists(path("lib/LIB.DEFS"))) {
        EXPECT_EQ(thrownBy([&] { oaDMFile::create(lib, "LIB.DEFS"); }).id, oacDMFileExists);
    } else {
        EXPECT_NE(oaDMFile::create(lib, "LIB.DEFS"), nullptr);
    }
}

TEST_F(DMFileTest, OfAViewDoesNotExist) {
    oaLib* lib = createWritable("lib");
    const oaView* view = oaView::get(lib, scalarName("v"), oaViewType::get(oacSchematic));
    for (const Thrown& thrown :
         {thrownBy([&] { oaDMFile::create(view, "file"); }),
          thrownBy([&] { oaDMFile::find(view, "file"); }), thrownBy([&] { view->getDMFiles(); })}) {
        EXPECT_EQ(thrown.id, oacInvalidContainer);
        EXPECT_EQ(thrown.text, "View 'v' cannot hold files.");
    }
}

TEST_F(DMFileTest, FollowsAnotherOfItsContainer) {
    oaLib* lib = createWritable("lib");
    oaCellView* cellView = make(lib, "cell", "layout", oacMaskLayout);
    oaDMFile* leader = cellView->getPrimary();
    EXPECT_FALSE(leader->isLeader());
    oaDMFile* second = oaDMFile::create(cellView, "second");
    oaDMFile* first = oaDMFile::create(cellView, "first");
    second->setLeader(leader);
    first->setLeader(leader);
    first->setLeader(leader);
    EXPECT_TRUE(leader->isLeader());
    EXPECT_EQ(leader->getLeader(), nullptr);
    EXPECT_EQ(first->getLeader(), leader);
    EXPECT_FALSE(first->isLeader());
    EXPECT_THAT(namesIn(leader->getFollowers()), ElementsAre("first", "second"));
    first->setLeader(nullptr);
    EXPECT_EQ(first->getLeader(), nullptr);
    EXPECT_THAT(namesIn(leader->getFollowers()), ElementsAre("second"));
    second->destroy();
    EXPECT_FALSE(leader->isLeader());
}

TEST_F(DMFileTest, IsAloneAgainWhenItsLeaderGoes) {
    oaLib* lib = createWritable("lib");
    oaDMFile* leader = oaDMFile::create(lib, "leader");
    oaDMFile* follower = oaDMFile::create(lib, "follower");
    follower->setLeader(leader);
    leader->destroy();
    EXPECT_EQ(follower->getLeader(), nullptr);
    oaDMFile* another = oaDMFile::create(lib, "leader");
    EXPECT_EQ(follower->getLeader(), nullptr);
    EXPECT_TRUE(another->getFollowers().isEmpty());
}

TEST_F(DMFileTest, CannotFollowEveryFile) {
    oaLib* lib = createWritable("lib");
    oaDMFile* a = oaDMFile::create(lib, "a");
    oaDMFile* b = oaDMFile::create(lib, "b");
    oaDMFile* c = oaDMFile::create(lib, "c");
    oaDMFile* d = oaDMFile::create(oaCell::get(lib, scalarName("cell")), "d");
    b->setLeader(a);
    const struct {
        oaDMFile* file;
        oaDMFile* leader;
        const char* text;
    } wrong[] = {
        {a, a, "File 'a' cannot follow file 'a': it is the same file."},
        {c, b, "File 'c' cannot follow file 'b': that one follows another file."},
        {a, c, "File 'a' cannot follow file 'c': other files follow the first."},
        {d, c, "File 'd' cannot follow file 'c': it lies elsewhere."},
    };
    for (const auto& [file, leader, text] : wrong) {
        const Thrown thrown = thrownBy([&] { file->setLeader(leader); });
        EXPECT_EQ(thrown.id, oacInvalidDMFileLeader);
        EXPECT_EQ(thrown.text, text);
        EXPECT_EQ(file->getLeader(), nullptr);
    }
    lib->releaseAccess();
    EXPECT_EQ(thrownBy([&] { c->setLeader(a); }).id, oacLibAccessDenied);
    EXPECT_EQ(thrownBy([&] { a->getFollowers(); }).id, oacLibAccessDenied);
    EXPECT_EQ(b->getLeader(), a);
}

TEST_F(DMFileTest, LockIsSeenFromOtherProcesses) {
    oaLib* lib = create("lib");
    put("lib/file", "x");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    oaDMFile* file = oaDMFile::find(lib, "file");
    EXPECT_EQ(child("status-of-file", "lib/file"), 10 + oacNotLocked);
    ASSERT_TRUE(file->getLock());
    EXPECT_EQ(child("status-of-file", "lib/file"), 10 + oacLockedByForeignProcess);
    EXPECT_EQ(child("lock-file", "lib/file"), 1);
    file->releaseLock();
    EXPECT_EQ(child("lock-file", "lib/file"), 0);
    EXPECT_EQ(file->getLockStatus(), oacNotLocked);
}

TEST_F(DMFileTest, LockOfAnotherProcessEndsWithIt) {
    oaLib* lib = create("lib");
    put("lib/file", "x");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    oaDMFile* file = oaDMFile::find(lib, "file");
    WaitingChild holder("hold-file", path("lib/file"), path("ready"));
    EXPECT_EQ(file->getLockStatus(), oacLockedByForeignProcess);
    EXPECT_FALSE(file->getLock());
    holder.kill();
    EXPECT_EQ(file->getLockStatus(), oacNotLocked);
    EXPECT_TRUE(file->getLock());
}

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

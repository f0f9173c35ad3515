#include "dm_tests.h"
#include "platform/atomic_file.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
using CellTest = DMTest;
} // namespace

TEST_F(CellTest, IsMadeOnceAndFound) {
    oaLib* lib = createWritable("lib");
    EXPECT_EQ(oaCell::find(lib, scalarName("cell")), nullptr);
    oaCell* cell = oaCell::get(lib, scalarName("cell"));
    EXPECT_EQ(oaCell::get(lib, scalarName("cell")), cell);
    EXPECT_EQ(oaCell::find(lib, scalarName("cell")), cell);
    EXPECT_EQ(nameOf(cell), "cell");
    oaScalarName name;
    cell->getName(name);
    EXPECT_EQ(name, scalarName("cell"));
    EXPECT_TRUE(platform::isDirectory(path("lib/cell")));
    EXPECT_TRUE(cell->getCellViews().isEmpty());
}

TEST_F(CellTest, IsListedByName) {
    oaLib* lib = createWritable("lib");
    EXPECT_THAT(namesIn(lib->getCells()), IsEmpty());
    for (const char* name : {"b", "c", "a"})
        oaCell::get(lib, scalarName(name));
    EXPECT_THAT(namesIn(lib->getCells()), ElementsAre("a", "b", "c"));
    EXPECT_EQ(lib->getCells().getCount(), 3U);
    EXPECT_TRUE(lib->getCells().includes(oaCell::find(lib, scalarName("b"))));
}

TEST_F(CellTest, IsAnyDirectoryWithALegalName) {
    oaLib* lib = createWritable("lib");
    platform::createDirectory(path("lib/found"));
    platform::createDirectory(path("lib/.vexPcells"));
    platform::createDirectory(path("lib/no.cell"));
    put("lib/file", "x");
    EXPECT_THAT(namesIn(lib->getCells()), ElementsAre("found"));
    EXPECT_NE(oaCell::find(lib, scalarName("found")), nullptr);
    EXPECT_EQ(oaCell::find(lib, scalarName("file")), nullptr);
}

TEST_F(CellTest, CannotTakeTheNameOfAFile) {
    oaLib* lib = createWritable("lib");
    put("lib/file", "x");
    const Thrown thrown = thrownBy([&] { oaCell::get(lib, scalarName("file")); });
    EXPECT_EQ(thrown.id, oacLibFileFailed);
    EXPECT_THAT(thrown.text, testing::StartsWith("Library 'lib' failed on the disk: cannot create "
                                                 "directory ("));
    EXPECT_EQ(oaCell::find(lib, scalarName("file")), nullptr);
}

TEST_F(CellTest, IsDestroyedWithEverythingInIt) {
    oaLib* lib = createWritable("lib");
    oaCellView* cellView = make(lib, "cell", "layout", oacMaskLayout);
    oaCell* cell = cellView->getCell();
    oaDMFile* file = oaDMFile::create(cell, "itemdef.skr");
    put("lib/cell/itemdef.skr", "x");
    cell->destroy();
    EXPECT_FALSE(platform::exists(path("lib/cell")));
    EXPECT_FALSE(cell->isValid());
    EXPECT_FALSE(cellView->isValid());
    EXPECT_FALSE(file->isValid());
    EXPECT_EQ(oaCell::find(lib, scalarName("cell")), nullptr);
    oaCell* again = oaCell::get(lib, scalarName("cell"));
    EXPECT_TRUE(again->isValid());
    EXPECT_FALSE(cell->isValid());
}

TEST_F(CellTest, HalfRemovedByAProcessThatDiedIsNoCell) {
    oaLib* lib = createWritable("lib");
    const std::string half = platform::temporaryPathFor(path("lib/cell"));
    platform::createDirectory(half);
    EXPECT_THAT(namesIn(lib->getCells()), IsEmpty());
    oaCell::get(lib, scalarName("cell"))->destroy();
    EXPECT_TRUE(platform::exists(half)) << "this process is still alive";
}

TEST_F(CellTest, CanBeDestroyedOnAWalk) {
    oaLib* lib = createWritable("lib");
    for (const char* name : {"a", "b", "c"})
        oaCell::get(lib, scalarName(name));
    oaIter<oaCell> walk(lib->getCells());
    while (oaCell* cell = walk.getNext())
        cell->destroy();
    EXPECT_TRUE(lib->getCells().isEmpty());
}

TEST_F(CellTest, IsGoneOnceItsDirectoryIs) {
    oaLib* lib = createWritable("lib");
    oaCell* found = oaCell::get(lib, scalarName("found"));
    oaCell* listed = oaCell::get(lib, scalarName("listed"));
    platform::removeTree(path("lib/found"));
    platform::removeTree(path("lib/listed"));
    EXPECT_EQ(oaCell::find(lib, scalarName("found")), nullptr);
    EXPECT_FALSE(found->isValid());
    EXPECT_TRUE(lib->getCells().isEmpty());
    EXPECT_FALSE(listed->isValid());
}

TEST_F(CellTest, NeedsAName) {
    oaLib* lib = createWritable("lib");
    const Thrown thrown = thrownBy([&] { oaCell::get(lib, oaScalarName()); });
    EXPECT_EQ(thrown.id, oacInvalidDMName);
    EXPECT_EQ(thrown.text, "'' is not a legal name of a cell.");
}

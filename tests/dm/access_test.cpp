#include "dm_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;

namespace {

using Clock = std::chrono::steady_clock;

class AccessTest : public DMTest {
protected:
    int tryRead() { return child("try-read", "lib"); }
    int tryWrite() { return child("try-write", "lib"); }
};

constexpr int granted = 0;
constexpr int refused = 1;

} // namespace

TEST_F(AccessTest, IsToldAndGivenBack) {
    oaLib* lib = create("lib");
    EXPECT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_EQ(lib->getAccessLevel(), oacReadLibAccessLevel);
    lib->releaseAccess();
    EXPECT_EQ(lib->getAccessLevel(), oacNoLibAccessLevel);
    EXPECT_TRUE(lib->getAccess(oacWriteLibAccess));
    EXPECT_EQ(lib->getAccessLevel(), oacWriteLibAccessLevel);
    lib->releaseAccess();
    const Thrown thrown = thrownBy([&] { lib->releaseAccess(); });
    EXPECT_EQ(thrown.id, oacLibReleaseNoAccess);
    EXPECT_EQ(thrown.text, "Library 'lib' has no access to release.");
    EXPECT_THAT(namesOnDisk("lib"), ElementsAre(".oalib"));
}

TEST_F(AccessTest, IsCounted) {
    oaLib* lib = create("lib");
    EXPECT_TRUE(lib->getAccess(oacWriteLibAccess));
    EXPECT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_TRUE(lib->getAccess(oacWriteLibAccess));
    lib->releaseAccess();
    lib->releaseAccess();
    EXPECT_EQ(lib->getAccessLevel(), oacWriteLibAccessLevel);
    lib->releaseAccess();
    EXPECT_EQ(lib->getAccessLevel(), oacNoLibAccessLevel);
}

TEST_F(AccessTest, CannotBeRaised) {
    oaLib* lib = create("lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    const Thrown thrown = thrownBy([&] { lib->getAccess(oacWriteLibAccess); });
    EXPECT_EQ(thrown.id, oacLibAccessCannotUpgrade);
    EXPECT_EQ(thrown.text, "Read access to library 'lib' cannot be raised to write access.");
    EXPECT_EQ(lib->getAccessLevel(), oacReadLibAccessLevel);
}

TEST_F(AccessTest, OfAWriterExcludesEverybodyElse) {
    oaLib* lib = createWritable("lib");
    oaLib* second = open("second", "lib");
    EXPECT_FALSE(second->getAccess(oacReadLibAccess));
    EXPECT_FALSE(second->getAccess(oacWriteLibAccess));
    EXPECT_EQ(second->getAccessLevel(), oacNoLibAccessLevel);
    EXPECT_EQ(tryRead(), refused);
    EXPECT_EQ(tryWrite(), refused);
    lib->releaseAccess();
    EXPECT_EQ(tryWrite(), granted);
    EXPECT_TRUE(second->getAccess(oacWriteLibAccess));
}

TEST_F(AccessTest, OfReadersExcludesWriters) {
    oaLib* lib = create("lib");
    oaLib* second = open("second", "lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_TRUE(second->getAccess(oacReadLibAccess));
    EXPECT_EQ(tryRead(), granted);
    EXPECT_EQ(tryWrite(), refused);
    second->releaseAccess();
    EXPECT_FALSE(second->getAccess(oacWriteLibAccess));
}

TEST_F(AccessTest, EndsWithClosing) {
    createWritable("lib")->close();
    EXPECT_EQ(tryWrite(), granted);
}

TEST_F(AccessTest, IsWaitedForUpToTheTimeout) {
    oaLib* lib = createWritable("lib");
    oaLib* second = open("second", "lib");
    auto start = Clock::now();
    EXPECT_FALSE(second->getAccess(oacReadLibAccess, 1));
    EXPECT_GE(Clock::now() - start, std::chrono::seconds(1));
    lib->releaseAccess();
    WaitingChild holder("briefly-write", path("lib"), path("ready"));
    EXPECT_FALSE(second->getAccess(oacReadLibAccess));
    start = Clock::now();
    EXPECT_TRUE(second->getAccess(oacReadLibAccess, 60));
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(30));
}

TEST_F(AccessTest, OfAKilledProcessIsFree) {
    create("lib")->close();
    WaitingChild holder("hold-write", path("lib"), path("ready"));
    oaLib* lib = open("lib", "lib");
    EXPECT_FALSE(lib->getAccess(oacReadLibAccess));
    holder.kill();
    EXPECT_TRUE(lib->getAccess(oacWriteLibAccess, 10));
    lib->releaseAccess();
    EXPECT_THAT(namesOnDisk("lib"), ElementsAre(".oalib"));
}

TEST_F(AccessTest, IsRefusedForWritingWhereTheLibraryForbidsIt) {
    create("lib")->close();
    oaLib* lib = oaLib::open(scalarName("lib"), path("lib").c_str(), "", oacReadOnlyLibMode);
    EXPECT_FALSE(lib->isWritable());
    EXPECT_TRUE(lib->isReadable());
    EXPECT_FALSE(lib->getAccess(oacWriteLibAccess));
    EXPECT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_EQ(lib->getMode(), oacReadOnlyLibMode);
    lib->close();

    lib = open("lib", "lib");
    EXPECT_TRUE(lib->isWritable());
    ASSERT_TRUE(lib->getAccess(oacWriteLibAccess));
    oaDMAttrArray attributes;
    attributes.append(oaDMAttr("libReadOnly", "Yes"));
    lib->setAttributes(attributes);
    lib->releaseAccess();
    EXPECT_FALSE(lib->isWritable());
    EXPECT_FALSE(lib->getAccess(oacWriteLibAccess));
    EXPECT_TRUE(lib->getAccess(oacReadLibAccess));
}

TEST_F(AccessTest, ToALibraryOpenForOneProcessIsRefusedToOthers) {
    create("lib")->close();
    oaLib* lib = oaLib::open(scalarName("lib"), path("lib").c_str(), "", oacNonSharedLibMode);
    EXPECT_EQ(lib->getAccessLevel(), oacNoLibAccessLevel);
    EXPECT_EQ(tryRead(), refused);
    EXPECT_TRUE(lib->getAccess(oacReadLibAccess));
    lib->releaseAccess();
    EXPECT_EQ(tryRead(), refused);
    lib->close();
    EXPECT_EQ(tryRead(), granted);
}

TEST_F(AccessTest, HeldElsewhereKeepsALibraryFromOpeningForOneProcess) {
    oaLib* lib = create("lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    const Thrown thrown = thrownBy(
        [&] { oaLib::open(scalarName("second"), path("lib").c_str(), "", oacNonSharedLibMode); });
    EXPECT_EQ(thrown.id, oacLibCouldNotOpen);
    EXPECT_EQ(thrown.text, "Library 'second' cannot be opened from '" +
                               platform::absolutePath(path("lib")) + "': it is in use elsewhere.");
    EXPECT_EQ(oaLib::find(scalarName("second")), nullptr);
}

TEST_F(AccessTest, IsRefusedOnceTheDirectoryIsGone) {
    oaLib* lib = create("lib");
    platform::removeTree(path("lib"));
    EXPECT_FALSE(lib->isReadable());
    EXPECT_FALSE(lib->getAccess(oacReadLibAccess));
    EXPECT_FALSE(lib->getAccess(oacWriteLibAccess));
}

TEST_F(AccessTest, IsNeededForTheStructure) {
    oaLib* lib = createWritable("lib");
    oaCellView* cellView = make(lib, "cell", "layout", oacMaskLayout);
    oaCell* cell = cellView->getCell();
    oaView* view = cellView->getView();
    oaDMFile* file = cellView->getPrimary();
    const oaViewType* type = oaViewType::get(oacMaskLayout);
    lib->releaseAccess();

    const auto readers = [&] {
        return std::vector<oaUInt4>{
            thrownBy([&] { lib->getCells(); }).id,
            thrownBy([&] { lib->getViews(); }).id,
            thrownBy([&] { lib->getViewsByName(scalarName("layout")); }).id,
            thrownBy([&] { lib->getCellViews(); }).id,
            thrownBy([&] { lib->getDMFiles(); }).id,
            thrownBy([&] { oaCell::find(lib, scalarName("cell")); }).id,
            thrownBy([&] { oaCell::get(lib, scalarName("cell")); }).id,
            thrownBy([&] { cell->getCellViews(); }).id,
            thrownBy([&] { oaView::find(lib, scalarName("layout"), type); }).id,
            thrownBy([&] { oaView::get(lib, scalarName("layout"), type); }).id,
            thrownBy([&] { view->getCellViews(); }).id,
            thrownBy([&] { oaCellView::find(cell, view); }).id,
            thrownBy([&] { oaCellView::find(lib, scalarName("cell"), scalarName("layout")); }).id,
            thrownBy([&] { oaCellView::get(cell, view); }).id,
            thrownBy([&] { oaDMFile::find(cell, "file"); }).id};
    };
    const auto writers = [&] {
        return std::vector<oaUInt4>{thrownBy([&] { oaCell::get(lib, scalarName("new")); }).id,
                                    thrownBy([&] { make(lib, "cell", "new", oacMaskLayout); }).id,
                                    thrownBy([&] { oaDMFile::create(cell, "file"); }).id,
                                    thrownBy([&] { file->destroy(); }).id,
                                    thrownBy([&] { cellView->destroy(); }).id,
                                    thrownBy([&] { view->destroy(); }).id,
                                    thrownBy([&] { cell->destroy(); }).id};
    };
    EXPECT_THAT(readers(), testing::Each(oacLibAccessDenied));
    EXPECT_THAT(writers(), testing::Each(oacLibAccessDenied));
    EXPECT_EQ(thrownBy([&] { lib->getCells(); }).text,
              "Read access to library 'lib' is denied: the application has not got it.");

    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_THAT(readers(), testing::Each(0U));
    EXPECT_THAT(writers(), testing::Each(oacLibAccessDenied));
    EXPECT_EQ(thrownBy([&] { cell->destroy(); }).text,
              "Write access to library 'lib' is denied: the application has not got it.");
    EXPECT_TRUE(cell->isValid() && view->isValid() && cellView->isValid() && file->isValid());
}

TEST_F(AccessTest, ShowsWhatOthersChangedMeanwhile) {
    oaLib* lib = createWritable("lib");
    oaCell* gone = oaCell::get(lib, scalarName("gone"));
    oaCell* kept = oaCell::get(lib, scalarName("kept"));
    lib->releaseAccess();
    oaLib* second = open("second", "lib");
    ASSERT_TRUE(second->getAccess(oacWriteLibAccess));
    oaCell::find(second, scalarName("gone"))->destroy();
    make(second, "kept", "layout", oacMaskLayout);
    second->releaseAccess();
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_THAT(namesIn(lib->getCells()), ElementsAre("kept"));
    EXPECT_FALSE(gone->isValid());
    EXPECT_TRUE(kept->isValid());
    EXPECT_EQ(kept->getCellViews().getCount(), 1U);
}

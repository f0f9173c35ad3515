#include <ovalis/library.h>
#include <platform/path.h>

#include "support/files.h"
#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;
using ovalis::test::readText;
using ovalis::test::writeText;

namespace {

class Copies : public ovalis::test::FolderTest {
protected:
    std::filesystem::path marker(const std::string& lib) const { return filePath(lib) / ".oalib"; }

    /// A library "src" with a cell, a view and a saved design in it.
    void makeSource() {
        const LibPtr lib = createVEXCompatibleLib(pathOf("src"), "src");
        lib->getAccess(oa::oacWriteLibAccess);
        createCellView(*lib, "divider", "layout", oa::oacMaskLayout);
        oa::oaDesign* design = openDesign(*lib, "divider", "layout", true);
        oa::oaRect::create(oa::oaBlock::create(design), 1, 2, oa::oaBox(0, 0, 10, 20));
        design->save();
        design->close();
    }

    /// Gives the marker of the source another text for each "No" in it.
    void markSource(const std::string& text) { writeText(marker("src"), text); }
};

std::string markerWith(const std::string& attributes) {
    return "<?xml version=\"1.0\"?>\n\n<Library DMSystem=\"oaDMFileSys\">\n    <oaDMFileSys " +
           attributes + "/>\n</Library>\n";
}

} // namespace

TEST_F(Copies, HoldEverythingAndAreOpenForWriting) {
    makeSource();
    const LibPtr copy = copyLib(pathOf("src"), pathOf("dst"), "dst");
    EXPECT_EQ(ovalis::test::nameOf(copy.get()), "dst");
    EXPECT_EQ(copy->getAccessLevel(), oa::oacWriteLibAccessLevel);
    EXPECT_EQ(getCellViewNames(*copy), (std::vector{TStringPair("divider", "layout")}));
    for (const char* name : {".oalib", "tech.db", "lib.defs", "divider/layout/layout.oa"}) {
        EXPECT_EQ(readText(filePath("dst") / name), readText(filePath("src") / name)) << name;
    }
    oa::oaDesign* design = openDesign(*copy, "divider", "layout", false);
    EXPECT_EQ(design->getTopBlock()->getShapes().getCount(), 1U);
    design->close();
}

TEST_F(Copies, AreMadeInADirectoryThatExists) {
    makeSource();
    std::filesystem::create_directory(filePath("dst"));
    writeText(filePath("dst") / "notes.txt", "kept");
    const LibPtr copy = copyLib(pathOf("src"), pathOf("dst"), "dst");
    EXPECT_EQ(getCellNames(*copy), std::vector<std::string>{"divider"});
    EXPECT_EQ(readText(filePath("dst") / "notes.txt"), "kept");
}

TEST_F(Copies, CarryFilesAndFoldersWithNonAsciiNames) {
    makeSource();
    const std::filesystem::path folder = filePath("src") / std::filesystem::path(u8"größe");
    std::filesystem::create_directories(folder / "deep" / "deeper");
    writeText(folder / "deep" / "deeper" / std::filesystem::path(u8"µ.txt"), std::string("\0x", 2));
    const LibPtr copy = copyLib(pathOf("src"), pathOf("dst"), "dst");
    EXPECT_EQ(readText(filePath("dst") / std::filesystem::path(u8"größe") / "deep" / "deeper" /
                       std::filesystem::path(u8"µ.txt")),
              std::string("\0x", 2));
}

TEST_F(Copies, LoseTheirReadOnlyMark) {
    makeSource();
    markSource(markerWith("libReadOnly=\"Yes\" origFileSystem=\"Unix\""));
    const LibPtr copy = copyLib(pathOf("src"), pathOf("dst"), "dst");
    EXPECT_EQ(readText(marker("dst")), markerWith("libReadOnly=\"No\" origFileSystem=\"Unix\""));
    EXPECT_EQ(readText(marker("src")), markerWith("libReadOnly=\"Yes\" origFileSystem=\"Unix\""));
    EXPECT_EQ(copy->getAccessLevel(), oa::oacWriteLibAccessLevel);
}

TEST_F(Copies, LoseTheFirstOfTwoReadOnlyMarks) {
    makeSource();
    const std::string comment = "<!-- libReadOnly=\"Yes\" -->\n";
    markSource(markerWith("libReadOnly=\"Yes\"") + comment);
    EXPECT_NO_THROW(static_cast<void>(copyLib(pathOf("src"), pathOf("dst"), "dst")));
    EXPECT_EQ(readText(marker("dst")), markerWith("libReadOnly=\"No\"") + comment);
}

TEST_F(Copies, KeepAMarkerWithoutAReadOnlyMark) {
    makeSource();
    const std::string text = markerWith("libReadOnly=\"No\"") + "<!-- libReadOnly=\"YES\" -->\n";
    markSource(text);
    static_cast<void>(copyLib(pathOf("src"), pathOf("dst"), "dst"));
    EXPECT_EQ(readText(marker("dst")), text);
}

TEST_F(Copies, CanBeMadeOfALibraryThatIsOpenForWriting) {
    makeSource();
    const LibPtr source = openLib(pathOf("src"), true, "src");
    const LibPtr copy = copyLib(pathOf("src"), pathOf("dst"), "dst");
    EXPECT_EQ(copy->getAccessLevel(), oa::oacWriteLibAccessLevel);
}

TEST_F(Copies, OntoTheirSourceKeepItAndMakeItWritable) {
    makeSource();
    markSource(markerWith("libReadOnly=\"Yes\""));
    const std::string layout = readText(filePath("src") / "divider/layout/layout.oa");
    const LibPtr copy = copyLib(pathOf("src"), pathOf("src"), "dst");
    EXPECT_EQ(copy->getAccessLevel(), oa::oacWriteLibAccessLevel);
    EXPECT_EQ(readText(marker("src")), markerWith("libReadOnly=\"No\""));
    EXPECT_EQ(readText(filePath("src") / "divider/layout/layout.oa"), layout);
}

TEST_F(Copies, OfAMissingLibraryFailForWantOfAMarker) {
    EXPECT_EQ(failureOf([&] { static_cast<void>(copyLib(pathOf("none"), pathOf("dst"), "dst")); }),
              "File " + pathOf("dst") + platform::pathSeparator() + ".oalib not found");
    EXPECT_FALSE(std::filesystem::exists(filePath("dst")));
}

TEST_F(Copies, OfALibraryWithoutMarkerStayAsFarAsTheyCame) {
    makeSource();
    std::filesystem::remove(marker("src"));
    EXPECT_EQ(failureOf([&] { static_cast<void>(copyLib(pathOf("src"), pathOf("dst"), "dst")); }),
              "File " + pathOf("dst") + platform::pathSeparator() + ".oalib not found");
    EXPECT_TRUE(std::filesystem::exists(filePath("dst") / "tech.db"));
}

TEST_F(Copies, FailWhereAFileStandsInTheWay) {
    makeSource();
    writeText(filePath("dst"), "a file");
    EXPECT_EQ(messageIdOf([&] { static_cast<void>(copyLib(pathOf("src"), pathOf("dst"), "dst")); }),
              oa::oacDirCreateFailed);
}

TEST_F(Copies, EndWhenTheyLieInsideTheirSource) {
    makeSource();
    const LibPtr copy = copyLib(pathOf("src"), pathOf("src") + "/copy", "dst");
    EXPECT_EQ(getCellNames(*copy), std::vector<std::string>{"divider"});
}

#include <ovalis/dm_files.h>

#include <algorithm>

#include "support/files.h"
#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;
using ovalis::test::readText;
using ovalis::test::writeText;

namespace {

using Names = std::vector<std::string>;

class DMFiles : public ovalis::test::LibraryTest {
protected:
    DMFiles() { createCellView(lib(), "größe", "layout", oa::oacMaskLayout); }

    oa::oaCell& cell() { return *createCell(lib(), "größe"); }

    oa::oaCellView& cellView() { return *getCellView(lib(), "größe", "layout"); }

    /// Makes a file of the library on disk.
    void put(const std::string& name, const std::string& text = "text") {
        writeText(filePath("lib") / std::u8string(name.begin(), name.end()), text);
    }

    bool isOnDisk(const std::string& path) {
        return std::filesystem::exists(
            std::filesystem::path(std::u8string(path.begin(), path.end())));
    }

    int entriesOf(oa::oaDMContainer& container) { return int(container.getDMFiles().getCount()); }

    /// Every function on the cell view "größe"/`view` of the cell `cellName`.
    Names failuresOnCellView(const std::string& cellName, const std::string& view) {
        return {failureOf([&] { addDMFile(lib(), cellName, view, "file"); }),
                failureOf([&] { removeDMFile(lib(), cellName, view, "file"); }),
                failureOf([&] { getDMFileNames(lib(), cellName, view); })};
    }
};

Names namesOf(const std::vector<TStringPair>& files) {
    Names names;
    std::transform(files.begin(), files.end(), std::back_inserter(names),
                   [](const TStringPair& file) { return file.get<0>(); });
    return names;
}

std::filesystem::path asPath(const std::string& path) {
    return std::u8string(path.begin(), path.end());
}

std::string pathInDatabase(oa::oaDMContainer& container, const char* name) {
    oa::oaString path;
    oa::oaDMFile::find(&container, name)->getPath(path);
    return fromOa(path);
}

} // namespace

TEST_F(DMFiles, AreAddedToEveryContainer) {
    const std::string ofLib = addDMFile(lib(), "größe.txt");
    const std::string ofCell = addDMFile(lib(), "größe", "a.txt");
    const std::string ofCellView = addDMFile(lib(), "größe", "layout", "b.txt");
    oa::oaDMContainer& container = cell();
    const std::string ofContainer = addDMFile(container, "c.txt");
    EXPECT_EQ(ofLib, pathInDatabase(lib(), "größe.txt"));
    EXPECT_EQ(ofCell, pathInDatabase(cell(), "a.txt"));
    EXPECT_EQ(ofCellView, pathInDatabase(cellView(), "b.txt"));
    EXPECT_EQ(ofContainer, pathInDatabase(cell(), "c.txt"));
    EXPECT_EQ(asPath(ofLib).parent_path(), filePath("lib"));
    EXPECT_EQ(asPath(ofCellView).parent_path(), asPath(ofCell).parent_path() / "layout");
    EXPECT_EQ(namesOf(getDMFileNames(lib(), "größe")), (Names{"a.txt", "c.txt"}));
}

TEST_F(DMFiles, AreWrittenToThePathThatAddingReturns) {
    const std::string path = addDMFile(lib(), "größe", "layout", "model.s2p");
    EXPECT_FALSE(isOnDisk(path));
    writeText(asPath(path), "content");
    reopen();
    EXPECT_EQ(namesOf(getDMFileNames(lib(), "größe", "layout")), (Names{"layout.oa", "model.s2p"}));
    EXPECT_EQ(readText(asPath(getDMFileName(lib(), "größe", "layout", "model.s2p").get<1>())),
              "content");
}

TEST_F(DMFiles, AreAddedOnce) {
    const std::string path = addDMFile(lib(), "größe", "file");
    EXPECT_EQ(addDMFile(lib(), "größe", "file"), path);
    EXPECT_EQ(entriesOf(cell()), 1);
    writeText(asPath(path), "content");
    EXPECT_EQ(addDMFile(lib(), "größe", "file"), path);
    EXPECT_EQ(readText(asPath(path)), "content");
}

TEST_F(DMFiles, ThatAreOnTheDiskAreTaken) {
    put("there.txt", "content");
    const std::string path = addDMFile(lib(), "there.txt");
    EXPECT_EQ(path, pathInDatabase(lib(), "there.txt"));
    EXPECT_EQ(readText(filePath("lib") / "there.txt"), "content");
}

TEST_F(DMFiles, AreRefusedByTheDatabaseWithItsOwnText) {
    EXPECT_EQ(failureOf([&] { addDMFile(lib(), "a/b"); }),
              "database: 'a/b' is not a legal name of a file.");
    EXPECT_EQ(failureOf([&] { addDMFile(lib(), ""); }),
              "database: '' is not a legal name of a file.");
    lib().releaseAccess();
    const int denied = oa::oacLibAccessDenied;
    EXPECT_EQ(messageIdOf([&] { addDMFile(lib(), "a"); }), denied);
    EXPECT_EQ(messageIdOf([&] { addDMFile(lib(), "größe", "a"); }), denied);
    EXPECT_EQ(messageIdOf([&] { addDMFile(lib(), "größe", "layout", "a"); }), denied);
    EXPECT_EQ(messageIdOf([&] { removeDMFile(lib(), "a"); }), denied);
    EXPECT_EQ(messageIdOf([&] { getDMFileNames(lib()); }), denied);
    EXPECT_EQ(messageIdOf([&] { getDMFileName(lib(), "größe", "layout", "a"); }), denied);
    EXPECT_EQ(messageIdOf([&] { existsFile(lib(), "a"); }), denied);
    lib().getAccess(oa::oacReadLibAccess);
    put("there.txt");
    EXPECT_EQ(messageIdOf([&] { addDMFile(lib(), "new.txt"); }), denied);
    EXPECT_EQ(messageIdOf([&] { removeDMFile(lib(), "there.txt"); }), denied);
    EXPECT_TRUE(existsFile(lib(), "there.txt"));
    EXPECT_FALSE(existsFile(lib(), "new.txt"));
}

TEST_F(DMFiles, OfACellThatIsMissingAreAFailure) {
    const char* missing = "cell not found in library";
    EXPECT_EQ(failureOf([&] { addDMFile(lib(), "none", "file"); }), missing);
    EXPECT_EQ(failureOf([&] { removeDMFile(lib(), "none", "file"); }), missing);
    EXPECT_EQ(failureOf([&] { getDMFileNames(lib(), "none"); }), missing);
}

TEST_F(DMFiles, OfACellViewThatIsMissingAreAFailure) {
    const Names missing = {"cell view not found in library", "cell view not found in library",
                           "Cell view not found in library."};
    EXPECT_EQ(failuresOnCellView("größe", "none"), missing);
    EXPECT_EQ(failuresOnCellView("none", "layout"), missing);
}

TEST_F(DMFiles, AreRemovedFromEveryContainer) {
    const Names paths = {addDMFile(lib(), "file"), addDMFile(lib(), "größe", "file"),
                         addDMFile(lib(), "größe", "layout", "file")};
    for (const std::string& path : paths) {
        writeText(asPath(path), "text");
    }
    EXPECT_TRUE(removeDMFile(lib(), "file"));
    EXPECT_TRUE(removeDMFile(lib(), "größe", "file"));
    EXPECT_TRUE(removeDMFile(lib(), "größe", "layout", "file"));
    for (const std::string& path : paths) {
        EXPECT_FALSE(isOnDisk(path));
    }
    EXPECT_FALSE(existsFile(lib(), "file"));
    EXPECT_EQ(entriesOf(cell()), 0);
    EXPECT_FALSE(removeDMFile(lib(), "file"));
    EXPECT_FALSE(removeDMFile(lib(), "größe", "file"));
    EXPECT_FALSE(removeDMFile(lib(), "größe", "layout", "file"));
}

TEST_F(DMFiles, WhoseFileWasDeletedKeepTheirEntry) {
    const std::string path = addDMFile(lib(), "größe", "file");
    writeText(asPath(path), "text");
    std::filesystem::remove(asPath(path));
    EXPECT_FALSE(removeDMFile(lib(), "größe", "file"));
    EXPECT_EQ(namesOf(getDMFileNames(lib(), "größe")), Names{"file"});
}

TEST_F(DMFiles, WithoutAFileAreNotRemoved) {
    addDMFile(lib(), "entry");
    EXPECT_FALSE(removeDMFile(lib(), "entry"));
    EXPECT_TRUE(existsFile(lib(), "entry"));
    EXPECT_FALSE(removeDMFile(lib(), "größe", "layout", "layout.oa"));
    EXPECT_TRUE(existsFile(cellView(), "layout.oa"));
}

TEST_F(DMFiles, AreListedWithTheirPathsInTheOrderOfTheDatabase) {
    put("b");
    addDMFile(lib(), "a");
    addDMFile(lib(), "größe", "layout", "a");
    const std::vector<TStringPair> ofLib = {
        TStringPair("a", pathInDatabase(lib(), "a")), TStringPair("b", pathInDatabase(lib(), "b")),
        TStringPair("tech.db", pathInDatabase(lib(), "tech.db"))};
    EXPECT_EQ(getDMFileNames(lib()), ofLib);
    const oa::oaDMContainer& container = lib();
    EXPECT_EQ(getDMFileNames(container), ofLib);
    EXPECT_EQ(getDMFileNames(lib(), "größe", "layout"),
              (std::vector<TStringPair>{
                  TStringPair("a", pathInDatabase(cellView(), "a")),
                  TStringPair("layout.oa", pathInDatabase(cellView(), "layout.oa"))}));
    EXPECT_TRUE(getDMFileNames(lib(), "größe").empty());
}

TEST_F(DMFiles, OfOneNameAreAPairOrNothing) {
    addDMFile(lib(), "größe", "layout", "file");
    const TStringPair nothing = TStringPair("", "");
    EXPECT_EQ(getDMFileName(lib(), "größe", "layout", "file"),
              TStringPair("file", pathInDatabase(cellView(), "file")));
    EXPECT_EQ(getDMFileName(lib(), "größe", "layout", "none"), nothing);
    EXPECT_EQ(getDMFileName(lib(), "größe", "none", "file"), nothing);
    EXPECT_EQ(getDMFileName(lib(), "none", "layout", "file"), nothing);
}

TEST_F(DMFiles, ExistAsEntriesOrOnTheDisk) {
    put("there");
    addDMFile(lib(), "entry");
    EXPECT_TRUE(existsFile(lib(), "there"));
    EXPECT_TRUE(existsFile(lib(), "entry"));
    EXPECT_FALSE(existsFile(lib(), "none"));
    EXPECT_FALSE(existsFile(cell(), "there"));
    EXPECT_FALSE(existsFile(lib(), "größe"));
}

TEST_F(DMFiles, OfALibraryThatIsNotOpenAreAFailure) {
    EXPECT_EQ(failureOf([&] { existsFileInOpenLib("größe", "file"); }), "Library not open:größe");
    closeLibrary();
    EXPECT_EQ(failureOf([&] { existsFileInOpenLib("lib", "file"); }), "Library not open:lib");
}

TEST_F(DMFiles, OfAnOpenLibraryAreLookedUpWithAccessOfTheMoment) {
    put("there");
    lib().releaseAccess();
    EXPECT_TRUE(existsFileInOpenLib("lib", "there"));
    EXPECT_EQ(lib().getAccessLevel(), oa::oacNoLibAccessLevel);
    EXPECT_FALSE(existsFileInOpenLib("lib", "none"));
    EXPECT_EQ(lib().getAccessLevel(), oa::oacNoLibAccessLevel);
    for (const oa::oaLibAccessEnum access : {oa::oacReadLibAccess, oa::oacWriteLibAccess}) {
        lib().getAccess(access);
        const oa::oaLibAccessLevel level = lib().getAccessLevel();
        EXPECT_TRUE(existsFileInOpenLib("lib", "there"));
        EXPECT_EQ(lib().getAccessLevel(), level);
        lib().releaseAccess();
        EXPECT_EQ(lib().getAccessLevel(), oa::oacNoLibAccessLevel);
    }
}

TEST_F(DMFiles, OfALibraryThatSomebodyWritesAreAFailure) {
    lib().releaseAccess();
    const LibPtr writer = openLib(pathOf("lib"), true, "writer");
    EXPECT_EQ(failureOf([&] { existsFileInOpenLib("lib", "file"); }), "Cannot get read access:lib");
    EXPECT_EQ(lib().getAccessLevel(), oa::oacNoLibAccessLevel);
}

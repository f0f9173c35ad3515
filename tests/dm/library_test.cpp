#include "dm_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
using LibraryTest = DMTest;
} // namespace

TEST_F(LibraryTest, IsCreatedInANewDirectoryAndStaysOpenWithoutAccess) {
    oaLib* lib = create("lib");
    EXPECT_THAT(namesOnDisk("lib"), ElementsAre(".oalib"));
    EXPECT_EQ(nameOf(lib), "lib");
    EXPECT_EQ(lib->getAccessLevel(), oacNoLibAccessLevel);
    EXPECT_EQ(lib->getMode(), oacSharedLibMode);
    EXPECT_EQ(oaLib::find(scalarName("lib")), lib);
    EXPECT_THAT(namesIn(oaLib::getOpenLibs()), ElementsAre("lib"));
    EXPECT_TRUE(oaLib::exists(path("lib").c_str()));
}

TEST_F(LibraryTest, KnowsItsPaths) {
    oaLib* lib = oaLib::create(scalarName("lib"), (directory.str() + "/./lib").c_str());
    oaString text;
    lib->getPath(text);
    EXPECT_EQ(std::string(text), directory.str() + "/./lib");
    lib->getWritePath(text);
    EXPECT_EQ(std::string(text), directory.str() + "/./lib");
    lib->getFullPath(text);
    EXPECT_EQ(std::string(text), platform::absolutePath(path("lib")));
    lib->getDMSystemName(text);
    EXPECT_EQ(text, "oaDMFileSys");
    oaScalarName name;
    lib->getName(name);
    EXPECT_EQ(name, scalarName("lib"));
}

TEST_F(LibraryTest, KnowsTheWritePathItWasOpenedWith) {
    create("lib")->close();
    platform::createDirectory(path("elsewhere"));
    oaLib* lib = oaLib::open(scalarName("other"), path("lib").c_str(), path("elsewhere").c_str());
    oaString text;
    lib->getWritePath(text);
    EXPECT_EQ(std::string(text), path("elsewhere"));
    EXPECT_EQ(nameOf(lib), "other");
}

TEST_F(LibraryTest, IsCreatedInAnEmptyDirectory) {
    platform::createDirectory(path("lib"));
    create("lib");
    EXPECT_THAT(namesOnDisk("lib"), ElementsAre(".oalib"));
}

TEST_F(LibraryTest, IsNotCreatedWhereItCannotBe) {
    put("file", "x");
    platform::createDirectory(path("full"));
    put("full/file", "x");
    const struct {
        const char* name;
        const char* reason;
    } refused[] = {{"file", "there is a file of that name"},
                   {"full", "the directory is not empty"}};
    for (const auto& [name, reason] : refused) {
        const Thrown thrown = thrownBy([&] { create(name); });
        EXPECT_EQ(thrown.id, oacLibCouldNotCreate);
        EXPECT_EQ(thrown.text, std::string("Library '") + name + "' cannot be created in '" +
                                   path(name) + "': " + reason + ".");
    }
    EXPECT_EQ(thrownBy([&] { create("missing/lib"); }).id, oacLibCouldNotCreate);
    EXPECT_EQ(thrownBy([&] { oaLib::create(scalarName("l"), ""); }).text,
              "Library 'l' cannot be created in '': the path is empty.");
    EXPECT_THAT(namesIn(oaLib::getOpenLibs()), IsEmpty());
}

TEST_F(LibraryTest, IsNotCreatedForAnUnknownSystem) {
    const Thrown thrown = thrownBy([&] {
        oaLib::create(scalarName("lib"), path("lib").c_str(), oacSharedLibMode, "oaDMTurbo");
    });
    EXPECT_EQ(thrown.id, oacLibCouldNotCreate);
    EXPECT_EQ(thrown.text, "Library 'lib' cannot be created in '" + path("lib") +
                               "': the design-management system 'oaDMTurbo' is not supported.");
    EXPECT_FALSE(platform::exists(path("lib")));
}

TEST_F(LibraryTest, NameCanBeOpenOnlyOnce) {
    create("lib");
    const Thrown created = thrownBy([&] { oaLib::create(scalarName("lib"), path("b").c_str()); });
    EXPECT_EQ(created.id, oacLibNameExists);
    EXPECT_EQ(created.text, "A library named 'lib' is already open.");
    EXPECT_FALSE(platform::exists(path("b")));
    const Thrown opened = thrownBy([&] { open("lib", "lib"); });
    EXPECT_EQ(opened.id, oacCannotOpenOpenedLib);
    EXPECT_EQ(opened.text, "A library named 'lib' is already open, from '" +
                               platform::absolutePath(path("lib")) + "'.");
}

TEST_F(LibraryTest, IsNotOpenedWhereThereIsNone) {
    platform::createDirectory(path("empty"));
    EXPECT_EQ(thrownBy([&] { open("lib", "empty"); }).text,
              "Library 'lib' cannot be opened from '" + path("empty") +
                  "': the directory holds no library.");
    const Thrown missing = thrownBy([&] { open("lib", "missing"); });
    EXPECT_EQ(missing.id, oacLibCouldNotOpen);
    EXPECT_EQ(missing.text, "Library 'lib' cannot be opened from '" + path("missing") +
                                "': there is no such directory.");
    EXPECT_EQ(oaLib::find(scalarName("lib")), nullptr);
}

TEST_F(LibraryTest, ExistsWhereSomethingOfALibraryLies) {
    EXPECT_FALSE(oaLib::exists(path("missing").c_str()));
    EXPECT_FALSE(oaLib::exists(""));
    platform::createDirectory(path("empty"));
    EXPECT_FALSE(oaLib::exists(path("empty").c_str()));
    put("empty/readme", "x");
    platform::createDirectory(path("empty/cell"));
    EXPECT_FALSE(oaLib::exists(path("empty").c_str()));
    EXPECT_FALSE(oaLib::exists(path("empty/readme").c_str()));
    for (const std::string name : {".oalib", "tech.db", "data.dm"}) {
        platform::createDirectory(path("with" + name));
        put("with" + name + "/" + name, "");
        EXPECT_TRUE(oaLib::exists(path("with" + name).c_str())) << name;
    }
    platform::createDirectory(path("empty/cell/layout"));
    put("empty/cell/layout/layout.oa", "");
    EXPECT_TRUE(oaLib::exists(path("empty").c_str()));
}

TEST_F(LibraryTest, OpensWithoutAMarker) {
    platform::createDirectory(path("lib"));
    put("lib/tech.db", "");
    oaLib* lib = open("lib", "lib");
    EXPECT_TRUE(lib->getAccess(oacWriteLibAccess));
    oaCell::get(lib, scalarName("cell"));
    EXPECT_THAT(namesIn(lib->getCells()), ElementsAre("cell"));
    EXPECT_FALSE(platform::exists(path("lib/.oalib")));
}

TEST_F(LibraryTest, ClosingEndsEverythingItHandedOut) {
    oaLib* lib = createWritable("lib");
    oaCellView* cellView = make(lib, "cell", "layout", oacMaskLayout);
    oaCell* cell = cellView->getCell();
    oaView* view = cellView->getView();
    oaDMFile* file = cellView->getPrimary();
    lib->close();
    for (const oaObject* object :
         {static_cast<oaObject*>(lib), static_cast<oaObject*>(cell), static_cast<oaObject*>(view),
          static_cast<oaObject*>(cellView), static_cast<oaObject*>(file)})
        EXPECT_FALSE(object->isValid());
    EXPECT_EQ(oaLib::find(scalarName("lib")), nullptr);
    EXPECT_THROW(lib->close(), oaException);
    EXPECT_THROW(cell->destroy(), oaException);
    EXPECT_THAT(namesOnDisk("lib"), ElementsAre(".oalib", "cell"));
}

TEST_F(LibraryTest, MayBeOpenTwiceUnderTwoNames) {
    oaLib* first = create("lib");
    oaLib* second = open("second", "lib");
    EXPECT_NE(first, second);
    EXPECT_THAT(namesIn(oaLib::getOpenLibs()), ElementsAre("lib", "second"));
}

TEST_F(LibraryTest, TellsTheKindsOfItsObjects) {
    oaLib* lib = createWritable("lib");
    oaCellView* cellView = make(lib, "cell", "layout", oacMaskLayout);
    const struct {
        const oaDMObject* object;
        oaTypeEnum type;
        bool container;
    } objects[] = {{lib, oacLibType, true},
                   {cellView, oacCellViewType, true},
                   {cellView->getCell(), oacCellType, true},
                   {cellView->getView(), oacViewType, true},
                   {cellView->getPrimary(), oacDMFileType, false}};
    for (const auto& [object, type, container] : objects) {
        EXPECT_EQ(object->getType(), type);
        EXPECT_EQ(object->isContainer(), container);
        EXPECT_EQ(object->getLib(), lib);
        EXPECT_TRUE(object->isDM());
        EXPECT_FALSE(object->hasProp());
        EXPECT_FALSE(object->hasAppDef());
    }
    EXPECT_FALSE(lib->hasVC());
    EXPECT_FALSE(lib->isMarkedToBeClosed());
}

TEST_F(LibraryTest, NamesTemporaryFilesOnTheFileSystemThatIsAskedFor) {
    oaLib* lib = create("lib");
    oaString first;
    oaString second;
    lib->getTempFile(first, true);
    lib->getTempFile(second, true);
    EXPECT_NE(first, second);
    EXPECT_EQ(platform::parentPath(std::string(first)), platform::absolutePath(path("lib")));
    EXPECT_FALSE(platform::exists(std::string(first)));
    lib->getTempFile(first);
    EXPECT_TRUE(platform::isDirectory(platform::parentPath(std::string(first))));
    EXPECT_THAT(namesOnDisk("lib"), ElementsAre(".oalib"));
}

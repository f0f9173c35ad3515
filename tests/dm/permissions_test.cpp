// What a library does where the files do not let it; only posix systems let a test take rights
// away.

#include "dm_tests.h"
#include "platform/ordinary_user.h"

#include <filesystem>

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class PermissionsTest : public DMTest {
protected:
    PermissionsTest() { setMode("", 0777); }

    void setMode(const std::string& name, unsigned mode) {
        std::filesystem::permissions(path(name), std::filesystem::perms(mode));
    }
};

} // namespace

TEST_F(PermissionsTest, ReadOnlyDirectoryGivesReadAccessOnly) {
    oaLib* lib = createWritable("lib");
    oaCell::get(lib, scalarName("cell"));
    lib->releaseAccess();
    setMode("lib", 0555);
    {
        const OrdinaryUser user;
        EXPECT_FALSE(lib->isWritable());
        EXPECT_FALSE(lib->getAccess(oacWriteLibAccess));
        EXPECT_TRUE(lib->getAccess(oacReadLibAccess));
        EXPECT_THAT(namesIn(lib->getCells()), ElementsAre("cell"));
        lib->releaseAccess();
    }
    setMode("lib", 0777);
}

TEST_F(PermissionsTest, UnreadableDirectoryGivesNoAccess) {
    oaLib* lib = create("lib");
    setMode("lib", 0311);
    {
        const OrdinaryUser user;
        EXPECT_FALSE(lib->isReadable());
        EXPECT_FALSE(lib->getAccess(oacReadLibAccess));
    }
    setMode("lib", 0777);
}

TEST_F(PermissionsTest, DirectoryThatTakesNoLibraryIsNamed) {
    platform::createDirectory(path("closed"));
    setMode("closed", 0555);
    const OrdinaryUser user;
    for (const char* name : {"closed", "closed/lib"}) {
        const Thrown thrown = thrownBy([&] { create(name); });
        EXPECT_EQ(thrown.id, oacLibCouldNotCreate);
        EXPECT_EQ(thrown.text, std::string("Library '") + name + "' cannot be created in '" +
                                   path(name) + "': Permission denied.");
    }
    EXPECT_FALSE(platform::exists(path("closed/lib")));
}

TEST_F(PermissionsTest, UnreadableMarkerIsNamed) {
    create("lib")->close();
    setMode("lib/.oalib", 0);
    const OrdinaryUser user;
    const Thrown thrown = thrownBy([&] { open("lib", "lib"); });
    EXPECT_EQ(thrown.id, oacLibCouldNotOpen);
    EXPECT_THAT(thrown.text, HasSubstr("lib/.oalib): Permission denied"));
}

TEST_F(PermissionsTest, CellThatCannotBeMadeOrRemovedIsNamed) {
    oaLib* lib = createWritable("lib");
    oaCell* cell = make(lib, "cell", "layout", oacMaskLayout)->getCell();
    setMode("lib", 0555);
    setMode("lib/cell", 0555);
    {
        const OrdinaryUser user;
        const Thrown made = thrownBy([&] { oaCell::get(lib, scalarName("new")); });
        EXPECT_EQ(made.id, oacLibFileFailed);
        EXPECT_THAT(made.text, HasSubstr("lib/new): Permission denied"));
        EXPECT_EQ(thrownBy([&] { make(lib, "cell", "new", oacMaskLayout); }).id, oacLibFileFailed);
        EXPECT_EQ(thrownBy([&] { cell->destroy(); }).id, oacLibFileFailed);
    }
    EXPECT_TRUE(cell->isValid());
    setMode("lib", 0777);
    setMode("lib/cell", 0777);
}

TEST_F(PermissionsTest, LockThatCannotBeMadeIsRefused) {
    oaLib* lib = createWritable("lib");
    oaDMFile* file = make(lib, "cell", "layout", oacMaskLayout)->getPrimary();
    setMode("lib/cell/layout", 0555);
    {
        const OrdinaryUser user;
        EXPECT_FALSE(file->getLock());
    }
    EXPECT_TRUE(file->getLock());
    setMode("lib/cell/layout", 0777);
}

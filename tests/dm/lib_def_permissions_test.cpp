// What becomes of library definition files that this user may not read or write.

#include "lib_def_tests.h"
#include "platform/ordinary_user.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;

namespace {

class LibDefPermissionsTest : public LibDefTest {
protected:
    LibDefPermissionsTest() { setMode("", 0777); }

    void setMode(const std::string& name, unsigned mode) {
        std::filesystem::permissions(path(name), std::filesystem::perms(mode));
    }
};

} // namespace

TEST_F(LibDefPermissionsTest, ADefaultFileThatCannotBeReadIsAWarning) {
    const oaLibDefList* before = open("");
    platform::createDirectory(path("home"));
    put("home/lib.defs", "");
    setMode("home/lib.defs", 0000);
    const EnvironmentOverride home("HOME", path("home"));
    const auto directoryBefore = std::filesystem::current_path();
    std::filesystem::current_path(path("home"));
    {
        const OrdinaryUser user;
        oaLibDefList::openLibs();
    }
    std::filesystem::current_path(directoryBefore);
    EXPECT_THAT(
        warnings.texts,
        ElementsAre("1 Library definition file 'lib.defs' cannot be read: Permission denied."));
    EXPECT_THAT(warnings.lists, ElementsAre(nullptr));
    EXPECT_EQ(oaLibDefList::getTopList(), before);
}

TEST_F(LibDefPermissionsTest, AnIncludeThatCannotBeReadIsAWarning) {
    put("more.defs", "");
    setMode("more.defs", 0000);
    const OrdinaryUser user;
    open("INCLUDE more.defs\nSOFTINCLUDE more.defs\n");
    EXPECT_THAT(warnings.texts, ElementsAre("3 lib.defs:1: the included file 'more.defs' cannot be "
                                            "read: Permission denied."));
}

TEST_F(LibDefPermissionsTest, AListThatCannotBeWrittenIsReadAllTheSame) {
    put("lib.defs", "DEFINE a a\n");
    setMode("lib.defs", 0444);
    const OrdinaryUser user;
    const Thrown thrown = thrownBy([&] { oaLibDefList::get(path("lib.defs").c_str(), 'a'); });
    EXPECT_EQ(thrown.id, oacLibDefListFileNotWritable);
    EXPECT_EQ(thrown.text, "Library definition file '" + path("lib.defs") +
                               "' cannot be written: there is no permission to.");
    oaLibDefList* list = oaLibDefList::get(path("lib.defs").c_str(), 'r');
    EXPECT_EQ(thrownBy([&] { oaLibDefList::get(path("lib.defs").c_str(), 'a'); }).id,
              oacLibDefListFileNotWritable);
    EXPECT_EQ(list->getMode(), 'r');
}

#include <set>

#include <gtest/gtest.h>

#include "platform/ordinary_user.h"
#include "shell.h"

namespace cli::test {
namespace {

namespace fs = std::filesystem;

using ovalis::test::OrdinaryUser;

/// A workplace that anybody may look at, but only its owner may change.
class ForbiddenPlace {
public:
    ForbiddenPlace() {
        work.componentFile();
        fs::permissions(work.path(""), fs::perms(0555));
        for (const char* file : {"component.json", "layout.json"})
            fs::permissions(work.path(file), fs::perms(0444));
    }
    ~ForbiddenPlace() { fs::permissions(work.path(""), fs::perms(0755)); }

    /// Takes the right to change everything below the library.
    void forbidLibrary() const {
        for (const auto& entry : fs::recursive_directory_iterator(work.library()))
            fs::permissions(entry.path(), entry.is_directory() ? fs::perms(0555) : fs::perms(0444));
        fs::permissions(work.library(), fs::perms(0555));
    }

    Outcome exportHere(const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {"export", work.path("component.json"), "--lib",
                                              work.library()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ovalisHere(arguments);
    }

    Workplace work;
};

TEST(Permission, ALibraryCannotBeMadeWithoutIt) {
    const ForbiddenPlace place;
    const OrdinaryUser user;
    const Outcome exported = place.exportHere();
    EXPECT_EQ(exported.status, 2);
    EXPECT_NE(exported.talk.find(place.work.library()), std::string::npos) << exported.talk;
    EXPECT_NE(exported.talk.find("Permission denied"), std::string::npos) << exported.talk;
    EXPECT_EQ(std::count(exported.talk.begin(), exported.talk.end(), '\n'), 1);
    EXPECT_FALSE(fs::exists(place.work.library()));
}

TEST(Permission, ALibraryIsLeftAloneWithoutIt) {
    const ForbiddenPlace place;
    fs::permissions(place.work.path(""), fs::perms(0755));
    ASSERT_EQ(place.exportHere().status, 0);
    place.forbidLibrary();
    const Tree before = place.work.tree();
    {
        const OrdinaryUser user;
        EXPECT_EQ(place.exportHere({"--replace"}),
                  (Outcome{2, "",
                           "ovalis: Could not obtain access to library at " + place.work.library() +
                               "\n"}));
        EXPECT_EQ(ovalisHere({"check", place.work.library()}), (Outcome{0, "", ""}));
    }
    EXPECT_EQ(place.work.tree(), before);
}

TEST(Permission, ACopyThatFailsOnTheWayLeavesNothing) {
    const ForbiddenPlace place;
    const std::string top = place.work.path("");
    fs::permissions(top, fs::perms(0777));
    ASSERT_EQ(place.exportHere().status, 0);
    const std::string file = place.work.library() + "/coil/symbol/symbol.oa";
    fs::permissions(file, fs::perms(0));
    const OrdinaryUser user;
    const Outcome copied = ovalisHere({"copy", place.work.library(), place.work.path("copy")});
    EXPECT_EQ(copied.status, 2);
    EXPECT_NE(copied.talk.find("Permission denied"), std::string::npos) << copied.talk;
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(top))
        names.insert(entry.path().filename());
    EXPECT_EQ(names, (std::set<std::string>{"component.json", "layout.json", "lib"}));
}

TEST(Permission, AComponentThatMayNotBeReadIsNamed) {
    const ForbiddenPlace place;
    fs::permissions(place.work.path("component.json"), fs::perms(0200));
    const OrdinaryUser user;
    EXPECT_EQ(place.exportHere(), (Outcome{2, "",
                                           "ovalis: " + place.work.path("component.json") +
                                               ": cannot be read, Permission denied\n"}));
}

TEST(Permission, AListWhoseDirectoryMayNotBeEnteredIsNamed) {
    const Workplace work;
    const std::string directory = work.path("closed");
    fs::create_directory(directory);
    ovalis::test::writeText(directory + "/lib.defs", "");
    fs::permissions(directory, fs::perms(0));
    {
        const OrdinaryUser user;
        EXPECT_EQ(ovalisHere({"libs", directory + "/lib.defs"}),
                  (Outcome{2, "", "ovalis: " + directory + ": Permission denied\n"}));
    }
    fs::permissions(directory, fs::perms(0755));
}

TEST(Permission, AWorkingDirectoryThatIsGoneIsSaid) {
    const Workplace work;
    const std::string list = work.path("lib.defs");
    ovalis::test::writeText(list, "");
    fs::create_directory(work.path("gone"));
    EXPECT_EQ(ovalisInShell("cd \"$2\"/gone && rmdir ../gone && exec \"$0\" libs \"$1\"",
                            {list, work.path("")}),
              (Outcome{2, "", "ovalis: working directory: No such file or directory\n"}));
}

} // namespace
} // namespace cli::test

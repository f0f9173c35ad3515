#include <gtest/gtest.h>

#include "platform/pipe_file.h"
#include "workplace.h"

namespace cli::test {
namespace {

namespace fs = std::filesystem;

class CopyLinks : public testing::Test {
protected:
    CopyLinks() { work_.exportIt(); }

    /// Makes a link in the library.
    void link(const std::string& target, const std::string& name) const {
        fs::create_symlink(target, inLibrary(name));
    }
    std::string inLibrary(const std::string& name) const { return work_.library() + "/" + name; }
    std::string copy() const { return work_.path("copy"); }
    Outcome copyIt() const { return ovalisProgram({"copy", work_.library(), copy()}); }

    /// Nothing but the workplace's own files is there, and the copy was refused for that reason.
    void expectRefused(const std::string& name, const std::string& reason) const {
        EXPECT_EQ(copyIt(), (Outcome{2, "", "ovalis: " + inLibrary(name) + ": " + reason + "\n"}));
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(work_.path("")))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        EXPECT_EQ(names, (std::vector<std::string>{"component.json", "layout.json", "lib"}));
    }

    Workplace work_;
};

TEST_F(CopyLinks, ThatStayInTheLibraryAreCopiedAsLinks) {
    const std::map<std::string, std::string> links = {{"self", "."},
                                                      {"alias", "coil"},
                                                      {"coil/up", ".."},
                                                      {"loop", "loop"},
                                                      {"coil/file", "layout/layout.oa"},
                                                      {"gone", "no/one"},
                                                      {"coil/layout/round", "../../coil/../alias"}};
    for (const auto& [name, target] : links)
        link(target, name);
    EXPECT_EQ(copyIt(), (Outcome{0, "", "copied " + work_.library() + " to " + copy() + "\n"}));
    std::map<std::string, std::string> copied;
    for (const auto& entry : fs::recursive_directory_iterator(copy()))
        if (entry.is_symlink())
            copied[fs::relative(entry.path().parent_path(), copy()) / entry.path().filename()] =
                fs::read_symlink(entry.path());
    std::map<std::string, std::string> expected;
    for (const auto& [name, target] : links)
        expected[fs::path(name).has_parent_path() ? name : "./" + name] = target;
    EXPECT_EQ(copied, expected);
    EXPECT_EQ(ovalis::test::readText(copy() + "/coil/file"),
              ovalis::test::readText(inLibrary("coil/layout/layout.oa")));
}

TEST_F(CopyLinks, ThatWouldLeadOutOfTheCopyAreNamed) {
    fs::create_directory(inLibrary("a"));
    link("..", "a/up");
    for (const std::string& target :
         {std::string("../lib"), std::string("/tmp"), std::string(".."), inLibrary("coil"),
          std::string("coil/../../other"), std::string("a/up/../component.json")}) {
        link(target, "out");
        expectRefused("out", "the symbolic link to " + target + " would lead out of the copy");
        fs::remove(inLibrary("out"));
    }
}

TEST_F(CopyLinks, DoNotHideThatTheCopyWouldLieInTheLibrary) {
    fs::create_symlink("lib", work_.path("other"));
    const std::string inside = work_.path("other/copy");
    EXPECT_EQ(
        ovalisHere({"copy", work_.library(), inside}),
        (Outcome{2, "",
                 "ovalis: " + inside + ": lies inside of the library " + work_.library() + "\n"}));
}

TEST_F(CopyLinks, AndAPipeIsNamedInPlaceOfBeingLeftOut) {
    ASSERT_TRUE(ovalis::test::makePipeFile(inLibrary("coil/pipe")));
    expectRefused("coil/pipe", "is neither a file nor a directory and cannot be copied");
}

} // namespace
} // namespace cli::test

#include <gtest/gtest.h>

#include "platform/path.h"
#include "workplace.h"

namespace cli::test {
namespace {

using ovalis::test::readText;
using ovalis::test::writeText;

/// A library with a cell "coil", and files to put into it.
class Files : public testing::Test {
protected:
    Files() {
        EXPECT_EQ(work.exportIt().status, 0);
        writeText(work.path("coil.s2p"), "! data\n");
    }

    std::string inLibrary(const std::string& name) const {
        return platform::absolutePath(work.library() + "/" + name);
    }

    Outcome files(const std::vector<std::string>& more) const {
        std::vector<std::string> arguments = {"files", work.library()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ovalisHere(arguments);
    }

    Outcome failed(const std::string& text) const {
        return {2, "", "ovalis: " + work.library() + ": " + text + "\n"};
    }

    const Workplace work;
};

TEST_F(Files, OfALibraryAreListedWithTheirSizes) {
    const auto sizeOf = [&](const char* name) {
        return std::to_string(std::filesystem::file_size(work.library() + "/" + name));
    };
    const std::string defs = sizeOf("lib.defs");
    const std::string tech = sizeOf("tech.db");
    const std::size_t width = std::max(defs.size(), tech.size());
    const auto row = [&](const std::string& name, std::string size) {
        size.resize(width, ' ');
        return name + "  " + size + "  ";
    };
    EXPECT_EQ(ovalisProgram({"files", work.library()}),
              (Outcome{0,
                       row("lib.defs", defs) + inLibrary("lib.defs") + "\n" +
                           row("tech.db ", tech) + inLibrary("tech.db") + "\n",
                       ""}));
}

TEST_F(Files, WithoutAFileOnTheDiskAreShown) {
    std::filesystem::remove(work.library() + "/coil/layout/layout.oa");
    EXPECT_EQ(
        files({"coil", "layout"}),
        (Outcome{0, "layout.oa  not on disk  " + inLibrary("coil/layout/layout.oa") + "\n", ""}));
    EXPECT_EQ(nlohmann::json::parse(files({"coil", "layout", "--json"}).out),
              (nlohmann::json{{"library", "lib"},
                              {"cell", "coil"},
                              {"view", "layout"},
                              {"files",
                               {{{"name", "layout.oa"},
                                 {"path", inLibrary("coil/layout/layout.oa")},
                                 {"onDisk", false},
                                 {"size", nullptr}}}}}));
}

TEST_F(Files, AreCopiedIn) {
    const std::string source = work.path("coil.s2p");
    EXPECT_EQ(files({"--add", source}), (Outcome{0, inLibrary("coil.s2p") + "\n", ""}));
    EXPECT_EQ(files({"coil", "--add", source}),
              (Outcome{0, inLibrary("coil/coil.s2p") + "\n", ""}));
    EXPECT_EQ(files({"coil", "layout", "--add", source}),
              (Outcome{0, inLibrary("coil/layout/coil.s2p") + "\n", ""}));
    for (const char* copy : {"/coil.s2p", "/coil/coil.s2p", "/coil/layout/coil.s2p"})
        EXPECT_EQ(readText(work.library() + copy), "! data\n");
    const nlohmann::json listed = nlohmann::json::parse(files({"coil", "--json"}).out);
    EXPECT_EQ(listed["cell"], "coil");
    EXPECT_EQ(listed["view"], nullptr);
    EXPECT_EQ(listed["files"][0], (nlohmann::json{{"name", "coil.s2p"},
                                                  {"path", inLibrary("coil/coil.s2p")},
                                                  {"onDisk", true},
                                                  {"size", 7}}));
}

TEST_F(Files, AreNotOverwritten) {
    EXPECT_EQ(files({"--add", work.path("coil.s2p")}).status, 0);
    writeText(work.path("coil.s2p"), "! other\n");
    EXPECT_EQ(files({"--add", work.path("coil.s2p")}),
              failed("'" + inLibrary("") + "' already has a file named 'coil.s2p'."));
    EXPECT_EQ(readText(work.library() + "/coil.s2p"), "! data\n");
    EXPECT_EQ(files({"--remove", "coil.s2p", "--add", work.path("coil.s2p")}).status, 0);
    EXPECT_EQ(readText(work.library() + "/coil.s2p"), "! other\n");
}

TEST_F(Files, AreRemoved) {
    EXPECT_EQ(files({"--add", work.path("coil.s2p")}).status, 0);
    EXPECT_EQ(files({"--remove", "coil.s2p"}), (Outcome{0, "", ""}));
    EXPECT_FALSE(std::filesystem::exists(work.library() + "/coil.s2p"));
    EXPECT_EQ(files({"coil", "--remove", "itemdef.skr", "--json"}).out,
              "{\n  \"library\": \"lib\",\n  \"cell\": \"coil\",\n  \"view\": null,\n"
              "  \"files\": []\n}\n");
}

TEST_F(Files, ThatAreMissingAreAFailure) {
    EXPECT_EQ(files({"--remove", "none"}), failed("no file \"none\""));
    std::filesystem::remove(work.library() + "/coil/layout/layout.oa");
    EXPECT_EQ(files({"coil", "layout", "--remove", "layout.oa"}),
              failed("the file \"layout.oa\" is not on the disk"));
    EXPECT_EQ(files({"--add", work.path("none")}), failed(work.path("none") + ": no such file"));
    EXPECT_EQ(files({"none"}), failed("no cell \"none\""));
    EXPECT_EQ(files({"coil", "none"}), failed("no cell view \"coil/none\""));
    EXPECT_EQ(files({"none", "layout"}), failed("no cell view \"none/layout\""));
}

TEST_F(Files, ThatSomebodyEditsAreNotRemoved) {
    writeText(work.library() + "/tech.db.cdslck", "somebody\n");
    EXPECT_EQ(files({"--remove", "tech.db"}),
              failed("somebody edits the file \"tech.db\" (see ovalis locks)"));
    EXPECT_TRUE(std::filesystem::exists(work.library() + "/tech.db"));
}

TEST_F(Files, WithNamesThatAreTheLibrarysOwnAreRefused) {
    writeText(work.path(".oalib"), "");
    EXPECT_EQ(files({"--add", work.path(".oalib")}),
              failed("'.oalib' is not a legal name of a file."));
}

} // namespace
} // namespace cli::test

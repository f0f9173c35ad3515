// Files of a library that are there and cannot be read.

#include <ovalis/library.h>

#include "platform/ordinary_user.h"
#include "support/library_fixture.h"

using namespace ovalis;

namespace fs = std::filesystem;

namespace {

class UnreadableFiles : public ovalis::test::FolderTest {
protected:
    UnreadableFiles() { createVEXCompatibleLib(pathOf("lib"), "lib").reset(); }

    fs::path file(const char* name) const { return filePath("lib") / name; }

    /// Makes a file lead to itself, so that the system cannot even say what it is.
    void leadAstray(const char* name) const {
        fs::remove(file(name));
        fs::create_symlink(name, file(name));
    }

    std::string report() const {
        std::string diagnostics;
        EXPECT_TRUE(existsVEXCompatibleLib(pathOf("lib"), "lib", &diagnostics));
        return diagnostics;
    }

    const std::string lacksTech = "TechDB units per user-unit not set\n"
                                  "TechDB user-units not set\n"
                                  "TechDB layers for tessa not found\n";
};

} // namespace

TEST_F(UnreadableFiles, CountAsMissingWhenTheyLeadNowhere) {
    leadAstray("lib.defs");
    EXPECT_EQ(report(), lacksTech + "lib.defs not found\n");
    EXPECT_TRUE(existsLibWithOaLib(pathOf("lib")));
    leadAstray(".oalib");
    EXPECT_FALSE(existsLibWithOaLib(pathOf("lib")));
}

TEST_F(UnreadableFiles, CountAsMissingWithoutTheRightToReadThem) {
    fs::permissions(file(".oalib"), fs::perms::none);
    const ovalis::test::OrdinaryUser user;
    EXPECT_TRUE(existsLib(pathOf("lib")));
    EXPECT_FALSE(existsLibWithOaLib(pathOf("lib")));
}

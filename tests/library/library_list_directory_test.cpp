// Working directories that cannot be left or entered.

#include "library_lists.h"

#include "platform/ordinary_user.h"

#include <gmock/gmock.h>

using namespace ovalis;

namespace {

class LibraryListDirectory : public ovalis::test::LibraryListTest {
protected:
    /// What loading "lists/lib.defs" throws.
    std::string failure() {
        try {
            static_cast<void>(openLibraryList(path("lists/lib.defs"), &messages));
        } catch (const std::filesystem::filesystem_error& error) {
            return error.what();
        }
        return "nothing thrown";
    }
};

} // namespace

TEST_F(LibraryListDirectory, ThatIsGoneIsAFailure) {
    put("lists/lib.defs", "");
    std::filesystem::create_directory(file("gone"));
    std::filesystem::current_path(file("gone"));
    std::filesystem::remove(file("gone"));
    EXPECT_THAT(failure(), testing::HasSubstr("current_path(): can't get current working "
                                              "directory"));
}

TEST_F(LibraryListDirectory, ThatMayNotBeEnteredIsAFailure) {
    put("lists/lib.defs", "");
    std::filesystem::permissions(file("lists"), std::filesystem::perms(0444));
    const std::filesystem::path before = std::filesystem::current_path();
    std::string text;
    {
        const ovalis::test::OrdinaryUser user;
        text = failure();
    }
    std::filesystem::permissions(file("lists"), std::filesystem::perms(0755));
    EXPECT_THAT(text, testing::HasSubstr("current_path(p): invalid argument"));
    EXPECT_EQ(std::filesystem::current_path(), before);
}

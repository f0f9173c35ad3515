#include "evaluation/open_libraries.h"

#include <gtest/gtest.h>

#include "failure_of.h"
#include "support/files.h"
#include "support/library_fixture.h"

namespace evaluation {
namespace {

class OpenLibrariesTest : public ovalis::test::LibraryTest {};

TEST_F(OpenLibrariesTest, WithoutADirectoryThereIsNoLibrary) {
    const std::string list = pathOf("all.defs");
    ovalis::test::writeText(filePath("all.defs"), "");
    OpenLibraries libraries("", "", list);
    const std::string text = "the name of a library's directory is empty";
    EXPECT_EQ(failureOf([&] { libraries.library(); }), text);
    EXPECT_EQ(failureOf([&] { libraries.open("", "lib"); }), text);
}

} // namespace
} // namespace evaluation

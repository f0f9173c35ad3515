#include "evaluation/open_libraries.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/library_fixture.h"

namespace evaluation {
namespace {

class OpenLibrariesTest : public ovalis::test::LibraryTest {};

template <class Body>
std::string failureOf(Body body) {
    try {
        body();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing";
}

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

#include <ovalis/core.h>

#include <filesystem>

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::readText;
using ovalis::test::writeText;

namespace {

class WholeFile : public ovalis::test::FolderTest {
protected:
    std::string fileWith(const std::string& content) {
        writeText(filePath("file"), content);
        return pathOf("file");
    }

    std::string onDisk() const { return readText(filePath("file")); }
};

} // namespace

TEST_F(WholeFile, ReadsEveryByte) {
    const std::string content("a\r\nb\n\0\xFF\x1A end", 12);
    EXPECT_EQ(readoaFile(fileWith(content)), content);
}

TEST_F(WholeFile, ReadsAnEmptyFile) {
    EXPECT_EQ(readoaFile(fileWith("")), "");
}

TEST_F(WholeFile, ReadsALargeFile) {
    std::string content;
    for (int i = 0; i < 500000; ++i) {
        content += std::to_string(i);
    }
    EXPECT_EQ(readoaFile(fileWith(content)), content);
}

TEST_F(WholeFile, RefusesToReadAMissingFile) {
    EXPECT_EQ(failureOf([&] { readoaFile(pathOf("none")); }),
              "File " + pathOf("none") + " not found");
}

TEST_F(WholeFile, RefusesToWriteAMissingFileAndMakesNone) {
    for (const bool append : {false, true}) {
        EXPECT_EQ(failureOf([&] { writeoaFile(pathOf("none"), "x", append); }),
                  "File " + pathOf("none") + " not found");
    }
    EXPECT_FALSE(std::filesystem::exists(filePath("none")));
}

TEST_F(WholeFile, ReplacesWhatTheFileHeld) {
    const std::string path = fileWith("something longer");
    const std::string content("x\ny\r\n\0z", 7);
    EXPECT_EQ(writeoaFile(path, content, false), 7);
    EXPECT_EQ(onDisk(), content);
}

TEST_F(WholeFile, EmptiesTheFile) {
    const std::string path = fileWith("abc");
    EXPECT_EQ(writeoaFile(path, "", false), 0);
    EXPECT_EQ(onDisk(), "");
}

TEST_F(WholeFile, AppendsAtTheEnd) {
    const std::string path = fileWith("");
    EXPECT_EQ(writeoaFile(path, "abc", true), 3);
    EXPECT_EQ(writeoaFile(path, "abc", true), 3);
    EXPECT_EQ(onDisk(), "abcabc");
}

TEST_F(WholeFile, AppendsNothing) {
    const std::string path = fileWith("abc");
    EXPECT_EQ(writeoaFile(path, "", true), 0);
    EXPECT_EQ(onDisk(), "abc");
}

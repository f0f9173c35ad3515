#include "platform/file.h"

#include "platform/memory.h"
#include "sparse_file.h"
#include "support/files.h"
#include "support/temporary_directory.h"

#include <cstring>
#include <gmock/gmock.h>

using namespace platform;
using ovalis::test::readText;
using ovalis::test::TemporaryDirectory;
using ovalis::test::writeText;

namespace {

class FileTest : public testing::Test {
protected:
    std::string path(const std::string& name = "file") { return directory.str() + "/" + name; }
    void put(const std::string& text) { writeText(path(), text); }
    std::string get() { return readText(path()); }

    const TemporaryDirectory directory;
};

} // namespace

TEST_F(FileTest, WritesAndReadsBytesUnchanged) {
    const std::string bytes("a\r\n\0b\x1a\n", 7);
    File out(path(), OpenMode::write);
    out.write(bytes.data(), bytes.size());
    out.close();
    EXPECT_FALSE(out.isOpen());
    EXPECT_EQ(get(), bytes);
    EXPECT_EQ(readFile(path()), bytes);
}

TEST_F(FileTest, WriteModeEmptiesAndAppendModeKeeps) {
    put("old");
    File(path(), OpenMode::append).write("new", 3);
    EXPECT_EQ(get(), "oldnew");
    File(path(), OpenMode::write).write("x", 1);
    EXPECT_EQ(get(), "x");
}

TEST_F(FileTest, ReadsLessOnlyAtTheEnd) {
    put("hello");
    File in(path(), OpenMode::read);
    char buffer[8] = {};
    EXPECT_EQ(in.size(), 5U);
    EXPECT_EQ(in.read(buffer, 3), 3U);
    EXPECT_EQ(in.position(), 3U);
    EXPECT_EQ(in.read(buffer, 8), 2U);
    EXPECT_EQ(in.read(buffer, 8), 0U);
    in.seek(1);
    EXPECT_EQ(in.read(buffer, 8), 4U);
    EXPECT_STREQ(buffer, "ello");
}

TEST_F(FileTest, NamesTheFileThatCannotBeOpened) {
    try {
        File in(path("missing"), OpenMode::read);
        FAIL() << "opened";
    } catch (const SystemFailure& failure) {
        EXPECT_EQ(failure.path(), nativePath(path("missing")));
        EXPECT_EQ(failure.what(), "cannot open file (" + nativePath(path("missing")) +
                                      "): " + failure.error().text());
        EXPECT_FALSE(failure.error().text().empty());
    }
}

TEST_F(FileTest, DoesNotOpenADirectoryAsAFile) {
    EXPECT_THROW(File(directory.str(), OpenMode::read), SystemFailure);
    EXPECT_THROW(File(directory.str(), OpenMode::write), SystemFailure);
}

TEST_F(FileTest, KeepsBothFilesApartWhenMoved) {
    put("one");
    writeText(directory.path() / "other", "two");
    File first(path(), OpenMode::read);
    File second(path("other"), OpenMode::read);
    second = std::move(first);
    EXPECT_FALSE(first.isOpen());
    char buffer[3];
    EXPECT_EQ(second.read(buffer, 3), 3U);
    EXPECT_EQ(std::string(buffer, 3), "one");
}

TEST_F(FileTest, TellsFilesDirectoriesAndNothingApart) {
    put("12345");
    EXPECT_TRUE(exists(path()) && isFile(path()) && !isDirectory(path()));
    EXPECT_TRUE(exists(directory.str()) && isDirectory(directory.str()));
    EXPECT_FALSE(isFile(directory.str()));
    EXPECT_FALSE(exists(path("missing")) || isFile("") || isDirectory("") || exists(""));
    EXPECT_EQ(fileSize(path()), 5U);
    EXPECT_THROW(fileSize(path("missing")), SystemFailure);
    ovalis::test::makeSparseFile(path("large"), 5ull << 30);
    EXPECT_EQ(fileSize(path("large")), 5ull << 30);
}

TEST_F(FileTest, KnowsWhatMayBeReadAndWritten) {
    put("x");
    EXPECT_TRUE(isReadable(path()) && isWritable(path()));
    EXPECT_TRUE(isReadable(directory.str()) && isWritable(directory.str()));
    EXPECT_FALSE(isReadable(path("missing")) || isWritable(path("missing")));
}

TEST_F(FileTest, KnowsOneFileUnderTwoSpellings) {
    put("x");
    writeText(directory.path() / "other", "x");
    EXPECT_TRUE(sameFile(path(), directory.str() + "/./file"));
    EXPECT_FALSE(sameFile(path(), path("other")));
    EXPECT_FALSE(sameFile(path("missing"), path("missing")));
}

TEST_F(FileTest, KnowsHowANameIsSpelled) {
    put("x");
    EXPECT_TRUE(existsAsSpelled(path()));
    EXPECT_FALSE(existsAsSpelled(path("FILE")));
    EXPECT_FALSE(existsAsSpelled(path("missing")));
}

TEST_F(FileTest, HasAPlaceForFilesOfTheMoment) {
    EXPECT_TRUE(isDirectory(temporaryDirectory()));
}

TEST_F(FileTest, TellsWhenAFileWasWritten) {
    put("x");
    const auto now = std::chrono::system_clock::now();
    EXPECT_LT(std::chrono::abs(now - lastWriteTime(path())), std::chrono::minutes(5));
    EXPECT_LT(std::chrono::abs(now - createTime(path())), std::chrono::minutes(5));
}

TEST_F(FileTest, OpensNamesOutsideOfAscii) {
    const std::string name = path("gr\xc3\xb6\xc3\x9f"
                                  "e \xe2\x82\xac \xf0\x9f\x93\x90.txt");
    File(name, OpenMode::write).write("x", 1);
    EXPECT_EQ(readFile(name), "x");
    EXPECT_THAT(listDirectory(directory.str()),
                testing::ElementsAre(DirectoryEntry{fileName(name), EntryKind::file}));
}

TEST_F(FileTest, OpensPathsLongerThanTheOldLimit) {
    std::string deep = directory.str();
    for (int level = 0; level < 6; ++level) {
        deep += "/" + std::string(60, static_cast<char>('a' + level));
        createDirectory(deep);
    }
    File(deep + "/file", OpenMode::write).write("x", 1);
    EXPECT_EQ(readFile(deep + "/file"), "x");
    EXPECT_EQ(listDirectory(deep).size(), 1U);
    removeTree(path(std::string(60, 'a')));
    EXPECT_TRUE(listDirectory(directory.str()).empty());
}

TEST(Memory, IsZeroedAndCanBeWrittenToItsLastByte) {
    for (const std::size_t size : {std::size_t{1}, std::size_t{5000}, 3 * largePageSize + 17}) {
        auto* const bytes = static_cast<unsigned char*>(allocatePages(size));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(bytes) % 65536, 0U);
        EXPECT_EQ(bytes[0] + bytes[size - 1], 0);
        std::memset(bytes, 0xa5, size);
        EXPECT_EQ(bytes[size - 1], 0xa5);
        freePages(bytes, size);
    }
    freePages(nullptr, 0);
}

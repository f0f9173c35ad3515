#include <oa/oaBase.h>

#include "platform/sparse_file.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace oa;
using ovalis::test::TemporaryDirectory;

namespace {

class File : public testing::Test {
protected:
    oaString path(const char* name) const { return (directory.str() + "/" + name).c_str(); }

    oaString makeFile(const char* name, const std::string& content) const {
        std::ofstream(directory.path() / std::filesystem::path(name), std::ios::binary) << content;
        return path(name);
    }

    static std::string contentOf(const oaString& path) {
        oaFile file(path);
        file.open('r');
        std::string content(file.getSize() + 10, '\0');
        content.resize(file.read(bytes(content), static_cast<oaUInt4>(content.size())));
        return content;
    }

    static oaByte* bytes(std::string& text) { return reinterpret_cast<oaByte*>(text.data()); }
    static const oaByte* bytes(const char* text) { return reinterpret_cast<const oaByte*>(text); }

    template <class Body>
    static oaUInt4 refusal(Body body) {
        try {
            body();
        } catch (const oaError& error) {
            return error.getMsgId();
        }
        return 0;
    }

    TemporaryDirectory directory;
};

} // namespace

TEST_F(File, IsWrittenAndReadByteForByte) {
    const std::string content("one\r\ntwo\n\0\x1a\xff", 12);
    oaFile file(path("a.bin"));
    file.open('w');
    EXPECT_EQ(file.write(bytes(content.c_str()), 12), 12u);
    file.flush();
    file.close();
    EXPECT_EQ(contentOf(path("a.bin")), content);
    EXPECT_EQ(file.getSize(), 12u);
}

TEST_F(File, TellsHowMuchWasRead) {
    oaFile file(makeFile("a", "abc"));
    std::string buffer(8, '.');
    file.open('r');
    EXPECT_EQ(file.read(bytes(buffer), 2), 2u);
    EXPECT_EQ(file.read(bytes(buffer) + 2, 6), 1u);
    EXPECT_EQ(file.read(bytes(buffer), 8), 0u);
    EXPECT_EQ(buffer, "abc.....");
}

TEST_F(File, IsEmptiedOrAppendedTo) {
    const oaString name = makeFile("a", "before");
    oaFile file(name);
    file.open('a');
    file.write(bytes("+after"), 6);
    file.close();
    EXPECT_EQ(contentOf(name), "before+after");
    file.open('w');
    file.close();
    EXPECT_EQ(contentOf(name), "");
    oaFile fresh(path("b"));
    fresh.open('a');
    fresh.write(bytes("new"), 3);
    fresh.close();
    EXPECT_EQ(contentOf(path("b")), "new");
}

TEST_F(File, KnowsItsState) {
    oaFile file(path("a"));
    EXPECT_FALSE(file.exists() || file.isOpen() || file.isNonEmpty());
    EXPECT_EQ(file.getMode(), '\0');
    file.open('w');
    EXPECT_TRUE(file.exists() && file.isOpen());
    EXPECT_FALSE(file.isNonEmpty());
    EXPECT_EQ(file.getMode(), 'w');
    file.write(bytes("x"), 1);
    EXPECT_TRUE(file.isNonEmpty());
    file.open('r');
    EXPECT_EQ(file.getMode(), 'r');
    file.close();
    file.close();
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(file.getName(), path("a"));
}

TEST_F(File, RefusesAnUnknownModeAndStaysAsItIs) {
    oaFile file(makeFile("a", "abc"));
    file.open('r');
    EXPECT_EQ(refusal([&] { file.open('x'); }), oaUInt4(oacInvalidFileAccessMode));
    EXPECT_EQ(file.getMode(), 'r');
}

TEST_F(File, NamesThePathThatCannotBeOpened) {
    oaFile file(path("missing"));
    try {
        file.open('r');
        FAIL();
    } catch (const oaError& error) {
        const std::string text(error.getMsg());
        EXPECT_EQ(error.getMsgId(), oaUInt4(oacFileOpenFailed));
        EXPECT_EQ(
            text.find("File '" + directory.str() + "/missing' cannot be opened in mode 'r': "), 0u)
            << text;
        EXPECT_EQ(text.find(".."), std::string::npos) << text;
    }
    EXPECT_FALSE(file.isOpen());
}

TEST_F(File, DoesNotOpenADirectory) {
    oaFile file(directory.str().c_str());
    EXPECT_EQ(refusal([&] { file.open('r'); }), oaUInt4(oacFileOpenFailed));
    EXPECT_FALSE(file.exists());
}

TEST_F(File, RefusesWhatNeedsAnOpenFile) {
    oaFile file(makeFile("a", "abc"));
    oaByte byte = 0;
    EXPECT_EQ(refusal([&] { file.read(&byte, 1); }), oaUInt4(oacFileNotOpen));
    EXPECT_EQ(refusal([&] { file.write(&byte, 1); }), oaUInt4(oacFileNotOpen));
    EXPECT_EQ(refusal([&] { file.flush(); }), oaUInt4(oacFileNotOpen));
    file.open('r');
    EXPECT_EQ(refusal([&] { file.write(&byte, 1); }), oaUInt4(oacFileWriteFailed));
    file.open('w');
    EXPECT_EQ(refusal([&] { file.read(&byte, 1); }), oaUInt4(oacFileReadFailed));
}

TEST_F(File, RefusesToDescribeAMissingFile) {
    const oaFile file(path("missing"));
    EXPECT_EQ(refusal([&] { file.getSize(); }), oaUInt4(oacFileGetInfoFailed));
    EXPECT_EQ(refusal([&] { file.getLastWriteTime(); }), oaUInt4(oacFileGetInfoFailed));
    EXPECT_EQ(refusal([&] { file.getCreateTime(); }), oaUInt4(oacFileGetInfoFailed));
}

TEST_F(File, MayBeLargerThanFourGigabytes) {
    ovalis::test::makeSparseFile(directory.path() / "large", 5ull << 30);
    EXPECT_EQ(oaFile(path("large")).getSize(), 5ull << 30);
}

TEST_F(File, KnowsItsTimes) {
    const oaFile file(makeFile("a", "abc"));
    const oaTime year2020 = 1577836800;
    EXPECT_GT(file.getLastWriteTime(), year2020);
    EXPECT_GT(file.getCreateTime(), year2020);
    EXPECT_LE(file.getCreateTime(), file.getLastWriteTime() + 2);
}

TEST_F(File, IsCopiedOverAnother) {
    const oaString source = makeFile("a", "content");
    const oaString target = makeFile("b", "something longer than that");
    oaFile::copyFile(source, target);
    EXPECT_EQ(contentOf(target), "content");
    EXPECT_EQ(contentOf(source), "content");
    EXPECT_EQ(refusal([&] { oaFile::copyFile(path("missing"), target); }),
              oaUInt4(oacFileCopyFailed));
    EXPECT_EQ(contentOf(target), "content");
}

TEST_F(File, IsDestroyedAndRenamed) {
    oaFile file(makeFile("a", "abc"));
    file.rename(path("b"));
    EXPECT_EQ(file.getName(), path("b"));
    EXPECT_FALSE(oaFile(path("a")).exists());
    EXPECT_EQ(contentOf(path("b")), "abc");
    file.destroy();
    EXPECT_FALSE(file.exists());
    EXPECT_EQ(refusal([&] { file.destroy(); }), oaUInt4(oacUnableToRemove));
    EXPECT_EQ(refusal([&] { file.rename(path("c")); }), oaUInt4(oacFileRenameFailed));
    EXPECT_EQ(file.getName(), path("b"));
}

TEST_F(File, TakesBothSlashesAndNamesBeyondAscii) {
    const std::string name = directory.str() + "\\gr\xC3\xB6\xC3\x9F"
                                               "e.txt";
    oaFile file(name.c_str());
    file.open('w');
    file.write(bytes("abc"), 3);
    file.close();
    EXPECT_TRUE(file.exists());
    EXPECT_EQ(contentOf(path("gr\xC3\xB6\xC3\x9F"
                             "e.txt")),
              "abc");
    EXPECT_EQ(file.getName(), name.c_str());
}

TEST_F(File, IsComparedByWhatLiesThere) {
    const oaFile file(makeFile("a", "abc"));
    const oaFile sameFile((directory.str() + "/./a").c_str());
    EXPECT_TRUE(file.isSameDiskFile(sameFile));
    EXPECT_FALSE(file.isSameDiskFile(oaFile(makeFile("b", "abc"))));
    EXPECT_FALSE(oaFile(path("c")).isSameDiskFile(oaFile(path("c"))));
}

TEST_F(File, TellsWhatLiesAtAPath) {
    const oaFSComponent file(makeFile("a", "abc"));
    const oaFSComponent dir(directory.str().c_str());
    const oaFSComponent nothing(path("missing"));
    EXPECT_TRUE(file.exists() && file.isFile() && file.isReadable() && file.isWritable());
    EXPECT_FALSE(file.isDir() || file.isSymbolicLink() || file.isInCWD());
    EXPECT_TRUE(dir.exists() && dir.isDir() && dir.isReadable() && dir.isWritable());
    EXPECT_FALSE(dir.isFile());
    EXPECT_FALSE(nothing.exists() || nothing.isFile() || nothing.isDir() || nothing.isReadable());
}

TEST_F(File, KnowsItsFullName) {
    const oaFSComponent relative("no-such-file-here");
    oaString full;
    relative.getFullName(full);
    EXPECT_TRUE(relative.isInCWD());
    EXPECT_GT(full.getLength(), relative.getName().getLength());
    EXPECT_TRUE(oaFSComponent(full).isInCWD());
    oaString again;
    oaFSComponent(full).getFullName(again);
    EXPECT_EQ(again, full);
}

#include "evaluation/cache.h"

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/library_fixture.h"

namespace evaluation {
namespace {

using ovalis::test::readText;
using ovalis::test::writeText;

const std::string hash(64, 'a');

class CacheTest : public ovalis::test::LibraryTest {
protected:
    oa::oaDesign& content(int size) {
        oa::oaDesign& made = design("content" + std::to_string(size), "layout", 'w');
        oa::oaBlock* block = oa::oaBlock::create(&made);
        oa::oaRect::create(block, 3, oa::oavPurposeNumberDrawing, oa::oaBox(0, 0, size, size));
        return made;
    }

    const Cache cache{pathOf("lib") + "/lib.defs"};
};

TEST_F(CacheTest, LiesBesideTheList) {
    EXPECT_EQ(Cache("/a/b/lib.defs").directory(), "/a/b/.vexPcells");
    EXPECT_EQ(Cache("C:\\a\\lib.defs").directory(), "C:\\a\\.vexPcells");
    EXPECT_EQ(Cache("lib.defs").directory(), ".vexPcells");
}

TEST_F(CacheTest, IsEmptyWithoutADirectory) {
    EXPECT_TRUE(cache.entries().empty());
    EXPECT_FALSE(cache.has(hash));
}

TEST_F(CacheTest, KeepsTheContentOfADesign) {
    cache.put(hash, content(10));
    EXPECT_TRUE(cache.has(hash));
    const std::vector<Cache::Entry> entries = cache.entries();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].name, hash);
    EXPECT_EQ(entries[0].size, readText(filePath("lib/.vexPcells/" + hash)).size());
    EXPECT_FALSE(entries[0].isForeign);
    EXPECT_EQ(EntryReader().damageOf(cache.pathOf(hash)), "");
}

TEST_F(CacheTest, ReplacesAnEntryAndLeavesNothingElse) {
    cache.put(hash, content(10));
    const std::string before = readText(filePath("lib/.vexPcells/" + hash));
    cache.put(hash, content(20));
    EXPECT_NE(readText(filePath("lib/.vexPcells/" + hash)), before);
    EXPECT_EQ(cache.entries().size(), 1u);
}

TEST_F(CacheTest, TellsForeignEntriesApart) {
    cache.put(hash, content(10));
    const std::string letters(64, 'B');
    const std::string noDigit = std::string(63, 'b') + "g";
    const std::string directory(64, 'c');
    for (const std::string& name : {letters, noDigit, std::string("README")})
        writeText(filePath("lib/.vexPcells/" + name), "x");
    std::filesystem::create_directory(filePath("lib/.vexPcells/" + directory));
    std::vector<std::string> foreign;
    for (const Cache::Entry& entry : cache.entries())
        if (entry.isForeign)
            foreign.push_back(entry.name);
    EXPECT_EQ(foreign, (std::vector<std::string>{letters, "README", noDigit, directory}));
}

TEST_F(CacheTest, AReaderNamesEveryDamage) {
    cache.put(hash, content(10));
    const std::filesystem::path file = filePath("lib/.vexPcells/" + hash);
    const std::string whole = readText(file);
    EntryReader reader;
    EXPECT_EQ(reader.damageOf(cache.pathOf(hash)), "");
    for (const std::string& bytes :
         {std::string(), std::string("text"), whole.substr(0, whole.size() / 2)}) {
        writeText(file, bytes);
        EXPECT_NE(reader.damageOf(cache.pathOf(hash)).find(hash), std::string::npos);
    }
    std::string changed = whole;
    changed[whole.size() / 2] = static_cast<char>(changed[whole.size() / 2] ^ 1);
    writeText(file, changed);
    EXPECT_NE(reader.damageOf(cache.pathOf(hash)), "");
    writeText(file, whole);
    EXPECT_EQ(reader.damageOf(cache.pathOf(hash)), "");
}

TEST_F(CacheTest, AReaderReadsEverySubmasterOfAnEntry) {
    cache.put(hash, content(10));
    const std::string path = cache.pathOf(hash);
    const std::filesystem::path file = filePath("lib/.vexPcells/" + hash);
    const std::size_t first = readText(file).size();
    std::size_t second = 0;
    {
        oa::PcellFile more(ovalis::toOa(path));
        more.open("a");
        second = more.append(&content(20));
        more.append(&content(30));
        more.close();
    }
    const std::string whole = readText(file);
    EntryReader reader;
    EXPECT_EQ(reader.damageOf(path), "");
    for (const std::size_t place : {first - 1, second + first - 1, whole.size() - 1}) {
        std::string changed = whole;
        changed[place] = static_cast<char>(changed[place] ^ 1);
        writeText(file, changed);
        EXPECT_EQ(reader.damageOf(path),
                  "File '" + path + "' is not a sound database: it has a damaged section.")
            << place;
    }
}

} // namespace
} // namespace evaluation

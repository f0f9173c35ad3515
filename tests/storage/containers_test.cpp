#include "base/src/chain_index.h"
#include "base/src/flat_map.h"
#include "base/src/string_pool.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace {

using namespace OpenAccess_4::impl;

TEST(FlatMap, AgreesWithAnOrdinaryMapThroughInsertionsAndRemovals) {
    FlatMap<int> map;
    std::map<std::uint64_t, int> expected;
    std::mt19937 random(7);
    for (int step = 0; step < 20'000; ++step) {
        const std::uint64_t key = random() % 500;
        if (random() % 3 == 0) {
            map.erase(key);
            expected.erase(key);
        } else {
            map[key] = step;
            expected[key] = step;
        }
    }
    EXPECT_EQ(map.size(), expected.size());
    for (std::uint64_t key = 0; key < 500; ++key) {
        const auto found = expected.find(key);
        ASSERT_EQ(map.find(key) != nullptr, found != expected.end()) << key;
        if (found != expected.end()) {
            ASSERT_EQ(*map.find(key), found->second) << key;
        }
    }
}

TEST(FlatMap, FindsNothingWhenItIsEmpty) {
    FlatMap<int> map;
    EXPECT_EQ(map.find(3), nullptr);
    map.erase(3);
    map[3] = 1;
    map.clear();
    EXPECT_EQ(map.find(3), nullptr);
    EXPECT_EQ(map.size(), 0u);
}

TEST(ChainIndex, KeepsTheOrderOfEachList) {
    ChainIndex index;
    for (std::uint32_t slot = 0; slot < 6; ++slot)
        index.append(slot % 2, slot);
    EXPECT_EQ(index.slots(0), (std::vector<std::uint32_t>{0, 2, 4}));
    EXPECT_EQ(index.slots(1), (std::vector<std::uint32_t>{1, 3, 5}));
    EXPECT_EQ(index.count(1), 3u);
    EXPECT_EQ(index.first(2), kNone);
}

TEST(ChainIndex, ForgetsWhatIsRemovedWhereverItStands) {
    ChainIndex index;
    for (std::uint32_t slot = 0; slot < 5; ++slot)
        index.append(9, slot);
    index.remove(9, 2);
    index.remove(9, 0);
    index.remove(9, 4);
    EXPECT_EQ(index.slots(9), (std::vector<std::uint32_t>{1, 3}));
    index.append(9, 0);
    EXPECT_EQ(index.slots(9), (std::vector<std::uint32_t>{1, 3, 0}));
    for (const std::uint32_t slot : {1u, 3u, 0u})
        index.remove(9, slot);
    EXPECT_EQ(index.count(9), 0u);
    EXPECT_EQ(index.first(9), kNone);
}

TEST(StringPool, KeepsEveryTextOnce) {
    StringPool pool;
    const StringId first = pool.intern("net");
    EXPECT_EQ(pool.intern("net"), first);
    EXPECT_NE(pool.intern("NET"), first);
    EXPECT_EQ(pool.find("net"), first);
    EXPECT_EQ(pool.find("pin"), kNone);
    EXPECT_EQ(pool.intern(""), 0u);
    EXPECT_EQ(pool.text(0), "");
    EXPECT_EQ(pool.count(), 3u);
}

TEST(StringPool, HoldsAnyBytes) {
    StringPool pool;
    const std::string_view bytes("a\0b", 3);
    const StringId id = pool.intern(bytes);
    EXPECT_EQ(pool.text(id), bytes);
    EXPECT_NE(pool.intern("a"), id);
    EXPECT_STREQ(pool.chars(id), "a");
}

TEST(StringPool, FindsItsTextsAgainWhenTheyCameFromAFile) {
    StringPool original;
    std::vector<StringId> ids;
    for (int i = 0; i < 1000; ++i)
        ids.push_back(original.intern("text " + std::to_string(i)));
    StringPool pool(original.bytes(), original.starts());
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(pool.find("text " + std::to_string(i)), ids[std::size_t(i)]);
    EXPECT_EQ(pool.intern("text 1000"), ids.back() + 1);
}

TEST(StringPool, NoticesTextsThatStandTwiceInAFile) {
    const auto isSound = [](std::string bytes, std::vector<std::uint32_t> starts) {
        return StringPool(std::vector<char>(bytes.begin(), bytes.end()), std::move(starts))
            .isSound();
    };
    EXPECT_TRUE(isSound(std::string("\0ab\0a\0", 6), {0, 1, 4, 6}));
    EXPECT_FALSE(isSound(std::string("\0a\0a\0", 5), {0, 1, 3, 5}));
    EXPECT_FALSE(isSound(std::string("\0\0", 2), {0, 1, 2}));
}

} // namespace

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "pcell/sha256.h"
#include "platform/processor.h"

using namespace ovalis;

namespace {

std::string hexadecimal(const Sha256Digest& digest) {
    std::string text;
    for (const unsigned char byte : digest) {
        text += "0123456789abcdef"[byte / 16];
        text += "0123456789abcdef"[byte % 16];
    }
    return text;
}

std::string digestOf(std::string_view bytes, Sha256Blocks blocks) {
    Sha256 hash(blocks);
    hash.add(bytes);
    return hexadecimal(hash.finish());
}

/// Bytes that repeat after 251 of them, which no block size divides.
std::string pattern(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = static_cast<char>((7 * i + 3) % 251);
    }
    return bytes;
}

/// A test runs for each form; that of the instructions where the processor has them.
class Sha256Forms : public ::testing::TestWithParam<Sha256Blocks> {
protected:
    void SetUp() override {
        if (GetParam() == addSha256BlocksByInstructions && !platform::hasSha256Instructions()) {
            GTEST_SKIP() << "this processor has no instructions for SHA-256";
        }
    }

    std::string digest(std::string_view bytes) const { return digestOf(bytes, GetParam()); }
};

std::string nameOfForm(const ::testing::TestParamInfo<Sha256Blocks>& form) {
    return form.param == addSha256BlocksPortably ? "portable" : "instructions";
}

INSTANTIATE_TEST_SUITE_P(, Sha256Forms,
                         ::testing::Values(addSha256BlocksPortably, addSha256BlocksByInstructions),
                         nameOfForm);

} // namespace

TEST_P(Sha256Forms, GiveTheDigestsOfTheStandardsExamples) {
    EXPECT_EQ(digest("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(digest("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(digest("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmno"
                     "ijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu"),
              "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1");
    EXPECT_EQ(digest(std::string(1'000'000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST_P(Sha256Forms, GiveTheDigestsOfLengthsAroundABlock) {
    const std::pair<std::size_t, const char*> table[] = {
        {0, "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {55, "1deace58c745f3ecadde68a5923f494c3703fa73f0306483ccb898a5826e8d70"},
        {56, "06dbe23685750e4d3881ded95047abaf93fa8f9c5d3501dc57c717a72ff1398e"},
        {63, "47fb38b12335c9298d09280515c0666489a189d1554bb0ac1a0740806ce9d8b6"},
        {64, "dfa798724b1a8014994f363e5da7474ed26ce3757fb29e07aa47ad5a9352d37b"},
        {65, "dd2eab5a5507d7717c63ce953d9ac61752c21e664425ad1227054722a0d97f69"},
        {119, "c6e0f435df5d7d265baacca31e0602c00aa22fa6d3819aed664649294c743756"},
        {300, "36da72897e604580cf2b86856c904efddc5f84d90fa1766492cf6ccf35b97ddc"},
    };
    for (const auto& [length, expected] : table) {
        EXPECT_EQ(digest(pattern(length)), expected) << length;
    }
}

// The digest of the digests, each on a line: as sha256sum gives it for each length and then for the
// list of them.
TEST_P(Sha256Forms, GiveTheDigestsOfEveryLengthToThreeHundred) {
    std::string lines;
    for (std::size_t length = 0; length <= 300; ++length) {
        lines += digest(pattern(length)) + '\n';
    }
    EXPECT_EQ(digest(lines), "cc2eaab081e2dedf2613f158ab8bfcab273f39f283d571a515eb525b42fc8f5b");
}

TEST_P(Sha256Forms, TakeBytesInPiecesOfAnySize) {
    const std::string bytes = pattern(300);
    const std::string expected = digest(bytes);
    for (std::size_t size = 1; size <= bytes.size(); ++size) {
        Sha256 hash(GetParam());
        for (std::size_t begin = 0; begin < bytes.size(); begin += size) {
            hash.add(std::string_view(bytes).substr(begin, size));
            hash.add("");
        }
        EXPECT_EQ(hexadecimal(hash.finish()), expected) << size;
    }
}

TEST_P(Sha256Forms, WorkManyBlocksAsOneAfterTheOther) {
    const std::string bytes = pattern(64 * 33);
    const auto* blocks = reinterpret_cast<const unsigned char*>(bytes.data());
    Sha256State together = sha256Start;
    GetParam()(together, blocks, 33);
    Sha256State singly = sha256Start;
    for (std::size_t i = 0; i < 33; ++i) {
        GetParam()(singly, blocks + 64 * i, 1);
    }
    EXPECT_EQ(together, singly);
}

TEST(Sha256, IsTheSameInBothForms) {
    if (!platform::hasSha256Instructions()) {
        GTEST_SKIP() << "this processor has no instructions for SHA-256";
    }
    std::uint32_t random = 1;
    for (std::size_t length = 0; length <= 3000; length += 1 + length / 16) {
        std::string bytes(length, '\0');
        for (char& byte : bytes) {
            random = random * 1664525 + 1013904223;
            byte = static_cast<char>(random >> 24);
        }
        EXPECT_EQ(digestOf(bytes, addSha256BlocksByInstructions),
                  digestOf(bytes, addSha256BlocksPortably))
            << length;
    }
}

TEST(Sha256, UsesTheInstructionsWhereTheProcessorHasThem) {
    EXPECT_EQ(fastestSha256Blocks(), platform::hasSha256Instructions()
                                         ? addSha256BlocksByInstructions
                                         : addSha256BlocksPortably);
}

// The longest message whose length in bits fits into 32 bits.
TEST_P(Sha256Forms, ReachToHalfAGigabyte) {
    const std::string piece = pattern(251 * 4096);
    std::size_t left = (std::size_t{1} << 29) - 1;
    Sha256 hash(GetParam());
    while (left != 0) {
        const std::size_t size = std::min(left, piece.size());
        hash.add({piece.data(), size});
        left -= size;
    }
    EXPECT_EQ(hexadecimal(hash.finish()),
              "911f3c6b1f79eb5ae1a3f09786f7e018d2d5f5db6c091ed4c5f0dcd7c5fe7dce");
}

#pragma once

#include <cstdint>
#include <string_view>

namespace comparison {

/// 128 bits of what was added, in its order. Two things with different bits differ; that two with
/// the same bits differ does not happen by chance.
class Digest {
public:
    void add(std::uint64_t word) {
        first_ = (first_ ^ word) * 0x9FB21C651E98DF25u;
        first_ ^= first_ >> 32;
        second_ = (second_ + word) * 0xD6E8FEB86659FD93u;
        second_ = (second_ ^ second_ >> 29) + first_;
    }
    void add(std::string_view text) {
        add(text.size());
        std::uint64_t word = 0;
        for (std::size_t at = 0; at < text.size(); ++at) {
            word = word << 8 | static_cast<unsigned char>(text[at]);
            if (at % 8 == 7)
                add(word);
        }
        add(word);
    }

    std::uint64_t first() const { return first_; }
    std::uint64_t second() const { return second_; }

private:
    std::uint64_t first_ = 0x243F6A8885A308D3u;
    std::uint64_t second_ = 0x13198A2E03707344u;
};

} // namespace comparison

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace ovalis {

/// Different lines in the order of their arrival.
///
/// The text of every line lies once, in blocks that never move, and a line is found by its hash, so
/// that adding takes the same time however many lines there are.
class Paragraph {
public:
    Paragraph() = default;
    Paragraph(const Paragraph& other);
    Paragraph& operator=(const Paragraph&) = delete;

    /// Appends `line` unless it is there.
    void add(std::string_view line);

    const std::vector<std::string_view>& lines() const { return lines_; }

private:
    /// A place of the hash table, which has a power of two of them, at least twice as many as
    /// lines.
    struct Place {
        std::uint32_t hash = 0;
        std::uint32_t line = 0; // its number from 1 on; 0 in a free place
    };

    Place& placeOf(std::uint32_t hash, std::string_view line);
    void grow();
    std::string_view kept(std::string_view line);

    std::vector<std::string_view> lines_;
    std::vector<Place> places_;
    unsigned shift_ = 32;
    std::vector<std::unique_ptr<char[]>> blocks_;
    char* free_ = nullptr;
    std::size_t room_ = 0;
};

} // namespace ovalis

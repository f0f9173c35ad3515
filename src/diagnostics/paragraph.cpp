#include "diagnostics/paragraph.h"

#include <algorithm>
#include <functional>

namespace ovalis {

namespace {

constexpr std::size_t smallestBlock = 512;
constexpr std::size_t largestBlock = std::size_t(1) << 20;
constexpr std::size_t smallestTable = 16;

std::uint32_t hashOf(std::string_view line) {
    const std::uint64_t hash = std::hash<std::string_view>()(line);
    return static_cast<std::uint32_t>(hash >> 32) ^ static_cast<std::uint32_t>(hash);
}

} // namespace

Paragraph::Paragraph(const Paragraph& other) {
    for (const std::string_view line : other.lines_) {
        add(line);
    }
}

void Paragraph::add(std::string_view line) {
    if (2 * lines_.size() >= places_.size()) {
        grow();
    }
    const std::uint32_t hash = hashOf(line);
    Place& place = placeOf(hash, line);
    if (place.line != 0) {
        return;
    }
    lines_.push_back(kept(line));
    place = {hash, static_cast<std::uint32_t>(lines_.size())};
}

Paragraph::Place& Paragraph::placeOf(std::uint32_t hash, std::string_view line) {
    const std::size_t mask = places_.size() - 1;
    std::size_t at = hash >> shift_;
    while (places_[at].line != 0 &&
           (places_[at].hash != hash || lines_[places_[at].line - 1] != line)) {
        at = (at + 1) & mask;
    }
    return places_[at];
}

void Paragraph::grow() {
    const std::vector<Place> old = std::move(places_);
    places_.assign(std::max(smallestTable, 2 * old.size()), {});
    shift_ = 32;
    for (std::size_t size = 1; size < places_.size(); size *= 2) {
        --shift_;
    }
    // Places lie in the order of the upper bits of their hashes, so both tables are passed through
    // from one end to the other.
    const std::size_t mask = places_.size() - 1;
    for (const Place& place : old) {
        if (place.line == 0) {
            continue;
        }
        std::size_t at = place.hash >> shift_;
        while (places_[at].line != 0) {
            at = (at + 1) & mask;
        }
        places_[at] = place;
    }
}

std::string_view Paragraph::kept(std::string_view line) {
    if (line.size() > room_) {
        const std::size_t size = std::max(
            line.size(),
            std::min(largestBlock, smallestBlock << std::min<std::size_t>(blocks_.size(), 11)));
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(size));
        free_ = blocks_.back().get();
        room_ = size;
    }
    char* const text = free_;
    std::copy(line.begin(), line.end(), text);
    free_ += line.size();
    room_ -= line.size();
    return {text, line.size()};
}

} // namespace ovalis

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include <ovalis/diagnostics.h>

#include "diagnostics/paragraph.h"

namespace ovalis {

using Paragraphs = std::map<std::string, Paragraph, std::less<>>;

/// What a collector holds and its copies share.
struct msgCollector::Content {
    Content() = default;
    Content(const Content& other) : mask(other.mask), chapters(other.chapters) {}
    Content& operator=(const Content&) = delete;

    std::uint32_t mask = 0; // bit n: origin n is collected
    std::map<std::string, Paragraphs, std::less<>> chapters;

    /// The paragraph of the last message, to which the next one goes mostly.
    struct {
        OriginType origin{};
        const std::string* key = nullptr;
        Paragraph* paragraph = nullptr;
    } last;
};

} // namespace ovalis

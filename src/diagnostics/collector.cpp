#include <array>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include <platform/environment.h>

#include "diagnostics/collector_content.h"
#include "diagnostics/observers.h"

namespace ovalis {

namespace {

constexpr const char* pcellChapter = "Pcell";

constexpr std::array<const char*, 12> originNames = {
    "Unknown", "Iprop",     "LCprop", "Layer",           "Pcell",
    "LibDefs", "GroupDef",  "AppDef", "DerivedLayerDef", "DerivedLayerParamDef",
    "Tech",    "ErrChannel"};

constexpr auto unknownOrigin = static_cast<msgCollector::OriginType>(originNames.size());

constexpr std::uint32_t errChannelBit = std::uint32_t(1) << msgCollector::ErrChannel;
constexpr std::uint32_t allBits = errChannelBit - 1;
constexpr std::uint32_t defaultBits =
    std::uint32_t(1) << msgCollector::Pcell | std::uint32_t(1) << msgCollector::LibDefs;

const char* nameOf(msgCollector::OriginType origin) {
    const unsigned int value = origin;
    return originNames[value < originNames.size() ? value : 0];
}

/// The names of a setting, one after the other.
class Tokens {
public:
    explicit Tokens(std::string_view text) : rest_(text) {}

    bool atEnd() const { return atEnd_; }
    std::string_view first() const { return rest_.substr(0, rest_.find(':')); }
    bool startsWith(std::string_view token) const { return !atEnd_ && first() == token; }

    void drop() {
        const std::size_t colon = rest_.find(':');
        atEnd_ = colon == std::string_view::npos;
        rest_ = atEnd_ ? std::string_view() : rest_.substr(colon + 1);
    }

private:
    std::string_view rest_;
    bool atEnd_ = false;
};

} // namespace

std::string msgCollector::originTypeToName(OriginType origin) {
    return nameOf(origin);
}

msgCollector::OriginType msgCollector::originNameToType(const char* name) {
    for (unsigned int value = 1; name != nullptr && value < originNames.size(); ++value) {
        if (name == std::string_view(originNames[value])) {
            return static_cast<OriginType>(value);
        }
    }
    // The name "Unknown" of this value leads back here, too: it is no origin.
    return unknownOrigin;
}

msgCollector::msgCollector() : content_(std::make_unique<Content>()) {
    initializeActiveCollectors();
    observers_ = std::make_unique<MessageObservers>(*this);
}

msgCollector::msgCollector(const msgCollector& other)
    : content_(std::make_unique<Content>(*other.content_)) {}

msgCollector& msgCollector::operator=(const msgCollector& other) {
    content_ = std::make_unique<Content>(*other.content_);
    return *this;
}

msgCollector::~msgCollector() {
    observers_.reset();
    if ((content_->mask & errChannelBit) == 0) {
        return;
    }
    try {
        std::cerr << getMessageLog("all-wh") << std::endl;
    } catch (...) { // a report that cannot be written has no other place to go
    }
}

bool msgCollector::isCollectorActive(OriginType origin) const {
    return origin < 32 && (content_->mask >> origin & 1) != 0;
}

bool msgCollector::isActive() const {
    return (content_->mask & allBits) != 0;
}

void msgCollector::setCollectorActive(OriginType origin, bool active) {
    const std::uint32_t bit = std::uint32_t(1) << origin;
    content_->mask = active ? content_->mask | bit : content_->mask & ~bit;
}

void msgCollector::initializeActiveCollectors() {
    const auto setting = platform::environmentVariable("TESSA_OAINFO");
    if (!setting) {
        content_->mask = defaultBits;
        return;
    }
    if (setting->starts_with('0') && std::strtol(setting->c_str(), nullptr, 0) == 0) {
        return;
    }
    Tokens tokens(*setting);
    bool adds = true;
    if (tokens.startsWith("alldbg")) {
        content_->mask = allBits | errChannelBit;
        adds = false;
        tokens.drop();
    }
    if (tokens.startsWith("all")) {
        content_->mask = allBits;
        adds = false;
        tokens.drop();
    }
    for (; !tokens.atEnd(); tokens.drop()) {
        setCollectorActive(originNameToType(std::string(tokens.first()).c_str()), adds);
    }
}

void msgCollector::addMessage(OriginType origin, const std::string& key, const std::string& line) {
    auto& last = content_->last;
    if (last.paragraph == nullptr || last.origin != origin || *last.key != key) {
        Paragraphs& chapter = content_->chapters[nameOf(origin)];
        const auto paragraph = chapter.try_emplace(key).first;
        last = {origin, &paragraph->first, &paragraph->second};
    }
    Paragraph& paragraph = *last.paragraph;
    // Once a pcell has failed like this, what follows is only what follows from it.
    if (origin == Pcell && !paragraph.lines().empty() &&
        paragraph.lines().front().starts_with("Error[3]:")) {
        return;
    }
    paragraph.add(line);
}

void msgCollector::clear() {
    content_->last = {};
    content_->chapters.clear();
}

bool msgCollector::containsErrors() const {
    return content_->chapters.contains(pcellChapter);
}

} // namespace ovalis

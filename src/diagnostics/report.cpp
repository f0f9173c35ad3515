// What a collector gives out: keys, lines and the report.

#include <algorithm>
#include <array>
#include <string_view>

#include "diagnostics/collector_content.h"

namespace ovalis {

namespace {

using Chapters = std::map<std::string, Paragraphs, std::less<>>;

constexpr std::array<std::string_view, 5> conflictChapters = {
    "AppDef", "DerivedLayerDef", "DerivedLayerParamDef", "GroupDef", "Tech"};

constexpr std::string_view definitionsChapter = "LibDefs";

const Paragraphs* chapterOf(const Chapters& chapters, std::string_view key) {
    const auto found = chapters.find(key);
    return found == chapters.end() ? nullptr : &found->second;
}

const Paragraph* paragraphOf(const Chapters& chapters, std::string_view chapterKey,
                             std::string_view key) {
    const Paragraphs* chapter = chapterOf(chapters, chapterKey);
    if (chapter == nullptr) {
        return nullptr;
    }
    const auto found = chapter->find(key);
    return found == chapter->end() ? nullptr : &found->second;
}

void appendLines(std::string& text, const Paragraph& paragraph, std::string_view prefix) {
    for (const std::string_view line : paragraph.lines()) {
        text.append(prefix).append(line) += '\n';
    }
}

void appendParagraph(std::string& text, std::string_view key, const Paragraph& paragraph,
                     std::string_view indentation) {
    const std::string prefix(indentation);
    if (paragraph.lines().size() < 2) {
        appendLines(text, paragraph, prefix + std::string(key) + ": ");
        return;
    }
    text.append(indentation).append(key) += ":\n";
    appendLines(text, paragraph, prefix + "  ");
}

/// Appends every chapter under its key, to the byte as programs expect it.
void appendChapters(std::string& text, const Chapters& chapters) {
    for (const auto& [key, paragraphs] : chapters) {
        text.append("  ").append(key) += ":\n";
        for (const auto& [paragraphKey, paragraph] : paragraphs) {
            appendParagraph(text, paragraphKey, paragraph, "    ");
        }
    }
}

/// Appends the chapter as a reader likes to see it; nothing when it is missing.
void appendPart(std::string& text, const Chapters& chapters, std::string_view key) {
    const Paragraphs* chapter = chapterOf(chapters, key);
    if (chapter == nullptr) {
        return;
    }
    text.append(msgCollector::keyNameToDisplayName(std::string(key))) += ":\n";
    for (const auto& [paragraphKey, paragraph] : *chapter) {
        std::string shownKey = paragraphKey;
        std::erase(shownKey, '\n');
        appendParagraph(text, shownKey, paragraph, "  ");
    }
}

void appendParts(std::string& text, const Chapters& chapters) {
    for (const std::string_view key : conflictChapters) {
        appendPart(text, chapters, key);
    }
}

template <class Map>
std::vector<std::string> keysOf(const Map& map) {
    std::vector<std::string> keys;
    keys.reserve(map.size());
    for (const auto& [key, value] : map) {
        keys.push_back(key);
    }
    return keys;
}

} // namespace

std::string msgCollector::keyNameToDisplayName(const std::string& key) {
    constexpr std::array<std::array<std::string_view, 2>, 4> names = {
        {{"Pcell", "PCell errors"},
         {"Iprop", "Instance properties"},
         {"LCprop", "LibCell properties"},
         {"LibDefs", "LibDef warnings"}}};
    const auto* found =
        std::ranges::find_if(names, [&](const auto& name) { return name[0] == key; });
    return found == names.end() ? key + " info" : std::string((*found)[1]);
}

std::string msgCollector::getMessageLog(const std::string& key) const {
    const Chapters& chapters = content_->chapters;
    std::string text;
    if (chapters.empty()) {
        return text;
    }
    if (key == "all-wh") {
        text = "OA report summary:\n";
        appendChapters(text, chapters);
        text += "OA report summary end\n";
    } else if (key == "all") {
        appendChapters(text, chapters);
    } else if (key == "conflict") {
        appendParts(text, chapters);
    } else if (key == "warning") {
        appendPart(text, chapters, definitionsChapter);
        appendParts(text, chapters);
    } else {
        appendPart(text, chapters, key);
    }
    return text;
}

std::string msgCollector::getMessageLog(const std::string& chapterKey,
                                        const std::string& paragraphKey) const {
    std::string text;
    const Paragraph* paragraph = paragraphOf(content_->chapters, chapterKey, paragraphKey);
    if (paragraph != nullptr) {
        std::string shownKey = paragraphKey;
        std::erase(shownKey, '\n');
        appendParagraph(text, shownKey, *paragraph, "");
    }
    return text;
}

std::vector<std::string> msgCollector::getAvailableChapterKeys_ordered() const {
    return keysOf(content_->chapters);
}

std::vector<std::string> msgCollector::getAvailableErrorKeys() const {
    return getAvailableParagraphKeys("Pcell");
}

std::vector<std::string>
msgCollector::getAvailableParagraphKeys(const std::string& chapterKey) const {
    const Paragraphs* chapter = chapterOf(content_->chapters, chapterKey);
    return chapter == nullptr ? std::vector<std::string>() : keysOf(*chapter);
}

std::vector<std::string> msgCollector::getLines(const std::string& chapterKey,
                                                const std::string& paragraphKey) const {
    const Paragraph* paragraph = paragraphOf(content_->chapters, chapterKey, paragraphKey);
    if (paragraph == nullptr) {
        return {};
    }
    return {paragraph->lines().begin(), paragraph->lines().end()};
}

std::string msgCollector::getItemMessageHead(const std::string& chapterKey,
                                             const std::string& paragraphKey,
                                             const std::string& prefix) const {
    const Paragraph* paragraph = paragraphOf(content_->chapters, chapterKey, paragraphKey);
    if (paragraph == nullptr) {
        return {};
    }
    return prefix + std::string(paragraph->lines().front()) + '\n';
}

std::string msgCollector::getItemMessageLog(const std::string& chapterKey,
                                            const std::string& paragraphKey,
                                            const std::string& prefix) const {
    std::string text;
    const Paragraph* paragraph = paragraphOf(content_->chapters, chapterKey, paragraphKey);
    if (paragraph != nullptr) {
        appendLines(text, *paragraph, prefix);
    }
    return text;
}

} // namespace ovalis

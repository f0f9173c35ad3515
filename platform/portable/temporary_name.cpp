#include "platform/atomic_file.h"
#include "platform/process.h"

#include <atomic>
#include <charconv>
#include <optional>

namespace platform {

namespace {

// ".<target>.<host>-<process>-<number>.tmp~"
constexpr std::string_view suffix = ".tmp~";

// A process number says nothing on another computer that shares the directory, nor to a program
// of the other system that runs on this computer through an emulator.
std::string hostMark() {
    unsigned hash = 2166136261U;
    for (const char c : hostName() + systemName())
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    char text[8];
    const auto [end, error] = std::to_chars(text, text + sizeof text, hash & 0xffffffU, 16);
    return std::string(text, end);
}

std::string_view markOf(std::string_view name) {
    if (name.size() <= suffix.size() || name.front() != '.' || !name.ends_with(suffix))
        return {};
    name.remove_suffix(suffix.size());
    const std::size_t dot = name.rfind('.');
    return dot == 0 ? std::string_view() : name.substr(dot + 1);
}

std::optional<ProcessId> ownerOnThisHost(std::string_view mark) {
    const std::string host = hostMark() + "-";
    if (!mark.starts_with(host))
        return std::nullopt;
    mark.remove_prefix(host.size());
    ProcessId process = 0;
    const char* const last = mark.data() + mark.size();
    const auto [end, error] = std::from_chars(mark.data(), last, process);
    if (error != std::errc() || end == last || *end != '-')
        return std::nullopt;
    return process;
}

void removeStale(std::string_view target) {
    const std::string directory = parentPath(target);
    const std::string start = "." + fileName(target) + ".";
    for (const DirectoryEntry& entry : listDirectory(directory)) {
        const std::string_view mark = markOf(entry.name);
        if (mark.empty() || entry.name.size() != start.size() + mark.size() + suffix.size() ||
            !entry.name.starts_with(start))
            continue;
        const std::optional<ProcessId> owner = ownerOnThisHost(mark);
        if (owner && !isProcessAlive(*owner))
            removeTree(joinPath(directory, entry.name));
    }
}

} // namespace

bool isTemporaryName(std::string_view name) noexcept {
    const std::string_view mark = markOf(name);
    return mark.find('-') != std::string_view::npos &&
           mark.find_first_not_of("0123456789abcdef-") == std::string_view::npos;
}

void removeStaleTemporaries(std::string_view target) noexcept {
    try {
        removeStale(target);
    } catch (const std::exception&) {
        // The next call tries again.
    }
}

std::string temporaryPathFor(const std::string& target) {
    // Modules of one process that each hold a copy of this counter are kept apart by exclusive
    // creation and a second try.
    static std::atomic<unsigned> counter = 0;
    const std::string name = "." + fileName(target) + "." + hostMark() + "-" +
                             std::to_string(currentProcessId()) + "-" + std::to_string(++counter) +
                             std::string(suffix);
    return joinPath(parentPath(target), name);
}

} // namespace platform

#include <stdexcept>

#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "cli/library_locks.h"
#include "cli/text_table.h"

namespace cli {
namespace {

const char* textOf(LockState state) {
    switch (state) {
    case LockState::held:
        return "held";
    case LockState::dead:
        return "dead";
    case LockState::cleared:
        return "cleared";
    default:
        return "unknown";
    }
}

std::string holderOf(const LibraryLock& lock) {
    std::string holder = lock.user;
    if (!lock.host.empty())
        holder += (holder.empty() ? "" : "@") + lock.host;
    if (!lock.process.empty())
        holder += (holder.empty() ? "" : ", ") + ("process " + lock.process);
    return holder.empty() ? "somebody" : holder;
}

void writeTable(std::ostream& out, const std::vector<LibraryLock>& locks) {
    std::vector<std::vector<std::string>> rows;
    for (const LibraryLock& lock : locks)
        rows.push_back({lock.file, lock.kind, textOf(lock.state), holderOf(lock),
                        lock.since.empty() ? "" : "since " + lock.since});
    for (std::vector<std::string>& row : rows)
        if (row.back().empty())
            row.pop_back();
    writeRows(out, rows);
}

nlohmann::ordered_json textOrNull(const std::string& text) {
    return text.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(text);
}

void writeJson(std::ostream& out, const std::string& directory,
               const std::vector<LibraryLock>& locks) {
    using Json = nlohmann::ordered_json;
    Json list = Json::array();
    for (const LibraryLock& lock : locks)
        list.push_back({{"file", lock.file},
                        {"kind", lock.kind},
                        {"state", textOf(lock.state)},
                        {"user", textOrNull(lock.user)},
                        {"host", textOrNull(lock.host)},
                        {"process", textOrNull(lock.process)},
                        {"since", textOrNull(lock.since)}});
    out << Json{{"directory", directory}, {"locks", list}}.dump(2, ' ', false,
                                                                Json::error_handler_t::replace)
        << '\n';
}

} // namespace

int locksCommand(const LocksOptions& options, Console& console) {
    const std::string directory = directoryOf(options.library);
    if (!ovalis::existsLib(directory))
        throw std::runtime_error("OA Library not found at " + directory);
    std::vector<LibraryLock> locks = locksOf(directory);
    if (options.clear)
        for (LibraryLock& lock : locks)
            clear(directory, lock);
    if (options.json)
        writeJson(console.out, directory, locks);
    else
        writeTable(console.out, locks);
    return success;
}

} // namespace cli

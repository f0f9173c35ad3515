#include "evaluation/cache.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include <ovalis/library.h>

#include "evaluation/parameters.h"
#include "pcell/submaster_cache.h"
#include "platform/atomic_file.h"
#include "platform/file.h"
#include "platform/path.h"

namespace evaluation {
namespace {

bool isIdentity(const std::string& name) {
    constexpr std::size_t digits = 64;
    return name.size() == digits && std::all_of(name.begin(), name.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
           });
}

void write(const std::string& path, oa::oaDesign& content) {
    oa::PcellFile file(ovalis::toOa(path));
    file.open("w");
    file.append(&content);
    file.close();
}

/// Where the next submaster of an entry begins, behind the one at `offset`, which is sound; nothing
/// when that is the last one, or when the database that wrote the file has another form of files.
std::optional<std::uint64_t> nextAfter(const std::string& path, std::uint64_t offset) {
    constexpr std::string_view magic("\x89OVD\r\n\x1A\n");
    constexpr std::size_t placeOfSize = 16;
    constexpr std::uint64_t alignment = 16;
    std::string head(placeOfSize + sizeof(std::uint64_t), '\0');
    platform::File file(path, platform::OpenMode::read);
    file.seek(offset);
    if (file.read(head.data(), head.size()) != head.size() || !head.starts_with(magic))
        return std::nullopt;
    std::uint64_t size = 0;
    for (std::size_t at = head.size(); at-- > placeOfSize;)
        size = size << 8 | static_cast<unsigned char>(head[at]);
    const std::uint64_t next = (offset + size + alignment - 1) / alignment * alignment;
    return next < file.size() ? std::optional(next) : std::nullopt;
}

} // namespace

Cache::Cache(const std::string& listPath) : directory_(ovalis::cacheDirectoryBeside(listPath)) {}

std::string Cache::pathOf(const std::string& hash) const {
    return platform::joinPath(directory_, hash);
}

bool Cache::has(const std::string& hash) const {
    return platform::isFile(pathOf(hash));
}

std::vector<Cache::Entry> Cache::entries() const {
    std::vector<Entry> entries;
    if (!platform::isDirectory(directory_))
        return entries;
    for (const platform::DirectoryEntry& found : platform::listDirectory(directory_)) {
        if (platform::isTemporaryName(found.name))
            continue;
        const bool isFile = found.kind == platform::EntryKind::file;
        entries.push_back({found.name, isFile ? platform::fileSize(pathOf(found.name)) : 0,
                           !isFile || !isIdentity(found.name)});
    }
    return entries;
}

void Cache::put(const std::string& hash, oa::oaDesign& content) const {
    if (!platform::isDirectory(directory_))
        platform::createDirectory(directory_);
    const std::string path = pathOf(hash);
    const std::string temporary = platform::temporaryPathFor(path);
    try {
        write(temporary, content);
        platform::renameFile(temporary, path);
    } catch (...) {
        platform::removeTree(temporary);
        throw;
    }
}

EntryReader::EntryReader()
    : directory_(platform::temporaryPathFor(
          platform::joinPath(platform::temporaryDirectory(), "ovalis-cache"))) {
    const std::string name = "ovalis_cache_reader";
    try {
        library_ = ovalis::createLib(directory_, name).release();
        library_->getAccess(oa::oacWriteLibAccess);
        design_ = ovalis::openDesignWithView(*library_, "entry", "layout", oa::oacMaskLayout, true);
    } catch (...) {
        if (library_ != nullptr)
            library_->close();
        platform::removeTree(directory_);
        throw;
    }
}

EntryReader::~EntryReader() {
    try {
        library_->close();
        platform::removeTree(directory_);
    } catch (...) {
        // A directory of the moment that stays behind does no harm.
    }
}

std::string EntryReader::damageOf(const std::string& path) {
    try {
        oa::PcellFile file(ovalis::toOa(path));
        file.open("r");
        for (std::optional<std::uint64_t> offset = 0; offset; offset = nextAfter(path, *offset))
            file.read(design_, *offset);
        file.close();
        return "";
    } catch (const oa::oaException& error) {
        return ovalis::fromOa(error.getMsg());
    } catch (const platform::SystemFailure& failure) {
        return failure.what();
    }
}

} // namespace evaluation

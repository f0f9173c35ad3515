#include "evaluation/cache.h"

#include <algorithm>

#include <ovalis/library.h>

#include "evaluation/parameters.h"
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

std::string besideList(const std::string& listPath) {
    const std::size_t separator = listPath.find_last_of("/\\");
    return separator == std::string::npos ? "" : listPath.substr(0, separator + 1);
}

void write(const std::string& path, oa::oaDesign& content) {
    oa::PcellFile file(ovalis::toOa(path));
    file.open("w");
    file.append(&content);
    file.close();
}

} // namespace

Cache::Cache(const std::string& listPath) : directory_(besideList(listPath) + ".vexPcells") {}

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
        file.read(design_, 0);
        file.close();
        return "";
    } catch (const oa::oaException& error) {
        return ovalis::fromOa(error.getMsg());
    }
}

} // namespace evaluation

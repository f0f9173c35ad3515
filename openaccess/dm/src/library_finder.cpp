#include "dm/src/library_finder.h"

#include "platform/file.h"

#include <algorithm>

namespace OpenAccess_4::impl {

namespace {

/// Spelling that file systems take for the same. False for names that they may spell in ways that
/// are not known here.
bool foldName(std::string_view name, std::string& folded) {
    folded.clear();
    for (const char c : name) {
        if (static_cast<unsigned char>(c) >= 0x80 || c == '~')
            return false;
        folded += c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
    }
    return !name.empty() && name != "." && name != "..";
}

} // namespace

bool LibraryFinder::mayExist(const DefinitionList& list, std::string_view path) {
    while (path.size() > 1 && platform::isPathSeparator(path.back()))
        path.remove_suffix(1);
    const auto separator = std::find_if(path.rbegin(), path.rend(), platform::isPathSeparator);
    const std::string_view name = path.substr(std::size_t(path.rend() - separator));
    const std::string_view parent = path.substr(0, path.size() - name.size());
    if (!foldName(name, scratch_))
        return true;
    const Listing& found = listing(list, parent);
    return !found.known || found.names.contains(scratch_);
}

const LibraryFinder::Listing& LibraryFinder::listing(const DefinitionList& list,
                                                     std::string_view parent) {
    if (last_ && lastParent_ == parent && (lastList_ == &list || isAbsolutePath(parent)))
        return *last_;
    const std::string directory = list.resolve(parent);
    const auto [found, isNew] = listings_.try_emplace(directory);
    Listing& listing = found->second;
    if (isNew) {
        try {
            listing.known = true;
            if (platform::isDirectory(directory))
                for (const platform::DirectoryEntry& entry : platform::listDirectory(directory)) {
                    std::string folded;
                    if (foldName(entry.name, folded))
                        listing.names.insert(std::move(folded));
                }
        } catch (const platform::SystemFailure&) {
            listing.known = false;
        }
    }
    lastList_ = &list;
    lastParent_ = parent;
    last_ = &listing;
    return listing;
}

} // namespace OpenAccess_4::impl

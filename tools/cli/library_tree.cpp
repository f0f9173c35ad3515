#include "cli/library_tree.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "platform/path.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

fs::path pathOf(const std::string& text) {
    return {std::u8string(text.begin(), text.end())};
}

std::string textOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

bool isAtOrBelow(const std::string& path, const std::string& directory) {
    return path.starts_with(directory) &&
           (path.size() == directory.size() || platform::isPathSeparator(path[directory.size()]));
}

} // namespace

LibraryTree::LibraryTree(std::string directory)
    : root_(std::move(directory)), canonicalRoot_(platform::canonicalPath(root_)) {}

std::uint64_t LibraryTree::bytes() const {
    std::uint64_t bytes = 0;
    walk("", [&](Kind kind, const std::string& inner) {
        if (kind == Kind::file)
            bytes += platform::fileSize(platform::joinPath(root_, inner));
    });
    return bytes;
}

void LibraryTree::copyTo(const std::string& destination) const {
    platform::createDirectory(destination);
    walk("", [&](Kind kind, const std::string& inner) {
        const std::string from = platform::joinPath(root_, inner);
        const std::string to = platform::joinPath(destination, inner);
        if (kind == Kind::directory) {
            platform::createDirectory(to);
        } else if (kind == Kind::file) {
            platform::copyFile(from, to);
        } else {
            std::error_code problem;
            fs::copy_symlink(pathOf(from), pathOf(to), problem);
            if (problem)
                throw std::runtime_error(to + ": the symbolic link cannot be made, " +
                                         problem.message());
        }
    });
}

void LibraryTree::walk(const std::string& inner, const Visit& visit) const {
    const std::string directory = inner.empty() ? root_ : platform::joinPath(root_, inner);
    for (const platform::DirectoryEntry& entry : platform::listDirectory(directory)) {
        const std::string path = inner.empty() ? entry.name : platform::joinPath(inner, entry.name);
        const Kind kind = kindOf(path, entry.kind);
        visit(kind, path);
        if (kind == Kind::directory)
            walk(path, visit);
    }
}

LibraryTree::Kind LibraryTree::kindOf(const std::string& inner,
                                      platform::EntryKind followed) const {
    const std::string path = platform::joinPath(root_, inner);
    if (platform::isSymbolicLink(path)) {
        requireStays(inner);
        return Kind::link;
    }
    if (followed == platform::EntryKind::other)
        throw std::runtime_error(path + ": is neither a file nor a directory and cannot be copied");
    return followed == platform::EntryKind::directory ? Kind::directory : Kind::file;
}

/// What the link says must not lead out of the copy, and neither must what other links on the way
/// make of it.
void LibraryTree::requireStays(const std::string& inner) const {
    const std::string path = platform::joinPath(root_, inner);
    std::error_code problem;
    const fs::path target = fs::read_symlink(pathOf(path), problem);
    if (problem)
        throw std::runtime_error(path + ": the symbolic link cannot be read, " + problem.message());
    const fs::path end = (pathOf(inner).parent_path() / target).lexically_normal();
    const bool staysByName = target.is_relative() && *end.begin() != fs::path("..");
    if (!staysByName ||
        (platform::exists(path) && !isAtOrBelow(platform::canonicalPath(path), canonicalRoot_)))
        throw std::runtime_error(path + ": the symbolic link to " + textOf(target) +
                                 " would lead out of the copy");
}

} // namespace cli

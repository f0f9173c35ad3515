#include "posix/descriptor.h"

#include "platform/file.h"

#include <algorithm>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace platform {

using internal::Descriptor;
using internal::fail;

namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const noexcept { ::closedir(directory); }
};

EntryKind kindOf(int directory, const dirent& entry) {
    if (entry.d_type == DT_REG)
        return EntryKind::file;
    if (entry.d_type == DT_DIR)
        return EntryKind::directory;
    struct stat status;
    if (::fstatat(directory, entry.d_name, &status, 0) == -1)
        return EntryKind::other;
    if (S_ISREG(status.st_mode))
        return EntryKind::file;
    return S_ISDIR(status.st_mode) ? EntryKind::directory : EntryKind::other;
}

bool isDotName(const std::string& name) {
    return name == "." || name == "..";
}

void copyBytes(File& from, File& to) {
    std::string buffer(std::min<std::uint64_t>(from.size() + 1, 1U << 20), '\0');
    for (;;) {
        const std::size_t got = from.read(buffer.data(), buffer.size());
        to.write(buffer.data(), got);
        if (got < buffer.size())
            return;
    }
}

std::vector<DirectoryEntry> entriesOf(const std::string& native) {
    const std::unique_ptr<DIR, CloseDirectory> directory(::opendir(native.c_str()));
    if (!directory)
        fail("cannot read directory", native);
    std::vector<DirectoryEntry> entries;
    errno = 0;
    while (const dirent* entry = ::readdir(directory.get())) {
        if (!isDotName(entry->d_name))
            entries.push_back({entry->d_name, kindOf(::dirfd(directory.get()), *entry)});
        errno = 0;
    }
    if (errno != 0)
        fail("cannot read directory", native);
    std::ranges::sort(entries, {}, &DirectoryEntry::name);
    return entries;
}

// Takes the names as they are: one that holds a backslash can be reached only so.
void removeNative(const std::string& native) {
    struct stat status;
    if (::lstat(native.c_str(), &status) == -1) {
        if (errno == ENOENT)
            return;
        fail("cannot look at file", native);
    }
    if (!S_ISDIR(status.st_mode)) {
        if (::unlink(native.c_str()) == -1)
            fail("cannot remove file", native);
        return;
    }
    for (const DirectoryEntry& entry : entriesOf(native))
        removeNative(native + "/" + entry.name);
    if (::rmdir(native.c_str()) == -1)
        fail("cannot remove directory", native);
}

} // namespace

std::string readFile(std::string_view path) {
    File file(path, OpenMode::read);
    std::string content(file.size(), '\0');
    content.resize(file.read(content.data(), content.size()));
    // Files of /proc and the like tell no size.
    char more[4096];
    while (const std::size_t got = file.read(more, sizeof more))
        content.append(more, got);
    return content;
}

std::vector<DirectoryEntry> listDirectory(std::string_view path) {
    return entriesOf(nativePath(path));
}

void createDirectory(std::string_view path) {
    const std::string native = nativePath(path);
    if (::mkdir(native.c_str(), 0777) == -1)
        fail("cannot create directory", native);
}

void removeFile(std::string_view path) {
    const std::string native = nativePath(path);
    if (::unlink(native.c_str()) == -1)
        fail("cannot remove file", native);
}

void removeDirectory(std::string_view path) {
    const std::string native = nativePath(path);
    if (::rmdir(native.c_str()) == -1)
        fail("cannot remove directory", native);
}

void removeTree(std::string_view path) {
    removeNative(nativePath(path));
}

void renameFile(std::string_view from, std::string_view to) {
    const std::string source = nativePath(from);
    if (::rename(source.c_str(), nativePath(to).c_str()) == -1)
        fail("cannot rename", source);
}

void copyFile(std::string_view from, std::string_view to) {
    File source(from, OpenMode::read);
    if (sameFile(from, to))
        return;
    File target(to, OpenMode::write);
    copyBytes(source, target);
    struct stat status;
    if (::stat(source.path().c_str(), &status) == 0 && (status.st_mode & 0111) != 0)
        ::chmod(target.path().c_str(), (status.st_mode & 0777) | S_IWUSR);
    target.close();
}

} // namespace platform

#include "platform/file.h"

#include "windows/wide.h"

#include <algorithm>
#include <memory>

namespace platform {

using internal::fail;
using internal::widePath;

namespace {

struct FindCloser {
    using pointer = HANDLE;
    void operator()(HANDLE search) const noexcept { FindClose(search); }
};

EntryKind kindOf(DWORD attributes) {
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return EntryKind::directory;
    return attributes & FILE_ATTRIBUTE_DEVICE ? EntryKind::other : EntryKind::file;
}

void makeRemovable(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY))
        SetFileAttributesW(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
}

bool isDotName(std::wstring_view name) {
    return name == L"." || name == L"..";
}

} // namespace

std::string readFile(std::string_view path) {
    File file(path, OpenMode::read);
    std::string content(file.size(), '\0');
    content.resize(file.read(content.data(), content.size()));
    return content;
}

std::vector<DirectoryEntry> listDirectory(std::string_view path) {
    const std::wstring pattern = widePath(joinPath(path, "*"));
    WIN32_FIND_DATAW found;
    const HANDLE first = FindFirstFileW(pattern.c_str(), &found);
    if (first == INVALID_HANDLE_VALUE)
        fail("cannot read directory", std::string(path));
    const std::unique_ptr<HANDLE, FindCloser> search(first);
    std::vector<DirectoryEntry> entries;
    do {
        if (!isDotName(found.cFileName))
            entries.push_back({internal::narrow(found.cFileName), kindOf(found.dwFileAttributes)});
    } while (FindNextFileW(first, &found));
    if (GetLastError() != ERROR_NO_MORE_FILES)
        fail("cannot read directory", std::string(path));
    std::ranges::sort(entries, {}, &DirectoryEntry::name);
    return entries;
}

void createDirectory(std::string_view path) {
    if (!CreateDirectoryW(widePath(path).c_str(), nullptr))
        fail("cannot create directory", std::string(path));
}

void removeFile(std::string_view path) {
    const std::wstring native = widePath(path);
    makeRemovable(native);
    if (!DeleteFileW(native.c_str()))
        fail("cannot remove file", std::string(path));
}

void removeDirectory(std::string_view path) {
    const std::wstring native = widePath(path);
    makeRemovable(native);
    if (!RemoveDirectoryW(native.c_str()))
        fail("cannot remove directory", std::string(path));
}

void removeTree(std::string_view path) {
    if (!exists(path))
        return;
    if (isFile(path))
        return removeFile(path);
    if (!isSymbolicLink(path))
        for (const DirectoryEntry& entry : listDirectory(path))
            removeTree(joinPath(path, entry.name));
    removeDirectory(path);
}

void renameFile(std::string_view from, std::string_view to) {
    if (!MoveFileExW(widePath(from).c_str(), widePath(to).c_str(), MOVEFILE_REPLACE_EXISTING))
        fail("cannot rename", std::string(from));
}

void copyFile(std::string_view from, std::string_view to) {
    if (sameFile(from, to))
        return;
    const std::wstring target = widePath(to);
    if (!CopyFileW(widePath(from).c_str(), target.c_str(), FALSE))
        fail("cannot copy file", std::string(from));
    makeRemovable(target);
}

} // namespace platform

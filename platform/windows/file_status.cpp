#include "platform/file.h"

#include "windows/wide.h"

#include <vector>

namespace platform {

using internal::fail;
using internal::Handle;
using internal::shareAll;
using internal::wide;
using internal::widePath;

namespace {

// Paths up to this length need no prefix; directories are limited to fewer than files.
constexpr std::size_t longestPlainPath = 240;

DWORD attributesOf(std::string_view path) noexcept {
    try {
        return path.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(widePath(path).c_str());
    } catch (const std::exception&) {
        return INVALID_FILE_ATTRIBUTES;
    }
}

Handle openForAccess(std::string_view path, DWORD access) {
    return Handle(CreateFileW(widePath(path).c_str(), access, shareAll, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

bool mayOpen(std::string_view path, DWORD access) noexcept {
    try {
        return !path.empty() &&
               (openForAccess(path, access) || GetLastError() == ERROR_SHARING_VIOLATION);
    } catch (const std::exception&) {
        return false;
    }
}

BY_HANDLE_FILE_INFORMATION mustLook(std::string_view path) {
    BY_HANDLE_FILE_INFORMATION information;
    const Handle opened = openForAccess(path, FILE_READ_ATTRIBUTES);
    if (!opened || !GetFileInformationByHandle(opened.get(), &information))
        fail("cannot look at file", std::string(path));
    return information;
}

std::chrono::system_clock::time_point timePoint(const FILETIME& time) {
    using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
    constexpr std::int64_t ticksTo1970 = 116'444'736'000'000'000;
    const std::int64_t ticks =
        (static_cast<std::int64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
    return std::chrono::system_clock::time_point(
        std::chrono::duration_cast<std::chrono::system_clock::duration>(
            Ticks(ticks - ticksTo1970)));
}

std::wstring fullPath(std::string_view path) {
    const std::wstring given = wide(path.empty() ? "." : path);
    std::wstring full(GetFullPathNameW(given.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(
        GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

} // namespace

std::wstring internal::widePath(std::string_view path) {
    std::wstring full = fullPath(path);
    if (full.size() < longestPlainPath || full.starts_with(L"\\\\?\\"))
        return full;
    if (full.starts_with(L"\\\\"))
        return L"\\\\?\\UNC" + full.substr(1);
    return L"\\\\?\\" + full;
}

bool exists(std::string_view path) noexcept {
    return attributesOf(path) != INVALID_FILE_ATTRIBUTES;
}

bool isFile(std::string_view path) noexcept {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool isDirectory(std::string_view path) noexcept {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool isSymbolicLink(std::string_view path) noexcept {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

bool existsAsSpelled(std::string_view path) noexcept {
    try {
        WIN32_FIND_DATAW found;
        const HANDLE search = FindFirstFileW(widePath(path).c_str(), &found);
        if (search == INVALID_HANDLE_VALUE)
            return false;
        FindClose(search);
        return wide(fileName(path)) == found.cFileName;
    } catch (const std::exception&) {
        return false;
    }
}

std::string temporaryDirectory() {
    wchar_t path[MAX_PATH + 1];
    const DWORD length = GetTempPathW(static_cast<DWORD>(std::size(path)), path);
    return length > 0 ? absolutePath(internal::narrow(std::wstring_view(path, length))) : ".";
}

bool isReadable(std::string_view path) noexcept {
    return mayOpen(path, FILE_READ_DATA);
}

bool isWritable(std::string_view path) noexcept {
    // The read-only attribute of a directory is a mark for the shell and protects nothing.
    if (isFile(path) && (attributesOf(path) & FILE_ATTRIBUTE_READONLY))
        return false;
    return mayOpen(path, FILE_WRITE_DATA);
}

bool sameFile(std::string_view first, std::string_view second) noexcept {
    try {
        const BY_HANDLE_FILE_INFORMATION a = mustLook(first);
        const BY_HANDLE_FILE_INFORMATION b = mustLook(second);
        return a.dwVolumeSerialNumber == b.dwVolumeSerialNumber &&
               a.nFileIndexHigh == b.nFileIndexHigh && a.nFileIndexLow == b.nFileIndexLow;
    } catch (const std::exception&) {
        return false;
    }
}

std::uint64_t fileSize(std::string_view path) {
    const BY_HANDLE_FILE_INFORMATION information = mustLook(path);
    return (static_cast<std::uint64_t>(information.nFileSizeHigh) << 32) | information.nFileSizeLow;
}

std::chrono::system_clock::time_point lastWriteTime(std::string_view path) {
    return timePoint(mustLook(path).ftLastWriteTime);
}

std::chrono::system_clock::time_point createTime(std::string_view path) {
    return timePoint(mustLook(path).ftCreationTime);
}

char pathSeparator() noexcept {
    return '\\';
}

std::string nativePath(std::string_view path) {
    return std::string(path);
}

std::string absolutePath(std::string_view path) {
    std::string full = internal::narrow(fullPath(path));
    while (full.size() > 3 && full.back() == '\\')
        full.pop_back();
    return full;
}

std::string canonicalPath(std::string_view path) {
    const Handle opened = openForAccess(path, FILE_READ_ATTRIBUTES);
    if (!opened)
        fail("cannot look at file", std::string(path));
    std::wstring full(GetFinalPathNameByHandleW(opened.get(), nullptr, 0, 0), L'\0');
    full.resize(
        GetFinalPathNameByHandleW(opened.get(), full.data(), static_cast<DWORD>(full.size()), 0));
    if (full.empty())
        return absolutePath(path);
    const std::string result = internal::narrow(full);
    if (result.starts_with("\\\\?\\UNC\\"))
        return "\\" + result.substr(7);
    return result.starts_with("\\\\?\\") ? result.substr(4) : result;
}

std::string currentDirectory() {
    std::wstring buffer(256, L'\0');
    for (;;) {
        const DWORD length = GetCurrentDirectoryW(static_cast<DWORD>(buffer.size()), buffer.data());
        if (length == 0)
            fail("cannot find the working directory", ".");
        const bool fits = length < buffer.size();
        buffer.resize(length);
        if (fits)
            return internal::narrow(buffer);
    }
}

} // namespace platform

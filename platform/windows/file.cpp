#include "platform/file.h"

#include "windows/wide.h"

#include <algorithm>
#include <utility>

namespace platform {

using internal::fail;

namespace {

constexpr std::size_t largestTransfer = std::size_t{1} << 30;

HANDLE system(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}

DWORD accessFor(OpenMode mode) {
    if (mode == OpenMode::read)
        return GENERIC_READ;
    return mode == OpenMode::write ? GENERIC_WRITE : FILE_APPEND_DATA | SYNCHRONIZE;
}

DWORD creationFor(OpenMode mode) {
    if (mode == OpenMode::read)
        return OPEN_EXISTING;
    return mode == OpenMode::write ? CREATE_ALWAYS : OPEN_ALWAYS;
}

} // namespace

bool internal::writeAll(HANDLE file, const void* data, std::size_t size) noexcept {
    const char* next = static_cast<const char*>(data);
    while (size > 0) {
        DWORD written = 0;
        const auto part = static_cast<DWORD>(std::min(size, largestTransfer));
        if (!WriteFile(file, next, part, &written, nullptr))
            return false;
        next += written;
        size -= written;
    }
    return true;
}

bool internal::isPassingError(DWORD error) noexcept {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
           error == ERROR_ACCESS_DENIED;
}

File::File(std::string_view filePath, OpenMode mode) : name(nativePath(filePath)) {
    internal::Handle opened(CreateFileW(internal::widePath(name).c_str(), accessFor(mode),
                                        internal::shareAll, nullptr, creationFor(mode),
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!opened)
        fail("cannot open file", name);
    handle = reinterpret_cast<std::intptr_t>(opened.release());
}

File::~File() {
    if (isOpen())
        internal::Handle(system(handle));
}

std::size_t File::read(void* data, std::size_t size) {
    char* next = static_cast<char*>(data);
    std::size_t total = 0;
    while (total < size) {
        DWORD got = 0;
        const auto part = static_cast<DWORD>(std::min(size - total, largestTransfer));
        if (!ReadFile(system(handle), next + total, part, &got, nullptr)) {
            if (GetLastError() == ERROR_BROKEN_PIPE)
                break;
            fail("cannot read file", name);
        }
        if (got == 0)
            break;
        total += got;
    }
    return total;
}

void File::write(const void* data, std::size_t size) {
    if (!internal::writeAll(system(handle), data, size))
        fail("cannot write file", name);
}

void File::flushToDisk() {
    if (!FlushFileBuffers(system(handle)))
        fail("cannot write file", name);
}

std::uint64_t File::size() const {
    LARGE_INTEGER result;
    if (!GetFileSizeEx(system(handle), &result))
        fail("cannot look at file", name);
    return static_cast<std::uint64_t>(result.QuadPart);
}

std::uint64_t File::position() const {
    LARGE_INTEGER here = {};
    LARGE_INTEGER result;
    if (!SetFilePointerEx(system(handle), here, &result, FILE_CURRENT))
        fail("cannot find position in file", name);
    return static_cast<std::uint64_t>(result.QuadPart);
}

void File::seek(std::uint64_t offset) {
    LARGE_INTEGER to;
    to.QuadPart = static_cast<LONGLONG>(offset);
    if (!SetFilePointerEx(system(handle), to, nullptr, FILE_BEGIN))
        fail("cannot move in file", name);
}

void File::close() {
    if (isOpen() && !CloseHandle(system(std::exchange(handle, closedHandle))))
        fail("cannot write file", name);
}

void File::swap(File& other) noexcept {
    name.swap(other.name);
    std::swap(handle, other.handle);
}

} // namespace platform

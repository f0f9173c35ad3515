#include "posix/descriptor.h"

#include "platform/environment.h"
#include "platform/file.h"

#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace platform {

using internal::fail;

namespace {

bool look(std::string_view path, struct stat& status) noexcept {
    try {
        return ::stat(nativePath(path).c_str(), &status) == 0;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

struct stat mustLook(std::string_view path) {
    struct stat status;
    const std::string native = nativePath(path);
    if (::stat(native.c_str(), &status) == -1)
        fail("cannot look at file", native);
    return status;
}

std::chrono::system_clock::time_point timePoint(const timespec& time) {
    return std::chrono::system_clock::time_point(
        std::chrono::duration_cast<std::chrono::system_clock::duration>(
            std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec)));
}

bool mayAccess(std::string_view path, int mode) noexcept {
    try {
        return ::faccessat(AT_FDCWD, nativePath(path).c_str(), mode, AT_EACCESS) == 0;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

// Resolves "." and ".." in an absolute path by spelling.
std::string withoutDots(const std::string& path) {
    std::string result;
    std::size_t at = 0;
    while (at < path.size()) {
        const std::size_t start = path.find_first_not_of('/', at);
        if (start == std::string::npos)
            break;
        at = std::min(path.find('/', start), path.size());
        const std::string_view part = std::string_view(path).substr(start, at - start);
        if (part == "..")
            result.resize(result.empty() ? 0 : result.rfind('/'));
        else if (part != ".")
            result.append("/").append(part);
    }
    return result.empty() ? "/" : result;
}

} // namespace

bool exists(std::string_view path) noexcept {
    struct stat status;
    return look(path, status);
}

bool isFile(std::string_view path) noexcept {
    struct stat status;
    return look(path, status) && S_ISREG(status.st_mode);
}

bool isDirectory(std::string_view path) noexcept {
    struct stat status;
    return look(path, status) && S_ISDIR(status.st_mode);
}

bool isSymbolicLink(std::string_view path) noexcept {
    try {
        struct stat status;
        return ::lstat(nativePath(path).c_str(), &status) == 0 && S_ISLNK(status.st_mode);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool existsAsSpelled(std::string_view path) noexcept {
    return exists(path);
}

std::string temporaryDirectory() {
    const std::string named = environmentVariable("TMPDIR").value_or("");
    return isDirectory(named) ? named : "/tmp";
}

bool isReadable(std::string_view path) noexcept {
    return mayAccess(path, R_OK);
}
bool isWritable(std::string_view path) noexcept {
    return mayAccess(path, W_OK);
}

bool sameFile(std::string_view first, std::string_view second) noexcept {
    struct stat a;
    struct stat b;
    return look(first, a) && look(second, b) && a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

std::uint64_t fileSize(std::string_view path) {
    return static_cast<std::uint64_t>(mustLook(path).st_size);
}

std::chrono::system_clock::time_point lastWriteTime(std::string_view path) {
    return timePoint(mustLook(path).st_mtim);
}

// posix keeps no time of creation; the last change of the entry is the nearest to it.
std::chrono::system_clock::time_point createTime(std::string_view path) {
    return timePoint(mustLook(path).st_ctim);
}

char pathSeparator() noexcept {
    return '/';
}

std::string nativePath(std::string_view path) {
    std::string native(path);
    for (char& c : native)
        if (c == '\\')
            c = '/';
    return native;
}

std::string absolutePath(std::string_view path) {
    std::string native = nativePath(path);
    if (native.empty() || native.front() != '/')
        native = currentDirectory() + "/" + native;
    return withoutDots(native);
}

std::string canonicalPath(std::string_view path) {
    const std::string native = nativePath(path);
    const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(native.c_str(), nullptr),
                                                               &std::free);
    if (!resolved)
        fail("cannot look at file", native);
    return resolved.get();
}

std::string currentDirectory() {
    std::string buffer(256, '\0');
    while (::getcwd(buffer.data(), buffer.size()) == nullptr) {
        if (errno != ERANGE)
            fail("cannot find the working directory", ".");
        buffer.resize(buffer.size() * 2);
    }
    buffer.resize(buffer.find('\0'));
    return buffer;
}

} // namespace platform

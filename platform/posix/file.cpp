#include "platform/file.h"

#include "posix/descriptor.h"

#include <algorithm>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>

namespace platform {

using internal::fail;

namespace {

constexpr std::size_t largestTransfer = std::size_t{1} << 30;

int flagsFor(OpenMode mode) {
    switch (mode) {
    case OpenMode::read:
        return O_RDONLY;
    case OpenMode::write:
        return O_WRONLY | O_CREAT | O_TRUNC;
    case OpenMode::append:
        break;
    }
    return O_WRONLY | O_CREAT | O_APPEND;
}

int fd(std::intptr_t handle) {
    return static_cast<int>(handle);
}

} // namespace

int internal::openDescriptor(const std::string& path, int flags, unsigned mode) noexcept {
    int opened = -1;
    do
        opened = ::open(path.c_str(), flags | O_CLOEXEC, mode);
    while (opened == -1 && errno == EINTR);
    return opened;
}

bool internal::writeAll(int descriptor, const void* data, std::size_t size) noexcept {
    const char* next = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = ::write(descriptor, next, std::min(size, largestTransfer));
        if (written == -1 && errno == EINTR)
            continue;
        if (written == -1)
            return false;
        next += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

void internal::flushDirectory(const std::string& directory) noexcept {
    const Descriptor opened(openDescriptor(directory, O_RDONLY | O_DIRECTORY));
    if (opened)
        ::fsync(opened.get());
}

File::File(std::string_view filePath, OpenMode mode) : name(nativePath(filePath)) {
    internal::Descriptor opened(internal::openDescriptor(name, flagsFor(mode)));
    if (!opened)
        fail("cannot open file", name);
    struct stat status;
    if (::fstat(opened.get(), &status) == 0 && S_ISDIR(status.st_mode))
        throw SystemFailure("cannot open file", name, SystemError(EISDIR));
    handle = opened.release();
}

File::~File() {
    if (isOpen())
        internal::Descriptor(fd(handle));
}

std::size_t File::read(void* data, std::size_t size) {
    char* next = static_cast<char*>(data);
    std::size_t total = 0;
    while (total < size) {
        const ssize_t got =
            ::read(fd(handle), next + total, std::min(size - total, largestTransfer));
        if (got == -1 && errno == EINTR)
            continue;
        if (got == -1)
            fail("cannot read file", name);
        if (got == 0)
            break;
        total += static_cast<std::size_t>(got);
    }
    return total;
}

void File::write(const void* data, std::size_t size) {
    if (!internal::writeAll(fd(handle), data, size))
        fail("cannot write file", name);
}

void File::flushToDisk() {
    // Devices and pipes have no disk to reach.
    if (::fsync(fd(handle)) == -1 && errno != EINVAL && errno != EROFS)
        fail("cannot write file", name);
}

std::uint64_t File::size() const {
    struct stat status;
    if (::fstat(fd(handle), &status) == -1)
        fail("cannot look at file", name);
    return static_cast<std::uint64_t>(status.st_size);
}

std::uint64_t File::position() const {
    const off_t at = ::lseek(fd(handle), 0, SEEK_CUR);
    if (at == -1)
        fail("cannot find position in file", name);
    return static_cast<std::uint64_t>(at);
}

void File::seek(std::uint64_t offset) {
    if (::lseek(fd(handle), static_cast<off_t>(offset), SEEK_SET) == -1)
        fail("cannot move in file", name);
}

void File::close() {
    if (!isOpen())
        return;
    // The number is free again even when close reports an error.
    if (::close(fd(std::exchange(handle, closedHandle))) == -1 && errno != EINTR)
        fail("cannot write file", name);
}

void File::swap(File& other) noexcept {
    name.swap(other.name);
    std::swap(handle, other.handle);
}

} // namespace platform

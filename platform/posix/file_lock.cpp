#include "platform/file_lock.h"

#include "platform/file.h"
#include "posix/descriptor.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace platform {

using internal::Descriptor;

namespace {

bool isStillAt(int fd, const std::string& path) {
    struct stat opened;
    struct stat named;
    return ::fstat(fd, &opened) == 0 && ::stat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

// Nothing when the lock is held elsewhere.
std::optional<Descriptor> lockOnce(const std::string& path, int operation) {
    Descriptor opened(internal::openDescriptor(path, O_RDWR | O_CREAT, 0666));
    if (!opened && operation == LOCK_SH)
        opened = Descriptor(internal::openDescriptor(path, O_RDONLY));
    if (!opened)
        internal::fail("cannot create lock file", path);
    int result = 0;
    do
        result = ::flock(opened.get(), operation | LOCK_NB);
    while (result == -1 && errno == EINTR);
    if (result == -1 && errno == EWOULDBLOCK)
        return std::nullopt;
    if (result == -1)
        internal::fail("cannot lock file", path);
    return opened;
}

} // namespace

std::optional<FileLock> FileLock::tryAcquire(std::string_view path, LockKind kind) {
    const std::string native = nativePath(path);
    for (;;) {
        std::optional<Descriptor> locked =
            lockOnce(native, kind == LockKind::shared ? LOCK_SH : LOCK_EX);
        if (!locked)
            return std::nullopt;
        // The last holder may have removed the file between the opening and the lock.
        if (isStillAt(locked->get(), native))
            return FileLock(native, locked->release());
    }
}

void FileLock::release() noexcept {
    if (handle == noHandle)
        return;
    const Descriptor held(static_cast<int>(std::exchange(handle, noHandle)));
    // Going from shared to exclusive lets others in between, so the path is looked at again.
    if (::flock(held.get(), LOCK_EX | LOCK_NB) == 0 && isStillAt(held.get(), path))
        ::unlink(path.c_str());
}

void FileLock::swap(FileLock& other) noexcept {
    path.swap(other.path);
    std::swap(handle, other.handle);
}

} // namespace platform

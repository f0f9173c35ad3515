#include "platform/exclusive_file.h"

#include "platform/atomic_file.h"
#include "posix/descriptor.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace platform {

using internal::Descriptor;
using internal::fail;

namespace {

class Temporary {
public:
    Temporary(const std::string& target, std::string_view content)
        : path(temporaryPathFor(target)) {
        const Descriptor created(internal::openDescriptor(path, O_WRONLY | O_CREAT | O_EXCL, 0666));
        if (!created)
            fail("cannot create file", target);
        if (!internal::writeAll(created.get(), content.data(), content.size())) {
            const SystemError error = lastSystemError();
            ::unlink(path.c_str());
            throw SystemFailure("cannot create file", target, error);
        }
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;
    ~Temporary() { ::unlink(path.c_str()); }

    const std::string path;
};

// For file systems without hard links: a reader may find the file before it has its content.
bool createInPlace(const std::string& target, std::string_view content) {
    const Descriptor created(internal::openDescriptor(target, O_WRONLY | O_CREAT | O_EXCL, 0666));
    if (!created && errno == EEXIST)
        return false;
    if (!created || !internal::writeAll(created.get(), content.data(), content.size()))
        fail("cannot create file", target);
    return true;
}

bool isStillAt(int fd, const std::string& path) {
    struct stat opened;
    struct stat named;
    return ::fstat(fd, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

} // namespace

bool createExclusively(std::string_view path, std::string_view content) {
    const std::string target = nativePath(path);
    const Temporary temporary(target, content);
    if (::link(temporary.path.c_str(), target.c_str()) == 0)
        return true;
    if (errno == EEXIST)
        return false;
    if (errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS)
        return createInPlace(target, content);
    fail("cannot create file", target);
}

bool removeFileIf(std::string_view path, const std::function<bool(const std::string&)>& judge) {
    const std::string target = nativePath(path);
    const Descriptor opened(internal::openDescriptor(target, O_RDONLY));
    if (!opened)
        return false;
    // Whoever removes the file holds this lock while it does, so a file that is still at its path
    // under the lock stays there.
    if (::flock(opened.get(), LOCK_EX) == -1 && errno != EOPNOTSUPP && errno != ENOLCK)
        return false;
    if (!isStillAt(opened.get(), target) || !judge(readFile(target)))
        return false;
    return ::unlink(target.c_str()) == 0;
}

} // namespace platform

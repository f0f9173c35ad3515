#include "platform/atomic_file.h"

#include "posix/descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

namespace platform {

using internal::Descriptor;
using internal::fail;

namespace {

// Replacing a link would cut it; its file is what has to be replaced.
std::string resolved(std::string_view path) {
    return isSymbolicLink(path) && exists(path) ? canonicalPath(path) : nativePath(path);
}

void requireReplaceable(const std::string& target) {
    struct stat status;
    if (::stat(target.c_str(), &status) == -1)
        return;
    if (S_ISDIR(status.st_mode))
        throw SystemFailure("cannot write file", target, SystemError(EISDIR));
    // rename(2) asks only for the directory's permission.
    if (!isWritable(target))
        fail("cannot write file", target);
}

File createTemporary(const std::string& target) {
    for (;;) {
        const std::string path = temporaryPathFor(target);
        const Descriptor created(internal::openDescriptor(path, O_WRONLY | O_CREAT | O_EXCL, 0666));
        if (created)
            return File(path, OpenMode::append);
        if (errno != EEXIST)
            fail("cannot write file", target);
    }
}

void takeOverPermissions(const std::string& target, const std::string& temporary) {
    struct stat status;
    if (::stat(target.c_str(), &status) == 0)
        ::chmod(temporary.c_str(), status.st_mode & 07777);
}

} // namespace

AtomicFile::AtomicFile(std::string_view targetPath) : targetName(resolved(targetPath)) {
    requireReplaceable(targetName);
    file = createTemporary(targetName);
}

AtomicFile::~AtomicFile() {
    if (!committed)
        ::unlink(file.path().c_str());
}

void AtomicFile::write(const void* data, std::size_t size) {
    try {
        file.write(data, size);
    } catch (const SystemFailure& failure) {
        throw SystemFailure("cannot write file", targetName, failure.error());
    }
}

void AtomicFile::commit() {
    try {
        takeOverPermissions(targetName, file.path());
        file.flushToDisk();
        file.close();
    } catch (const SystemFailure& failure) {
        throw SystemFailure("cannot write file", targetName, failure.error());
    }
    if (::rename(file.path().c_str(), targetName.c_str()) == -1)
        fail("cannot write file", targetName);
    committed = true;
    internal::flushDirectory(parentPath(targetName));
}

} // namespace platform

#include "platform/atomic_file.h"

#include "windows/wide.h"

namespace platform {

using internal::fail;
using internal::Handle;
using internal::widePath;

namespace {

constexpr int renameAttempts = 20;

std::string resolved(std::string_view path) {
    return isSymbolicLink(path) && exists(path) ? canonicalPath(path) : nativePath(path);
}

void requireReplaceable(const std::string& target) {
    if (isDirectory(target))
        throw SystemFailure("cannot write file", target, SystemError(ERROR_ACCESS_DENIED));
    if (exists(target) && !isWritable(target))
        throw SystemFailure("cannot write file", target, SystemError(ERROR_ACCESS_DENIED));
}

File createTemporary(const std::string& target) {
    for (;;) {
        const std::string path = temporaryPathFor(target);
        const Handle created(CreateFileW(widePath(path).c_str(), GENERIC_WRITE, internal::shareAll,
                                         nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (created)
            return File(path, OpenMode::write);
        if (GetLastError() != ERROR_FILE_EXISTS)
            fail("cannot write file", target);
    }
}

} // namespace

AtomicFile::AtomicFile(std::string_view targetPath) : targetName(resolved(targetPath)) {
    requireReplaceable(targetName);
    file = createTemporary(targetName);
}

AtomicFile::~AtomicFile() {
    if (committed)
        return;
    const std::string path = file.path();
    File().swap(file);
    DeleteFileW(widePath(path).c_str());
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
        file.flushToDisk();
        file.close();
    } catch (const SystemFailure& failure) {
        throw SystemFailure("cannot write file", targetName, failure.error());
    }
    const std::wstring from = widePath(file.path());
    const std::wstring to = widePath(targetName);
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExW(from.c_str(), to.c_str(),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            break;
        if (attempt == renameAttempts || !internal::isPassingError(GetLastError()))
            fail("cannot write file", targetName);
        Sleep(10);
    }
    committed = true;
}

} // namespace platform

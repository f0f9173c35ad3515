#include "oaFile.h"

#include "base/src/system_reason.h"
#include "oaException.h"
#include "platform/file.h"

#include <chrono>

namespace OpenAccess_4 {

struct oaFile::Handle {
    platform::File file;
};

namespace {

platform::OpenMode openModeOf(const oaString& path, oaChar mode) {
    switch (mode) {
    case 'r':
        return platform::OpenMode::read;
    case 'w':
        return platform::OpenMode::write;
    case 'a':
        return platform::OpenMode::append;
    default:
        throw oaError(oacInvalidFileAccessMode, static_cast<const oaChar*>(path), mode);
    }
}

oaTime secondsOf(std::chrono::system_clock::time_point time) {
    return std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count();
}

// Runs `body` and turns a failure of the system into the message `msgId` about `path`.
template <class Body>
auto onFile(const oaString& path, oaUInt4 msgId, Body&& body) {
    try {
        return body();
    } catch (const platform::SystemFailure& failure) {
        throw oaError(msgId, static_cast<const oaChar*>(path), impl::systemReason(failure).c_str());
    }
}

} // namespace

oaFile::oaFile(const oaString& path) : oaFSComponent(path) {}

oaFile::~oaFile() = default;

void oaFile::open(oaChar mode) {
    const platform::OpenMode openMode = openModeOf(getName(), mode);
    close();
    const oaChar* path = getName();
    // Some systems open a directory like a file and fail only when it is read.
    if (platform::isDirectory(path))
        throw oaError(oacFileOpenFailed, path, mode, "it is a directory");
    try {
        handle_ = std::make_unique<Handle>(Handle{platform::File(path, openMode)});
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacFileOpenFailed, path, mode, impl::systemReason(failure).c_str());
    }
    mode_ = mode;
}

void oaFile::close() {
    const std::unique_ptr<Handle> closing = std::move(handle_);
    mode_ = '\0';
    if (closing)
        onFile(getName(), oacFileCloseFailed, [&] { closing->file.close(); });
}

void oaFile::flush() {
    onFile(getName(), oacFileWriteFailed, [&] { openHandle().file.flushToDisk(); });
}

oaUInt4 oaFile::read(oaByte* data, oaUInt4 numBytes) {
    return onFile(getName(), oacFileReadFailed,
                  [&] { return static_cast<oaUInt4>(openHandle().file.read(data, numBytes)); });
}

oaUInt4 oaFile::write(const oaByte* data, oaUInt4 numBytes) {
    return onFile(getName(), oacFileWriteFailed, [&] {
        openHandle().file.write(data, numBytes);
        return numBytes;
    });
}

oaBoolean oaFile::isOpen() const {
    return handle_ != nullptr;
}

oaBoolean oaFile::isNonEmpty() const {
    return exists() && getSize() > 0;
}

oaUInt8 oaFile::getSize() const {
    return onFile(getName(), oacFileGetInfoFailed, [&]() -> oaUInt8 {
        return platform::fileSize(static_cast<const oaChar*>(getName()));
    });
}

oaTime oaFile::getLastWriteTime() const {
    return onFile(getName(), oacFileGetInfoFailed, [&] {
        return secondsOf(platform::lastWriteTime(static_cast<const oaChar*>(getName())));
    });
}

oaTime oaFile::getCreateTime() const {
    return onFile(getName(), oacFileGetInfoFailed, [&] {
        return secondsOf(platform::createTime(static_cast<const oaChar*>(getName())));
    });
}

void oaFile::copyFile(const oaString& srcPath, const oaString& dstPath) {
    const oaChar* from = srcPath;
    const oaChar* to = dstPath;
    try {
        platform::copyFile(from, to);
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacFileCopyFailed, from, to, impl::systemReason(failure).c_str());
    }
}

oaFile::Handle& oaFile::openHandle() const {
    if (!handle_)
        throw oaError(oacFileNotOpen, static_cast<const oaChar*>(getName()));
    return *handle_;
}

} // namespace OpenAccess_4

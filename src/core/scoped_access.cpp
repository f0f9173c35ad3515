#include <utility>

#include "core/boundary.h"

namespace ovalis {

namespace {

bool lock(oa::oaDMFile& file) {
    return atBoundary([&] { return file.getLock() != 0; });
}

// Lenient towards the database alone: anything else that is thrown ends the process.
void unlock(oa::oaDMFile& file) noexcept {
    try {
        file.releaseLock();
    } catch (const oa::oaException&) {
    }
}

} // namespace

ScopedLibAccess::ScopedLibAccess(oa::oaLib& lib, oa::oaLibAccess access, unsigned int timeout)
    : lib_(&lib) {
    hasAccess_ = atBoundary([&] {
        initOa();
        return lib_->getAccess(access, timeout) != 0;
    });
}

// Strict, unlike the file locks: a right that cannot be given back ends the process.
ScopedLibAccess::~ScopedLibAccess() {
    if (hasAccess_) {
        lib_->releaseAccess();
    }
}

ScopedDMFileLock::ScopedDMFileLock(oa::oaDMFile& file) : file_(&file) {
    if (!lock(file)) {
        throw std::runtime_error("failed to obtain DMFile lock.");
    }
}

ScopedDMFileLock::~ScopedDMFileLock() {
    unlock(*file_);
}

void ScopedDMFileLock::swap(ScopedDMFileLock& other) noexcept {
    std::swap(file_, other.file_);
}

ScopedDMFileTryLock::ScopedDMFileTryLock(oa::oaDMFile& file)
    : file_(lock(file) ? &file : nullptr) {}

ScopedDMFileTryLock::~ScopedDMFileTryLock() {
    if (file_ != nullptr) {
        unlock(*file_);
    }
}

void ScopedDMFileTryLock::swap(ScopedDMFileTryLock& other) noexcept {
    std::swap(file_, other.file_);
}

} // namespace ovalis

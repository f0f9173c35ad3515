#include "platform/lock_use.h"

#include "platform/file.h"
#include "portable/lock_holders.h"

#include <string>

namespace platform {

namespace {

std::optional<LockKind> kindByTrial(const std::string& path) {
    try {
        if (FileLock::tryAcquire(path, LockKind::exclusive))
            return std::nullopt;
    } catch (const SystemFailure&) {
        // Who may not write the file can still learn of a writer.
        if (FileLock::tryAcquire(path, LockKind::shared))
            return std::nullopt;
        return LockKind::exclusive;
    }
    return FileLock::tryAcquire(path, LockKind::shared) ? LockKind::shared : LockKind::exclusive;
}

} // namespace

std::optional<LockUse> lockUseOf(std::string_view path) {
    const std::string native = nativePath(path);
    if (!isFile(native))
        return std::nullopt;
    if (std::optional<LockUse> told = internal::toldLockUse(native))
        return told;
    try {
        if (const std::optional<LockKind> kind = kindByTrial(native))
            return LockUse{*kind, {}};
    } catch (const SystemFailure&) {
    }
    return std::nullopt;
}

} // namespace platform

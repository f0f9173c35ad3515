#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

enum class LockKind { shared, exclusive };

/// A lock on a lock file that the system itself gives up when the process ends, however it ends.
///
/// - Two locks of one process exclude each other like those of two processes.
/// - The lock file is created with the lock and removed by its last holder.
/// - Move-only; a moved-from lock holds nothing.
class FileLock {
public:
    /// @returns nothing when somebody holds a lock that excludes this one.
    /// @throws SystemFailure  the lock file can neither be opened nor created.
    static std::optional<FileLock> tryAcquire(std::string_view path, LockKind kind);

    FileLock(FileLock&& other) noexcept { swap(other); }
    FileLock& operator=(FileLock&& other) noexcept {
        FileLock(static_cast<FileLock&&>(other)).swap(*this);
        return *this;
    }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock() { release(); }

    void release() noexcept;
    void swap(FileLock& other) noexcept;

private:
    static constexpr std::intptr_t noHandle = -1;

    FileLock(std::string lockPath, std::intptr_t lockHandle) noexcept
        : path(static_cast<std::string&&>(lockPath)), handle(lockHandle) {}

    std::string path;
    std::intptr_t handle = noHandle;
};

} // namespace platform

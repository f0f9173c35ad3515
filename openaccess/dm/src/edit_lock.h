#pragma once

#include "oa/oaDMEnums.h"

#include <optional>
#include <string>

namespace OpenAccess_4::impl {

/// The right to change one managed file, held against all processes: "<file>.cdslck" beside it.
///
/// - The lock file tells who holds the lock. One left by a dead process of this host is taken over,
///   and so is one that came along with the copy of a directory; one of another host or system
///   cannot be judged and counts as held.
/// - Move-only; the destructor releases. Locks that are still held when the process ends normally
///   are released then.
class EditLock {
public:
    static constexpr const char* kSuffix = ".cdslck";

    /// Nothing when somebody, the calling process included, holds the lock.
    /// @throws platform::SystemFailure  the lock file cannot be made.
    static std::optional<EditLock> tryAcquire(const std::string& file);

    /// @throws oaDMError  oacCannotLockDatabase: names the file and who holds it, or the reason.
    static EditLock acquire(const std::string& file);

    static oaDMLockStatusEnum status(const std::string& file);

    EditLock(EditLock&& other) noexcept { swap(other); }
    EditLock& operator=(EditLock&& other) noexcept {
        EditLock(static_cast<EditLock&&>(other)).swap(*this);
        return *this;
    }
    EditLock(const EditLock&) = delete;
    EditLock& operator=(const EditLock&) = delete;
    ~EditLock() { release(); }

    /// Gives the lock back; what another process put in the place of the lock file stays.
    void release() noexcept;
    void swap(EditLock& other) noexcept;

private:
    EditLock(std::string path, std::string text);

    std::string lockPath_; // empty when nothing is held
    std::string content_;
};

} // namespace OpenAccess_4::impl

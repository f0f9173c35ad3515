#include "platform/file_lock.h"

#include "platform/file.h"
#include "windows/wide.h"

#include <utility>

namespace platform {

using internal::Handle;
using internal::widePath;

namespace {

// Far behind any content, because Windows refuses reads of a locked range.
OVERLAPPED lockedRange() {
    OVERLAPPED range = {};
    range.OffsetHigh = 0x40000000;
    return range;
}

constexpr int openAttempts = 200;

// A lock file that its last holder is just removing cannot be opened until that is done.
Handle openLockFile(const std::string& path, LockKind kind) {
    const std::wstring native = widePath(path);
    for (int attempt = 1;; ++attempt) {
        Handle opened(CreateFileW(native.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                                  internal::shareAll, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN,
                                  nullptr));
        if (!opened && kind == LockKind::shared)
            opened = Handle(CreateFileW(native.c_str(), GENERIC_READ, internal::shareAll, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        const bool passing = GetLastError() == ERROR_ACCESS_DENIED && exists(path);
        if (opened || !passing || attempt == openAttempts)
            return opened;
        Sleep(1);
    }
}

bool lock(HANDLE file, LockKind kind) {
    OVERLAPPED range = lockedRange();
    const DWORD exclusive = kind == LockKind::exclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0;
    return LockFileEx(file, exclusive | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &range) != 0;
}

bool isRemoved(HANDLE file) {
    FILE_STANDARD_INFO information = {};
    return GetFileInformationByHandleEx(file, FileStandardInfo, &information, sizeof information) &&
           (information.DeletePending || information.NumberOfLinks == 0);
}

} // namespace

std::optional<FileLock> FileLock::tryAcquire(std::string_view path, LockKind kind) {
    const std::string native = nativePath(path);
    for (;;) {
        Handle opened = openLockFile(native, kind);
        if (!opened)
            internal::fail("cannot create lock file", native);
        if (!lock(opened.get(), kind)) {
            const DWORD error = GetLastError();
            if (error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING)
                return std::nullopt;
            internal::fail("cannot lock file", native);
        }
        // The last holder may have removed the file between the opening and the lock.
        if (!isRemoved(opened.get()))
            return FileLock(native, reinterpret_cast<std::intptr_t>(opened.release()));
    }
}

void FileLock::release() noexcept {
    if (handle == noHandle)
        return;
    const Handle held(reinterpret_cast<HANDLE>(std::exchange(handle, noHandle)));
    OVERLAPPED range = lockedRange();
    UnlockFileEx(held.get(), 0, 1, 0, &range);
    if (!lock(held.get(), LockKind::exclusive))
        return;
    FILE_DISPOSITION_INFO disposition = {};
    disposition.DeleteFile = TRUE;
    SetFileInformationByHandle(held.get(), FileDispositionInfo, &disposition, sizeof disposition);
}

void FileLock::swap(FileLock& other) noexcept {
    path.swap(other.path);
    std::swap(handle, other.handle);
}

} // namespace platform

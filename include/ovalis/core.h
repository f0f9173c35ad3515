#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include <oa/oaDesignDB.h>

#include <ovalis/export.h>

/// Stands between an application and OpenAccess databases.
///
/// One rule for failures holds throughout: what this library finds wrong itself is thrown as
/// `std::runtime_error` with a fixed sentence, and what the database throws arrives as
/// `ovalis::Exception`. Absence is a null pointer or false. Nothing is rolled back.
///
/// All text is narrow UTF-8. One thread at a time.
namespace ovalis {

/// Carries a failure of the database out of this library.
class OVALIS_API Exception : public std::runtime_error {
public:
    /// Takes text and id of a database exception.
    explicit Exception(const oa::oaException& error);

    /// Takes text and id of an exception thrown by a plug-in of the database.
    explicit Exception(const oaCommon::IException& error);

    Exception(const Exception&) = default;
    Exception(Exception&&) = default;
    Exception& operator=(const Exception&) = default;
    Exception& operator=(Exception&&) = default;
    ~Exception() override;

    /// Returns the number by which the database identifies its message.
    std::int32_t msgId() const noexcept { return msgId_; }

private:
    std::int32_t msgId_;
};

/// Returns the characters of `text` up to the first NUL, unchanged.
OVALIS_API oa::oaString toOa(const std::string& text);

/// Returns the characters of `text` up to the first NUL, unchanged.
OVALIS_API std::string fromOa(const oa::oaString& text);

/// Holds two names, for example (cell, view); the function that returns it says which.
///
/// A plain value. A moved-from pair holds no strings: it can be assigned to and destroyed.
class OVALIS_API TStringPair {
public:
    /// Copies both names in order.
    TStringPair(const std::string& first, const std::string& second);

    /// Returns the name at place `I`, 0 or 1.
    template <std::size_t I>
    std::string& get() {
        static_assert(I < 2, "a pair has the places 0 and 1");
        return strings_[I];
    }

    /// Returns the name at place `I`, 0 or 1.
    template <std::size_t I>
    const std::string& get() const {
        static_assert(I < 2, "a pair has the places 0 and 1");
        return strings_[I];
    }

    /// Compares byte by byte, place by place.
    friend bool operator==(const TStringPair& a, const TStringPair& b) {
        return a.strings_ == b.strings_;
    }

private:
    std::vector<std::string> strings_;
};

/// Holds three names, for example (cell, view, view type); else as `TStringPair`.
class OVALIS_API TStringTriplet {
public:
    /// Copies the three names in order.
    TStringTriplet(const std::string& first, const std::string& second, const std::string& third);

    /// Returns the name at place `I`, 0 to 2.
    template <std::size_t I>
    std::string& get() {
        static_assert(I < 3, "a triplet has the places 0 to 2");
        return strings_[I];
    }

    /// Returns the name at place `I`, 0 to 2.
    template <std::size_t I>
    const std::string& get() const {
        static_assert(I < 3, "a triplet has the places 0 to 2");
        return strings_[I];
    }

    /// Compares byte by byte, place by place.
    friend bool operator==(const TStringTriplet& a, const TStringTriplet& b) {
        return a.strings_ == b.strings_;
    }

private:
    std::vector<std::string> strings_;
};

/// Makes a pair of `a` and `b`, in this order.
OVALIS_API TStringPair make_pair(const std::string& a, const std::string& b);

/// Makes a triplet of `a`, `b` and `c`, in this order.
OVALIS_API TStringTriplet make_triplet(const std::string& a, const std::string& b,
                                       const std::string& c);

/// Brings up OpenAccess and registers the pcell evaluators of this library.
///
/// Only the first call has an effect. Every function here that touches the database makes it by
/// itself; a host calls it first when it wants to use OpenAccess before.
///
/// The database's exceptions pass as they are (`oa::oaException`). After a failure before the
/// library counts as initialised, a later call starts again.
OVALIS_API void initOa();

/// Gives access to the angle, in degrees, that `addPorts` notes on each pin.
///
/// For callers to read, null until `initOa` has run. A pin without a value has the angle 0.0.
OVALIS_API extern oa::oaDoubleAppDef<oa::oaPin>* vexPinAngle;

/// Owns an open library together with its copies; the last owner closes it.
///
/// - `SharedOaLib lib(oaLib::open(...));` takes ownership, a null pointer makes an empty handle.
/// - Copies share the library; owners may go in any order.
/// - Two handles made from one pointer do not know of each other: both would close it.
///
/// The library object itself belongs to the database and is never deleted. A library that cannot
/// be closed when its last owner goes ends the process. Not for use by several threads.
class OVALIS_API SharedOaLib {
public:
    /// Makes an empty handle.
    SharedOaLib() noexcept = default;

    /// Takes ownership of `lib`; empty when it is null.
    explicit SharedOaLib(oa::oaLib* lib);

    SharedOaLib(const SharedOaLib& other) noexcept;
    SharedOaLib& operator=(const SharedOaLib& other) noexcept;
    ~SharedOaLib();

    /// Returns true when there is no library.
    bool operator!() const noexcept { return get() == nullptr; }

    /// Gives the library.
    /// @throws std::runtime_error  there is none.
    oa::oaLib* operator->() const;

    /// Gives the library.
    /// @throws std::runtime_error  there is none.
    oa::oaLib& operator*() const;

    /// Returns the library; null when there is none.
    oa::oaLib* get() const noexcept;

    /// Exchanges the libraries of two handles.
    void swap(SharedOaLib& other) noexcept;

private:
    struct Block;

    void release() noexcept;

    Block* block_ = nullptr;
};

/// Returns true when both handles give the same library; empty ones are equal.
OVALIS_API bool operator==(const SharedOaLib& a, const SharedOaLib& b) noexcept;

/// Returns true when the handles give different libraries.
OVALIS_API bool operator!=(const SharedOaLib& a, const SharedOaLib& b) noexcept;

/// Holds an access right on a library for the life of a local object.
///
/// - A refused right is not an error: ask `hasAccess()` or `!access`.
/// - A right that cannot be given back on destruction ends the process.
class OVALIS_API ScopedLibAccess {
public:
    /// Asks for `access` on `lib`; the database waits up to `timeout` seconds.
    /// @throws Exception  the database failed; nothing is held then.
    ScopedLibAccess(oa::oaLib& lib, oa::oaLibAccess access, unsigned int timeout);

    ScopedLibAccess(const ScopedLibAccess&) = delete;
    ScopedLibAccess& operator=(const ScopedLibAccess&) = delete;
    ~ScopedLibAccess();

    /// Returns true when the right was granted.
    bool hasAccess() const noexcept { return hasAccess_; }

    /// Returns true when the right was refused.
    bool operator!() const noexcept { return !hasAccess_; }

private:
    oa::oaLib* lib_;
    bool hasAccess_ = false;
};

/// Holds a lock on a design-management file that must be had.
///
/// The lock is given back on destruction; a failure of the database to do so is dropped.
class OVALIS_API ScopedDMFileLock {
public:
    /// Locks `file` without waiting.
    /// @throws std::runtime_error  the lock was refused.
    /// @throws Exception           the database failed.
    explicit ScopedDMFileLock(oa::oaDMFile& file);

    ScopedDMFileLock(const ScopedDMFileLock&) = delete;
    ScopedDMFileLock& operator=(const ScopedDMFileLock&) = delete;
    ~ScopedDMFileLock();

    /// Exchanges the locked files.
    void swap(ScopedDMFileLock& other) noexcept;

private:
    oa::oaDMFile* file_;
};

/// Holds a lock on a design-management file that may or may not be had.
///
/// The lock is given back on destruction; a failure of the database to do so is dropped.
class OVALIS_API ScopedDMFileTryLock {
public:
    /// Holds nothing.
    ScopedDMFileTryLock() noexcept = default;

    /// Tries to lock `file` without waiting.
    /// @throws Exception  the database failed; a refused lock is no failure.
    explicit ScopedDMFileTryLock(oa::oaDMFile& file);

    ScopedDMFileTryLock(const ScopedDMFileTryLock&) = delete;
    ScopedDMFileTryLock& operator=(const ScopedDMFileTryLock&) = delete;
    ~ScopedDMFileTryLock();

    /// Returns true when a lock is held.
    bool hasLock() const noexcept { return file_ != nullptr; }

    /// Returns true when no lock is held.
    bool operator!() const noexcept { return file_ == nullptr; }

    /// Exchanges what the two objects hold.
    void swap(ScopedDMFileTryLock& other) noexcept;

private:
    oa::oaDMFile* file_ = nullptr;
};

/// Reads a whole file, byte for byte.
///
/// Made for small files: of one with 4 GiB or more only the low 32 bits of the size are read, and
/// the rest of the result is zero bytes. The database's exceptions pass as they are.
/// @throws std::runtime_error  the file is missing, or its size cannot be handled.
OVALIS_API std::string readoaFile(const std::string& path);

/// Writes all of `content` into a file that exists, at its end when `append` is true, else in
/// place of what it held; returns the number of bytes written.
///
/// Never makes a file. The database's exceptions pass as they are.
/// @throws std::runtime_error  the file is missing.
OVALIS_API int writeoaFile(const std::string& path, const std::string& content, bool append);

} // namespace ovalis

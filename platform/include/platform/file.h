#pragma once

#include "platform/path.h"
#include "platform/system_error.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// What a name in a directory stands for; a link counts as what it leads to.
enum class EntryKind { file, directory, other };

struct DirectoryEntry {
    std::string name;
    EntryKind kind;

    friend bool operator==(const DirectoryEntry&, const DirectoryEntry&) = default;
};

/// Tests on a path. They never throw: what cannot be looked at is not there.
bool exists(std::string_view path) noexcept;
bool isFile(std::string_view path) noexcept;
bool isDirectory(std::string_view path) noexcept;
bool isSymbolicLink(std::string_view path) noexcept;

/// True when this process may read (write) the file or directory now.
bool isReadable(std::string_view path) noexcept;
bool isWritable(std::string_view path) noexcept;

/// True when both paths lead to one file; false when either is missing.
bool sameFile(std::string_view first, std::string_view second) noexcept;

/// True when there is such a file or directory and its last name is spelled so on the disk. Differs
/// from exists() where the file system takes upper and lower case for the same.
bool existsAsSpelled(std::string_view path) noexcept;

/// Where programs put files of the moment.
std::string temporaryDirectory();

/// @throws SystemFailure  the file is missing.
std::uint64_t fileSize(std::string_view path);
std::chrono::system_clock::time_point lastWriteTime(std::string_view path);
std::chrono::system_clock::time_point createTime(std::string_view path);

/// The whole content of a file.
std::string readFile(std::string_view path);

/// The names in a directory, without "." and "..", sorted by their bytes.
std::vector<DirectoryEntry> listDirectory(std::string_view path);

/// Creates one directory; fails when the name is taken or the parent is missing.
void createDirectory(std::string_view path);

/// Removes one file or link.
void removeFile(std::string_view path);

/// Removes an empty directory.
void removeDirectory(std::string_view path);

/// Removes a file, or a directory with everything in it. Links are removed, not followed. A path
/// that is not there is no error.
void removeTree(std::string_view path);

/// Renames a file or directory; an existing file of the new name is replaced.
void renameFile(std::string_view from, std::string_view to);

/// Copies a file's content over `to`. The copy can always be written by its owner. Copying a file
/// onto itself leaves it alone.
void copyFile(std::string_view from, std::string_view to);

/// How `File` opens: `write` empties or creates, `append` creates when missing.
enum class OpenMode { read, write, append };

/// An open file, without any translation of line ends. Moved-from and closed files are not open.
class File {
public:
    File() noexcept = default;

    /// @throws SystemFailure  the file cannot be opened in this way.
    File(std::string_view path, OpenMode mode);

    File(File&& other) noexcept { swap(other); }
    File& operator=(File&& other) noexcept {
        File(static_cast<File&&>(other)).swap(*this);
        return *this;
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File();

    bool isOpen() const noexcept { return handle != closedHandle; }
    explicit operator bool() const noexcept { return isOpen(); }
    const std::string& path() const noexcept { return name; }

    /// Reads up to `size` bytes; a smaller answer means that the file ended.
    std::size_t read(void* data, std::size_t size);

    /// Writes all bytes or throws.
    void write(const void* data, std::size_t size);

    /// Returns once everything written has reached the disk.
    void flushToDisk();

    std::uint64_t size() const;
    std::uint64_t position() const;
    void seek(std::uint64_t offset);

    /// Closes the file. Systems that buffer writes report a full disk here at the latest.
    void close();

    void swap(File& other) noexcept;

private:
    static constexpr std::intptr_t closedHandle = -1;

    std::string name;
    std::intptr_t handle = closedHandle;
};

} // namespace platform

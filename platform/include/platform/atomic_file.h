#pragma once

#include "platform/file.h"

namespace platform {

/// Replaces a file as one step: a reader sees the old file or the new one, never a part.
///
///     AtomicFile file(path);
///     file.write(bytes.data(), bytes.size());
///     file.commit();
///
/// - Everything goes to a temporary file in the same directory; `commit` flushes it to the disk and
///   renames it over the target, whose permissions it takes over.
/// - Without `commit` the destructor removes the temporary file.
/// - Every failure is a SystemFailure that names the target, which is left as it was.
class AtomicFile {
public:
    /// @throws SystemFailure  the directory or an existing target cannot be written.
    explicit AtomicFile(std::string_view targetPath);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    const std::string& target() const noexcept { return targetName; }
    const std::string& temporary() const noexcept { return file.path(); }

    void write(const void* data, std::size_t size);
    void commit();

private:
    std::string targetName;
    File file;
    bool committed = false;
};

/// True for the names that temporaryPathFor answers, which AtomicFile and createExclusively write
/// to; listings leave them out.
bool isTemporaryName(std::string_view name) noexcept;

/// A path beside `target` that this process has not answered before; nothing is created.
std::string temporaryPathFor(const std::string& target);

/// Removes temporary files and directories for `target` whose process on this host has ended
/// without removing them. What a living process or another host wrote stays. Never throws: litter
/// does no harm.
void removeStaleTemporaries(std::string_view target) noexcept;

} // namespace platform

#pragma once

#include "base/src/database.h"
#include "storage/src/database_file.h"

#include "platform/atomic_file.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace OpenAccess_4::impl {

/// Reads databases from a file that holds several of them, one behind the other. Each is a whole
/// database file of its own and begins at a multiple of 16 bytes, with zeros in front of it.
class DatabaseReader {
public:
    /// @throws oaError  oacDatabaseFileNotRead
    explicit DatabaseReader(const std::string& path);

    const std::string& path() const { return path_; }

    /// Fills `database` from the one that begins at the byte `offset`; otherwise as
    /// readDatabaseFile().
    void read(DatabaseFileKind kind, std::uint64_t offset, Database& database);

private:
    std::string path_;
    platform::File file_;
    std::uint64_t position_ = 0;
};

/// Writes such a file. What is not committed leaves the file as it was.
class DatabaseWriter {
public:
    /// Starts a new file, or with what `path` holds already; a file that is missing or empty holds
    /// nothing.
    /// @throws oaError  oacDatabaseFileNotWritten; oacDatabaseFileNotRead and
    ///                  oacDatabaseFileDamaged: there is something else than databases of `kind`
    DatabaseWriter(const std::string& path, DatabaseFileKind kind, bool keepsOld);

    /// Adds a database without the objects of the tables `leftOut`, which nothing else names.
    /// Answers the byte where it begins. @throws oaError  oacDatabaseFileNotWritten
    std::uint64_t append(const Database& database, std::span<const std::uint32_t> leftOut);
    /// @throws oaError  oacDatabaseFileNotWritten
    void commit();

private:
    void keepOld();

    std::string path_;
    DatabaseFileKind kind_;
    std::unique_ptr<platform::AtomicFile> file_;
    std::uint64_t size_ = 0;
};

} // namespace OpenAccess_4::impl

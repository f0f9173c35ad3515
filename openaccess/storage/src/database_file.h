#pragma once

#include "base/src/database.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace OpenAccess_4::impl {

/// What a database file holds.
enum class DatabaseFileKind : std::uint32_t {
    Design = 1,
    Technology = 2,
    PcellSubmasters = 3,
    LibraryData = 4
};

/// Fills `database`, whose fixed tables exist and are empty, from a file. Everything is verified
/// before it is used; after a failure the database is to be thrown away.
/// @throws oaError  oacDatabaseFileNotRead: the file cannot be read;
///                  oacDatabaseFileDamaged: it is not a whole and sound file of that kind.
///                  Both texts name the file and what is wrong.
void readDatabaseFile(const std::string& path, DatabaseFileKind kind, Database& database);

/// The same from the bytes of such a file; messages call it `name`.
void readDatabaseBytes(const std::string& name, std::span<const std::byte> bytes,
                       DatabaseFileKind kind, Database& database);

/// Writes `database` and puts it in the place of the file in one step: a reader sees the old file
/// or the new one. Destroyed objects and texts that nothing names any more are left out.
/// @throws oaError  oacDatabaseFileNotWritten, with the file and the reason; the old file is whole.
void writeDatabaseFile(const std::string& path, DatabaseFileKind kind, const Database& database);

} // namespace OpenAccess_4::impl

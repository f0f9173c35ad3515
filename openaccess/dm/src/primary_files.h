#pragma once

#include <optional>
#include <string>

namespace OpenAccess_4::impl {

/// The name of the primary file of a cell view whose view type has this name.
std::string primaryFileName(const std::string& viewType);

/// The name of the view type whose cell views have this primary file. A file that no view type of
/// ours would have names the type itself.
std::string viewTypeOfPrimary(const std::string& fileName);

/// The primary file of a cell view directory: what its "master.tag" says, else a file of a reserved
/// view type. Nothing when the directory is no cell view.
/// @throws DamagedFile  "master.tag" cannot be understood.
std::optional<std::string> findPrimary(const std::string& directory);

inline constexpr const char* kMasterTag = "master.tag";

/// Writes "master.tag". @throws platform::SystemFailure
void writeMasterTag(const std::string& directory, const std::string& primary);

/// True for a name that a file of a library, cell or cell view may have.
bool isManagedFileName(const std::string& name);

/// True for the files that belong to the library's own book-keeping.
bool isBookkeepingFile(const std::string& name);

/// The file with the properties of the library, cell or cell view that it lies in.
inline constexpr const char* kDataFile = "data.dm";

/// The lock file of library-wide access.
inline constexpr const char* kAccessLockFile = ".oalib.lck";

} // namespace OpenAccess_4::impl

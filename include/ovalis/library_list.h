#pragma once

#include <list>
#include <string>

#include <ovalis/core.h>
#include <ovalis/export.h>

namespace ovalis {

/// Loads the library definition file `path` with all that it includes, and opens the libraries that
/// it defines; an empty path means the default file of the database.
///
/// While the file is loaded, its directory is the working directory of the process, so that
/// relative paths in it mean what its author meant. On return, and when anything is thrown, it is
/// the one that it was.
///
/// - What is wrong in the files does not stop the loading. When `messages` is given and something
///   is wrong, it is replaced by what there is to tell: one message each, an empty line between
///   two. Otherwise it is left as it is.
/// - A file that cannot be read is told the same way, and the result is null, also when another
///   list was loaded before.
///
/// The list belongs to the database and stays its top list; destroy it with
/// `oaLibDefList::destroy` when it is not needed.
/// @returns the list, null when there is none.
/// @throws std::filesystem::filesystem_error  the working directory cannot be read or set.
[[nodiscard]] OVALIS_API oa::oaLibDefList* openLibraryList(const std::string& path,
                                                           std::string* messages);

/// Loads a library definition file as `openLibraryList` does and lists what it defines, as
/// (library name, library path); empty when nothing could be loaded.
///
/// The list is destroyed afterwards, also one that the caller had loaded before; those that it
/// includes and the libraries stay.
/// @throws std::filesystem::filesystem_error  the working directory cannot be read or set.
[[nodiscard]] OVALIS_API std::list<TStringPair> getFlattenedLibraryList(const std::string& path,
                                                                        std::string* messages);

/// Lists what `list` and the lists that it refers to define, as (library name, library path) in the
/// order of the files: the libraries of another list stand where it is referred to.
///
/// A name that is defined twice stands there twice; for the database the last one counts. Paths are
/// answered as the files state them, with the values of variables. A list that cannot be read, or
/// that leads back to itself, is passed over. Empty for null.
/// @throws Exception  the list has been destroyed.
[[nodiscard]] OVALIS_API std::list<TStringPair>
getFlattenedLibraryList(const oa::oaLibDefList* list);

} // namespace ovalis

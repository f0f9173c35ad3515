#pragma once

#include <string>
#include <vector>

#include <ovalis/core.h>
#include <ovalis/export.h>

namespace ovalis {

// Files that ride along with a library, a cell or a cell view.
//
// An entry and its file on disk are two things: adding makes the entry, and the caller writes the
// file to the path that is returned. None of these functions but `existsFileInOpenLib` takes access
// to the library: the caller holds what the database asks for, write access to add and remove, read
// access to find and list. Every one throws `Exception` when the database failed.

/// Finds or makes the entry `fileName` in `container` and returns the path of its file. An entry or
/// file that is there already is not touched.
/// @throws std::runtime_error  there is no entry to give.
OVALIS_API std::string addDMFile(oa::oaDMContainer& container, const std::string& fileName);

/// Finds or makes the entry of a file of the library.
/// @throws std::runtime_error  there is no entry to give.
OVALIS_API std::string addDMFile(oa::oaLib& lib, const std::string& fileName);

/// Finds or makes the entry of a file of a cell.
/// @throws std::runtime_error  there is no such cell, or no entry to give.
OVALIS_API std::string addDMFile(oa::oaLib& lib, const std::string& cellName,
                                 const std::string& fileName);

/// Finds or makes the entry of a file of a cell view.
/// @throws std::runtime_error  there is no such cell view, or no entry to give.
OVALIS_API std::string addDMFile(oa::oaLib& lib, const std::string& cellName,
                                 const std::string& viewName, const std::string& fileName);

/// Removes a file of the library with its entry. Returns false when there is no entry, and when
/// there is one without a file, which stays.
OVALIS_API bool removeDMFile(oa::oaLib& lib, const std::string& fileName);

/// Removes a file of a cell, as above.
/// @throws std::runtime_error  there is no such cell.
OVALIS_API bool removeDMFile(oa::oaLib& lib, const std::string& cellName,
                             const std::string& fileName);

/// Removes a file of a cell view, as above.
/// @throws std::runtime_error  there is no such cell view.
OVALIS_API bool removeDMFile(oa::oaLib& lib, const std::string& cellName,
                             const std::string& viewName, const std::string& fileName);

/// Returns (file name, path on disk) of all files of `container`, in the order of the database.
OVALIS_API std::vector<TStringPair> getDMFileNames(const oa::oaDMContainer& container);

/// Returns (file name, path on disk) of all files of the library, in the order of the database.
OVALIS_API std::vector<TStringPair> getDMFileNames(const oa::oaLib& lib);

/// Returns (file name, path on disk) of all files of a cell.
/// @throws std::runtime_error  there is no such cell.
OVALIS_API std::vector<TStringPair> getDMFileNames(const oa::oaLib& lib,
                                                   const std::string& cellName);

/// Returns (file name, path on disk) of all files of a cell view.
/// @throws std::runtime_error  there is no such cell view.
OVALIS_API std::vector<TStringPair>
getDMFileNames(const oa::oaLib& lib, const std::string& cellName, const std::string& viewName);

/// Returns (file name, path on disk) of one file of a cell view; two empty texts when the file or
/// the cell view is missing.
OVALIS_API TStringPair getDMFileName(const oa::oaLib& lib, const std::string& cellName,
                                     const std::string& viewName, const std::string& fileName);

/// Returns true when `container` has an entry for the file, whether or not the file is on disk.
OVALIS_API bool existsFile(oa::oaDMContainer& container, const char* fileName);

/// Returns true when the open library `libName` has an entry for the file.
///
/// Read access is taken for the moment when the library has none, and given back in any case.
/// @throws std::runtime_error  no library of that name is open, or read access was refused.
OVALIS_API bool existsFileInOpenLib(const char* libName, const char* fileName);

} // namespace ovalis

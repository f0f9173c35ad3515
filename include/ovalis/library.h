#pragma once

#include <string>
#include <vector>

#include <ovalis/core.h>
#include <ovalis/export.h>

namespace ovalis {

/// Owns an open library: closes it when it lets go of it.
///
/// - Returned by the functions that create, open and copy libraries.
/// - `release()` gives the library up without closing it.
/// - A library that somebody closed already is left alone. One that cannot be closed ends the
///   process.
///
/// The library object belongs to the database and is never deleted. A moved-from pointer is null.
class OVALIS_API LibPtr {
public:
    /// Owns nothing.
    LibPtr() noexcept = default;

    /// Takes ownership of `lib`, which may be null.
    explicit LibPtr(oa::oaLib* lib) noexcept : lib_(lib) {}

    LibPtr(LibPtr&& other) noexcept : lib_(other.release()) {}
    LibPtr& operator=(LibPtr&& other) noexcept;
    LibPtr(const LibPtr&) = delete;
    LibPtr& operator=(const LibPtr&) = delete;
    ~LibPtr();

    /// Returns the library, which stays owned; null when there is none.
    oa::oaLib* get() const noexcept { return lib_; }

    /// Gives the library, of which there must be one.
    oa::oaLib* operator->() const noexcept { return lib_; }

    /// Gives the library, of which there must be one.
    oa::oaLib& operator*() const noexcept { return *lib_; }

    /// Returns true when there is a library.
    explicit operator bool() const noexcept { return lib_ != nullptr; }

    /// Returns the library and owns nothing afterwards; the caller closes it.
    [[nodiscard]] oa::oaLib* release() noexcept;

    /// Closes the library and takes ownership of `lib`, which may be null.
    void reset(oa::oaLib* lib = nullptr) noexcept;

    /// Exchanges the libraries of two pointers.
    void swap(LibPtr& other) noexcept;

private:
    oa::oaLib* lib_ = nullptr;
};

// Libraries

/// Creates a library in the directory `libPath`, with an empty technology database that is saved.
///
/// The library is returned open, without access.
/// @throws Exception  the database refused, for example because the directory is not empty.
[[nodiscard]] OVALIS_API LibPtr createLib(const std::string& libPath, const std::string& libName);

/// Creates a library as `createLib`, and in it the file `lib.defs` that the circuit-design
/// environment reads: it pulls in that environment's definitions and defines the library itself.
///
/// A `lib.defs` that cannot be written is left out without an error.
/// @throws Exception  the database refused; no `lib.defs` is written then.
[[nodiscard]] OVALIS_API LibPtr createVEXCompatibleLib(const std::string& libPath,
                                                       const std::string& libName);

/// Opens the library at `libPath` under the name `libName`, with write or read access.
///
/// The access is held on return; the caller releases it, or lets closing do so.
/// @throws std::runtime_error  there is no library, or the access was refused.
/// @throws Exception           the database failed.
[[nodiscard]] OVALIS_API LibPtr openLib(const std::string& libPath, bool write,
                                        const std::string& libName);

/// Copies the library directory `srcPath` to `dstPath`, removes the first read-only mark of the
/// copy, and opens it under the name `libName` with write access.
///
/// A copy that fails on the way stays as far as it came. A source that is missing is no error of
/// its own: nothing is copied, and `dstPath` is opened if it is a library already.
/// @throws std::runtime_error  the copy has no library marker, is no library, or its access was
///                             refused.
/// @throws Exception           the database failed.
[[nodiscard]] OVALIS_API LibPtr copyLib(const std::string& srcPath, const std::string& dstPath,
                                        const std::string& libName);

/// Returns true when the database sees a library in the directory `libPath`.
OVALIS_API bool existsLib(const std::string& libPath);

/// Returns true when there is a library at `libPath` whose marker `.oalib` can be read.
OVALIS_API bool existsLibWithOaLib(const std::string& libPath);

/// Returns true when the circuit-design environment can use the path: no blank and no tab in it.
///
/// When it cannot and `message` is not null, the text of `message` is replaced by the reason; else
/// `message` is left alone.
OVALIS_API bool isVEXCompatibleLibPath(const std::string& libPath, std::string* message);

/// Returns true when there is a library at `libPath`, and reports what it lacks.
///
/// When `diagnostics` is not null, the library is opened for reading under the name `libName` and
/// one line for each missing piece is added to the text; the result is true all the same.
/// @throws std::runtime_error  read access was refused.
/// @throws Exception           the database failed, for example because the library is open.
OVALIS_API bool existsVEXCompatibleLib(const std::string& libPath, const std::string& libName,
                                       std::string* diagnostics);

// Cells and cell views
//
// None of these functions takes access to the library: the caller holds what the database asks
// for, write access to create and remove, read access to find and list. What they return belongs
// to the database. Every one throws `Exception` when the database failed.

/// Finds the cell `cellName`, or creates it; never null.
/// @throws std::runtime_error  there is no cell to give.
OVALIS_API oa::oaCell* createCell(oa::oaLib& lib, const std::string& cellName);

/// Removes the cell `cellName` with everything in it.
/// @throws std::runtime_error  there is no such cell.
OVALIS_API void removeCell(oa::oaLib& lib, const std::string& cellName);

/// Finds or creates the view `viewName` of `cell`, of the view type named `viewTypeName`, which
/// is made when the database does not know it; never null.
/// @throws std::runtime_error  view type, view or cell view could not be made.
OVALIS_API oa::oaCellView* createCellView(oa::oaCell& cell, const std::string& viewName,
                                          const std::string& viewTypeName);

/// Finds or creates the view `viewName` of `cell`, of a reserved view type; never null.
/// @throws std::runtime_error  view or cell view could not be made.
OVALIS_API oa::oaCellView* createCellView(oa::oaCell& cell, const std::string& viewName,
                                          oa::oaReservedViewTypeEnum viewType);

/// Finds or creates the cell, and in it the view as above; never null.
/// @throws std::runtime_error  cell, view type, view or cell view could not be made.
OVALIS_API oa::oaCellView* createCellView(oa::oaLib& lib, const std::string& cellName,
                                          const std::string& viewName,
                                          const std::string& viewTypeName);

/// Finds or creates the cell, and in it the view as above; never null.
/// @throws std::runtime_error  cell, view or cell view could not be made.
OVALIS_API oa::oaCellView* createCellView(oa::oaLib& lib, const std::string& cellName,
                                          const std::string& viewName,
                                          oa::oaReservedViewTypeEnum viewType);

/// Finds the view `viewName` of `cell`; null when the cell has no such cell view.
///
/// The look-up makes the view type and the view of the library when they are missing.
OVALIS_API oa::oaCellView* findCellView(oa::oaCell& cell, const std::string& viewName,
                                        const std::string& viewTypeName);

/// Finds the view `viewName` of the cell `cellName`; null when cell or cell view is missing.
///
/// When the cell exists, the look-up makes view type and view as above.
OVALIS_API oa::oaCellView* findCellView(oa::oaLib& lib, const std::string& cellName,
                                        const std::string& viewName,
                                        const std::string& viewTypeName);

/// Finds a cell view and makes nothing; null when there is none.
OVALIS_API oa::oaCellView* getCellView(oa::oaLib& lib, const std::string& cellName,
                                       const std::string& viewName);

/// Returns the names of all cells, in the order of the database.
OVALIS_API std::vector<std::string> getCellNames(const oa::oaLib& lib);

/// Returns (cell, view) of all cell views of the library, in the order of the database.
OVALIS_API std::vector<TStringPair> getCellViewNames(const oa::oaLib& lib);

/// Returns (cell, view) of all cell views of one cell.
/// @throws std::runtime_error  there is no such cell.
OVALIS_API std::vector<TStringPair> getCellViewNames(const oa::oaLib& lib,
                                                     const std::string& cellName);

/// Returns (cell, view, view type) of all cell views, in the order of the database.
OVALIS_API std::vector<TStringTriplet> getCellViewNamesAndTypes(const oa::oaLib& lib);

/// Returns (cell, view, view type) of all cell views of one cell.
/// @throws std::runtime_error  there is no such cell.
OVALIS_API std::vector<TStringTriplet> getCellViewNamesAndTypes(const oa::oaLib& lib,
                                                                const std::string& cellName);

// Designs

/// Returns true when the design is open or on disk; the library must be open under its name.
/// @throws Exception  the database failed.
OVALIS_API bool existsDesign(const char* libName, const char* cellName, const char* viewName);

/// Opens a design, for append when `write` is true, which creates a missing one, else for reading.
///
/// The design belongs to the database; the caller closes it.
/// @throws std::runtime_error  there is no design to give.
/// @throws Exception           the database failed, for example because somebody edits the design.
OVALIS_API oa::oaDesign* openDesign(oa::oaLib& lib, const std::string& cellName,
                                    const std::string& viewName, bool write);

/// Opens a design as `openDesign`; a missing one is created with the view type `viewType`.
/// @throws std::runtime_error  there is no design to give.
/// @throws Exception           the database failed, for example because somebody edits the design.
OVALIS_API oa::oaDesign* openDesignWithView(oa::oaLib& lib, const std::string& cellName,
                                            const std::string& viewName,
                                            oa::oaReservedViewTypeEnum viewType, bool write);

/// Opens a design for writing and saves it under another cell only when there is none to open.
///
/// With a database whose open gives a design or throws, this function never returns normally and
/// copies nothing. The source on disk stays as it is; the library is closed again on every path.
/// @throws std::runtime_error  a source design was opened; or the library could not be opened.
/// @throws Exception           the database failed.
OVALIS_API void copyDesign(const std::string& libPath, const std::string& cellName,
                           const std::string& viewName, const std::string& newCellName);

} // namespace ovalis

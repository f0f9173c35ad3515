#pragma once

#include "base/src/database.h"
#include "dm/src/directory_names.h"
#include "dm/src/edit_lock.h"
#include "dm/src/library_marker.h"
#include "oa/oaDMException.h"
#include "oa/oaLib.h"
#include "platform/file_lock.h"
#include "platform/system_error.h"

#include <chrono>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace OpenAccess_4::impl {

struct LibraryRecord {
    using Handle = oaLib;
    static constexpr oaTypeEnum kType = oacLibType;
};

struct CellRecord {
    using Handle = oaCell;
    static constexpr oaTypeEnum kType = oacCellType;

    std::string name;
    std::string directory;
    std::map<std::string, std::uint32_t> cellViews = {}; // by view name
};

struct ViewRecord {
    using Handle = oaView;
    static constexpr oaTypeEnum kType = oacViewType;

    std::string name;
    oaViewType* viewType = nullptr;
    bool defined = false; // asked for with get()
};

struct CellViewRecord {
    using Handle = oaCellView;
    static constexpr oaTypeEnum kType = oacCellViewType;

    std::uint32_t cell = kNone;
    std::uint32_t view = kNone;
    std::string directory;
    std::string primary;
};

struct FileRecord {
    using Handle = oaDMFile;
    static constexpr oaTypeEnum kType = oacDMFileType;

    ObjectRef parent;
    std::string name;
    std::uint32_t leader = kNone;
    std::optional<EditLock> lock = {};
};

/// Where an open library lies and how it was opened.
struct LibraryPlace {
    std::string name; // native spelling
    std::string path; // as given
    std::string writePath;
    oaLibModeEnum mode = oacSharedLibMode;
};

/// An open library. What it holds is read from the disk whenever it is asked for, because other
/// processes change it between two accesses; the objects stand for what was met and go when it is
/// gone.
class Library final : public Database {
public:
    /// Opens what `exists` is true for. @throws oaDMError  oacLibCouldNotOpen
    explicit Library(LibraryPlace place);

    /// True for a directory that is a library.
    static bool exists(const std::string& path);

    oaObject* object() const override { return handle(); }
    void requireEditable() const override {}
    bool holdsProperties() const override { return false; }
    /// Closes the data of the object as well.
    void forgetAttachments(const ObjectRef& ref) override;

    oaLib* handle() const;
    const std::string& name() const { return place_.name; }
    const LibraryPlace& place() const { return place_; }
    const std::string& fullPath() const { return fullPath_; }

    // Access.
    oaLibAccessLevelEnum level() const { return level_; }
    bool getAccess(oaLibAccessEnum kind, std::chrono::milliseconds patience);
    void releaseAccess();
    /// @throws oaDMError  oacLibAccessDenied: less is held
    void require(oaLibAccessEnum kind) const;
    /// Why access of this kind is refused whatever others do; empty when it is not.
    std::string refusal(oaLibAccessEnum kind) const;

    // Attributes.
    const LibraryMarker& marker() const { return marker_; }
    void replaceMarker(const LibraryMarker& marker);

    // Structure. Names are in native spelling; nothing here asks for access.
    oaCell* findCell(const std::string& cell);
    oaCell* getCell(const std::string& cell);
    std::vector<oaObject*> cells();
    void destroy(oaCell* cell);

    oaView* view(const std::string& view, const oaViewType* viewType, bool define);
    std::vector<oaObject*> views();
    void destroy(oaView* view);

    oaCellView* findCellView(oaCell* cell, const std::string& view);
    oaCellView* getCellView(oaCell* cell, const std::string& view, const oaViewType* viewType);
    std::vector<oaObject*> cellViews();
    std::vector<oaObject*> cellViewsOf(oaCell* cell);
    std::vector<oaObject*> cellViewsOf(oaView* view);
    void destroy(oaCellView* cellView);
    oaCell* cellOf(const oaCellView* cellView);
    oaView* viewOf(const oaCellView* cellView);

    oaDMFile* findFile(const ObjectRef& container, const std::string& file);
    oaDMFile* getFile(const ObjectRef& container, const std::string& file);
    std::vector<oaObject*> files(const ObjectRef& container);
    std::vector<oaObject*> followersOf(const oaDMFile* leader);
    void destroy(oaDMFile* file);

    /// The directory of a library, cell or cell view.
    std::string pathOf(const ObjectRef& container) const;
    std::string pathOf(const oaDMFile* file) const;

    /// The file with the properties of a library, cell, view or cell view.
    std::string dataFileOf(const ObjectRef& object) const;

    /// Runs what touches the disk; failures leave as the package's own errors.
    template <class Body>
    auto onDisk(Body body) const {
        try {
            return body();
        } catch (const DamagedFile& damaged) {
            throw oaDMError(oacLibFileDamaged, name().c_str(), damaged.what());
        } catch (const platform::SystemFailure& failure) {
            throw oaDMError(oacLibFileFailed, name().c_str(), failure.what());
        }
    }

private:
    bool tryLock(oaLibAccessEnum kind);
    void takeForGood();
    LibraryMarker readMarker() const;
    LibraryMarker openMarker() const;

    std::uint32_t cellSlot(const std::string& cell, const std::string& directory);
    bool holdsDirectory(const std::string& parent, const std::string& directory) const;
    std::set<std::string> namesBelow(const std::string& parent) const;
    std::optional<std::uint32_t> refreshCellView(std::uint32_t cell, const std::string& view);
    std::uint32_t addCellView(std::uint32_t cell, std::uint32_t view, std::string directory,
                              std::string primary);
    std::uint32_t viewSlot(const std::string& view, const oaViewType* viewType);
    bool holdsFile(const ObjectRef& container, const std::string& file) const;
    void forgetFiles(const ObjectRef& container);
    void forgetCellView(std::uint32_t slot);
    void forgetCell(std::uint32_t slot);
    void forgetView(std::uint32_t slot);

    LibraryPlace place_;
    std::string fullPath_;
    LibraryMarker marker_;
    DirectoryNames names_;

    oaLibAccessLevelEnum level_ = oacNoLibAccessLevel;
    unsigned holds_ = 0;
    std::optional<platform::FileLock> lock_;

    Table<LibraryRecord>& self_;
    Table<CellRecord>& cells_;
    Table<ViewRecord>& views_;
    Table<CellViewRecord>& cellViews_;
    Table<FileRecord>& files_;
    std::map<std::string, std::uint32_t> cellsByName_;
    std::map<std::pair<std::string, const oaViewType*>, std::uint32_t> viewsByName_;
    std::map<std::uint64_t, std::map<std::string, std::uint32_t>> filesByContainer_;
};

/// The library that a library, cell, view, cell view or file belongs to.
/// @throws oaError  oacInvalidObject
inline Library& libraryOf(const oaDMObject* object) {
    return static_cast<Library&>(tableOf(object).database());
}

/// The same for a caller that needs access. @throws oaDMError  oacLibAccessDenied
inline Library& libraryOf(const oaDMObject* object, oaLibAccessEnum needed) {
    Library& library = libraryOf(object);
    library.require(needed);
    return library;
}

/// A scalar name in native spelling. @throws oaDMError  oacInvalidDMName: it is empty
std::string nativeText(const oaScalarName& name, const char* what);

} // namespace OpenAccess_4::impl

#include "dm/src/library_access.h"

#include "dm/src/dm_session.h"
#include "dm/src/library.h"
#include "dm/src/primary_files.h"
#include "platform/file.h"

#include <algorithm>

namespace OpenAccess_4::impl {

namespace {

// Another process that saves into the library holds it for less than this.
constexpr auto shortAccessPatience = std::chrono::milliseconds(1000);

bool holdsNothingBut(const std::string& directory, bool (*ignored)(const std::string&)) {
    const auto entries = platform::listDirectory(directory);
    return std::ranges::all_of(entries, [&](const platform::DirectoryEntry& entry) {
        return entry.kind == platform::EntryKind::file && ignored(entry.name);
    });
}

} // namespace

oaLib* openLibrary(const oaScalarName& name) {
    const std::string text = nativeText(name, "library");
    if (const Library* library = DMSession::instance().findLibrary(text))
        return library->handle();
    throw oaDMError(oacCannotFindLibrary, text.c_str());
}

ShortAccess::ShortAccess(const oaLib* lib, oaLibAccessEnum kind) : lib_(lib) {
    Library& library = libraryOf(lib);
    if (library.getAccess(kind, shortAccessPatience))
        return;
    const std::string reason = library.refusal(kind);
    throw oaDMError(oacLibAccessDenied, kind == oacWriteLibAccess ? "Write" : "Read",
                    library.name().c_str(),
                    reason.empty() ? "it is in use elsewhere" : reason.c_str());
}

ShortAccess::~ShortAccess() {
    if (lib_->isValid())
        libraryOf(lib_).releaseAccess();
}

std::string libraryPath(const oaLib* lib) {
    return libraryOf(lib).fullPath();
}

std::string primaryPath(const oaCellView* cellView) {
    return platform::joinPath(libraryOf(cellView).pathOf(locationOf(cellView).ref),
                              recordOf<CellViewRecord>(cellView).primary);
}

DesignPlace makeDesignPlace(const oaLib* lib, const oaScalarName& cell, const oaScalarName& view,
                            const oaViewType* viewType) {
    Library& library = libraryOf(lib, oacWriteLibAccess);
    const std::string cellName = nativeText(cell, "cell");
    const std::string viewName = nativeText(view, "view");
    DesignPlace place;
    oaCell* owner = library.findCell(cellName);
    place.cellIsNew = owner == nullptr;
    if (!owner)
        owner = library.getCell(cellName);
    place.cellViewIsNew = library.findCellView(owner, viewName) == nullptr;
    place.cellView = library.getCellView(owner, viewName, viewType);
    return place;
}

void removeUnsaved(const DesignPlace& place) {
    if (!place.cellViewIsNew || !place.cellView->isValid())
        return;
    Library& library = libraryOf(place.cellView, oacWriteLibAccess);
    oaCell* cell = library.cellOf(place.cellView);
    library.onDisk([&] {
        if (!holdsNothingBut(library.pathOf(locationOf(place.cellView).ref), isBookkeepingFile))
            return;
        library.destroy(place.cellView);
        if (place.cellIsNew &&
            holdsNothingBut(library.pathOf(locationOf(cell).ref), isBookkeepingFile))
            library.destroy(cell);
    });
}

void beforeLibraryCloses(std::function<void(oaLib*)> hook) {
    DMSession::instance().addCloseHook(std::move(hook));
}

} // namespace OpenAccess_4::impl

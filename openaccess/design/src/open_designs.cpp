#include "design/src/open_designs.h"

#include "base/src/session.h"
#include "design/src/design_database.h"
#include "design/src/design_files.h"
#include "design/src/names.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaDesignException.h"
#include "oa/oaTech.h"
#include "storage/src/database_file.h"

#include "platform/file.h"

#include <chrono>
#include <ctime>

namespace OpenAccess_4::impl {

namespace {

template <class... Arguments>
oaDesignError errorOf(oaUInt4 id, const DesignNames& names, Arguments... arguments) {
    return oaDesignError(id, names.lib.c_str(), names.cell.c_str(), names.view.c_str(),
                         arguments...);
}

oaTime now() {
    return oaTime(std::time(nullptr));
}

void requireMode(const DesignNames& names, oaChar mode) {
    if (mode != 'r' && mode != 'a' && mode != 'w')
        throw errorOf(oacOpenUndefinedModeDesign, names, mode);
}

/// Purges masters that only the content of a design that is gone was bound to.
void purgeUnused(const std::vector<oaDesign*>& masters) {
    for (oaDesign* master : masters)
        if (master->isValid() && refCountOf(master) == 0)
            purgeDesign(master);
}

/// Puts other content in the place of what the design may have.
void replaceContent(OpenDesignRecord& design, std::unique_ptr<DesignDatabase> content) {
    std::vector<oaDesign*> masters;
    if (design.content) {
        design.content->pcell.unbind();
        masters = design.content->instances.boundMasters();
        std::erase(masters, design.content->design());
    }
    design.content = std::move(content);
    purgeUnused(masters);
}

void makeEmpty(OpenDesignRecord& design, std::uint32_t slot) {
    replaceContent(design, DesignDatabase::makeEmpty(slot));
    design.content->setModified(true);
}

/// Gives a super master whose content came from a file its definition. No access to the library is
/// held meanwhile: the evaluator may ask for its own.
oaDesign* withPcell(oaDesign* design) {
    if (design)
        designDatabaseOf(design).pcell.bind();
    return design;
}

/// Reads the content of the file. The caller holds access.
void load(OpenDesignRecord& design, std::uint32_t slot) {
    if (!hasContent(design.path))
        throw errorOf(oacCannotFindDesign, design.names);
    auto content = DesignDatabase::read(slot, design.path);
    design.header = headerOf(design.path);
    design.lastSavedTime =
        std::chrono::system_clock::to_time_t(platform::lastWriteTime(design.path));
    design.readInTime = now();
    replaceContent(design, std::move(content));
}

/// Takes the lock, empties or reads the design, and sets the mode. The caller holds write access.
void startEditing(OpenDesignRecord& design, std::uint32_t slot, oaChar mode) {
    std::optional<EditLock> lock;
    if (!design.lock)
        lock = EditLock::acquire(design.path);
    const bool changedElsewhere =
        lock && !design.header.empty() && design.header != headerOf(design.path);
    if (mode == 'w' || (!design.content && !hasContent(design.path)))
        makeEmpty(design, slot);
    else if (!design.content || changedElsewhere)
        load(design, slot);
    if (lock)
        design.lock = std::move(lock);
    design.mode = mode;
}

void stopEditing(OpenDesignRecord& design, std::uint32_t slot) {
    if (design.content->isModified())
        load(design, slot);
    design.lock.reset();
    design.mode = 'r';
}

void changeMode(OpenDesignRecord& design, std::uint32_t slot, oaChar mode) {
    const bool edit = mode != 'r';
    const DesignAccess access(design.lib, design.names,
                              edit ? oacWriteLibAccess : oacReadLibAccess);
    if (edit)
        startEditing(design, slot, mode);
    else if (design.mode != 'r')
        stopEditing(design, slot);
}

/// Adds an open design whose content `fill` provides.
template <class Fill>
oaDesign* addOpenDesign(OpenDesignRecord design, Fill fill) {
    design.readInTime = now();
    const std::uint32_t slot = openDesigns().add(std::move(design));
    try {
        fill(openDesigns()[slot], slot);
    } catch (...) {
        openDesigns().destroy(slot);
        throw;
    }
    return static_cast<oaDesign*>(openDesigns().handle(slot));
}

oaDesign* openForReading(OpenDesignRecord design, const oaViewType* wanted) {
    const DesignAccess access(design.lib, design.names, oacReadLibAccess);
    const oaCellView* cellView = findCellView(design.lib, design.names);
    if (!cellView)
        return nullptr;
    design.viewType = viewTypeFor(design.lib, design.names, wanted);
    design.path = primaryPath(cellView);
    if (!hasContent(design.path))
        return nullptr;
    return addOpenDesign(std::move(design), load);
}

oaDesign* openForEditing(OpenDesignRecord design, const oaViewType* wanted, oaChar mode) {
    const DesignAccess access(design.lib, design.names, oacWriteLibAccess);
    design.viewType = viewTypeFor(design.lib, design.names, wanted);
    const DesignPlace place = makePlace(design.lib, design.names, design.viewType);
    design.place = place;
    design.path = primaryPath(place.cellView);
    try {
        return addOpenDesign(std::move(design), [&](OpenDesignRecord& added, std::uint32_t slot) {
            startEditing(added, slot, mode);
        });
    } catch (...) {
        removeUnsaved(place);
        throw;
    }
}

/// Opens once more what is open.
oaDesign* openAgain(oaDesign* open, const oaViewType* wanted, oaChar mode) {
    OpenDesignRecord& design = recordOf<OpenDesignRecord>(open);
    if (wanted)
        requireSameType(design.names, design.viewType, wanted);
    if (mode == 'w' || (mode == 'a' && design.mode == 'r'))
        changeMode(design, slotOf(open), mode);
    ++design.openings;
    return open;
}

/// Takes back what was made on disk for a design that was never saved.
void removeFromDisk(const OpenDesignRecord& design) {
    if (!design.place.cellViewIsNew || hasContent(design.path))
        return;
    try {
        const DesignAccess access(design.lib, design.names, oacWriteLibAccess);
        removeUnsaved(design.place);
    } catch (const oaException&) {
        // An empty cell view is left behind. Closing a design does not fail for it.
    }
}

void purgeDesignsOf(const oaLib* lib) {
    std::vector<oaObject*> designs;
    openDesigns().forEach([&](std::uint32_t slot, const OpenDesignRecord& design) {
        if (design.lib == lib)
            designs.push_back(openDesigns().handle(slot));
    });
    for (oaObject* design : designs)
        if (design->isValid())
            purgeDesign(static_cast<oaDesign*>(design));
}

Table<OpenDesignRecord>& makeOpenDesigns() {
    beforeLibraryCloses(purgeDesignsOf);
    return Session::instance().addTable<OpenDesignRecord>(kOpenDesignTable);
}

} // namespace

Location OpenDesignRecord::location() const {
    return {content.get(), kDatabaseItself};
}

Table<OpenDesignRecord>& openDesigns() {
    static Table<OpenDesignRecord>& designs = makeOpenDesigns();
    return designs;
}

oaDesign* findOpenDesign(const DesignNames& names) {
    oaObject* found = nullptr;
    openDesigns().forEach([&](std::uint32_t slot, const OpenDesignRecord& design) {
        if (design.names == names)
            found = openDesigns().handle(slot);
    });
    return static_cast<oaDesign*>(found);
}

oaDesign* openDesign(const DesignNames& names, const oaViewType* viewType, oaChar mode) {
    requireMode(names, mode);
    if (viewType)
        requireDesignType(viewType);
    OpenDesignRecord design;
    design.names = names;
    design.lib = libraryOf(names);
    design.openings = 1;
    if (oaDesign* open = findOpenDesign(names))
        return withPcell(openAgain(open, viewType, mode));
    return withPcell(mode == 'r' ? openForReading(std::move(design), viewType)
                                 : openForEditing(std::move(design), viewType, mode));
}

oaDesign* openMaster(const DesignNames& names) {
    if (oaDesign* open = findOpenDesign(names))
        return open;
    try {
        oaDesign* design = openDesign(names, nullptr, 'r');
        if (design)
            recordOf<OpenDesignRecord>(design).openings = 0;
        return design;
    } catch (const oaException&) {
        return nullptr;
    }
}

void reopenDesign(oaDesign* design, oaChar mode) {
    OpenDesignRecord& record = recordOf<OpenDesignRecord>(design);
    requireMode(record.names, mode);
    changeMode(record, slotOf(design), mode);
    withPcell(design);
}

void revertDesign(oaDesign* design) {
    OpenDesignRecord& record = recordOf<OpenDesignRecord>(design);
    {
        const DesignAccess access(record.lib, record.names, oacReadLibAccess);
        load(record, slotOf(design));
    }
    withPcell(design);
}

void saveDesign(oaDesign* design) {
    OpenDesignRecord& record = recordOf<OpenDesignRecord>(design);
    if (record.mode == 'r')
        throw errorOf(oacSaveReadOnlyDesign, record.names);
    record.content->pcell.pack();
    const DesignAccess access(record.lib, record.names, oacWriteLibAccess);
    record.content->dropUnused();
    writeDatabaseFile(record.path, DatabaseFileKind::Design, *record.content);
    record.content->setModified(false);
    record.place = {};
    record.header = headerOf(record.path);
    record.lastSavedTime = now();
}

void saveDesignAs(oaDesign* design, const DesignNames& names) {
    const OpenDesignRecord& record = recordOf<OpenDesignRecord>(design);
    if (names == record.names)
        return saveDesign(design);
    const oaLib* lib = libraryOf(names);
    if (findOpenDesign(names))
        throw errorOf(oacCannotSaveAsOpenDesign, names);
    record.content->pcell.pack();
    const DesignAccess access(lib, names, oacWriteLibAccess);
    const DesignPlace place = makePlace(lib, names, viewTypeFor(lib, names, record.viewType));
    try {
        const std::string path = primaryPath(place.cellView);
        const EditLock lock = EditLock::acquire(path);
        writeDatabaseFile(path, DatabaseFileKind::Design, *record.content);
    } catch (...) {
        removeUnsaved(place);
        throw;
    }
}

void destroyDesign(const DesignNames& names) {
    const oaLib* lib = libraryOf(names);
    if (findOpenDesign(names))
        throw errorOf(oacCannotDestroyOpenDesign, names);
    const DesignAccess access(lib, names, oacWriteLibAccess);
    const oaCellView* cellView = findCellView(lib, names);
    if (!cellView || !hasContent(primaryPath(cellView)))
        throw errorOf(oacCannotFindDesign, names);
    const std::string path = primaryPath(cellView);
    const EditLock lock = EditLock::acquire(path);
    try {
        platform::removeFile(path);
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacUnableToRemove, path.c_str(), failure.error().text().c_str());
    }
}

bool designExists(const DesignNames& names) {
    const oaLib* lib = libraryOf(names);
    if (findOpenDesign(names))
        return true;
    const DesignAccess access(lib, names, oacReadLibAccess);
    const oaCellView* cellView = findCellView(lib, names);
    return cellView && hasContent(primaryPath(cellView));
}

void closeDesign(oaDesign* design) {
    OpenDesignRecord& record = recordOf<OpenDesignRecord>(design);
    if (record.openings > 0)
        --record.openings;
    if (refCountOf(design) == 0)
        purgeDesign(design);
}

void purgeDesign(oaDesign* design) {
    OpenDesignRecord& record = recordOf<OpenDesignRecord>(design);
    record.content->pcell.unbind();
    const std::vector<oaDesign*> masters = record.content->instances.boundMasters();
    record.lock.reset();
    removeFromDisk(record);
    oaTech* tech = record.tech;
    openDesigns().destroy(slotOf(design));
    if (tech && tech->isValid())
        tech->close();
    purgeUnused(masters);
}

std::uint32_t refCountOf(const oaDesign* design) {
    std::uint32_t count = recordOf<OpenDesignRecord>(design).openings;
    openDesigns().forEach([&](std::uint32_t slot, const OpenDesignRecord& other) {
        if (slot != slotOf(design) && other.content && other.content->instances.isBoundTo(design))
            ++count;
    });
    return count;
}

} // namespace OpenAccess_4::impl

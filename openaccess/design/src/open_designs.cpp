#include "design/src/open_designs.h"

#include "base/src/session.h"
#include "design/src/design_database.h"
#include "design/src/design_files.h"
#include "design/src/names.h"
#include "design/src/submasters.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaDesignObserver.h"

#include "platform/file.h"

#include <chrono>
#include <ctime>

namespace OpenAccess_4::impl {

using DesignObserver = oaVersionedObserver<oaDesign>;

namespace {

oaTime now() {
    return oaTime(std::time(nullptr));
}

void requireMode(const DesignNames& names, oaChar mode) {
    if (mode != 'r' && mode != 'a' && mode != 'w')
        throw designError(oacOpenUndefinedModeDesign, names, mode);
}

/// Answers whether there was something to empty.
bool makeEmpty(OpenDesignRecord& design, oaDesign* handle) {
    const bool hadContent = design.content || hasContent(design.path);
    replaceContent(design, DesignDatabase::makeEmpty(handle));
    design.content->setModified(true);
    return hadContent;
}

/// Gives a super master whose content came from a file its definition. No access to the library is
/// held meanwhile: the evaluator may ask for its own.
void bindPcell(oaDesign* design) {
    designDatabaseOf(design).pcell.bind();
}

/// The same for a design that may have submasters of its former content or definition.
void bindPcellAnew(oaDesign* design, const DesignDatabase* formerContent) {
    const bool isBound = designDatabaseOf(design).pcell.bind();
    if (isBound || recordFor(design).content.get() != formerContent)
        renewSubmasters(design);
}

/// Reads the content of the file. The caller holds access.
void load(OpenDesignRecord& design, oaDesign* handle) {
    if (!hasContent(design.path))
        throw designError(oacCannotFindDesign, design.names);
    auto content = DesignDatabase::read(handle, design.path);
    design.header = headerOf(design.path);
    design.lastSavedTime =
        std::chrono::system_clock::to_time_t(platform::lastWriteTime(design.path));
    design.readInTime = now();
    replaceContent(design, std::move(content));
}

/// Takes the lock, empties or reads the design, and sets the mode. The caller holds write access.
/// Answers whether the design was emptied.
bool startEditing(OpenDesignRecord& design, oaDesign* handle, oaChar mode) {
    std::optional<EditLock> lock;
    if (!design.lock)
        lock = EditLock::acquire(design.path);
    const bool changedElsewhere =
        lock && !design.header.empty() && design.header != headerOf(design.path);
    bool emptied = false;
    if (mode == 'w' || (!design.content && !hasContent(design.path)))
        emptied = makeEmpty(design, handle);
    else if (!design.content || changedElsewhere)
        load(design, handle);
    if (lock)
        design.lock = std::move(lock);
    design.mode = mode;
    return emptied;
}

void stopEditing(OpenDesignRecord& design, oaDesign* handle) {
    if (design.content->isModified())
        load(design, handle);
    design.lock.reset();
    design.mode = 'r';
}

bool changeModeOf(oaDesign* design, oaChar mode) {
    OpenDesignRecord& record = recordFor(design);
    const bool edit = mode != 'r';
    const DesignAccess access(record.lib, record.names,
                              edit ? oacWriteLibAccess : oacReadLibAccess);
    if (edit)
        return startEditing(record, design, mode);
    if (record.mode != 'r')
        stopEditing(record, design);
    return false;
}

void changeMode(oaDesign* design, oaChar mode) {
    requireNoSubmaster(design);
    requireNotEvaluated(design);
    const oaChar former = recordFor(design).mode;
    const DesignDatabase* formerContent = recordFor(design).content.get();
    DesignObserver::notifyPreReopenObservers(design, mode);
    const bool emptied = changeModeOf(design, mode);
    bindPcellAnew(design, formerContent);
    if (emptied)
        DesignObserver::notifyTruncateObservers(design);
    DesignObserver::notifyPostReopenObservers(design, former);
}

/// Adds an open design whose content `fill` provides.
template <class Fill>
oaDesign* addOpenDesign(OpenDesignRecord design, Fill fill) {
    design.readInTime = now();
    const std::uint32_t slot = openDesigns().add(std::move(design));
    auto* added = static_cast<oaDesign*>(openDesigns().handle(slot));
    try {
        fill(openDesigns()[slot], added);
    } catch (...) {
        openDesigns().destroy(slot);
        throw;
    }
    return added;
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

oaDesign* openForEditing(OpenDesignRecord design, const oaViewType* wanted, oaChar mode,
                         bool& emptied) {
    const DesignAccess access(design.lib, design.names, oacWriteLibAccess);
    design.viewType = viewTypeFor(design.lib, design.names, wanted);
    const DesignPlace place = makePlace(design.lib, design.names, design.viewType);
    design.place = place;
    design.path = primaryPath(place.cellView);
    try {
        return addOpenDesign(std::move(design), [&](OpenDesignRecord& added, oaDesign* handle) {
            emptied = startEditing(added, handle, mode);
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
        changeMode(open, mode);
    else
        bindPcellAnew(open, design.content.get());
    ++design.openings;
    return open;
}

void purgeDesignsOf(const oaLib* lib) {
    std::vector<oaObject*> designs;
    openDesigns().forEach([&](std::uint32_t slot, const OpenDesignRecord& design) {
        if (design.lib == lib)
            designs.push_back(openDesigns().handle(slot));
    });
    for (oaObject* design : designs)
        requireNotEvaluated(static_cast<oaDesign*>(design));
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

Table<OpenDesignRecord>& openSubmasters() {
    static Table<OpenDesignRecord>& submasters =
        Session::instance().addTable<OpenDesignRecord>(kSubmasterTable);
    return submasters;
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
        return openAgain(open, viewType, mode);
    bool emptied = false;
    oaDesign* opened = mode == 'r' ? openForReading(std::move(design), viewType)
                                   : openForEditing(std::move(design), viewType, mode, emptied);
    if (!opened)
        return nullptr;
    bindPcell(opened);
    DesignObserver::notifyFirstOpenObservers(opened);
    if (emptied)
        DesignObserver::notifyTruncateObservers(opened);
    return opened;
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
    requireMode(recordFor(design).names, mode);
    changeMode(design, mode);
}

void revertDesign(oaDesign* design) {
    requireNoSubmaster(design);
    requireNotEvaluated(design);
    OpenDesignRecord& record = recordFor(design);
    const DesignDatabase* formerContent = record.content.get();
    {
        const DesignAccess access(record.lib, record.names, oacReadLibAccess);
        load(record, design);
    }
    bindPcellAnew(design, formerContent);
}

} // namespace OpenAccess_4::impl

#include "design/src/open_designs.h"

#include "base/src/session.h"
#include "design/src/design_database.h"
#include "design/src/design_files.h"
#include "design/src/names.h"
#include "design/src/submasters.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaDesignException.h"
#include "oa/oaDesignObserver.h"
#include "oa/oaTech.h"
#include "storage/src/database_file.h"

#include "platform/file.h"

#include <chrono>
#include <ctime>

namespace OpenAccess_4::impl {

using DesignObserver = oaVersionedObserver<oaDesign>;

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

OpenDesignRecord& recordFor(const oaDesign* design) {
    return recordOf<OpenDesignRecord>(design);
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
        throw errorOf(oacCannotFindDesign, design.names);
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

namespace {

/// Does a piece of work between the news that it begins and the news of how it ended.
template <class Work, class Notify>
void withNews(Work work, Notify notifyEnd) {
    try {
        work();
    } catch (...) {
        notifyEnd(false);
        throw;
    }
    notifyEnd(true);
}

void writeToItsFile(OpenDesignRecord& record) {
    record.content->pcell.pack();
    const DesignAccess access(record.lib, record.names, oacWriteLibAccess);
    record.content->dropUnused();
    writeDatabaseFile(record.path, DatabaseFileKind::Design, *record.content);
    record.content->setModified(false);
    record.place = {};
    record.header = headerOf(record.path);
    record.lastSavedTime = now();
}

void writeToAnotherFile(const OpenDesignRecord& record, const DesignNames& names,
                        const oaLib* lib) {
    record.content->info();
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

} // namespace

void saveDesign(oaDesign* design) {
    OpenDesignRecord& record = recordFor(design);
    if (record.origin)
        throw errorOf(oacSaveScratchModeDesign, record.names);
    if (record.mode == 'r')
        throw errorOf(oacSaveReadOnlyDesign, record.names);
    DesignObserver::notifyPreSaveObservers(design);
    withNews([&] { writeToItsFile(record); },
             [&](bool done) { DesignObserver::notifyPostSaveObservers(design, done); });
}

void saveDesignAs(oaDesign* design, const DesignNames& names) {
    const OpenDesignRecord& record = recordFor(design);
    if (names == record.names)
        return saveDesign(design);
    const oaLib* lib = libraryOf(names);
    if (findOpenDesign(names))
        throw errorOf(oacCannotSaveAsOpenDesign, names);
    const oaScalarName libName = scalarName(names.lib.c_str());
    const oaScalarName cellName = scalarName(names.cell.c_str());
    const oaScalarName viewName = scalarName(names.view.c_str());
    DesignObserver::notifyPreSaveAsObservers(design, libName, cellName, viewName);
    withNews([&] { writeToAnotherFile(record, names, lib); },
             [&](bool done) {
                 DesignObserver::notifyPostSaveAsObservers(design, libName, cellName, viewName,
                                                           done);
             });
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

namespace {

bool isBusy(const OpenDesignRecord& record) {
    return record.evaluations > 0 ||
           (record.origin && record.origin->state != EvaluationState::Done);
}

bool isUnused(const oaDesign* design) {
    return design->isValid() && !isBusy(recordFor(design)) && refCountOf(design) == 0;
}

void forgetSubmaster(Submasters& submasters, oaDesign* submaster, const std::string& key) {
    std::erase(submasters.made, submaster);
    const auto known = submasters.byKey.find(key);
    if (known != submasters.byKey.end() && known->second == submaster)
        submasters.byKey.erase(known);
}

void append(std::vector<oaDesign*>& designs, const std::vector<oaDesign*>& more) {
    designs.insert(designs.end(), more.begin(), more.end());
}

/// Takes a design out of memory, with its submasters. Answers the designs that it may have been the
/// last to refer to.
std::vector<oaDesign*> drop(oaDesign* design) {
    DesignObserver::notifyPurgeObservers(design);
    OpenDesignRecord& record = recordFor(design);
    std::vector<oaDesign*> referred = record.content->instances.boundMasters();
    while (!record.submasters.made.empty())
        append(referred, drop(record.submasters.made.back()));
    record.content->pcell.unbind();
    if (record.origin) {
        oaDesign* superMaster = record.origin->superMaster;
        forgetSubmaster(recordFor(superMaster).submasters, design, record.origin->key);
        referred.push_back(superMaster);
    }
    record.lock.reset();
    removeFromDisk(record);
    oaTech* tech = record.tech;
    auto& designs = static_cast<Table<OpenDesignRecord>&>(tableOf(design));
    designs.destroy(slotOf(design));
    if (tech && tech->isValid())
        tech->close();
    return referred;
}

bool isSubmasterOf(const OpenDesignRecord& record, const oaDesign* superMaster) {
    return record.origin && record.origin->superMaster == superMaster;
}

/// True when `other` has an instance of `design`, or of a submaster of it.
bool refersTo(const OpenDesignRecord& other, const oaDesign* design) {
    if (!other.content)
        return false;
    if (other.content->instances.isBoundTo(design))
        return true;
    if (recordFor(design).submasters.made.empty() || isSubmasterOf(other, design))
        return false;
    for (const oaDesign* master : other.content->instances.boundMasters())
        if (isSubmasterOf(recordFor(master), design) && other.content->instances.isBoundTo(master))
            return true;
    return false;
}

} // namespace

void closeDesign(oaDesign* design) {
    OpenDesignRecord& record = recordFor(design);
    if (record.openings > 0)
        --record.openings;
    purgeUnused({design});
}

void purgeDesign(oaDesign* design) {
    requireNotEvaluated(design);
    purgeUnused(drop(design));
}

void purgeUnused(std::vector<oaDesign*> designs) {
    while (!designs.empty()) {
        oaDesign* design = designs.back();
        designs.pop_back();
        if (isUnused(design))
            append(designs, drop(design));
    }
}

std::uint32_t refCountOf(const oaDesign* design) {
    const OpenDesignRecord& record = recordFor(design);
    std::uint32_t count = record.openings;
    for (const oaDesign* submaster : record.submasters.made)
        count += recordFor(submaster).openings > 0 ? 1 : 0;
    const auto countIfReferring = [&](const OpenDesignRecord& other) {
        if (&other != &record && refersTo(other, design))
            ++count;
    };
    openDesigns().forEach([&](std::uint32_t, const OpenDesignRecord& other) {
        countIfReferring(other);
        for (const oaDesign* submaster : other.submasters.made)
            countIfReferring(recordFor(submaster));
    });
    return count;
}

} // namespace OpenAccess_4::impl

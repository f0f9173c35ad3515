#include "tech/src/open_techs.h"

#include "base/src/session.h"
#include "dm/src/library.h"
#include "dm/src/library_access.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"
#include "oa/oaTechException.h"
#include "oa/oaTechObserver.h"
#include "storage/src/database_file.h"
#include "storage/src/format.h"
#include "tech/src/tech_conflicts.h"
#include "tech/src/tech_database.h"
#include "tech/src/tech_refs.h"

#include "platform/file.h"
#include "platform/path.h"

#include <utility>

namespace OpenAccess_4::impl {

namespace {

using Observer = oaVersionedObserver<oaTech, 2>;

std::string techFile(const oaLib* lib) {
    return platform::joinPath(libraryPath(lib), "tech.db");
}

/// The first bytes of a database file: its checksums tell one content from another.
std::string headerOf(const std::string& path) {
    std::string header(sizeof(FileHeader), '\0');
    platform::File file(path, platform::OpenMode::read);
    header.resize(file.read(header.data(), header.size()));
    return header;
}

void requireMode(const oaLib* lib, oaChar mode) {
    if (mode != 'r' && mode != 'a' && mode != 'w')
        throw oaTechError(oacOpenUndefinedModeTech, nameOf(lib).c_str(), mode);
}

void requireFile(const oaLib* lib) {
    if (!hasTechFile(lib))
        throw oaTechError(oacTechNotFound, nameOf(lib).c_str());
}

void makeEmpty(TechRecord& tech, std::uint32_t slot) {
    releaseRefs(tech);
    tech.content = TechDatabase::makeEmpty(slot);
    tech.content->setModified(true);
}

void load(TechRecord& tech, std::uint32_t slot) {
    requireFile(tech.lib);
    const std::string path = techFile(tech.lib);
    const ShortAccess access(tech.lib, oacReadLibAccess);
    auto content = TechDatabase::read(slot, path);
    tech.header = headerOf(path);
    releaseRefs(tech);
    tech.content = std::move(content);
    openRefs(static_cast<oaTech*>(openTechs().handle(slot)));
}

/// Takes the lock, empties or reads the technology, and sets the mode. Answers true when there was
/// a content that is no more.
bool startEditing(TechRecord& tech, std::uint32_t slot, oaChar mode) {
    const ShortAccess access(tech.lib, oacWriteLibAccess);
    const std::string path = techFile(tech.lib);
    std::optional<EditLock> lock;
    if (!tech.lock)
        lock = EditLock::acquire(path);
    const bool emptied = mode == 'w' && (tech.content || hasTechFile(tech.lib));
    if (mode == 'w')
        makeEmpty(tech, slot);
    else if (!tech.content || (lock && tech.header != headerOf(path)))
        load(tech, slot);
    if (lock)
        tech.lock = std::move(lock);
    tech.mode = mode;
    return emptied;
}

void stopEditing(TechRecord& tech, std::uint32_t slot) {
    if (tech.content->isModified())
        load(tech, slot);
    tech.lock.reset();
    tech.mode = 'r';
}

void changeMode(oaTech* tech, oaChar mode) {
    TechRecord& record = recordOf<TechRecord>(tech);
    const oaChar former = record.mode;
    const TechDatabase* formerContent = record.content.get();
    Observer::notifyPreReopenObservers(tech, mode);
    bool emptied = false;
    if (mode != 'r')
        emptied = startEditing(record, slotOf(tech), mode);
    else if (record.mode != 'r')
        stopEditing(record, slotOf(tech));
    if (emptied)
        Observer::notifyTruncateObservers(tech);
    else if (record.content.get() != formerContent)
        reportConflicts(tech);
    Observer::notifyPostReopenObservers(tech, former);
}

/// Does something and tells whether it succeeded.
template <class Body, class Tell>
void withNews(Body body, Tell tell) {
    try {
        body();
    } catch (...) {
        tell(false);
        throw;
    }
    tell(true);
}

/// Adds an open technology whose content `fill` provides.
template <class Fill>
oaTech* addOpenTech(const oaLib* lib, Fill fill) {
    TechRecord record;
    record.lib = const_cast<oaLib*>(lib); // the technology hands its library out to be changed
    record.refCount = 1;
    const std::uint32_t slot = openTechs().add(std::move(record));
    try {
        fill(openTechs()[slot], slot);
    } catch (...) {
        releaseRefs(openTechs()[slot]);
        openTechs().destroy(slot);
        throw;
    }
    return static_cast<oaTech*>(openTechs().handle(slot));
}

void requireNoAttachment(const oaLib* lib) {
    if (const std::string attached = attachmentOf(lib); !attached.empty())
        throw oaTechError(oacTechAttachedTechLibDetected, nameOf(lib).c_str(), attached.c_str());
}

void write(const TechDatabase& tech, const oaLib* lib) {
    writeDatabaseFile(techFile(lib), DatabaseFileKind::Technology, tech);
}

void purgeTechOf(const oaLib* lib) {
    if (oaTech* tech = findOpenTech(lib))
        purgeTech(tech);
}

Table<TechRecord>& makeOpenTechs() {
    beforeLibraryCloses(purgeTechOf);
    return Session::instance().addTable<TechRecord>(kOpenTechTable);
}

} // namespace

Location TechRecord::location() const {
    return {content.get(), kDatabaseItself};
}

Table<TechRecord>& openTechs() {
    static Table<TechRecord>& techs = makeOpenTechs();
    return techs;
}

oaTech* findOpenTech(const oaLib* lib) {
    oaObject* found = nullptr;
    openTechs().forEach([&](std::uint32_t slot, const TechRecord& tech) {
        if (tech.lib == lib)
            found = openTechs().handle(slot);
    });
    return static_cast<oaTech*>(found);
}

bool hasTechFile(const oaLib* lib) {
    const std::string path = techFile(lib);
    return platform::isFile(path) && platform::fileSize(path) > 0;
}

bool hasOwnTech(const oaLib* lib) {
    return findOpenTech(lib) || hasTechFile(lib);
}

oaTech* createTech(oaLib* lib) {
    requireNoAttachment(lib);
    if (hasOwnTech(lib))
        throw oaTechError(oacTechAlreadyExists, nameOf(lib).c_str());
    oaTech* tech = addOpenTech(
        lib, [](TechRecord& record, std::uint32_t slot) { startEditing(record, slot, 'w'); });
    Observer::notifyCreateObservers(tech);
    return tech;
}

oaTech* openTech(const oaLib* lib, oaChar mode) {
    requireMode(lib, mode);
    if (hasOwnTech(lib) || attachmentOf(lib).empty())
        return openOwnTech(lib, mode);
    const oaLib* attached = techLibOf(lib);
    if (!attached)
        throw oaTechError(oacTechLibNotFound, nameOf(lib).c_str(), attachmentOf(lib).c_str());
    return openOwnTech(attached, mode);
}

oaTech* openOwnTech(const oaLib* lib, oaChar mode) {
    if (oaTech* tech = findOpenTech(lib)) {
        TechRecord& record = recordOf<TechRecord>(tech);
        if (mode == 'w' || (mode == 'a' && record.mode == 'r'))
            changeMode(tech, mode);
        ++record.refCount;
        return tech;
    }
    requireFile(lib);
    bool emptied = false;
    oaTech* opened = addOpenTech(lib, [&](TechRecord& tech, std::uint32_t slot) {
        if (mode == 'r')
            load(tech, slot);
        else
            emptied = startEditing(tech, slot, mode);
    });
    Observer::notifyFirstOpenObservers(opened);
    if (emptied)
        Observer::notifyTruncateObservers(opened);
    reportConflicts(opened);
    return opened;
}

void reopenTech(oaTech* tech, oaChar mode) {
    requireMode(tech->getLib(), mode);
    changeMode(tech, mode);
}

void revertTech(oaTech* tech) {
    load(recordOf<TechRecord>(tech), slotOf(tech));
    reportConflicts(tech);
}

void saveTech(oaTech* tech) {
    TechRecord& record = recordOf<TechRecord>(tech);
    if (record.mode == 'r')
        throw oaTechError(oacSaveReadOnlyTech, nameOf(record.lib).c_str());
    Observer::notifyPreSaveObservers(tech);
    const auto save = [&] {
        const ShortAccess access(record.lib, oacWriteLibAccess);
        write(*record.content, record.lib);
        record.content->setModified(false);
        record.header = headerOf(techFile(record.lib));
    };
    withNews(save, [&](bool done) { Observer::notifyPostSaveObservers(tech, done); });
}

void saveTechAs(oaTech* tech, oaLib* lib) {
    if (findOpenTech(lib))
        throw oaTechError(oacTechAlreadyExists, nameOf(lib).c_str());
    requireNoAttachment(lib);
    Observer::notifyPreSaveAsObservers(tech);
    const auto save = [&] {
        const ShortAccess access(lib, oacWriteLibAccess);
        const EditLock lock = EditLock::acquire(techFile(lib));
        write(*recordOf<TechRecord>(tech).content, lib);
    };
    withNews(save, [&](bool done) { Observer::notifyPostSaveAsObservers(tech, done); });
}

void destroyTech(oaLib* lib) {
    if (findOpenTech(lib))
        throw oaTechError(oacCannotDestroyOpenTech, nameOf(lib).c_str());
    requireFile(lib);
    const std::string path = techFile(lib);
    const ShortAccess access(lib, oacWriteLibAccess);
    const EditLock lock = EditLock::acquire(path);
    try {
        platform::removeFile(path);
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacUnableToRemove, path.c_str(), failure.error().text().c_str());
    }
}

void purgeTech(oaTech* tech) {
    Observer::notifyPurgeObservers(tech);
    TechRecord& record = recordOf<TechRecord>(tech);
    const std::vector<oaTech*> refs = std::exchange(record.heldRefs, {});
    openTechs().destroy(slotOf(tech));
    for (oaTech* ref : refs)
        if (ref->isValid())
            ref->close();
}

std::string nameOf(const oaLib* lib) {
    return libraryOf(lib).name();
}

std::string nameOf(const TechDatabase& tech) {
    return nameOf(static_cast<oaTech*>(tech.object())->getLib());
}

} // namespace OpenAccess_4::impl

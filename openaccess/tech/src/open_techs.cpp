#include "tech/src/open_techs.h"

#include "base/src/session.h"
#include "dm/src/library.h"
#include "dm/src/library_access.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"
#include "oa/oaTechException.h"
#include "storage/src/database_file.h"
#include "storage/src/format.h"
#include "tech/src/tech_database.h"

#include "platform/file.h"
#include "platform/path.h"

namespace OpenAccess_4::impl {

namespace {

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
    tech.content = TechDatabase::makeEmpty(slot);
    tech.content->setModified(true);
}

void load(TechRecord& tech, std::uint32_t slot) {
    requireFile(tech.lib);
    const std::string path = techFile(tech.lib);
    const ShortAccess access(tech.lib, oacReadLibAccess);
    auto content = TechDatabase::read(slot, path);
    tech.header = headerOf(path);
    tech.content = std::move(content);
}

/// Takes the lock, empties or reads the technology, and sets the mode.
void startEditing(TechRecord& tech, std::uint32_t slot, oaChar mode) {
    const ShortAccess access(tech.lib, oacWriteLibAccess);
    const std::string path = techFile(tech.lib);
    std::optional<EditLock> lock;
    if (!tech.lock)
        lock = EditLock::acquire(path);
    if (mode == 'w')
        makeEmpty(tech, slot);
    else if (!tech.content || (lock && tech.header != headerOf(path)))
        load(tech, slot);
    if (lock)
        tech.lock = std::move(lock);
    tech.mode = mode;
}

void stopEditing(TechRecord& tech, std::uint32_t slot) {
    if (tech.content->isModified())
        load(tech, slot);
    tech.lock.reset();
    tech.mode = 'r';
}

void changeMode(TechRecord& tech, std::uint32_t slot, oaChar mode) {
    if (mode == 'r') {
        if (tech.mode != 'r')
            stopEditing(tech, slot);
    } else {
        startEditing(tech, slot, mode);
    }
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
        openTechs().destroy(slot);
        throw;
    }
    return static_cast<oaTech*>(openTechs().handle(slot));
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

oaTech* createTech(oaLib* lib) {
    if (findOpenTech(lib) || hasTechFile(lib))
        throw oaTechError(oacTechAlreadyExists, nameOf(lib).c_str());
    return addOpenTech(lib,
                       [](TechRecord& tech, std::uint32_t slot) { startEditing(tech, slot, 'w'); });
}

oaTech* openTech(const oaLib* lib, oaChar mode) {
    requireMode(lib, mode);
    if (oaTech* tech = findOpenTech(lib)) {
        TechRecord& record = recordOf<TechRecord>(tech);
        if (mode == 'w' || (mode == 'a' && record.mode == 'r'))
            changeMode(record, slotOf(tech), mode);
        ++record.refCount;
        return tech;
    }
    requireFile(lib);
    return addOpenTech(lib, [&](TechRecord& tech, std::uint32_t slot) {
        if (mode == 'r')
            load(tech, slot);
        else
            startEditing(tech, slot, mode);
    });
}

void reopenTech(oaTech* tech, oaChar mode) {
    TechRecord& record = recordOf<TechRecord>(tech);
    requireMode(record.lib, mode);
    changeMode(record, slotOf(tech), mode);
}

void revertTech(oaTech* tech) {
    load(recordOf<TechRecord>(tech), slotOf(tech));
}

void saveTech(oaTech* tech) {
    TechRecord& record = recordOf<TechRecord>(tech);
    if (record.mode == 'r')
        throw oaTechError(oacSaveReadOnlyTech, nameOf(record.lib).c_str());
    const ShortAccess access(record.lib, oacWriteLibAccess);
    write(*record.content, record.lib);
    record.content->setModified(false);
    record.header = headerOf(techFile(record.lib));
}

void saveTechAs(oaTech* tech, oaLib* lib) {
    if (findOpenTech(lib))
        throw oaTechError(oacTechAlreadyExists, nameOf(lib).c_str());
    const ShortAccess access(lib, oacWriteLibAccess);
    const EditLock lock = EditLock::acquire(techFile(lib));
    write(*recordOf<TechRecord>(tech).content, lib);
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
    openTechs().destroy(slotOf(tech));
}

std::string nameOf(const oaLib* lib) {
    return libraryOf(lib).name();
}

std::string nameOf(const TechDatabase& tech) {
    return nameOf(static_cast<oaTech*>(tech.object())->getLib());
}

} // namespace OpenAccess_4::impl

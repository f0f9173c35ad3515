#include "dm/src/dm_data_files.h"

#include "base/src/session.h"
#include "dm/src/dm_session.h"
#include "dm/src/library.h"
#include "dm/src/library_access.h"
#include "oa/oaCellDMData.h"
#include "oa/oaCellViewDMData.h"
#include "oa/oaDMDataObserver.h"
#include "oa/oaLibDMData.h"
#include "oa/oaViewDMData.h"
#include "platform/file.h"
#include "storage/src/database_file.h"
#include "storage/src/format.h"

#include <vector>

namespace OpenAccess_4::impl {

namespace {

using Observer = oaVersionedObserver<oaDMData>;

constexpr std::uint32_t openDMDataTable = kFirstDMSessionTable + 3;

std::string fileOf(const oaDMContainer* container) {
    return libraryOf(container).dataFileOf(locationOf(container).ref);
}

/// The first bytes of a database file: its checksums tell one content from another. Empty when
/// there is no file.
std::string headerOf(const std::string& path) {
    if (!platform::isFile(path))
        return {};
    std::string header(sizeof(FileHeader), '\0');
    platform::File file(path, platform::OpenMode::read);
    header.resize(file.read(header.data(), header.size()));
    return header;
}

bool hasFile(const std::string& path) {
    return platform::isFile(path) && platform::fileSize(path) > 0;
}

void requireMode(const oaDMContainer* container, oaChar mode) {
    if (mode != 'r' && mode != 'a' && mode != 'w')
        throw oaDMError(oacOpenUndefinedModeDMData, titleOf(container).c_str(), mode);
}

[[noreturn]] void throwNotFound(const oaDMContainer* container) {
    throw oaDMError(oacDMDataNotFound, titleOf(container).c_str());
}

void makeEmpty(DMDataRecord& data, std::uint32_t slot) {
    data.content = std::make_unique<DMDataContent>(slot);
    data.content->setModified(true);
}

void load(DMDataRecord& data, std::uint32_t slot) {
    const ShortAccess access(data.container->getLib(), oacReadLibAccess);
    if (!hasFile(data.path))
        throwNotFound(data.container);
    auto content = std::make_unique<DMDataContent>(slot);
    readDatabaseFile(data.path, DatabaseFileKind::LibraryData, *content);
    data.header = libraryOf(data.container).onDisk([&] { return headerOf(data.path); });
    data.content = std::move(content);
}

/// Takes the lock, empties or reads the data, and sets the mode.
void startEditing(DMDataRecord& data, std::uint32_t slot, oaChar mode) {
    const ShortAccess access(data.container->getLib(), oacWriteLibAccess);
    std::optional<EditLock> lock;
    if (!data.lock)
        lock = EditLock::acquire(data.path);
    const bool isCurrent = data.content && (!lock || data.header == headerOf(data.path));
    if (mode == 'w' || (!isCurrent && !hasFile(data.path)))
        makeEmpty(data, slot);
    else if (!isCurrent)
        load(data, slot);
    if (lock)
        data.lock = std::move(lock);
    data.mode = mode;
}

void stopEditing(DMDataRecord& data, std::uint32_t slot) {
    if (data.content->isModified())
        load(data, slot);
    data.lock.reset();
    data.mode = 'r';
}

oaTypeEnum dataTypeOf(const oaDMContainer* container) {
    switch (container->getType()) {
    case oacLibType:
        return oacLibDMDataType;
    case oacCellType:
        return oacCellDMDataType;
    case oacViewType:
        return oacViewDMDataType;
    default:
        return oacCellViewDMDataType;
    }
}

oaDMData* addOpenDMData(const oaDMContainer* container, oaChar mode) {
    DMDataRecord record;
    record.container = const_cast<oaDMContainer*>(container); // data hand their library out
    record.kind = dataTypeOf(container);
    record.path = fileOf(container);
    record.refCount = 1;
    const std::uint32_t slot = openDMDatas().add(std::move(record));
    try {
        if (mode == 'r')
            load(openDMDatas()[slot], slot);
        else
            startEditing(openDMDatas()[slot], slot, mode);
    } catch (...) {
        openDMDatas().destroy(slot);
        throw;
    }
    return static_cast<oaDMData*>(openDMDatas().handle(slot));
}

void purgeDMDataIn(const oaLib* lib) {
    std::vector<oaDMData*> open;
    openDMDatas().forEach([&](std::uint32_t slot, const DMDataRecord& data) {
        if (data.container->getLib() == lib)
            open.push_back(static_cast<oaDMData*>(openDMDatas().handle(slot)));
    });
    for (oaDMData* data : open)
        if (data->isValid())
            purgeDMData(data);
}

Table<DMDataRecord>& makeOpenDMDatas() {
    beforeLibraryCloses(purgeDMDataIn);
    return Session::instance().addTable<DMDataRecord>(openDMDataTable);
}

void writeFile(DMDataRecord& data) {
    const ShortAccess access(data.container->getLib(), oacWriteLibAccess);
    writeDatabaseFile(data.path, DatabaseFileKind::LibraryData, *data.content);
    data.content->setModified(false);
    data.header = libraryOf(data.container).onDisk([&] { return headerOf(data.path); });
}

} // namespace

oaObject* DMDataContent::object() const {
    return openDMDatas().handle(slot_);
}

void DMDataContent::requireEditable() const {
    const DMDataRecord& data = openDMDatas()[slot_];
    if (data.mode == 'r')
        throw oaDMError(oacCannotModifyReadModeDMData, titleOf(data.container).c_str());
}

oaObject* DMDataRecord::construct(void* where) const {
    switch (kind) {
    case oacLibDMDataType:
        return Handles::construct<oaLibDMData>(where);
    case oacCellDMDataType:
        return Handles::construct<oaCellDMData>(where);
    case oacViewDMDataType:
        return Handles::construct<oaViewDMData>(where);
    default:
        return Handles::construct<oaCellViewDMData>(where);
    }
}

Table<DMDataRecord>& openDMDatas() {
    static Table<DMDataRecord>& table = makeOpenDMDatas();
    return table;
}

oaDMData* findOpenDMData(const oaDMObject* object) {
    oaObject* found = nullptr;
    openDMDatas().forEach([&](std::uint32_t slot, const DMDataRecord& data) {
        if (data.container == object)
            found = openDMDatas().handle(slot);
    });
    return static_cast<oaDMData*>(found);
}

bool hasDMData(const oaDMContainer* container) {
    return hasFile(fileOf(container)) || findOpenDMData(container);
}

oaDMData* openDMData(const oaDMContainer* container, oaChar mode) {
    requireMode(container, mode);
    if (oaDMData* data = findOpenDMData(container)) {
        DMDataRecord& record = recordOf<DMDataRecord>(data);
        if (mode == 'w' || (mode == 'a' && record.mode == 'r'))
            reopenDMData(data, mode);
        ++record.refCount;
        return data;
    }
    oaDMData* opened = addOpenDMData(container, mode);
    Observer::notifyFirstOpenObservers(opened);
    if (mode == 'w')
        Observer::notifyTruncateObservers(opened);
    return opened;
}

void reopenDMData(oaDMData* data, oaChar mode) {
    DMDataRecord& record = recordOf<DMDataRecord>(data);
    requireMode(record.container, mode);
    const oaChar former = record.mode;
    Observer::notifyPreReopenObservers(data, mode);
    if (mode != 'r')
        startEditing(record, slotOf(data), mode);
    else if (former != 'r')
        stopEditing(record, slotOf(data));
    if (mode == 'w')
        Observer::notifyTruncateObservers(data);
    Observer::notifyPostReopenObservers(data, former);
}

void revertDMData(oaDMData* data) {
    load(recordOf<DMDataRecord>(data), slotOf(data));
}

void saveDMData(oaDMData* data) {
    DMDataRecord& record = recordOf<DMDataRecord>(data);
    if (record.mode == 'r')
        throw oaDMError(oacSaveReadOnlyDMData, titleOf(record.container).c_str());
    Observer::notifyPreSaveObservers(data);
    try {
        writeFile(record);
    } catch (...) {
        Observer::notifyPostSaveObservers(data, false);
        throw;
    }
    Observer::notifyPostSaveObservers(data, true);
}

void destroyDMData(const oaDMContainer* container) {
    if (findOpenDMData(container))
        throw oaDMError(oacCannotDestroyOpenDMData, titleOf(container).c_str());
    const std::string path = fileOf(container);
    if (!hasFile(path))
        throwNotFound(container);
    const ShortAccess access(container->getLib(), oacWriteLibAccess);
    const EditLock lock = EditLock::acquire(path);
    libraryOf(container).onDisk([&] { platform::removeFile(path); });
}

void purgeDMData(oaDMData* data) {
    Observer::notifyPurgeObservers(data);
    openDMDatas().destroy(slotOf(data));
}

void purgeDMDataOf(const oaDMObject* object) {
    // Libraries may be closing, and then no table of open data can be made any more.
    if (!Session::instance().table(openDMDataTable))
        return;
    if (oaDMData* data = findOpenDMData(object))
        purgeDMData(data);
}

std::string titleOf(const oaDMContainer* container) {
    const Library& library = libraryOf(container);
    const std::string end = "library '" + library.name() + "'";
    switch (container->getType()) {
    case oacCellType:
        return "cell '" + recordOf<CellRecord>(container).name + "' of " + end;
    case oacViewType:
        return "view '" + recordOf<ViewRecord>(container).name + "' of " + end;
    case oacCellViewType: {
        const auto* cellView = static_cast<const oaCellView*>(container);
        return "cell view '" + recordOf<CellRecord>(cellView->getCell()).name + "/" +
               recordOf<ViewRecord>(cellView->getView()).name + "' of " + end;
    }
    default:
        return end;
    }
}

} // namespace OpenAccess_4::impl

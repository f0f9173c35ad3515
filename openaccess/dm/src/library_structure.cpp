#include "dm/src/dm_data_files.h"
#include "dm/src/dm_session.h"
#include "dm/src/library.h"
#include "dm/src/primary_files.h"
#include "platform/atomic_file.h"

#include <algorithm>
#include <set>

namespace OpenAccess_4::impl {

namespace {

// Takes the directory out of sight in one step: nobody meets a half-removed cell, whatever happens.
void removeDirectory(const std::string& path) {
    platform::removeStaleTemporaries(path);
    const std::string hidden = platform::temporaryPathFor(path);
    platform::renameFile(path, hidden);
    platform::removeTree(hidden);
}

template <class Handle>
Handle* as(oaObject* object) {
    return static_cast<Handle*>(object);
}

} // namespace

// The disk may hold a directory whose name differs in the case of letters and is another name.
bool Library::holdsDirectory(const std::string& parent, const std::string& directory) const {
    const std::string path = platform::joinPath(parent, directory);
    return platform::isDirectory(path) &&
           (!names_.caseMatters() || platform::existsAsSpelled(path));
}

std::set<std::string> Library::namesBelow(const std::string& parent) const {
    std::set<std::string> names;
    for (const auto& entry : onDisk([&] { return platform::listDirectory(parent); })) {
        if (entry.kind != platform::EntryKind::directory)
            continue;
        const std::optional<std::string> name = names_.fromDirectory(entry.name);
        if (name && holdsDirectory(parent, names_.toDirectory(*name)))
            names.insert(*name);
    }
    return names;
}

// Cells.

oaCell* Library::findCell(const std::string& cell) {
    const std::string directory = names_.toDirectory(cell);
    if (holdsDirectory(fullPath_, directory))
        return as<oaCell>(cells_.handle(cellSlot(cell, directory)));
    if (const auto known = cellsByName_.find(cell); known != cellsByName_.end())
        forgetCell(known->second);
    return nullptr;
}

oaCell* Library::getCell(const std::string& cell) {
    if (oaCell* found = findCell(cell))
        return found;
    const std::string directory = names_.toDirectory(cell);
    onDisk([&] { platform::createDirectory(platform::joinPath(fullPath_, directory)); });
    return as<oaCell>(cells_.handle(cellSlot(cell, directory)));
}

std::vector<oaObject*> Library::cells() {
    const std::set<std::string> names = namesBelow(fullPath_);
    std::vector<oaObject*> result;
    for (const std::string& name : names)
        result.push_back(cells_.handle(cellSlot(name, names_.toDirectory(name))));
    const std::map<std::string, std::uint32_t> known = cellsByName_;
    for (const auto& [name, slot] : known)
        if (!names.contains(name))
            forgetCell(slot);
    return result;
}

void Library::destroy(oaCell* cell) {
    const ObjectRef ref = locationOf(cell).ref;
    onDisk([&] { removeDirectory(pathOf(ref)); });
    forgetCell(ref.slot);
}

std::uint32_t Library::cellSlot(const std::string& cell, const std::string& directory) {
    const auto [known, isNew] = cellsByName_.try_emplace(cell, kNone);
    if (isNew)
        known->second = cells_.add({cell, directory});
    return known->second;
}

void Library::forgetCell(std::uint32_t slot) {
    const std::map<std::string, std::uint32_t> cellViews = cells_[slot].cellViews;
    for (const auto& [name, cellView] : cellViews)
        forgetCellView(cellView);
    const ObjectRef ref{cells_.id().number, slot};
    forgetFiles(ref);
    forgetAttachments(ref);
    cellsByName_.erase(cells_[slot].name);
    cells_.destroy(slot);
}

// Views.

oaView* Library::view(const std::string& view, const oaViewType* viewType, bool define) {
    const std::uint32_t slot = viewSlot(view, viewType);
    views_[slot].defined = views_[slot].defined || define;
    return as<oaView>(views_.handle(slot));
}

std::vector<oaObject*> Library::views() {
    std::set<std::uint32_t> used;
    for (const oaObject* cellView : cellViews())
        used.insert(recordOf<CellViewRecord>(cellView).view);
    std::vector<oaObject*> result;
    for (const auto& [key, slot] : viewsByName_)
        if (views_[slot].defined || used.contains(slot))
            result.push_back(views_.handle(slot));
    return result;
}

void Library::destroy(oaView* view) {
    for (oaObject* cellView : cellViewsOf(view))
        destroy(as<oaCellView>(cellView));
    const ObjectRef ref = locationOf(view).ref;
    onDisk([&] { platform::removeTree(dataFileOf(ref)); });
    forgetView(ref.slot);
}

std::uint32_t Library::viewSlot(const std::string& view, const oaViewType* viewType) {
    const auto [known, isNew] = viewsByName_.try_emplace({view, viewType}, kNone);
    if (isNew)
        known->second = views_.add({view, const_cast<oaViewType*>(viewType)});
    return known->second;
}

void Library::forgetView(std::uint32_t slot) {
    forgetAttachments({views_.id().number, slot});
    viewsByName_.erase({views_[slot].name, views_[slot].viewType});
    views_.destroy(slot);
}

// Cell views.

oaCellView* Library::findCellView(oaCell* cell, const std::string& view) {
    const std::optional<std::uint32_t> slot = refreshCellView(slotOf(cell), view);
    return slot ? as<oaCellView>(cellViews_.handle(*slot)) : nullptr;
}

oaCellView* Library::getCellView(oaCell* cell, const std::string& view,
                                 const oaViewType* viewType) {
    if (oaCellView* found = findCellView(cell, view)) {
        const oaViewType* existing = views_[recordOf<CellViewRecord>(found).view].viewType;
        if (existing == viewType)
            return found;
        throw oaDMError(oacMismatchViewType, view.c_str(),
                        recordOf<ViewTypeRecord>(existing).name.c_str(),
                        recordOf<ViewTypeRecord>(viewType).name.c_str());
    }
    const std::string directory = names_.toDirectory(view);
    const std::string primary = primaryFileName(recordOf<ViewTypeRecord>(viewType).name);
    onDisk([&] {
        const std::string path = platform::joinPath(pathOf(locationOf(cell).ref), directory);
        if (!platform::isDirectory(path))
            platform::createDirectory(path);
        writeMasterTag(path, primary);
    });
    const std::uint32_t slot =
        addCellView(slotOf(cell), viewSlot(view, viewType), directory, primary);
    return as<oaCellView>(cellViews_.handle(slot));
}

std::vector<oaObject*> Library::cellViews() {
    std::vector<oaObject*> result;
    for (oaObject* cell : cells()) {
        const std::vector<oaObject*> some = cellViewsOf(as<oaCell>(cell));
        result.insert(result.end(), some.begin(), some.end());
    }
    return result;
}

std::vector<oaObject*> Library::cellViewsOf(oaCell* cell) {
    const std::uint32_t owner = slotOf(cell);
    const std::set<std::string> names = namesBelow(pathOf(locationOf(cell).ref));
    std::vector<oaObject*> result;
    for (const std::string& name : names)
        if (const auto slot = refreshCellView(owner, name))
            result.push_back(cellViews_.handle(*slot));
    const std::map<std::string, std::uint32_t> known = cells_[owner].cellViews;
    for (const auto& [name, slot] : known)
        if (!names.contains(name))
            forgetCellView(slot);
    return result;
}

std::vector<oaObject*> Library::cellViewsOf(oaView* view) {
    const std::uint32_t wanted = slotOf(view);
    std::vector<oaObject*> result;
    for (oaObject* cell : cells())
        if (oaCellView* found = findCellView(as<oaCell>(cell), views_[wanted].name))
            if (recordOf<CellViewRecord>(found).view == wanted)
                result.push_back(found);
    return result;
}

void Library::destroy(oaCellView* cellView) {
    const ObjectRef ref = locationOf(cellView).ref;
    onDisk([&] { removeDirectory(pathOf(ref)); });
    forgetCellView(ref.slot);
}

oaCell* Library::cellOf(const oaCellView* cellView) {
    return as<oaCell>(cells_.handle(recordOf<CellViewRecord>(cellView).cell));
}

oaView* Library::viewOf(const oaCellView* cellView) {
    return as<oaView>(views_.handle(recordOf<CellViewRecord>(cellView).view));
}

std::optional<std::uint32_t> Library::refreshCellView(std::uint32_t cell, const std::string& view) {
    const std::string parent = pathOf({cells_.id().number, cell});
    const std::string directory = names_.toDirectory(view);
    std::optional<std::string> primary;
    if (holdsDirectory(parent, directory))
        primary = onDisk([&] { return findPrimary(platform::joinPath(parent, directory)); });
    const auto known = cells_[cell].cellViews.find(view);
    if (known != cells_[cell].cellViews.end()) {
        if (primary == cellViews_[known->second].primary)
            return known->second;
        forgetCellView(known->second);
    }
    if (!primary)
        return std::nullopt;
    const oaViewType* type = DMSession::instance().viewType(viewTypeOfPrimary(*primary));
    return addCellView(cell, viewSlot(view, type), directory, *primary);
}

std::uint32_t Library::addCellView(std::uint32_t cell, std::uint32_t view, std::string directory,
                                   std::string primary) {
    const std::uint32_t slot =
        cellViews_.add({cell, view, std::move(directory), std::move(primary)});
    cells_[cell].cellViews[views_[view].name] = slot;
    return slot;
}

void Library::forgetCellView(std::uint32_t slot) {
    const ObjectRef ref{cellViews_.id().number, slot};
    forgetFiles(ref);
    forgetAttachments(ref);
    const CellViewRecord& record = cellViews_[slot];
    cells_[record.cell].cellViews.erase(views_[record.view].name);
    cellViews_.destroy(slot);
}

// Files.

oaDMFile* Library::findFile(const ObjectRef& container, const std::string& file) {
    const auto& known = filesByContainer_[container.key()];
    const bool isPrimary =
        container.table == cellViews_.id().number && cellViews_[container.slot].primary == file;
    const bool isThere = known.contains(file) || isPrimary || holdsFile(container, file);
    return isThere ? getFile(container, file) : nullptr;
}

bool Library::holdsFile(const ObjectRef& container, const std::string& file) const {
    if (isBookkeepingFile(file))
        return false;
    const std::string directory = pathOf(container);
    if (isManagedFileName(file)) {
        const std::string path = platform::joinPath(directory, file);
        return platform::isFile(path) && platform::existsAsSpelled(path);
    }
    // A name that only one of the systems allows means something else to the other.
    const auto entries = onDisk([&] { return platform::listDirectory(directory); });
    return std::ranges::find(entries, platform::DirectoryEntry{file, platform::EntryKind::file}) !=
           entries.end();
}

oaDMFile* Library::getFile(const ObjectRef& container, const std::string& file) {
    const auto [known, isNew] = filesByContainer_[container.key()].try_emplace(file, kNone);
    if (isNew)
        known->second = files_.add({container, file});
    return as<oaDMFile>(files_.handle(known->second));
}

std::vector<oaObject*> Library::files(const ObjectRef& container) {
    const std::string path = pathOf(container);
    for (const auto& entry : onDisk([&] { return platform::listDirectory(path); }))
        if (entry.kind == platform::EntryKind::file && !isBookkeepingFile(entry.name))
            getFile(container, entry.name);
    if (container.table == cellViews_.id().number)
        getFile(container, cellViews_[container.slot].primary);
    std::vector<oaObject*> result;
    for (const auto& [name, slot] : filesByContainer_[container.key()])
        result.push_back(files_.handle(slot));
    return result;
}

std::vector<oaObject*> Library::followersOf(const oaDMFile* leader) {
    const std::uint32_t wanted = slotOf(leader);
    std::vector<oaObject*> result;
    for (const auto& [name, slot] : filesByContainer_[files_[wanted].parent.key()])
        if (files_[slot].leader == wanted)
            result.push_back(files_.handle(slot));
    return result;
}

void Library::destroy(oaDMFile* file) {
    const std::uint32_t slot = slotOf(file);
    const std::string path = pathOf(file);
    onDisk([&] { platform::removeTree(path); });
    for (const oaObject* follower : followersOf(file))
        recordOf<FileRecord>(follower).leader = kNone;
    forgetAttachments({files_.id().number, slot});
    filesByContainer_[files_[slot].parent.key()].erase(files_[slot].name);
    files_.destroy(slot);
}

void Library::forgetFiles(const ObjectRef& container) {
    const auto known = filesByContainer_.find(container.key());
    if (known == filesByContainer_.end())
        return;
    for (const auto& [name, slot] : known->second) {
        forgetAttachments({files_.id().number, slot});
        files_.destroy(slot);
    }
    filesByContainer_.erase(known);
}

std::string Library::pathOf(const ObjectRef& container) const {
    if (container.table == cells_.id().number)
        return platform::joinPath(fullPath_, cells_[container.slot].directory);
    if (container.table != cellViews_.id().number)
        return fullPath_;
    const CellViewRecord& record = cellViews_[container.slot];
    return platform::joinPath(pathOf({cells_.id().number, record.cell}), record.directory);
}

std::string Library::dataFileOf(const ObjectRef& object) const {
    if (object.table != views_.id().number)
        return platform::joinPath(pathOf(object), kDataFile);
    const ViewRecord& view = views_[object.slot];
    const std::string& type = recordOf<ViewTypeRecord>(view.viewType).name;
    return platform::joinPath(fullPath_, "data." + names_.toDirectory(view.name) + "." +
                                             names_.toDirectory(type) + ".dm");
}

void Library::forgetAttachments(const ObjectRef& ref) {
    purgeDMDataOf(static_cast<oaDMObject*>(Database::handle(ref)));
    Database::forgetAttachments(ref);
}

std::string Library::pathOf(const oaDMFile* file) const {
    const FileRecord& record = recordOf<FileRecord>(file);
    return platform::joinPath(pathOf(record.parent), record.name);
}

} // namespace OpenAccess_4::impl

#include "oa/oaDMFile.h"

#include "base/src/source.h"
#include "dm/src/library.h"
#include "dm/src/primary_files.h"
#include "oa/oaException.h"
#include "platform/atomic_file.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

std::string text(const oaString& string) {
    return static_cast<const oaChar*>(string);
}

void requireContainer(const oaDMContainer* parent) {
    if (parent->getType() == oacViewType)
        throw oaDMError(oacInvalidContainer, recordOf<ViewRecord>(parent).name.c_str());
}

std::string nameOf(const oaDMContainer* container) {
    return libraryOf(container).pathOf(locationOf(container).ref);
}

// Nobody meets a part of the file, also when the process ends on the way.
void copyInOneStep(const std::string& source, const std::string& target) {
    platform::File from(source, platform::OpenMode::read);
    platform::AtomicFile to(target);
    std::vector<char> block(1 << 20);
    while (const std::size_t size = from.read(block.data(), block.size()))
        to.write(block.data(), size);
    to.commit();
}

} // namespace

oaDMFile* oaDMFile::create(const oaDMContainer* parent, const oaString& name) {
    Library& library = libraryOf(parent, oacWriteLibAccess);
    requireContainer(parent);
    const std::string file = text(name);
    if (!isManagedFileName(file) || isBookkeepingFile(file))
        throw oaDMError(oacInvalidDMName, file.c_str(), "file");
    const ObjectRef container = locationOf(parent).ref;
    // The disk may hold the name in other letters.
    if (library.findFile(container, file) ||
        platform::isFile(platform::joinPath(library.pathOf(container), file)))
        throw oaDMError(oacDMFileExists, nameOf(parent).c_str(), file.c_str());
    return library.getFile(container, file);
}

oaDMFile* oaDMFile::create(const oaDMContainer* parent, const oaString& name,
                           const oaString& srcPath) {
    oaDMFile* file = create(parent, name);
    Library& library = libraryOf(file);
    const std::string path = library.pathOf(file);
    try {
        copyInOneStep(text(srcPath), path);
    } catch (const platform::SystemFailure& failure) {
        library.destroy(file);
        throw oaOSError(oacFileCopyFailed, static_cast<const oaChar*>(srcPath), path.c_str(),
                        failure.error().text().c_str());
    }
    return file;
}

oaDMFile* oaDMFile::find(const oaDMContainer* parent, const oaString& name) {
    Library& library = libraryOf(parent, oacReadLibAccess);
    requireContainer(parent);
    return library.findFile(locationOf(parent).ref, text(name));
}

void oaDMFile::destroy() {
    libraryOf(this, oacWriteLibAccess).destroy(this);
}

oaDMContainer* oaDMFile::getParent() const {
    return static_cast<oaDMContainer*>(
        libraryOf(this).Database::handle(recordOf<FileRecord>(this).parent));
}

void oaDMFile::getName(oaString& name) const {
    name = recordOf<FileRecord>(this).name.c_str();
}

void oaDMFile::getPath(oaString& path) const {
    path = libraryOf(this).pathOf(this).c_str();
}

oaBoolean oaDMFile::existsOnDisk() const {
    return platform::isFile(libraryOf(this).pathOf(this));
}

oaUInt8 oaDMFile::getOnDiskSize() const {
    const std::string path = libraryOf(this).pathOf(this);
    if (!platform::isFile(path))
        throw oaDMError(oacDMFileDoesNotExistOnDisk, path.c_str());
    return libraryOf(this).onDisk([&] { return platform::fileSize(path); });
}

oaBoolean oaDMFile::getLock() {
    FileRecord& record = recordOf<FileRecord>(this);
    if (record.lock)
        return false;
    try {
        record.lock = EditLock::tryAcquire(libraryOf(this).pathOf(this));
    } catch (const platform::SystemFailure&) {
        return false;
    }
    return record.lock.has_value();
}

void oaDMFile::releaseLock() {
    FileRecord& record = recordOf<FileRecord>(this);
    if (!record.lock)
        throw oaDMError(oacDMFileNotLocked, libraryOf(this).pathOf(this).c_str());
    record.lock.reset();
}

oaDMLockStatus oaDMFile::getLockStatus() const {
    return EditLock::status(libraryOf(this).pathOf(this));
}

void oaDMFile::setLeader(oaDMFile* leader) {
    Library& library = libraryOf(this, oacWriteLibAccess);
    FileRecord& record = recordOf<FileRecord>(this);
    if (!leader) {
        record.leader = kNone;
        return;
    }
    const FileRecord& leading = recordOf<FileRecord>(leader);
    const auto require = [&](bool holds, const char* reason) {
        if (!holds)
            throw oaDMError(oacInvalidDMFileLeader, record.name.c_str(), leading.name.c_str(),
                            reason);
    };
    require(leader != this, "it is the same file");
    require(&libraryOf(leader) == &library && leading.parent == record.parent, "it lies elsewhere");
    require(leading.leader == kNone, "that one follows another file");
    require(!isLeader(), "other files follow the first");
    record.leader = slotOf(leader);
}

oaDMFile* oaDMFile::getLeader() const {
    const std::uint32_t leader = recordOf<FileRecord>(this).leader;
    return leader == kNone ? nullptr : static_cast<oaDMFile*>(tableOf(this).handle(leader));
}

oaBoolean oaDMFile::isLeader() const {
    return !libraryOf(this).followersOf(this).empty();
}

oaCollection<oaDMFile, oaDMFile> oaDMFile::getFollowers() const {
    return collectionOf<oaCollection<oaDMFile, oaDMFile>>(
        libraryOf(this, oacReadLibAccess).followersOf(this));
}

oaBoolean oaDMFile::isPrimary() const {
    const oaDMContainer* parent = getParent();
    return parent->getType() == oacCellViewType &&
           recordOf<CellViewRecord>(parent).primary == recordOf<FileRecord>(this).name;
}

} // namespace OpenAccess_4

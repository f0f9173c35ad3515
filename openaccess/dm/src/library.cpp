#include "dm/src/library.h"

#include "dm/src/primary_files.h"
#include "platform/file.h"

#include <algorithm>
#include <thread>

namespace OpenAccess_4::impl {

namespace {

enum : std::uint32_t {
    libraryTable = kFirstPackageTable,
    cellTable,
    viewTable,
    cellViewTable,
    fileTable,
};

constexpr auto pollingStep = std::chrono::milliseconds(20);

bool holdsCellView(const std::string& cellDirectory) {
    const auto entries = platform::listDirectory(cellDirectory);
    return std::ranges::any_of(entries, [&](const platform::DirectoryEntry& entry) {
        if (entry.kind != platform::EntryKind::directory)
            return false;
        const std::string directory = platform::joinPath(cellDirectory, entry.name);
        return platform::isFile(platform::joinPath(directory, kMasterTag)) ||
               findPrimary(directory).has_value();
    });
}

const char* accessName(oaLibAccessEnum kind) {
    return kind == oacWriteLibAccess ? "Write" : "Read";
}

} // namespace

std::string nativeText(const oaScalarName& name, const char* what) {
    oaString text;
    name.get(text);
    if (text.isEmpty())
        throw oaDMError(oacInvalidDMName, "", what);
    return static_cast<const oaChar*>(text);
}

Library::Library(LibraryPlace place)
    : place_(std::move(place)),
      fullPath_(platform::absolutePath(place_.path)),
      marker_(openMarker()),
      names_(marker_.fileSystem()),
      self_(addTable<LibraryRecord>(libraryTable)),
      cells_(addTable<CellRecord>(cellTable)),
      views_(addTable<ViewRecord>(viewTable)),
      cellViews_(addTable<CellViewRecord>(cellViewTable)),
      files_(addTable<FileRecord>(fileTable)) {
    self_.add({});
    if (place_.mode == oacNonSharedLibMode)
        takeForGood();
}

bool Library::exists(const std::string& path) {
    if (!platform::isDirectory(path))
        return false;
    for (const char* file : {LibraryMarker::kFileName, "tech.db", kDataFile})
        if (platform::isFile(platform::joinPath(path, file)))
            return true;
    try {
        const auto entries = platform::listDirectory(path);
        return std::ranges::any_of(entries, [&](const platform::DirectoryEntry& entry) {
            return entry.kind == platform::EntryKind::directory &&
                   holdsCellView(platform::joinPath(path, entry.name));
        });
    } catch (const platform::SystemFailure&) {
        return false;
    }
}

LibraryMarker Library::readMarker() const {
    const std::string path = platform::joinPath(fullPath_, LibraryMarker::kFileName);
    return platform::exists(path) ? LibraryMarker::read(path) : LibraryMarker();
}

LibraryMarker Library::openMarker() const {
    const auto failed = [&](const char* reason) {
        return oaDMError(oacLibCouldNotOpen, name().c_str(), fullPath_.c_str(), reason);
    };
    try {
        return readMarker();
    } catch (const DamagedFile& damaged) {
        throw failed(damaged.what());
    } catch (const platform::SystemFailure& failure) {
        throw failed(failure.what());
    }
}

void Library::takeForGood() {
    bool taken = false;
    try {
        taken = tryLock(oacWriteLibAccess);
    } catch (const oaDMError& error) {
        throw oaDMError(oacLibCouldNotOpen, name().c_str(), fullPath_.c_str(),
                        static_cast<const oaChar*>(error.getMsg()));
    }
    if (!taken)
        throw oaDMError(oacLibCouldNotOpen, name().c_str(), fullPath_.c_str(),
                        "it is in use elsewhere");
}

oaLib* Library::handle() const {
    return static_cast<oaLib*>(self_.handle(0));
}

std::string Library::refusal(oaLibAccessEnum kind) const {
    if (!platform::isDirectory(fullPath_))
        return "its directory is gone";
    if (kind == oacReadLibAccess)
        return platform::isReadable(fullPath_) ? "" : "its directory may not be read";
    if (place_.mode == oacReadOnlyLibMode)
        return "it is open in mode readOnly";
    if (onDisk([&] { return readMarker(); }).readOnly())
        return "its attribute libReadOnly is 'Yes'";
    return platform::isWritable(fullPath_) ? "" : "its directory may not be written";
}

bool Library::getAccess(oaLibAccessEnum kind, std::chrono::milliseconds patience) {
    const auto wanted = kind == oacWriteLibAccess ? oacWriteLibAccessLevel : oacReadLibAccessLevel;
    if (level_ == oacReadLibAccessLevel && wanted == oacWriteLibAccessLevel)
        throw oaDMError(oacLibAccessCannotUpgrade, name().c_str());
    if (level_ == oacNoLibAccessLevel) {
        if (!refusal(kind).empty())
            return false;
        const auto deadline = std::chrono::steady_clock::now() + patience;
        while (!tryLock(kind)) {
            if (std::chrono::steady_clock::now() >= deadline)
                return false;
            std::this_thread::sleep_for(pollingStep);
        }
        level_ = wanted;
    }
    ++holds_;
    return true;
}

bool Library::tryLock(oaLibAccessEnum kind) {
    if (lock_)
        return true;
    const std::string file = platform::joinPath(fullPath_, kAccessLockFile);
    const auto lockKind =
        kind == oacWriteLibAccess ? platform::LockKind::exclusive : platform::LockKind::shared;
    try {
        lock_ = platform::FileLock::tryAcquire(file, lockKind);
        return lock_.has_value();
    } catch (const platform::SystemFailure& failure) {
        // A reader of a library that lies on read-only ground has nobody to exclude.
        if (kind == oacReadLibAccess && !platform::isWritable(fullPath_))
            return true;
        throw oaDMError(oacLibAccessDenied, accessName(kind), name().c_str(), failure.what());
    }
}

void Library::releaseAccess() {
    if (level_ == oacNoLibAccessLevel)
        throw oaDMError(oacLibReleaseNoAccess, name().c_str());
    if (--holds_ > 0)
        return;
    level_ = oacNoLibAccessLevel;
    if (place_.mode != oacNonSharedLibMode)
        lock_.reset();
}

void Library::require(oaLibAccessEnum kind) const {
    const auto needed = kind == oacWriteLibAccess ? oacWriteLibAccessLevel : oacReadLibAccessLevel;
    if (level_ < needed)
        throw oaDMError(oacLibAccessDenied, accessName(kind), name().c_str(),
                        "the application has not got it");
}

void Library::replaceMarker(const LibraryMarker& marker) {
    onDisk([&] { marker.write(platform::joinPath(fullPath_, LibraryMarker::kFileName)); });
    marker_ = marker;
}

} // namespace OpenAccess_4::impl

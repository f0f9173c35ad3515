#include "design/src/design_database.h"
#include "design/src/design_files.h"
#include "design/src/names.h"
#include "design/src/open_designs.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaDesignObserver.h"
#include "storage/src/database_file.h"

#include "platform/file.h"

#include <ctime>

namespace OpenAccess_4::impl {

using DesignObserver = oaVersionedObserver<oaDesign>;

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
    record.lastSavedTime = oaTime(std::time(nullptr));
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
    requireNoViaMaster(design);
    if (record.origin)
        throw designError(oacSaveScratchModeDesign, record.names);
    if (record.mode == 'r')
        throw designError(oacSaveReadOnlyDesign, record.names);
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
        throw designError(oacCannotSaveAsOpenDesign, names);
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
        throw designError(oacCannotDestroyOpenDesign, names);
    const DesignAccess access(lib, names, oacWriteLibAccess);
    const oaCellView* cellView = findCellView(lib, names);
    if (!cellView || !hasContent(primaryPath(cellView)))
        throw designError(oacCannotFindDesign, names);
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

} // namespace OpenAccess_4::impl

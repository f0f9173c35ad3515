#include <ovalis/dm_files.h>

#include "core/boundary.h"
#include "core/names.h"

namespace ovalis {

namespace {

oa::oaCell& cellNamed(const oa::oaLib& lib, const std::string& name) {
    oa::oaCell* cell = oa::oaCell::find(&lib, scalarName(name));
    if (cell == nullptr) {
        throw std::runtime_error("cell not found in library");
    }
    return *cell;
}

/// Null when there is none.
oa::oaCellView* findCellView(const oa::oaLib& lib, const std::string& cellName,
                             const std::string& viewName) {
    return oa::oaCellView::find(&lib, scalarName(cellName), scalarName(viewName));
}

oa::oaCellView& cellViewNamed(const oa::oaLib& lib, const std::string& cellName,
                              const std::string& viewName) {
    oa::oaCellView* cellView = findCellView(lib, cellName, viewName);
    if (cellView == nullptr) {
        throw std::runtime_error("cell view not found in library");
    }
    return *cellView;
}

std::string pathOf(const oa::oaDMFile& file) {
    oa::oaString path;
    file.getPath(path);
    return fromOa(path);
}

TStringPair nameAndPathOf(const oa::oaDMFile& file) {
    oa::oaString name;
    file.getName(name);
    return TStringPair(fromOa(name), pathOf(file));
}

bool remove(const oa::oaDMContainer& container, const std::string& fileName) {
    oa::oaDMFile* file = oa::oaDMFile::find(&container, toOa(fileName));
    if (file == nullptr || !file->existsOnDisk()) {
        return false;
    }
    file->destroy();
    return true;
}

TStringPair _getDMFileName(const oa::oaDMContainer& container, const std::string& fileName) {
    const oa::oaDMFile* file = oa::oaDMFile::find(&container, toOa(fileName));
    return file != nullptr ? nameAndPathOf(*file) : TStringPair("", "");
}

std::vector<TStringPair> _getDMFileNames(const oa::oaDMContainer& container) {
    std::vector<TStringPair> names;
    oa::oaIter<oa::oaDMFile> files(container.getDMFiles());
    while (const oa::oaDMFile* file = files.getNext()) {
        names.push_back(nameAndPathOf(*file));
    }
    return names;
}

} // namespace

std::string addDMFile(oa::oaDMContainer& container, const std::string& fileName) {
    return atBoundary([&] {
        initOa();
        const oa::oaString name = toOa(fileName);
        const oa::oaDMFile* file = oa::oaDMFile::find(&container, name);
        if (file == nullptr) {
            file = oa::oaDMFile::create(&container, name);
        }
        if (file == nullptr) {
            throw std::runtime_error("Can not add file to container.");
        }
        return pathOf(*file);
    });
}

std::string addDMFile(oa::oaLib& lib, const std::string& fileName) {
    return addDMFile(static_cast<oa::oaDMContainer&>(lib), fileName);
}

std::string addDMFile(oa::oaLib& lib, const std::string& cellName, const std::string& fileName) {
    return atBoundary([&] {
        initOa();
        return addDMFile(cellNamed(lib, cellName), fileName);
    });
}

std::string addDMFile(oa::oaLib& lib, const std::string& cellName, const std::string& viewName,
                      const std::string& fileName) {
    return atBoundary([&] {
        initOa();
        return addDMFile(cellViewNamed(lib, cellName, viewName), fileName);
    });
}

bool removeDMFile(oa::oaLib& lib, const std::string& fileName) {
    return atBoundary([&] {
        initOa();
        return remove(lib, fileName);
    });
}

bool removeDMFile(oa::oaLib& lib, const std::string& cellName, const std::string& fileName) {
    return atBoundary([&] {
        initOa();
        return remove(cellNamed(lib, cellName), fileName);
    });
}

bool removeDMFile(oa::oaLib& lib, const std::string& cellName, const std::string& viewName,
                  const std::string& fileName) {
    return atBoundary([&] {
        initOa();
        return remove(cellViewNamed(lib, cellName, viewName), fileName);
    });
}

std::vector<TStringPair> getDMFileNames(const oa::oaDMContainer& container) {
    return atBoundary([&] {
        initOa();
        return _getDMFileNames(container);
    });
}

std::vector<TStringPair> getDMFileNames(const oa::oaLib& lib) {
    return getDMFileNames(static_cast<const oa::oaDMContainer&>(lib));
}

std::vector<TStringPair> getDMFileNames(const oa::oaLib& lib, const std::string& cellName) {
    return atBoundary([&] {
        initOa();
        return _getDMFileNames(cellNamed(lib, cellName));
    });
}

std::vector<TStringPair> getDMFileNames(const oa::oaLib& lib, const std::string& cellName,
                                        const std::string& viewName) {
    return atBoundary([&] {
        initOa();
        const oa::oaCellView* cellView = findCellView(lib, cellName, viewName);
        if (cellView == nullptr) {
            // Spelled unlike the texts of the other functions, as callers know it.
            throw std::runtime_error("Cell view not found in library.");
        }
        return _getDMFileNames(*cellView);
    });
}

TStringPair getDMFileName(const oa::oaLib& lib, const std::string& cellName,
                          const std::string& viewName, const std::string& fileName) {
    return atBoundary([&] {
        initOa();
        const oa::oaCellView* cellView = findCellView(lib, cellName, viewName);
        return cellView != nullptr ? _getDMFileName(*cellView, fileName) : TStringPair("", "");
    });
}

bool existsFile(oa::oaDMContainer& container, const char* fileName) {
    return atBoundary([&] {
        initOa();
        return oa::oaDMFile::find(&container, oa::oaString(fileName)) != nullptr;
    });
}

bool existsFileInOpenLib(const char* libName, const char* fileName) {
    return atBoundary([&] {
        initOa();
        oa::oaLib* lib = oa::oaLib::find(scalarName(libName));
        if (lib == nullptr) {
            throw std::runtime_error(std::string("Library not open:") + libName);
        }
        if (lib->getAccessLevel() != oa::oacNoLibAccessLevel) {
            return existsFile(*lib, fileName);
        }
        const ScopedLibAccess access(*lib, oa::oacReadLibAccess, 0);
        if (!access) {
            throw std::runtime_error(std::string("Cannot get read access:") + libName);
        }
        return existsFile(*lib, fileName);
    });
}

} // namespace ovalis

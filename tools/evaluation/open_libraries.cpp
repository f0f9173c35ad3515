#include "evaluation/open_libraries.h"

#include <algorithm>
#include <stdexcept>

#include "evaluation/open_design.h"
#include "platform/file.h"
#include "platform/path.h"

namespace evaluation {
namespace {

/// Keeps what the database finds wrong while a list is loaded.
class WarningLog : public oa::oaObserver<oa::oaLibDefList> {
public:
    WarningLog(std::vector<std::string>& warnings, std::vector<std::string>& unopened)
        : oa::oaObserver<oa::oaLibDefList>(1), warnings_(warnings), unopened_(unopened) {}

    oa::oaBoolean onLoadWarnings(oa::oaLibDefList*, const oa::oaString& message,
                                 oa::oaLibDefListWarningTypeEnum type) override {
        warnings_.push_back(ovalis::fromOa(message));
        if (type == oa::oacSyntaxErrorLibDefListWarning ||
            type == oa::oacCannotOpenIncludeLibDefListWarning ||
            type == oa::oacCannotOpenLibLibDefListWarning)
            unopened_.push_back(warnings_.back());
        return true;
    }

private:
    std::vector<std::string>& warnings_;
    std::vector<std::string>& unopened_;
};

template <class Object, class Owner>
std::vector<Object*> all(const oa::oaCollection<Object, Owner>& collection) {
    std::vector<Object*> found;
    oa::oaIter<Object> walk(collection);
    while (Object* each = walk.getNext())
        found.push_back(each);
    return found;
}

std::vector<oa::oaLib*> openLibs() {
    return all(oa::oaLib::getOpenLibs());
}

std::vector<oa::oaLibDefList*> openLists() {
    return all(oa::oaLibDefList::getLibDefLists());
}

template <class Object>
bool contains(const std::vector<Object*>& objects, const Object* object) {
    return std::find(objects.begin(), objects.end(), object) != objects.end();
}

std::string pathOf(const oa::oaLib& lib) {
    oa::oaString path;
    lib.getFullPath(path);
    return ovalis::fromOa(path);
}

constexpr const char* noDirectory = "the name of a library's directory is empty";

void requireLibrary(const std::string& directory) {
    if (directory.empty())
        throw std::runtime_error(noDirectory);
    if (!ovalis::existsLib(directory))
        throw std::runtime_error("OA Library not found at " + directory);
}

} // namespace

OpenLibraries::OpenLibraries(const std::string& directory, const std::string& name,
                             const std::string& listFile) {
    ovalis::initOa();
    if (!directory.empty())
        requireLibrary(directory);
    before_ = openLibs();
    listsBefore_ = openLists();
    const std::string ownList = platform::joinPath(directory, "lib.defs");
    try {
        if (!listFile.empty())
            openList(listFile);
        else if (platform::isFile(ownList))
            openList(ownList);
        if (!directory.empty())
            library_ = &open(directory, name);
    } catch (...) {
        closeAll();
        throw;
    }
}

OpenLibraries::~OpenLibraries() {
    closeAll();
}

oa::oaLib& OpenLibraries::library() const {
    if (library_ == nullptr)
        throw std::runtime_error(noDirectory);
    return *library_;
}

std::vector<oa::oaLib*> OpenLibraries::all() const {
    std::vector<oa::oaLib*> libs = openLibs();
    std::erase_if(libs, [&](oa::oaLib* lib) { return contains(before_, lib); });
    return libs;
}

void OpenLibraries::openList(const std::string& listFile) {
    calling([&] {
        const WarningLog log(warnings_, unopened_);
        oa::oaLibDefList::openLibs(ovalis::toOa(listFile));
        const oa::oaLibDefList* list = oa::oaLibDefList::getTopList();
        oa::oaString path;
        if (list != nullptr)
            list->getFullPath(path);
        listPath_ = ovalis::fromOa(path);
    });
}

oa::oaLib& OpenLibraries::open(const std::string& directory, const std::string& name) {
    requireLibrary(directory);
    for (oa::oaLib* lib : openLibs())
        if (platform::sameFile(pathOf(*lib), directory)) {
            if (!calling([&] { return lib->getAccess(oa::oacReadLibAccess, 0); }))
                throw std::runtime_error("Could not obtain access to library at " + directory);
            return *lib;
        }
    return *ovalis::openLib(directory, false, name).release(); // closed with the others
}

void OpenLibraries::closeAll() noexcept {
    try {
        for (oa::oaLib* lib : all())
            lib->close();
        for (oa::oaLibDefList* list : openLists())
            if (!contains(listsBefore_, list))
                list->destroy();
    } catch (const oa::oaException&) {
        // What is left open goes with the process.
    }
}

} // namespace evaluation

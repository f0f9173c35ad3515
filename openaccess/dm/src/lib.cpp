#include "oa/oaLib.h"

#include "base/src/source.h"
#include "dm/src/dm_session.h"
#include "dm/src/library.h"
#include "dm/src/name_text.h"
#include "oa/oaLibObserver.h"
#include "platform/file.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

std::string text(const oaString& string) {
    return static_cast<const oaChar*>(string);
}

/// Makes the directory and the marker of a library.
class LibraryCreation {
public:
    LibraryCreation(const LibraryPlace& place, const oaString& dmSystem)
        : place_(place), system_(text(dmSystem)) {}

    void run(const oaDMAttrArray* attributes) {
        require(system_ == "oaDMSystem" || system_ == LibraryMarker::kSystemName,
                "the design-management system '" + system_ + "' is not supported");
        require(!place_.path.empty(), "the path is empty");
        for (oaUInt4 i = 0; attributes && i < attributes->getNumElements(); ++i)
            setAttribute((*attributes)[i]);
        try {
            makeDirectory();
            writeMarker();
        } catch (const platform::SystemFailure& failure) {
            fail(failure.error().text());
        }
    }

private:
    [[noreturn]] void fail(const std::string& reason) const {
        throw oaDMError(oacLibCouldNotCreate, place_.name.c_str(), place_.path.c_str(),
                        reason.c_str());
    }

    void require(bool holds, const std::string& reason) const {
        if (!holds)
            fail(reason);
    }

    void setAttribute(const oaDMAttr& attribute) {
        const std::string wrong =
            marker_.set(text(attribute.getName()), text(attribute.getValue()));
        require(wrong.empty(), wrong);
    }

    void makeDirectory() {
        if (!platform::exists(place_.path)) {
            platform::createDirectory(place_.path);
            isNew_ = true;
            return;
        }
        require(platform::isDirectory(place_.path), "there is a file of that name");
        require(platform::listDirectory(place_.path).empty(), "the directory is not empty");
    }

    void writeMarker() const {
        try {
            marker_.write(platform::joinPath(place_.path, LibraryMarker::kFileName));
        } catch (const platform::SystemFailure&) {
            if (isNew_)
                platform::removeTree(place_.path);
            throw;
        }
    }

    const LibraryPlace& place_;
    const std::string system_;
    LibraryMarker marker_;
    bool isNew_ = false;
};

oaLib* openAt(LibraryPlace place) {
    if (place.writePath.empty())
        place.writePath = place.path;
    return DMSession::instance().add(std::make_unique<Library>(std::move(place))).handle();
}

} // namespace

oaLib* oaLib::create(const oaScalarName& name, const oaString& libPath, oaLibMode mode,
                     const oaString& dmSystem, const oaDMAttrArray* dmAttrList) {
    const LibraryPlace place{nativeText(name, "library"), text(libPath), "", mode};
    if (find(name))
        throw oaDMError(oacLibNameExists, place.name.c_str());
    LibraryCreation(place, dmSystem).run(dmAttrList);
    oaLib* lib = openAt(place);
    oaVersionedObserver<oaLib>::notifyPostCreateObservers(lib);
    return lib;
}

oaLib* oaLib::open(const oaScalarName& name, const oaString& libPath, const oaString& writePath,
                   oaLibMode mode) {
    const LibraryPlace place{nativeText(name, "library"), text(libPath), text(writePath), mode};
    if (const Library* open = DMSession::instance().findLibrary(place.name))
        throw oaDMError(oacCannotOpenOpenedLib, place.name.c_str(), open->fullPath().c_str());
    if (!exists(libPath))
        throw oaDMError(oacLibCouldNotOpen, place.name.c_str(), place.path.c_str(),
                        platform::isDirectory(place.path) ? "the directory holds no library"
                                                          : "there is no such directory");
    oaLib* lib = openAt(place);
    oaVersionedObserver<oaLib>::notifyPostOpenObservers(lib);
    return lib;
}

oaLib* oaLib::find(const oaScalarName& name) {
    const Library* library = DMSession::instance().findLibrary(nativeText(name, "library"));
    return library ? library->handle() : nullptr;
}

oaBoolean oaLib::exists(const oaString& libPath) {
    return Library::exists(text(libPath));
}

oaCollection<oaLib, oaLib> oaLib::getOpenLibs() {
    std::vector<oaObject*> libraries;
    for (const auto& library : DMSession::instance().libraries())
        libraries.push_back(library->handle());
    return collectionOf<oaCollection<oaLib, oaLib>>(std::move(libraries));
}

void oaLib::close() {
    DMSession::instance().close(libraryOf(this));
}

oaBoolean oaLib::getAccess(oaLibAccess accessType, oaUInt4 timeout) {
    return libraryOf(this).getAccess(accessType, std::chrono::seconds(timeout));
}

void oaLib::releaseAccess() {
    libraryOf(this).releaseAccess();
}

oaLibAccessLevel oaLib::getAccessLevel() const {
    return libraryOf(this).level();
}

void oaLib::getName(oaScalarName& name) const {
    assignName(name, libraryOf(this).name());
}

void oaLib::getName(const oaNameSpace& ns, oaString& out) const {
    writeName(ns, libraryOf(this).name(), out);
}

void oaLib::getPath(oaString& path) const {
    path = libraryOf(this).place().path.c_str();
}

void oaLib::getFullPath(oaString& fullPath) const {
    fullPath = libraryOf(this).fullPath().c_str();
}

void oaLib::getWritePath(oaString& writePath) const {
    writePath = libraryOf(this).place().writePath.c_str();
}

oaLibMode oaLib::getMode() const {
    return libraryOf(this).place().mode;
}

void oaLib::getDMSystemName(oaString& dmSystem) const {
    slabOf(this);
    dmSystem = LibraryMarker::kSystemName;
}

oaBoolean oaLib::isReadable() const {
    return libraryOf(this).refusal(oacReadLibAccess).empty();
}

oaBoolean oaLib::isWritable() const {
    return libraryOf(this).refusal(oacWriteLibAccess).empty();
}

oaBoolean oaLib::isMarkedToBeClosed() const {
    slabOf(this);
    return false;
}

oaBoolean oaLib::hasVC() const {
    slabOf(this);
    return false;
}

void oaLib::getAttributes(oaDMAttrArray& attrs) const {
    attrs.setNumElements(0);
    for (const auto& [name, value] : libraryOf(this, oacReadLibAccess).marker().attributes())
        attrs.append(oaDMAttr(name.c_str(), value.c_str()));
}

void oaLib::setAttributes(const oaDMAttrArray& attrs) {
    Library& library = libraryOf(this, oacWriteLibAccess);
    LibraryMarker::Attributes given;
    for (oaUInt4 i = 0; i < attrs.getNumElements(); ++i)
        given.emplace_back(text(attrs[i].getName()), text(attrs[i].getValue()));
    LibraryMarker marker = library.marker();
    std::string wrong = marker.replace(given);
    // Every name on disk is spelled by it.
    if (wrong.empty() && marker.fileSystem() != library.marker().fileSystem())
        wrong = "attribute 'origFileSystem' cannot be changed";
    if (!wrong.empty())
        throw oaDMError(oacInvalidLibAttribute, library.name().c_str(), wrong.c_str());
    using Observer = oaVersionedObserver<oaLib>;
    Observer::notifyPreModifyObservers(this, oacSetAttributesLibModType);
    library.replaceMarker(marker);
    Observer::notifyPostModifyObservers(this, oacSetAttributesLibModType);
}

oaCollection<oaCell, oaLib> oaLib::getCells() const {
    return collectionOf<oaCollection<oaCell, oaLib>>(libraryOf(this, oacReadLibAccess).cells());
}

oaCollection<oaView, oaLib> oaLib::getViews() const {
    return collectionOf<oaCollection<oaView, oaLib>>(libraryOf(this, oacReadLibAccess).views());
}

oaCollection<oaView, oaLib> oaLib::getViewsByName(const oaScalarName& name) const {
    const std::string wanted = nativeText(name, "view");
    std::vector<oaObject*> views = libraryOf(this, oacReadLibAccess).views();
    std::erase_if(views,
                  [&](const oaObject* view) { return recordOf<ViewRecord>(view).name != wanted; });
    return collectionOf<oaCollection<oaView, oaLib>>(std::move(views));
}

oaCollection<oaCellView, oaLib> oaLib::getCellViews() const {
    return collectionOf<oaCollection<oaCellView, oaLib>>(
        libraryOf(this, oacReadLibAccess).cellViews());
}

} // namespace OpenAccess_4

#include "oa/oaLibDefList.h"

#include "base/src/source.h"
#include "common/src/plug_in_description.h"
#include "dm/src/definition_opening.h"
#include "oa/oaDMException.h"
#include "oa/oaLibDefListObserver.h"
#include "platform/environment.h"
#include "platform/file.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace OpenAccess_4 {

using namespace impl;

namespace {

using Observer = oaVersionedObserver<oaLibDefList>;

constexpr const char* defaultFileName = "lib.defs";

std::string text(const oaString& string) {
    return static_cast<const oaChar*>(string);
}

std::string homeDirectory() {
    // Windows knows the second name.
    for (const char* name : {"HOME", "USERPROFILE"})
        if (const auto home = platform::environmentVariable(name); home && !home->empty())
            return *home;
    return "";
}

/// "data" of the installation; empty when nobody can tell where that is, because the library was
/// loaded by a path that meant something in another working directory.
std::string dataDirectory() {
    try {
        return platform::joinPath(installationDirectory(), "data");
    } catch (const std::runtime_error&) {
        return "";
    }
}

std::string defaultPath() {
    std::vector<std::string> paths = {defaultFileName};
    if (const std::string home = homeDirectory(); !home.empty())
        paths.push_back(platform::joinPath(home, defaultFileName));
    if (const std::string data = dataDirectory(); !data.empty()) {
        paths.push_back(platform::joinPath(platform::joinPath(data, "libraries"), defaultFileName));
        paths.push_back(platform::joinPath(data, defaultFileName));
    }
    const auto found = std::ranges::find_if(paths, platform::isFile);
    return found == paths.end() ? "" : *found;
}

bool openLibraries(const std::shared_ptr<DefinitionList>& list, bool asTop) {
    if (!Observer::notifyPreOpenLibsObservers(list->handle()) || !list->handle()->isValid())
        return false;
    DefinitionOpening opening(list);
    if (asTop && list->handle()->isValid())
        DefinitionLists::instance().setTop(list->handle());
    opening.openLibraries();
    if (list->handle()->isValid())
        Observer::notifyPostOpenLibsObservers(list->handle());
    return true;
}

void readAndOpen(const std::string& path) {
    const auto list = DefinitionLists::instance().read(path);
    warnOfContent(*list);
    openLibraries(list, true);
}

void requireWritable(const std::string& path) {
    const std::string directory = platform::parentPath(path);
    const char* reason = nullptr;
    if (platform::isDirectory(path))
        reason = "it is a directory";
    else if (!platform::isDirectory(directory))
        reason = "there is no such directory";
    else if (!platform::isWritable(platform::exists(path) ? path : directory))
        reason = "there is no permission to";
    if (reason)
        throw oaDMError(oacLibDefListFileNotWritable, path.c_str(), reason);
}

oaDMError notReadable(const platform::SystemFailure& failure, const std::string& path) {
    return oaDMError(oacLibDefListFileNotReadable, path.c_str(), fileReason(failure).c_str());
}

} // namespace

void oaLibDefList::openLibs() {
    const std::string path = defaultPath();
    if (path.empty()) {
        Observer::notifyLoadWarningsObservers(
            nullptr,
            "There is no file 'lib.defs' in the working directory, in the home directory or in the "
            "installation.",
            oacNoDefaultLibDefListWarning);
        return;
    }
    try {
        readAndOpen(path);
    } catch (const platform::SystemFailure& failure) {
        Observer::notifyLoadWarningsObservers(nullptr, notReadable(failure, path).getMsg(),
                                              oacCannotOpenDefaultLibDefListWarning);
    }
}

void oaLibDefList::openLibs(const oaString& path) {
    try {
        readAndOpen(text(path));
    } catch (const platform::SystemFailure& failure) {
        throw notReadable(failure, text(path));
    }
}

void oaLibDefList::open() {
    openLibraries(recordOf<DefinitionListRecord>(this).list, false);
}

oaLibDefList* oaLibDefList::getTopList() {
    return DefinitionLists::instance().top();
}

oaLibDefList* oaLibDefList::get(const oaString& filePath, oaChar mode) {
    if (mode != 'r' && mode != 'a' && mode != 'w')
        throw oaDMError(oacUndefinedLibDefListMode, mode);
    const std::string path = text(filePath);
    DefinitionLists& lists = DefinitionLists::instance();
    std::shared_ptr<DefinitionList> list = lists.find(path);
    if (list) {
        if (mode != 'r' && list->mode() == 'r')
            requireWritable(list->fullPath());
        list->setMode(mode);
        return list->handle();
    }
    if (mode != 'r')
        requireWritable(path);
    try {
        if (mode == 'r' || (mode == 'a' && platform::exists(path))) {
            list = lists.read(path);
            list->setMode(mode);
            warnOfContent(*list);
        } else {
            list = lists.add(path, mode);
            list->edit();
        }
    } catch (const platform::SystemFailure& failure) {
        throw notReadable(failure, path);
    }
    return list->handle();
}

oaLibDefList* oaLibDefList::find(const oaString& filePath) {
    const auto list = DefinitionLists::instance().find(text(filePath));
    return list ? list->handle() : nullptr;
}

oaLibDefList* oaLibDefList::create(const oaString& filePath) {
    const std::string path = text(filePath);
    if (find(filePath) || platform::exists(path))
        throw oaDMError(oacLibDefListFileNotWritable, path.c_str(), "it exists already");
    return get(filePath, 'w');
}

oaCollection<oaLibDefList, oaLibDefList> oaLibDefList::getLibDefLists() {
    return collectionOf<oaCollection<oaLibDefList, oaLibDefList>>(
        {&DefinitionLists::instance().table()});
}

void oaLibDefList::getDefaultPath(oaString& path) {
    path = defaultPath().c_str();
}

void oaLibDefList::getDefaultFileName(oaString& fileName) {
    fileName = defaultFileName;
}

oaCollection<oaLibDefListMem, oaLibDefList> oaLibDefList::getMembers() const {
    return oaCollection<oaLibDefListMem, oaLibDefList>(listOf(this).content().memberSource());
}

void oaLibDefList::getPath(oaString& path) const {
    path = listOf(this).path().c_str();
}

void oaLibDefList::getFullPath(oaString& path) const {
    path = listOf(this).fullPath().c_str();
}

oaChar oaLibDefList::getMode() const {
    return listOf(this).mode();
}

void oaLibDefList::save() {
    const auto list = recordOf<DefinitionListRecord>(this).list;
    if (list->mode() == 'r')
        throw oaDMError(oacSaveReadOnlyLibDefList, list->fullPath().c_str());
    Observer::notifyPreSaveObservers(this);
    try {
        list->save();
    } catch (const oaDMError&) {
        Observer::notifyPostSaveObservers(this, false);
        throw;
    }
    Observer::notifyPostSaveObservers(this, true);
}

void oaLibDefList::saveAs(const oaString& path) {
    const auto list = recordOf<DefinitionListRecord>(this).list;
    Observer::notifyPreSaveAsObservers(this, path);
    try {
        list->write(text(path));
    } catch (const oaDMError&) {
        Observer::notifyPostSaveAsObservers(this, path, false);
        throw;
    }
    Observer::notifyPostSaveAsObservers(this, path, true);
}

void oaLibDefList::destroy() {
    DefinitionLists::instance().destroy(slotOf(this));
}

} // namespace OpenAccess_4

#include "evaluation/plug_in_place.h"

#include <algorithm>

#include <oa/oaDesignDB.h>

#include "platform/environment.h"
#include "platform/file.h"
#include "platform/path.h"
#include "platform/shared_module.h"

namespace evaluation {

std::vector<std::string> directoriesIn(const std::string& list) {
    std::vector<std::string> directories;
    for (std::size_t begin = 0; begin < list.size();) {
        const std::size_t end =
            std::min(list.find(platform::pathListSeparator(), begin), list.size());
        if (end > begin)
            directories.push_back(list.substr(begin, end - begin));
        begin = end + 1;
    }
    return directories;
}

std::string installedPlugIns(const std::string& libraryDirectory) {
    return platform::joinPath(platform::parentPath(libraryDirectory), "data/plugins");
}

std::vector<std::string> plugInDirectories() {
    std::vector<std::string> directories =
        directoriesIn(platform::environmentVariable("OA_PLUGIN_PATH").value_or(""));
    const std::string database =
        platform::moduleHolding(reinterpret_cast<const void*>(&oa::oaDesignInit));
    directories.push_back(installedPlugIns(platform::parentPath(database)));
    return directories;
}

std::string plugInFile(const std::string& name, const std::vector<std::string>& directories) {
    for (const std::string& directory : directories)
        if (std::string file = platform::joinPath(directory, name + ".plg"); platform::isFile(file))
            return file;
    return "";
}

} // namespace evaluation

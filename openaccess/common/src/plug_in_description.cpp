#include "common/src/plug_in_description.h"

#include "platform/environment.h"
#include "platform/file.h"
#include "platform/path.h"
#include "platform/shared_module.h"
#include "platform/xml_element.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace OpenAccess_4::impl {

using platform::XmlElement;

namespace {

constexpr const char* kPathVariable = "OA_PLUGIN_PATH";

std::vector<std::string> directoriesIn(std::string_view list) {
    std::vector<std::string> directories;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(platform::pathListSeparator()), list.size());
        if (end > 0) // nothing between two separators does not stand for the working directory
            directories.emplace_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return directories;
}

bool isBareName(std::string_view name) {
    return !name.empty() && name.find_first_of("/\\:") == std::string_view::npos;
}

std::optional<std::string> descriptionFile(const std::string& name) {
    for (const std::string& directory : plugInDirectories()) {
        std::string file = platform::joinPath(directory, name + ".plg");
        if (platform::isFile(file))
            return file;
    }
    return std::nullopt;
}

std::string searchedPlaces() {
    std::string places;
    for (const std::string& directory : plugInDirectories())
        places += (places.empty() ? "" : ", ") + directory;
    if (!platform::environmentVariable(kPathVariable))
        places += std::string(" (") + kPathVariable + " is not set)";
    return places;
}

XmlElement readDescription(const std::string& file) {
    const std::string text = platform::readFile(file); // names the file when it fails
    try {
        XmlElement element = platform::parseXml(text);
        if (element.name != "plugIn" && element.name != "plugin")
            throw std::runtime_error("expected <plugIn>, not <" + element.name + ">");
        return element;
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(file + ": " + error.what());
    }
}

// The attribute that is set of the two that say where to go on.
const std::string& onlyOne(const std::string* lib, const std::string* treatAs,
                           const std::string& file) {
    if (!lib == !treatAs)
        throw std::runtime_error(file + ": expected either the attribute lib or the attribute "
                                        "treatAs");
    const std::string& value = lib ? *lib : *treatAs;
    if (!isBareName(value))
        throw std::runtime_error(file + ": '" + value + "' is not the name of a " +
                                 (lib ? "module" : "plug-in"));
    return value;
}

} // namespace

std::string installationDirectory() {
    // What is exported may lie in the program instead.
    static constexpr char inThisLibrary = 0;
    const std::string library = platform::moduleHolding(&inThisLibrary);
    return platform::parentPath(platform::parentPath(library));
}

std::vector<std::string> plugInDirectories() {
    const std::string list = platform::environmentVariable(kPathVariable).value_or("");
    std::vector<std::string> directories = directoriesIn(list);
    directories.push_back(platform::joinPath(installationDirectory(), "data/plugins"));
    return directories;
}

PlugInDescription findPlugIn(const std::string& name) {
    std::vector<std::string> names = {name};
    for (;;) {
        const std::string& current = names.back();
        if (!isBareName(current))
            throw std::runtime_error("a plug-in cannot have this name");
        const std::optional<std::string> file = descriptionFile(current);
        if (!file)
            throw std::runtime_error("there is no " + current + ".plg in " + searchedPlaces());
        const XmlElement element = readDescription(*file);
        const std::string* const lib = element.attribute("lib");
        std::string target = onlyOne(lib, element.attribute("treatAs"), *file);
        if (lib)
            return {current, *file, std::move(target)};
        if (std::ranges::find(names, target) != names.end())
            throw std::runtime_error(*file + ": the descriptions lead from '" + target +
                                     "' back to it");
        names.push_back(std::move(target));
    }
}

} // namespace OpenAccess_4::impl

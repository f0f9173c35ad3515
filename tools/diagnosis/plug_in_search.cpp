#include "diagnosis/plug_in_search.h"

#include <algorithm>
#include <optional>
#include <set>
#include <stdexcept>

#include <platform/environment.h>
#include <platform/file.h>
#include <platform/private_directory.h>
#include <platform/shared_module.h>
#include <platform/xml_element.h>

#include "broker/start.h"
#include "evaluation/plug_in_place.h"

namespace diagnosis {
namespace {

using platform::XmlElement;

std::vector<std::string> listedIn(const char* variable) {
    return evaluation::directoriesIn(platform::environmentVariable(variable).value_or(""));
}

/// Where the system looks for what a program loads; on Windows beside the program first.
std::vector<std::string> librariesFor(const std::string& program) {
    std::vector<std::string> libraries = listedIn(platform::libraryPathVariable());
    if (platform::libraryPathVariable() == std::string("PATH"))
        libraries.insert(libraries.begin(), platform::parentPath(program));
    return libraries;
}

/// An installation's own directory is searched last; most have none.
void addInstalled(PlugInPlaces& places, const std::string& directory) {
    if (platform::isDirectory(directory))
        places.directories.push_back(directory);
}

bool isBareName(const std::string& name) {
    return !name.empty() && name.find_first_of("/\\:") == std::string::npos;
}

XmlElement readDescription(const std::string& file) {
    XmlElement element = platform::parseXml(platform::readFile(file));
    if (element.name != "plugIn" && element.name != "plugin")
        throw std::runtime_error("expected <plugIn>, not <" + element.name + ">");
    return element;
}

Fault faultOfAbsence(const std::string& name, const std::vector<std::string>& directories) {
    std::string places;
    for (const std::string& directory : directories)
        places += (places.empty() ? "" : ", ") + directory +
                  (platform::isDirectory(directory) ? "" : " (not there)");
    if (places.empty())
        return {"no plug-in directory is configured, where " + name + ".plg could be",
                "set MY_OA_PLUGIN_DIR_5 and _6 in the file, or OA_PLUGIN_PATH"};
    return {"there is no " + name + ".plg in " + places,
            "put " + name + ".plg and its module into one of these directories"};
}

Faults faultsOfModule(const std::string& file, const std::string& lib, const PlugInPlaces& places) {
    if (!isBareName(lib))
        return {{file + ": '" + lib + "' is not the bare name of a module",
                 "put the module beside the file and write its name without directory"}};
    const std::string module = platform::moduleFileName(lib);
    const auto holds = [&](const std::string& directory) {
        return platform::isFile(platform::joinPath(directory, module));
    };
    if (holds(platform::parentPath(file)) ||
        std::any_of(places.libraries.begin(), places.libraries.end(), holds))
        return {};
    return {{"the module " + module + " is neither beside " + file + " nor in a directory of " +
                 platform::libraryPathVariable(),
             "put it there, or correct the name in lib=\"" + lib + "\""}};
}

Faults search(const std::string& type, const PlugInPlaces& places) {
    std::set<std::string> seen;
    std::string name = type;
    while (seen.insert(name).second) {
        if (!isBareName(name))
            return {{"'" + name + "' cannot be the name of a plug-in",
                     "write the name without directory"}};
        const std::string file = evaluation::plugInFile(name, places.directories);
        if (file.empty())
            return {faultOfAbsence(name, places.directories)};
        XmlElement element;
        try {
            element = readDescription(file);
        } catch (const platform::SystemFailure&) {
            throw;
        } catch (const std::runtime_error& error) {
            return {{file + " is not a description of a plug-in: " + error.what(),
                     "write <plugIn lib=\"NAME\"/> into it"}};
        }
        const std::string* const lib = element.attribute("lib");
        const std::string* const treatAs = element.attribute("treatAs");
        if (lib == nullptr && treatAs == nullptr)
            return {{file + " names no module", "write <plugIn lib=\"NAME\"/> into it"}};
        if (lib != nullptr && treatAs != nullptr)
            return {{file + " names a module and another plug-in", "keep either lib or treatAs"}};
        if (lib != nullptr)
            return faultsOfModule(file, *lib, places);
        name = *treatAs;
    }
    return {{"the descriptions lead from '" + name + "' back to it",
             "have the last one name its module with lib"}};
}

} // namespace

PlugInPlaces ownPlugInPlaces() {
    PlugInPlaces places;
    places.libraries = librariesFor(platform::programPath());
    places.directories = evaluation::plugInDirectories();
    const std::string installed = places.directories.back();
    places.directories.pop_back();
    addInstalled(places, installed);
    return places;
}

PlugInPlaces plugInPlacesOf(const pcellBrokerClient::BrokerConnection& connection) {
    pcellBrokerClient::EnvOverrides environment;
    setBrokerVariables(environment, connection);
    PlugInPlaces places;
    places.libraries = librariesFor(connection.exePath);
    places.directories = listedIn("OA_PLUGIN_PATH");
    // The installation is the one that the broker's database belongs to.
    const std::string database = platform::moduleFileName("openaccess");
    const auto found = std::find_if(
        places.libraries.begin(), places.libraries.end(), [&](const std::string& directory) {
            return platform::isFile(platform::joinPath(directory, database));
        });
    addInstalled(places, evaluation::installedPlugIns(found == places.libraries.end()
                                                          ? platform::parentPath(connection.exePath)
                                                          : *found));
    return places;
}

Faults faultsOfPlugIn(const std::string& type, const PlugInPlaces& places) {
    try {
        return search(type, places);
    } catch (const platform::SystemFailure& failure) {
        return {{failure.path() + " cannot be read: " + failure.error().text(),
                 "give this user the right to read it"}};
    }
}

bool isDescribed(const std::string& type, const PlugInPlaces& places) {
    return !evaluation::plugInFile(type, places.directories).empty();
}

} // namespace diagnosis

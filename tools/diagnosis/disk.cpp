#include "diagnosis/disk.h"

#include <algorithm>
#include <optional>

#include <platform/file.h>
#include <platform/program_file.h>

#include "diagnosis/program_kind.h"

namespace diagnosis {
namespace {

/// What one key leads to.
struct Place {
    std::string label;
    std::string value;
    std::string path;
};

std::optional<Place> placeOf(const ConfigurationFile& file, const std::string& directory,
                             const std::string& key) {
    const ConfigurationLine* const line = file.find(key);
    if (!line)
        return std::nullopt;
    return Place{file.label(key), line->value, directory + platform::pathSeparator() + line->value};
}

std::string cureOfMissing(const Place& place, const std::string& other) {
    if (isAbsolutePath(place.value))
        return "values start at PCELLBROKER_HOME: write the path from there on, with .. where "
               "needed";
    if (place.value.find_first_of(" \t") == 0 ||
        place.value.find_last_of(" \t") == place.value.size() - 1)
        return "take the blank at the begin or end of the value out";
    return other;
}

std::optional<Fault> faultOfProgram(const Place& place) {
    const std::string cure = "name the program, from PCELLBROKER_HOME on";
    if (place.value.empty())
        return Fault{place.label + " has no value", cure};
    if (!platform::exists(place.path))
        return Fault{place.label + ": there is no file " + place.path, cureOfMissing(place, cure)};
    if (platform::isDirectory(place.path))
        return Fault{place.label + ": " + place.path + " is a directory", cure};
    if (!platform::isExecutable(place.path))
        return Fault{place.label + ": " + place.path + " is not executable",
                     "give this user the right to execute it"};
    if (const std::string reason = unsuitability(place.path); !reason.empty())
        return Fault{place.label + ": " + place.path + " " + reason,
                     "install the program that was built for this machine"};
    return std::nullopt;
}

// By its name: brokers are asked nothing that tells their version.
std::optional<Fault> faultOfVersion(const Place& place, char version) {
    std::string name = platform::fileName(place.value);
    if (name.ends_with(".exe"))
        name.resize(name.size() - 4);
    const char other = version == '5' ? '6' : '5';
    if (!name.ends_with(std::string("pcellBroker") + other))
        return std::nullopt;
    return Fault{place.label + ": " + name + " is the broker of version " + other,
                 std::string("name the program of version ") + version + ", or swap the two keys"};
}

bool hasPlugIn(const std::string& directory) {
    const auto entries = platform::listDirectory(directory);
    return std::any_of(entries.begin(), entries.end(),
                       [](const auto& entry) { return entry.name.ends_with(".plg"); });
}

std::optional<Fault> faultOfDirectory(const Place& place, bool holdsPlugIns) {
    if (place.value.empty())
        return Fault{place.label + " has no value, which means PCELLBROKER_HOME itself",
                     "name the directory or take the line out"};
    if (!platform::exists(place.path))
        return Fault{place.label + ": there is no directory " + place.path,
                     cureOfMissing(place, "name the directory, from PCELLBROKER_HOME on, or take "
                                          "the line out")};
    if (!platform::isDirectory(place.path))
        return Fault{place.label + ": " + place.path + " is not a directory",
                     "name the directory that holds it"};
    try {
        if (holdsPlugIns && !hasPlugIn(place.path))
            return Fault{place.label + ": " + place.path + " holds no plug-in (no file *.plg)",
                         "put the plug-in's .plg file and module there"};
    } catch (const platform::SystemFailure& failure) {
        return Fault{place.label + ": " + place.path + " cannot be read: " + failure.error().text(),
                     "give this user the right to read it"};
    }
    return std::nullopt;
}

} // namespace

void checkDisk(const ConfigurationFile& file, const std::string& directory, Faults& faults) {
    const auto check = [&](const std::string& key, auto faultOf) {
        if (const std::optional<Place> place = placeOf(file, directory, key))
            if (const std::optional<Fault> fault = faultOf(*place))
                faults.push_back(*fault);
    };
    check("PROBE_EXE", faultOfProgram);
    for (const char version : {'5', '6'}) {
        const std::string key = std::string("BROKER_EXE_") + version;
        check(key, faultOfProgram);
        check(key, [version](const Place& place) { return faultOfVersion(place, version); });
    }
    const std::optional<Place> five = placeOf(file, directory, "BROKER_EXE_5");
    const std::optional<Place> six = placeOf(file, directory, "BROKER_EXE_6");
    if (five && six && platform::isFile(five->path) && platform::sameFile(five->path, six->path))
        faults.push_back({five->label + " and " + six->label + " name the same program",
                          "each version has a broker of its own: name both"});
    for (const std::string version : {"5", "6"}) {
        for (const std::string key : {"MY_OA_LIB_DIR_", "OA_LIB_DIR_", "TCL_LIB_DIR_"})
            check(key + version, [](const Place& place) { return faultOfDirectory(place, false); });
        for (const std::string key : {"MY_OA_PLUGIN_DIR_", "OA_PLUGIN_DIR_"})
            check(key + version, [](const Place& place) { return faultOfDirectory(place, true); });
    }
}

} // namespace diagnosis

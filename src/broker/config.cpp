#include "broker/config.h"

#include <algorithm>

#include <platform/environment.h>
#include <platform/file.h>

namespace pcellBrokerClient {

namespace {

/// Goes through the lines of a file. They end at line feeds, with or without a carriage return
/// before them.
class Lines {
public:
    explicit Lines(std::string_view text) : rest_(text) {}

    bool next(std::string_view& line) {
        if (rest_.empty()) {
            return false;
        }
        const std::size_t end = rest_.find('\n');
        const bool isWhole = end != std::string_view::npos;
        line = rest_.substr(0, end);
        rest_ = isWhole ? rest_.substr(end + 1) : std::string_view();
        if (isWhole && line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        return true;
    }

private:
    std::string_view rest_;
};

/// Notes the values of one file.
class FileReader {
public:
    FileReader(const std::string& directory, BrokerConnections& connections)
        : prefix_(directory + platform::pathSeparator()), connections_(connections) {}

    /// False for a key that there is none of.
    bool set(std::string_view key, const std::string& value) {
        if (key == "CONFIG") {
            file_.configString = value;
        } else if (key == "PROBE_EXE") {
            file_.probeExe = prefix_ + value;
        } else if (key == "FORCED_OA_API_VERSION") {
            file_.forcedOaApiVersion = value;
        } else {
            return setOfVersion(key, prefix_ + value);
        }
        return true;
    }

    /// @throws std::runtime_error  a required key was not set.
    BrokerFile finish(const std::string& path) {
        const auto require = [&path](const std::string& value, const char* key) {
            if (value.empty()) {
                throw std::runtime_error(path + ": missing " + key + " key");
            }
        };
        require(file_.probeExe, "PROBE_EXE");
        require(connections_.at({5, false}).exePath, "BROKER_EXE_5");
        require(connections_.at({6, false}).exePath, "BROKER_EXE_6");
        return file_;
    }

private:
    bool setOfVersion(std::string_view key, const std::string& path) {
        const char version = key.empty() ? '\0' : key.back();
        if (version != '5' && version != '6') {
            return false;
        }
        key.remove_suffix(1);
        const auto apiVersion = static_cast<std::uint32_t>(version - '0');
        BrokerConnection& internal = connections_.at({apiVersion, false});
        BrokerConnection& external = connections_.at({apiVersion, true});
        if (key == "BROKER_EXE_") {
            internal.exePath = path;
            external.exePath = path;
        } else if (key == "MY_OA_LIB_DIR_") {
            // Shares the place with the next key on purpose: the later line of the file wins.
            internal.libDirs[1] = path;
            external.libDirs[0] = path;
        } else if (key == "OA_LIB_DIR_") {
            internal.libDirs[1] = path;
        } else if (key == "MY_OA_PLUGIN_DIR_") {
            internal.pluginDirs[0] = path;
            external.pluginDirs[0] = path;
        } else if (key == "OA_PLUGIN_DIR_") {
            internal.pluginDirs[1] = path;
        } else if (key == "TCL_LIB_DIR_") {
            internal.tclLibDir = path;
        } else {
            return false;
        }
        return true;
    }

    std::string prefix_;
    BrokerConnections& connections_;
    BrokerFile file_;
};

std::string contentOf(const std::string& path) {
    try {
        return platform::readFile(path);
    } catch (const platform::SystemFailure&) {
        throw std::runtime_error("failed to open '" + path + "'");
    }
}

std::string valueOrFileValue(const char* variable, const std::string& fileValue) {
    const std::string value = platform::environmentVariable(variable).value_or("");
    return value.empty() ? fileValue : value;
}

std::uint32_t forcedVersion(const std::string& text) {
    if (text.empty()) {
        return 0;
    }
    if (text != "5" && text != "6") {
        throw std::runtime_error("invalid [PCELLBROKER_]FORCED_OA_API_VERSION");
    }
    return static_cast<std::uint32_t>(text.front() - '0');
}

} // namespace

EmptyConfiguration::EmptyConfiguration() : std::runtime_error("empty [PCELLBROKER_]CONFIG") {}

BrokerFile parseBrokerFile(const std::string& directory, const std::string& path,
                           std::string_view content, BrokerConnections& connections) {
    FileReader reader(directory, connections);
    Lines lines(content);
    for (std::string_view line; lines.next(line);) {
        if (line.empty()) {
            continue;
        }
        const std::size_t equals = line.find('=');
        const std::string key(line.substr(0, equals));
        if (equals == std::string_view::npos) {
            throw std::runtime_error(path + ": missing '=' after key '" + key + "'");
        }
        if (!reader.set(key, std::string(line.substr(equals + 1)))) {
            throw std::runtime_error(path + ": invalid key '" + key + "'");
        }
    }
    return reader.finish(path);
}

BrokerConfig readBrokerConfig(BrokerConnections& connections) {
    const auto directory = platform::environmentVariable("PCELLBROKER_HOME");
    if (!directory) {
        throw std::runtime_error("PCELLBROKER_HOME is not set");
    }
    const std::string path = *directory + platform::pathSeparator() + "pcellBroker.cfg";
    const BrokerFile file = parseBrokerFile(*directory, path, contentOf(path), connections);

    BrokerConfig config;
    config.directory = *directory;
    config.probeExe = file.probeExe;
    const std::string items = valueOrFileValue("PCELLBROKER_CONFIG", file.configString);
    if (items.empty()) {
        throw EmptyConfiguration();
    }
    config.forcedOaApiVersion = forcedVersion(
        valueOrFileValue("PCELLBROKER_FORCED_OA_API_VERSION", file.forcedOaApiVersion));
    config.items = splitItems(items);
    return config;
}

std::vector<std::string> splitItems(const std::string& configString) {
    std::vector<std::string> items;
    for (std::size_t begin = 0; begin <= configString.size();) {
        const std::size_t end = std::min(configString.find(',', begin), configString.size());
        if (end > begin) {
            items.push_back(configString.substr(begin, end - begin));
        }
        begin = end + 1;
    }
    return items;
}

std::string itemTypeName(const std::string& item) {
    return item.substr(0, item.find(':'));
}

BrokeredType parseItem(const std::string& item) {
    BrokeredType type;
    type.typeName = itemTypeName(item);
    for (std::size_t i = type.typeName.size() + 1; i < item.size(); ++i) {
        if (item[i] == 'E') {
            type.useExternalOaLibs = true;
        } else if (item[i] == 'X') {
            type.allowNative = false;
        } else {
            throw std::runtime_error("invalid pcellBroker config string, only 'E' or 'X' options "
                                     "are  supported"); // the second blank belongs there
        }
    }
    return type;
}

} // namespace pcellBrokerClient

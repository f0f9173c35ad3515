#include "diagnosis/configuration_file.h"

#include <algorithm>

#include <platform/path.h>

namespace diagnosis {
namespace {

ConfigurationLine lineOf(std::size_t number, std::string_view text) {
    ConfigurationLine line{number, std::string(text), std::nullopt, ""};
    if (const std::size_t equals = text.find('='); equals != std::string_view::npos) {
        line.key = text.substr(0, equals);
        line.value = text.substr(equals + 1);
    }
    return line;
}

} // namespace

ConfigurationFile::ConfigurationFile(std::string_view content) {
    std::size_t number = 0;
    while (!content.empty()) {
        const std::size_t end = std::min(content.find('\n'), content.size());
        std::string_view text = content.substr(0, end);
        content.remove_prefix(std::min(end + 1, content.size()));
        ++number;
        if (text.ends_with('\r'))
            text.remove_suffix(1);
        if (!text.empty())
            lines_.push_back(lineOf(number, text));
    }
}

const ConfigurationLine* ConfigurationFile::find(std::string_view key) const {
    const ConfigurationLine* found = nullptr;
    for (const ConfigurationLine& line : lines_)
        if (line.key == key)
            found = &line;
    return found;
}

std::string ConfigurationFile::label(std::string_view key) const {
    const ConfigurationLine* const line = find(key);
    return std::string(key) + (line ? " (line " + std::to_string(line->number) + ")" : "");
}

bool isAbsolutePath(const std::string& path) {
    return !path.empty() && (platform::isPathSeparator(path[0]) || path.substr(1, 1) == ":");
}

const std::vector<std::string>& knownKeys() {
    static const std::vector<std::string> keys = {"CONFIG",
                                                  "PROBE_EXE",
                                                  "BROKER_EXE_5",
                                                  "BROKER_EXE_6",
                                                  "MY_OA_LIB_DIR_5",
                                                  "MY_OA_LIB_DIR_6",
                                                  "OA_LIB_DIR_5",
                                                  "OA_LIB_DIR_6",
                                                  "MY_OA_PLUGIN_DIR_5",
                                                  "MY_OA_PLUGIN_DIR_6",
                                                  "OA_PLUGIN_DIR_5",
                                                  "OA_PLUGIN_DIR_6",
                                                  "TCL_LIB_DIR_5",
                                                  "TCL_LIB_DIR_6",
                                                  "FORCED_OA_API_VERSION"};
    return keys;
}

} // namespace diagnosis

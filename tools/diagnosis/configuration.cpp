#include "diagnosis/configuration.h"

#include <algorithm>
#include <cctype>

#include <platform/environment.h>
#include <platform/file.h>

namespace diagnosis {
namespace {

std::string quoted(const std::string& text) {
    return "'" + text + "'";
}

std::string valueOf(const char* variable) {
    return platform::environmentVariable(variable).value_or("");
}

std::string withoutBlanks(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string::npos
               ? ""
               : text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

std::string upperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

bool isKnown(const std::string& key) {
    return std::find(knownKeys().begin(), knownKeys().end(), key) != knownKeys().end();
}

std::string cureOfKey(const std::string& key) {
    if (const std::string meant = upperCase(withoutBlanks(key)); isKnown(meant))
        return "write " + meant + "=VALUE, in capitals and without blanks";
    std::string all;
    for (const std::string& known : knownKeys())
        all += (all.empty() ? "" : ", ") + known;
    return "the keys are " + all;
}

bool checkDirectory(Report& report) {
    const auto directory = platform::environmentVariable("PCELLBROKER_HOME");
    const std::string cure = "set PCELLBROKER_HOME to the directory that holds pcellBroker.cfg";
    if (!directory)
        report.faults.push_back({"PCELLBROKER_HOME is not set", cure});
    else if (directory->empty())
        report.faults.push_back({"PCELLBROKER_HOME is empty", cure});
    else if (!platform::exists(*directory))
        report.faults.push_back({"PCELLBROKER_HOME: there is no directory " + *directory, cure});
    else if (!platform::isDirectory(*directory))
        report.faults.push_back({"PCELLBROKER_HOME: " + *directory + " is not a directory", cure});
    else if (!isAbsolutePath(*directory))
        report.faults.push_back(
            {"PCELLBROKER_HOME: " + *directory + " depends on the working directory of the program",
             "write the whole path"});
    report.directory = directory.value_or("");
    return directory.has_value();
}

std::optional<ConfigurationFile> readLines(Report& report) {
    report.file = report.directory + platform::pathSeparator() + "pcellBroker.cfg";
    Faults& faults = report.faults;
    if (!platform::exists(report.file)) {
        // A directory that is not there has been told of.
        if (platform::isDirectory(report.directory))
            faults.push_back({"there is no file " + report.file,
                              "make it, with at least PROBE_EXE, BROKER_EXE_5 and BROKER_EXE_6"});
        return std::nullopt;
    }
    if (platform::isDirectory(report.file)) {
        faults.push_back({report.file + " is a directory", "put the file in its place"});
        return std::nullopt;
    }
    try {
        return ConfigurationFile(platform::readFile(report.file));
    } catch (const platform::SystemFailure& failure) {
        faults.push_back({report.file + " cannot be read: " + failure.error().text(),
                          "give this user the right to read it"});
        return std::nullopt;
    }
}

void checkLines(const ConfigurationFile& file, Faults& faults) {
    for (const ConfigurationLine& line : file.lines()) {
        const std::string where = "line " + std::to_string(line.number) + ": ";
        if (!line.key) {
            faults.push_back({where + quoted(line.text) + " has no '='",
                              "write KEY=VALUE or take the line out; there are no comments"});
        } else if (!isKnown(*line.key)) {
            faults.push_back(
                {where + "there is no key " + quoted(*line.key), cureOfKey(*line.key)});
        } else if (file.find(*line.key) != &line) {
            faults.push_back({where + *line.key + " is set again in line " +
                                  std::to_string(file.find(*line.key)->number),
                              "take one of the two lines out; the later one counts"});
        }
    }
    for (const char* required : {"PROBE_EXE", "BROKER_EXE_5", "BROKER_EXE_6"})
        if (!file.find(required))
            faults.push_back({std::string(required) + " is missing",
                              std::string("add a line ") + required + "=PROGRAM"});
    for (const char version : {'5', '6'}) {
        const ConfigurationLine* const mine = file.find(std::string("MY_OA_LIB_DIR_") + version);
        const ConfigurationLine* const theirs = file.find(std::string("OA_LIB_DIR_") + version);
        if (mine && theirs) {
            const bool later = mine->number > theirs->number;
            const ConfigurationLine& hidden = later ? *theirs : *mine;
            faults.push_back({"line " + std::to_string(hidden.number) + ": " + *hidden.key +
                                  " has no effect on the internal OA libs",
                              "the later of " + *theirs->key + " and " + *mine->key +
                                  " counts: keep the one that is meant"});
        }
    }
}

Setting settingOf(const char* variable, const char* key, const ConfigurationFile& file) {
    if (const std::string value = valueOf(variable); !value.empty())
        return {value, variable};
    const ConfigurationLine* const line = file.find(key);
    return line && !line->value.empty() ? Setting{line->value, file.label(key)} : Setting{};
}

void checkSettings(const ConfigurationFile& file, Report& report) {
    report.configString = settingOf("PCELLBROKER_CONFIG", "CONFIG", file);
    report.forcedVersion =
        settingOf("PCELLBROKER_FORCED_OA_API_VERSION", "FORCED_OA_API_VERSION", file);
    if (report.configString.value.empty())
        report.faults.push_back({"no pcell type is configured",
                                 "set CONFIG=TYPE,TYPE in the file, or PCELLBROKER_CONFIG"});
    const std::string& forced = report.forcedVersion.value;
    if (!forced.empty() && forced != "5" && forced != "6")
        report.faults.push_back(
            {report.forcedVersion.origin + ": " + quoted(forced) + " is not a version",
             "set it to 5 or 6, without blanks, or to nothing"});
}

} // namespace

std::optional<ConfigurationFile> readConfiguration(pcellBrokerClient::Brokers& brokers,
                                                   Report& report) {
    std::optional<ConfigurationFile> file;
    if (checkDirectory(report))
        file = readLines(report);
    if (file) {
        checkLines(*file, report.faults);
        checkSettings(*file, report);
    }
    try {
        brokers.config = readBrokerConfig(brokers.connections);
    } catch (const std::runtime_error& error) {
        report.refusal = error.what();
    }
    return file;
}

void checkUserVariables(Faults& faults) {
    const std::string names = valueOf("PCELLBROKER_ENV");
    for (std::size_t begin = 0; begin < names.size();) {
        const std::size_t end = std::min(names.find('=', begin), names.size());
        const std::string name = names.substr(begin, end - begin);
        begin = end + 1;
        if (name.empty())
            continue;
        if (name.find_first_of(",;: \t") != std::string::npos)
            faults.push_back(
                {"PCELLBROKER_ENV names the variable " + quoted(name), "put '=' between names"});
        else if (!platform::environmentVariable("PCELLBROKER_ENV_" + name))
            faults.push_back({"PCELLBROKER_ENV empties " + name + ", because PCELLBROKER_ENV_" +
                                  name + " is not set",
                              "set PCELLBROKER_ENV_" + name + " to what brokers are to see"});
    }
}

} // namespace diagnosis

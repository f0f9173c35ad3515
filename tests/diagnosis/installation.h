#pragma once

#include <algorithm>
#include <filesystem>
#include <list>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <platform/environment.h>
#include <platform/path.h>

#include "diagnosis/diagnose.h"
#include "support/environment_override.h"
#include "support/files.h"
#include "support/places.h"
#include "support/temporary_directory.h"

namespace diagnosis::test {

/// A directory with two brokers that take every type, a probe that prefers version 6 and a
/// configuration of the type "coil" for them. Nothing of the environment outside counts.
class Installation {
public:
    Installation() {
        for (const char* variable : {"PCELLBROKER_CONFIG", "PCELLBROKER_FORCED_OA_API_VERSION",
                                     "PCELLBROKER_ENV", "OA_PLUGIN_PATH", "TEST_BROKER_TYPES"})
            set(variable, std::nullopt);
        set("PCELLBROKER_HOME", home());
        set("TEST_BROKER_EXIT", "6");
        findLibrariesBesideBuiltPrograms();
        install("broker_answers", "broker5");
        install("broker_answers", "broker6");
        install("probe_exits", "probe");
    }
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;
    ~Installation() {
        while (!overrides_.empty())
            overrides_.pop_back();
    }

    /// The lines of the file, which diagnose() writes.
    std::vector<std::string> lines = {"PROBE_EXE=" + program("probe"),
                                      "BROKER_EXE_5=" + program("broker5"),
                                      "BROKER_EXE_6=" + program("broker6"), "CONFIG=coil:X"};

    std::string home() const { return directory_.str(); }

    /// What lies in the directory, as messages name it.
    std::string at(const std::string& name) const {
        return home() + platform::pathSeparator() + name;
    }
    std::filesystem::path path(const std::string& name) const { return directory_.path() / name; }
    std::string file() const { return at("pcellBroker.cfg"); }

    /// A program's name on this system.
    static std::string program(const std::string& name) {
        return name + ovalis::test::builtProgram(name).extension().string();
    }

    void set(const std::string& variable, const std::optional<std::string>& value) {
        overrides_.emplace_back(variable, value);
    }

    /// Puts a copy of a program of this build into the directory, or into one below it.
    void install(const std::string& builtName, const std::string& name) {
        std::filesystem::copy_file(ovalis::test::builtProgram(builtName), path(program(name)),
                                   std::filesystem::copy_options::overwrite_existing);
    }

    void write(const std::string& name, const std::string& text) {
        std::filesystem::create_directories(path(name).parent_path());
        ovalis::test::writeText(path(name), text);
    }

    /// Replaces the value of a key, or adds it.
    void change(const std::string& key, const std::string& value) {
        remove(key);
        lines.push_back(key + "=" + value);
    }
    void remove(const std::string& key) {
        std::erase_if(lines, [&](const std::string& line) { return line.starts_with(key + "="); });
    }

    Report diagnose(std::chrono::milliseconds patience = std::chrono::seconds(60)) {
        if (writesFile)
            writeFile();
        return diagnoseBrokers(patience);
    }

    void writeFile() { write("pcellBroker.cfg", text()); }

    bool writesFile = true;

private:
    // Copies of programs do not have them beside themselves.
    void findLibrariesBesideBuiltPrograms() {
        const std::string variable = platform::libraryPathVariable();
        const std::string before = platform::environmentVariable(variable).value_or("");
        set(variable, ovalis::test::utf8(ovalis::test::builtProgram("x").parent_path()) +
                          platform::pathListSeparator() + before);
    }

    std::string text() const {
        std::string all;
        for (const std::string& line : lines)
            all += line + "\n";
        return all;
    }

    ovalis::test::TemporaryDirectory directory_;
    std::list<ovalis::test::EnvironmentOverride> overrides_;
};

/// All faults of a report, those of types behind the others.
inline Faults faultsOf(const Report& report) {
    Faults all = report.faults;
    for (const TypeReport& type : report.types)
        all.insert(all.end(), type.faults.begin(), type.faults.end());
    return all;
}

} // namespace diagnosis::test

namespace diagnosis {

inline void PrintTo(const Fault& fault, std::ostream* stream) {
    *stream << "\n  \"" << fault.text << "\"\n    \"" << fault.cure << '"';
}

} // namespace diagnosis

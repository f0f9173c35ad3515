#pragma once

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "cli/command_line.h"
#include "cli/export_component.h"
#include "component/read_component.h"
#include "support/files.h"
#include "support/no_brokers.h"
#include "support/places.h"
#include "support/run_program.h"
#include "support/temporary_directory.h"

namespace cli::test {

/// Every file below a directory with its bytes; directories have the text "(directory)".
using Tree = std::map<std::string, std::string>;

inline Tree treeOf(const std::filesystem::path& directory) {
    Tree tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory)) {
        const std::string name =
            ovalis::test::utf8(std::filesystem::relative(entry.path(), directory));
        tree[name] = entry.is_directory() ? "(directory)" : ovalis::test::readText(entry.path());
    }
    return tree;
}

inline std::string withoutCarriageReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

/// What one run of the command left behind, line ends made equal.
struct Outcome {
    int status = -1;
    std::string out;
    std::string talk;

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

inline void PrintTo(const Outcome& outcome, std::ostream* stream) {
    *stream << "status " << outcome.status << "\n--- out\n"
            << outcome.out << "--- talk\n"
            << outcome.talk << "---";
}

/// Runs the built program.
inline Outcome ovalisProgram(const std::vector<std::string>& arguments) {
    const ovalis::test::NoBrokers noBrokers;
    const auto result = ovalis::test::runProgram(ovalis::test::builtProgram("ovalis"), arguments);
    return {result.exitCode, withoutCarriageReturns(result.output),
            withoutCarriageReturns(result.errors)};
}

/// Runs the command in this process.
inline Outcome ovalisHere(const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream talk;
    Console console{out, talk, false};
    const int status = run(arguments, console);
    return {status, out.str(), talk.str()};
}

/// A small component of either kind, its files, and a place for a library.
class Workplace {
public:
    nlohmann::json component = nlohmann::json::parse(R"({
        "name": "coil", "kind": "s_parameter",
        "units": {"user_unit": "micron", "dbu_per_uu": 1000}, "layout": "layout.json",
        "layers": [
            {"name": "M1", "number": 1, "purpose": "drawing", "purpose_number": 4294967295},
            {"name": "M1", "number": 1, "purpose": "pin", "purpose_number": 2}
        ],
        "ports": [
            {"name": "A", "layer": "M1", "purpose": "pin", "outline": [[0, 0]], "angle": 180.0},
            {"name": "B", "layer": "M1", "purpose": "pin", "outline": [[90, 0], [90, 30]],
             "angle": 0.0}
        ],
        "parameters": [{"kind": "int", "name": "N", "value": 2, "description": "Turns"}],
        "symbol": {"kind": "differential_forks", "ports": 2}
    })");
    nlohmann::json layout = nlohmann::json::parse(R"({
        "layers": [{"name": "M1", "purpose": "drawing",
                    "polygons": [[[0, 0], [90, 0], [90, 30], [0, 30]],
                                 [[0, 30], [40, 30], [90, 30], [45, 60], [0, 30]]]}],
        "texts": [{"text": "note", "layer": 63, "datatype": 0, "name": "TEXT",
                   "purpose": "drawing", "x": 45, "y": 15}]
    })");

    /// A path in the workplace; the workplace itself for an empty name.
    std::string path(const std::string& name) const {
        return name.empty() ? directory_.str() : directory_.str() + "/" + name;
    }
    std::string library() const { return path("lib"); }
    std::string componentFile() const {
        ovalis::test::writeText(path("component.json"), component.dump());
        ovalis::test::writeText(path("layout.json"), layout.dump());
        return path("component.json");
    }

    Outcome exportIt(const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {"export", componentFile(), "--lib", library()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ovalisHere(arguments);
    }

    /// Exports without the command's words, so that a test can watch and break in.
    ExportReport exportWatched(const Watcher& watcher, bool replace = false) const {
        const component::Component read = component::readComponent(componentFile());
        const component::Layout figures = component::readLayout(read);
        return exportComponent(read, figures, {library(), ""}, replace, watcher);
    }

    Tree tree() const { return treeOf(library()); }

private:
    ovalis::test::TemporaryDirectory directory_;
};

} // namespace cli::test

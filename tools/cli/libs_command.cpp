#include <vector>

#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/listed_libraries.h"
#include "cli/text_table.h"

namespace cli {
namespace {

std::string stateOf(const ListedLibrary& library) {
    if (library.open)
        return "open";
    std::string state = library.effective ? "" : "overridden";
    if (library.unresolved)
        state += state.empty() ? "variable not set" : ", variable not set";
    else if (!library.exists)
        state += state.empty() ? "missing" : ", missing";
    return state.empty() ? "not open" : state;
}

void writeTable(std::ostream& out, const ListedLibraries& listed) {
    std::vector<std::vector<std::string>> rows;
    for (const ListedLibrary& library : listed.libraries())
        rows.push_back({library.name, stateOf(library), library.path, library.list});
    writeRows(out, rows);
}

void writeJson(std::ostream& out, const ListedLibraries& listed) {
    using Json = nlohmann::ordered_json;
    Json libraries = Json::array();
    for (const ListedLibrary& library : listed.libraries())
        libraries.push_back({{"name", library.name},
                             {"path", library.path},
                             {"directory", library.directory},
                             {"file", library.list},
                             {"effective", library.effective},
                             {"exists", library.exists},
                             {"open", library.open}});
    out << Json{{"file", listed.file()}, {"libraries", libraries}, {"warnings", listed.warnings()}}
               .dump(2, ' ', false, Json::error_handler_t::replace)
        << '\n';
}

} // namespace

int libsCommand(const LibsOptions& options, Console& console) {
    const ListedLibraries listed(options.file);
    for (const std::string& warning : listed.warnings())
        console.talk << "ovalis: warning: " << warning << '\n';
    if (options.json)
        writeJson(console.out, listed);
    else
        writeTable(console.out, listed);
    return listed.allOpen() ? success : somethingMissing;
}

} // namespace cli

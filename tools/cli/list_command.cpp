#include <map>
#include <stdexcept>
#include <vector>

#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "cli/text_table.h"

namespace cli {
namespace {

using Views = std::map<std::string, std::string>;
using Cells = std::map<std::string, Views>;

/// Sorted by name, because the order of the database differs between systems.
Cells cellsOf(const oa::oaLib& lib, const std::string& only) {
    Cells cells;
    for (const std::string& name : ovalis::getCellNames(lib))
        if (only.empty() || name == only)
            cells[name];
    if (!only.empty() && cells.empty())
        throw std::runtime_error("no cell \"" + only + "\"");
    for (const ovalis::TStringTriplet& view : ovalis::getCellViewNamesAndTypes(lib))
        if (const auto cell = cells.find(view.get<0>()); cell != cells.end())
            cell->second[view.get<1>()] = view.get<2>();
    return cells;
}

void writeJson(std::ostream& out, const std::string& name, const Cells& cells) {
    using Json = nlohmann::ordered_json;
    Json list = Json::array();
    for (const auto& [cell, views] : cells) {
        Json viewList = Json::array();
        for (const auto& [view, type] : views)
            viewList.push_back({{"name", view}, {"type", type}});
        list.push_back({{"name", cell}, {"views", viewList}});
    }
    out << Json{{"library", name}, {"cells", list}}.dump(2, ' ', false,
                                                         Json::error_handler_t::replace)
        << '\n';
}

void writeTable(std::ostream& out, const Cells& cells) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& [cell, views] : cells) {
        for (const auto& [view, type] : views)
            rows.push_back({cell, view, type});
        if (views.empty())
            rows.push_back({cell});
    }
    writeRows(out, rows);
}

} // namespace

int listCommand(const ListOptions& options, Console& console) {
    const ovalis::LibPtr lib = openForReading(options.library);
    Cells cells;
    try {
        cells = cellsOf(*lib, options.cell);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(directoryOf(options.library) + ": " + error.what());
    }
    if (options.json)
        writeJson(console.out, nameOf(options.library), cells);
    else
        writeTable(console.out, cells);
    return success;
}

} // namespace cli

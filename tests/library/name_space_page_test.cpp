// What docs/name-spaces.md shows is what the code makes.

#include <ovalis/name_space.h>

#include <sstream>

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/places.h"

using namespace ovalis;

namespace {

using Row = std::vector<std::string>;

/// The rows of the tables in the page whose cells all are names.
std::vector<Row> rowsOfThePage() {
    std::istringstream page(
        ovalis::test::readText(ovalis::test::sourceTree() / "docs" / "name-spaces.md"));
    std::vector<Row> rows;
    for (std::string line; std::getline(page, line);) {
        if (line.rfind("| `", 0) != 0) {
            continue;
        }
        Row row;
        for (std::size_t end = 0, start = 2; (end = line.find(" |", start)) != std::string::npos;
             start = end + 3) {
            const std::string cell = line.substr(start, end - start);
            row.push_back(cell == "refused" ? cell : cell.substr(1, cell.size() - 2));
        }
        rows.push_back(row);
    }
    return rows;
}

std::string spelled(const std::string& nativeText, const oa::oaNameSpace& ns) {
    try {
        oa::oaString text;
        oa::oaName(oa::oaNativeNS(), nativeText.c_str()).get(ns, text);
        return fromOa(text);
    } catch (const oa::oaError&) {
        return "refused";
    }
}

Row spelledInAll(const std::string& nativeText, const std::vector<const oa::oaNameSpace*>& all) {
    Row row;
    for (const oa::oaNameSpace* ns : all) {
        row.push_back(spelled(nativeText, *ns));
    }
    return row;
}

} // namespace

TEST(NameSpacePage, ShowsWhatIsSpelled) {
    const oa::oaNativeNS native;
    const oa::oaCdbaNS cdba;
    const NetNameNamespaceWithUTF8 netNames;
    const oa::oaUnixNS unixNames;
    const oa::oaWinNS windowsNames;
    const oa::oaVerilogNS verilog;
    const oa::oaVhdlNS vhdl;
    std::size_t forms = 0;
    std::size_t characters = 0;
    for (const Row& row : rowsOfThePage()) {
        if (row.size() == 4) {
            ++forms;
            EXPECT_EQ(spelledInAll(row[0], {&native, &cdba, &verilog, &vhdl}), row);
        } else {
            ++characters;
            EXPECT_EQ(spelledInAll(row[0], {&native, &cdba, &netNames, &unixNames, &windowsNames,
                                            &verilog, &vhdl}),
                      row);
        }
    }
    EXPECT_EQ(forms, 11U);
    EXPECT_EQ(characters, 10U);
}

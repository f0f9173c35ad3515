#include "cli/text_table.h"

#include <algorithm>

namespace cli {

void writeRows(std::ostream& out, const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    for (const std::vector<std::string>& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t at = 0; at < row.size(); ++at)
            widths[at] = std::max(widths[at], row[at].size());
    }
    for (const std::vector<std::string>& row : rows) {
        for (std::size_t at = 0; at < row.size(); ++at) {
            out << row[at];
            if (at + 1 < row.size())
                out << std::string(widths[at] - row[at].size() + 2, ' ');
        }
        out << '\n';
    }
}

} // namespace cli

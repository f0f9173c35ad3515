#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace cli {

/// Writes rows with their columns one below the other; the last one of a row is not filled up.
void writeRows(std::ostream& out, const std::vector<std::vector<std::string>>& rows);

} // namespace cli

#pragma once

#include <string>
#include <string_view>

namespace platform::internal {

/// A path beside `target`, new for every call in this process and recognised by isTemporaryName.
std::string temporaryPathFor(const std::string& target);

} // namespace platform::internal

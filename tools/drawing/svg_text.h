#pragma once

#include <string>

namespace drawing {

/// Makes any bytes safe between the tags and quotes of an XML text: markup is escaped, what is
/// not UTF-8 or not allowed in XML becomes U+FFFD.
std::string xmlText(const std::string& bytes);

} // namespace drawing

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace component {

/// The words of a line, which are separated by blanks.
std::vector<std::string_view> wordsOf(std::string_view line);

/// `text` without blanks at its ends.
std::string_view trimmed(std::string_view text);

bool sameWord(std::string_view first, std::string_view second);

/// The number that a word is as a whole; "inf" and "nan" are none.
std::optional<double> numberOf(std::string_view word);
std::optional<std::uint32_t> countOf(std::string_view word);

/// What the ending of a file name gives as the number of ports: "3" for "file.s3p", "" for
/// "file.sp". Nothing when the ending is of another kind.
std::optional<std::string_view> portsOfName(std::string_view fileName);

/// A comment that names a port, such as "Port[1] = in" or "Port 2: out".
struct PortName {
    std::uint32_t port;
    std::string_view name;
};
std::optional<PortName> portNameIn(std::string_view comment);

} // namespace component

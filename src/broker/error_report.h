#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace pcellBrokerClient {

/// What the observers of pcell errors are told.
struct ErrorReport {
    std::string message;
    std::uint32_t code;

    friend bool operator==(const ErrorReport&, const ErrorReport&) = default;
};

/// The code of errors that carry none: an evaluation failed.
inline constexpr std::uint32_t evaluationFailed = 2;

/// The message of the exception that is being handled; nothing when it carries none.
std::optional<std::string> currentMessage();

/// Takes a message apart that may hold an error number of a database: what the expression
/// "(:\s*Error\[)(\d+)(\]:\s*)" matches first. The message proper follows it.
/// @throws std::out_of_range  the number is not one of 32 bits.
ErrorReport parseReport(const std::string& text);

/// What is to be reported of the exception that is being handled.
/// @throws std::out_of_range  as above.
ErrorReport currentReport();

} // namespace pcellBrokerClient

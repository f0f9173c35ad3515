#pragma once

#include <string>
#include <string_view>

namespace broker {

/// What a request is answered with: whether it succeeded, and a text.
struct Answer {
    bool success = false;
    std::string text;

    friend bool operator==(const Answer&, const Answer&) = default;
};

/// The longest text of an answer; a message is cut to it.
inline constexpr std::size_t longestAnswer = 32768;

/// The answer to an evaluation as it goes to the host: status byte and terminated text. A text is
/// cut at its first zero byte, and at a whole character when it is too long.
std::string encode(const Answer& answer);

/// A message that carries its code where the host looks for one: "name: Error[code]: what". A code
/// that the host cannot read, as it fits no 31 bits, becomes the general code 2.
std::string errorText(std::string_view name, unsigned long long code, std::string_view what);

} // namespace broker

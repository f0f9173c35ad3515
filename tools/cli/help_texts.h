#pragma once

#include <span>
#include <string_view>

namespace cli {

/// What the help of a command says beside its options, as Markdown.
struct HelpText {
    std::string_view command; ///< its whole name, with "-" for blanks
    std::string_view text;
};

/// The texts of `help/`, which the build puts into the program.
std::span<const HelpText> helpTexts();

} // namespace cli

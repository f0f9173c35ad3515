#pragma once

#include <string>
#include <vector>

#include "workplace.h"

namespace cli::test {

/// Runs the built program as a shell has it: `line` contains it as "$0" with its arguments "$@".
inline Outcome ovalisInShell(const std::string& line, const std::vector<std::string>& arguments) {
    const ovalis::test::NoBrokers noBrokers;
    std::vector<std::string> words = {"-c", line,
                                      ovalis::test::utf8(ovalis::test::builtProgram("ovalis"))};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const auto result = ovalis::test::runProgram("/bin/sh", words);
    return {result.exitCode, result.output, result.errors};
}

} // namespace cli::test

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ovalis::test {

/// What a program left behind.
struct ProgramResult {
    int exitCode = -1; ///< on POSIX 128 + the signal that ended it
    std::string output;
    std::string errors;
};

/// Runs a program to its end with an empty standard input. Arguments are UTF-8 and reach the
/// program as they are, blanks and quotes included.
/// @throws std::runtime_error when the program cannot be started.
ProgramResult runProgram(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments);

} // namespace ovalis::test

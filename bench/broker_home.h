#pragma once

#include <string>

namespace bench {

/// Configures, for this process, that the types of `configString` are evaluated by a program of
/// this build as the broker of version 6. The file goes into `directory`, which has to
/// be on the drive of the programs.
void configureBroker(const std::string& directory, const std::string& program,
                     const std::string& configString);

/// The whole path of a program of this build.
std::string programPath(const std::string& name);

} // namespace bench

#include "broker_home.h"

#include "platform/environment.h"
#include "platform/path.h"
#include "platform/private_directory.h"

#include <fstream>

namespace bench {

std::string programPath(const std::string& name) {
    const std::string own = platform::programPath();
    const std::string suffix = own.ends_with(".exe") ? ".exe" : "";
    return platform::joinPath(platform::parentPath(own), name + suffix);
}

void configureBroker(const std::string& directory, const std::string& program,
                     const std::string& configString) {
    // Programs start at the directory; the root is so many steps above at most.
    std::string path;
    for (int i = 0; i < 32; ++i)
        path += "../";
    const std::string absolute = programPath(program);
    path += absolute.substr(absolute.find_first_of("/\\") + 1); // without a drive
    std::ofstream file(directory + "/pcellBroker.cfg");
    file << "PROBE_EXE=none\nBROKER_EXE_5=none\nBROKER_EXE_6=" << path
         << "\nFORCED_OA_API_VERSION=6\nCONFIG=" << configString << '\n';
    file.close();
    platform::setEnvironmentVariable("PCELLBROKER_HOME", directory);
    for (const char* variable :
         {"PCELLBROKER_CONFIG", "PCELLBROKER_FORCED_OA_API_VERSION", "PCELLBROKER_ENV"})
        platform::unsetEnvironmentVariable(variable);
}

} // namespace bench

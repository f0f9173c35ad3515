#include "broker_home.h"

#include "platform/environment.h"

#include <fstream>

namespace bench {

std::string programPath(const std::string& name) {
    return BENCH_PROGRAMS "/" + name;
}

void configureBroker(const std::string& directory, const std::string& program,
                     const std::string& configString) {
    // Programs start at the directory; the root is so many steps above at most.
    std::string path;
    for (int i = 0; i < 32; ++i)
        path += "../";
    path += programPath(program);
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

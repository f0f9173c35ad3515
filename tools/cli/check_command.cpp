#include <stdexcept>

#include "cli/commands.h"
#include "cli/library_access.h"

namespace cli {

int checkCommand(const LibraryOptions& options, Console& console) {
    const std::string path = directoryOf(options);
    std::string unusable;
    std::string lacks;
    if (!ovalis::existsVEXCompatibleLib(path, nameOf(options), &lacks))
        throw std::runtime_error("OA Library not found at " + path);
    if (!ovalis::isVEXCompatibleLibPath(path, &unusable))
        lacks += unusable + "\n";
    console.out << lacks;
    return lacks.empty() ? success : somethingMissing;
}

} // namespace cli

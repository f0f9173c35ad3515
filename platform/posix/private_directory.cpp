#include "platform/private_directory.h"

#include "platform/path.h"
#include "posix/descriptor.h"

#include <climits>
#include <sys/stat.h>

namespace platform {

bool createPrivateDirectory(std::string_view path) {
    const std::string name = nativePath(path);
    if (::mkdir(name.c_str(), S_IRWXU) == 0)
        return true;
    if (errno == EEXIST)
        return false;
    internal::fail("cannot create directory", name);
}

std::string programPath() {
    return canonicalPath("/proc/self/exe");
}

void setCurrentDirectory(std::string_view path) {
    const std::string name = nativePath(path);
    if (::chdir(name.c_str()) == -1)
        internal::fail("cannot change to directory", name);
}

} // namespace platform

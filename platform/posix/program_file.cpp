#include "platform/program_file.h"

#include "platform/file.h"

#include <fcntl.h>
#include <new>
#include <unistd.h>

namespace platform {

bool isExecutable(std::string_view path) noexcept {
    try {
        return isFile(path) &&
               ::faccessat(AT_FDCWD, nativePath(path).c_str(), X_OK, AT_EACCESS) == 0;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace platform

#include "platform/program_file.h"

#include "platform/file.h"

namespace platform {

bool isExecutable(std::string_view path) noexcept {
    return isFile(path);
}

} // namespace platform

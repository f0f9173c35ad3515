#include "platform/system_error.h"

#include <cerrno>
#include <system_error>

namespace platform {

SystemError lastSystemError() noexcept {
    return SystemError(errno);
}

std::string SystemError::text() const {
    return std::generic_category().message(static_cast<int>(value));
}

} // namespace platform

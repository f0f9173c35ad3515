#include "platform/system_error.h"

#include <cerrno>
#include <system_error>

namespace platform {

SystemError lastSystemError() noexcept {
    return SystemError(errno);
}

void setLastSystemError(SystemError error) noexcept {
    errno = static_cast<int>(error.code());
}

std::string lastSystemErrorText() {
    const SystemError error = lastSystemError();
    return error.code() == 0 ? std::string() : error.text();
}

std::string SystemError::text() const {
    return std::generic_category().message(static_cast<int>(value));
}

} // namespace platform

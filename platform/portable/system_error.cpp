#include "platform/system_error.h"

#include <utility>

namespace platform {

SystemFailure::SystemFailure(const std::string& what, std::string failedPath, SystemError reason)
    : std::runtime_error(what + " (" + failedPath + "): " + reason.text()),
      failedPathName(std::move(failedPath)),
      systemError(reason) {}

} // namespace platform

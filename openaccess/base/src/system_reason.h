#pragma once

#include "platform/system_error.h"

#include <string>

namespace OpenAccess_4::impl {

/// The system's sentence about a failure, without its full stop, for the end of a message.
inline std::string systemReason(const platform::SystemFailure& failure) {
    std::string reason = failure.error().text();
    while (!reason.empty() && (reason.back() == '.' || reason.back() == ' '))
        reason.pop_back();
    return reason;
}

} // namespace OpenAccess_4::impl

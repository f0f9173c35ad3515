#include "platform/standard_output.h"

#include <windows.h>

namespace platform {

void reserveStandardStreams() noexcept {}

bool WatchedOutput::readerIsGone() const noexcept {
    return failure_ && (failure_->code() == ERROR_BROKEN_PIPE || failure_->code() == ERROR_NO_DATA);
}

} // namespace platform

#pragma once

#include "oaBaseTypes.h"

#include <chrono>

namespace OpenAccess_4 {

/// A stop watch. It runs from its construction on.
class OA_API oaTimer {
public:
    oaTimer() { reset(); }

    /// Starts over at 0.
    void reset();
    /// The seconds since the start.
    oaFloat getElapsed();

private:
    std::chrono::steady_clock::time_point start_;
};

} // namespace OpenAccess_4

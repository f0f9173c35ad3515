#include "oaFunctions.h"

#include "base/src/geometry.h"
#include "platform/process.h"

#include <bit>
#include <chrono>
#include <cmath>
#include <thread>

namespace OpenAccess_4 {

oaBoolean oaIsFloatEqual(oaDouble v1, oaDouble v2, oaDouble relTol) {
    return v1 == v2 || std::abs(v1 - v2) <= relTol * std::max(std::abs(v1), std::abs(v2));
}

oaBoolean oaIsProcessActive(oaUInt4 processId) {
    return platform::isProcessAlive(processId);
}

oaUInt4 oaLog2(oaUInt4 value) {
    return value ? static_cast<oaUInt4>(std::bit_width(value)) - 1 : 0;
}

oaInt4 oaRound(oaDouble value) {
    return impl::nearestCoord(value);
}

oaUInt4 oaRoundUpToPow2(oaUInt4 value) {
    return value > 1u << 31 ? 0 : std::bit_ceil(value);
}

void oaSleep(oaUInt4 seconds) {
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
}

} // namespace OpenAccess_4

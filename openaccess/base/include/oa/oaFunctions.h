#pragma once

#include "oaBaseTypes.h"

namespace OpenAccess_4 {

/// Whether two numbers differ by no more than `relTol` times the larger magnitude of the two.
OA_API oaBoolean oaIsFloatEqual(oaDouble v1, oaDouble v2, oaDouble relTol = 1e-6);
/// Whether a process with this number is running.
OA_API oaBoolean oaIsProcessActive(oaUInt4 processId);
/// The largest n with 2 to the n not above `value`; 0 for 0.
OA_API oaUInt4 oaLog2(oaUInt4 value);
/// The nearest integer; halves go away from zero, values beyond the range to its end.
OA_API oaInt4 oaRound(oaDouble value);
/// The smallest power of 2 that is not below `value`; 0 when that leaves the range.
OA_API oaUInt4 oaRoundUpToPow2(oaUInt4 value);
/// Waits.
OA_API void oaSleep(oaUInt4 seconds);

} // namespace OpenAccess_4

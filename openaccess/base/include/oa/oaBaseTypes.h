#pragma once

#include "oaExport.h"

#include <climits>
#include <cstddef>

namespace oaCommon {}
namespace oaPlugIn {}

/// The OpenAccess API. Clients usually write `using namespace oa;`.
namespace OpenAccess_4 {

using namespace oaCommon;

typedef signed char oaInt1;
typedef short oaInt2;
typedef int oaInt4;
typedef long long oaInt8;
typedef unsigned char oaUInt1;
typedef unsigned short oaUInt2;
typedef unsigned int oaUInt4;
typedef unsigned long long oaUInt8;

typedef unsigned char oaByte;
typedef char oaChar;
typedef int oaBoolean;
typedef float oaFloat;
typedef double oaDouble;

/// A coordinate and a distance with a sign, in database units.
typedef oaInt4 oaCoord;
typedef oaInt4 oaOffset;
/// A length without a sign, in database units.
typedef oaUInt4 oaDist;
typedef oaUInt8 oaArea;

/// Every 32-bit value is a legal layer or purpose number.
typedef oaUInt4 oaLayerNum;
typedef oaUInt4 oaPurposeNum;

/// Seconds since 1970-01-01 00:00:00 GMT.
typedef oaInt8 oaTime;

/// "Not found" of the find functions of arrays, and "no position" of a terminal.
inline constexpr oaUInt4 oacNullIndex = UINT_MAX;
inline constexpr oaUInt4 oacDeletedIndex = UINT_MAX - 1;
inline constexpr oaUInt4 oacNegativeOne = UINT_MAX;
inline constexpr oaUInt4 oacUnsetMaskNumber = UINT_MAX;
inline constexpr oaLayerNum oacAnyLayerNum = UINT_MAX;
inline constexpr oaUInt4 oacMaxPathLen = 4096;
inline constexpr oaChar oacPathSeparatorChar = '/';
inline constexpr oaChar oacPathSeparator[] = "/";

/// The revision of this interface. A client hands these to the init functions.
inline constexpr oaUInt4 oacAPIMajorRevNumber = 6;
inline constexpr oaUInt4 oacAPIMinorRevNumber = 603;
inline constexpr oaUInt4 oacDataModelRevNumber = 6;

} // namespace OpenAccess_4

namespace oa = OpenAccess_4;

// Clients use these names without a qualifier and without a using-directive.
using OpenAccess_4::oacAPIMajorRevNumber;
using OpenAccess_4::oacAPIMinorRevNumber;
using OpenAccess_4::oacDataModelRevNumber;

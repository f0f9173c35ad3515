#pragma once

#include <string>

#include <ovalis/pcell.h>

#include "pcell/byte_buffer.h"

namespace ovalis {

/// The parameters that identify a submaster, defaults among them. A super master has its defaults,
/// and a design that is neither has none.
oa::oaParamArray identityParams(const oa::oaDesign& design);

/// Writes what identifies a submaster: library, cell and view, and its parameters.
void appendIdentity(ByteBuffer& bytes, const oa::oaDesign& design);

/// The same of a submaster that need not be there.
SubmasterIdentity submasterIdentity(const oa::oaString& libName, const oa::oaString& cellName,
                                    const oa::oaString& viewName, const oa::oaParamArray& params);

/// The digest of those bytes in 64 hexadecimal digits. What the database throws passes through.
std::string submasterIdHash(const oa::oaDesign& design);

} // namespace ovalis

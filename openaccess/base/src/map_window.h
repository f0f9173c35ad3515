#pragma once

#include "oaException.h"
#include "oaMapWindow.h"

namespace OpenAccess_4::impl {

struct MapWindowAccess {
    /// A view on the `size` bytes at `data`, which the caller keeps alive.
    /// @throws oaError  oacPackedDataOverrun: positions in a view have 32 bits.
    static oaMapFileWindow windowOver(oaByte* data, oaUInt8 size) {
        if (size > UINT_MAX)
            throw oaError(oacPackedDataOverrun, UINT_MAX, 0u, UINT_MAX);
        return oaMapFileWindow(data, static_cast<oaUInt4>(size));
    }
};

} // namespace OpenAccess_4::impl

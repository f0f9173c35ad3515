#pragma once

#include "oaBundleName.h"

#include <algorithm>

namespace OpenAccess_4::impl {

/// Whether two bundles hold the same names in the same order, where repeated names count as often
/// as they stand.
template <class SameName>
bool isSameBundle(const oaBundleName& n1, const oaBundleName& n2, SameName same) {
    oaUInt4 i1 = 0;
    oaUInt4 i2 = 0;
    oaUInt4 left1 = n1.isEmpty() ? 0 : n1[0].getRepeat();
    oaUInt4 left2 = n2.isEmpty() ? 0 : n2[0].getRepeat();
    while (i1 < n1.getNumMembers() && i2 < n2.getNumMembers()) {
        if (!same(n1[i1], n2[i2]))
            return false;
        const oaUInt4 common = std::min(left1, left2);
        left1 -= common;
        left2 -= common;
        if (left1 == 0 && ++i1 < n1.getNumMembers())
            left1 = n1[i1].getRepeat();
        if (left2 == 0 && ++i2 < n2.getNumMembers())
            left2 = n2[i2].getRepeat();
    }
    return i1 == n1.getNumMembers() && i2 == n2.getNumMembers();
}

} // namespace OpenAccess_4::impl

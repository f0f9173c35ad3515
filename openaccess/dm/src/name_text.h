#pragma once

#include "oa/oaName.h"

#include <string>

namespace OpenAccess_4::impl {

// Names of libraries, cells and views are kept in native spelling.

inline void assignName(oaScalarName& name, const std::string& native) {
    name = oaScalarName(oaNativeNS(), native.c_str());
}

inline void writeName(const oaNameSpace& nameSpace, const std::string& native, oaString& out) {
    oaScalarName(oaNativeNS(), native.c_str()).get(nameSpace, out);
}

} // namespace OpenAccess_4::impl

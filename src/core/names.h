#pragma once

#include <string>

#include <ovalis/core.h>

#include "core/statics.h"

namespace ovalis {

/// Returns `text`, spelled in the native name space, as a name of the database.
inline oa::oaScalarName scalarName(const std::string& text) {
    return oa::oaScalarName(nativeNameSpace, text.c_str());
}

/// Returns the native spelling of the name of a database object.
template <class Object>
std::string nativeName(const Object& object) {
    oa::oaString name;
    object.getName(nativeNameSpace, name);
    return fromOa(name);
}

} // namespace ovalis

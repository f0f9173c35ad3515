#pragma once

#include <string>

#include <oa/oaDesignDB.h>

#include "comparison/fields.h"

namespace comparison {

/// True when the object carries properties or application-defined values.
inline bool hasAttachments(const oa::oaObject& object) {
    return object.hasProp() || object.hasAppDef();
}

/// Adds the properties of an object, with theirs, and its application-defined values.
void addAttachments(Fields& fields, const oa::oaObject& object);

/// Adds the application-defined values alone; `owner` stands before their names.
void addAppValues(Fields& fields, const oa::oaObject& object, const std::string& owner);

/// Adds parameters.
void addParams(Fields& fields, const oa::oaParamArray& params);

} // namespace comparison

#pragma once

#include "design/src/instances.h"
#include "oa/oaName.h"

#include <string_view>

namespace OpenAccess_4::impl {

/// The internal form of a name, which lasts as long as the name; empty for an empty one.
std::string_view internalName(const oaScalarName& name);
std::string_view internalName(const oaSimpleName& name);
std::string_view internalName(const oaName& name);

DesignNames designNames(const oaScalarName& lib, const oaScalarName& cell,
                        const oaScalarName& view);

/// The name of which `internal` is the internal form.
oaScalarName scalarName(const char* internal);

/// Spells the name of which `internal` is the internal form.
void spell(const char* internal, const oaNameSpace& ns, oaString& out);

} // namespace OpenAccess_4::impl

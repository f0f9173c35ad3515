#pragma once

#include "design/src/instances.h"
#include "oa/oaName.h"

#include <string_view>

namespace OpenAccess_4::impl {

/// The internal form of a name, which lasts as long as the name; empty for an empty one.
std::string_view internalName(const oaScalarName& name);

/// The internal form of a name that may be one of a bit or a vector: the native spelling.
class InternalName {
public:
    explicit InternalName(const oaSimpleName& name);
    explicit InternalName(const oaName& name);

    operator std::string_view() const { return text_; }

private:
    std::string text_;
};
inline InternalName internalName(const oaSimpleName& name) {
    return InternalName(name);
}
inline InternalName internalName(const oaName& name) {
    return InternalName(name);
}

DesignNames designNames(const oaScalarName& lib, const oaScalarName& cell,
                        const oaScalarName& view);

/// The name of which `internal` is the internal form.
oaScalarName scalarName(const char* internal);

/// The name of which `internal` is the internal form, with the indices that it may end with.
oaSimpleName simpleName(const char* internal);

/// Spells the name of which `internal` is the internal form.
void spell(const char* internal, const oaNameSpace& ns, oaString& out);
void spellSimple(const char* internal, const oaNameSpace& ns, oaString& out);

} // namespace OpenAccess_4::impl

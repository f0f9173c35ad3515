#pragma once

#include "design/src/instances.h"
#include "oa/oaName.h"

#include <string_view>

namespace OpenAccess_4::impl {

/// The native spelling of the name of a library, a cell or a view, or of the base of a vector,
/// which lasts as long as the name; empty for an empty one.
std::string_view scalarText(const oaScalarName& name);

/// What is kept of a name that may be one of a bit or a vector: the native spelling.
class InternalName {
public:
    explicit InternalName(const oaScalarName& name);
    explicit InternalName(const oaSimpleName& name);
    explicit InternalName(const oaName& name);

    operator std::string_view() const { return text_; }

private:
    std::string text_;
};
inline InternalName internalName(const oaScalarName& name) {
    return InternalName(name);
}
inline InternalName internalName(const oaSimpleName& name) {
    return InternalName(name);
}
inline InternalName internalName(const oaName& name) {
    return InternalName(name);
}

DesignNames designNames(const oaScalarName& lib, const oaScalarName& cell,
                        const oaScalarName& view);

/// The name of which this is the text as given by scalarText().
oaScalarName scalarName(const char* text);

/// The name of which this was kept, with the indices that it may end with.
oaSimpleName simpleName(const char* internal);
/// The same as a scalar name, also when it is the name of a bit.
oaScalarName scalarNameOf(const char* internal);

/// Spell the name of which this is the text, or was kept.
void spell(const char* text, const oaNameSpace& ns, oaString& out);
void spellSimple(const char* internal, const oaNameSpace& ns, oaString& out);

} // namespace OpenAccess_4::impl

#include "design/src/names.h"

namespace OpenAccess_4::impl {

std::string_view internalName(const oaScalarName& name) {
    const oaString& text = internalText(name);
    return {static_cast<const oaChar*>(text), text.getLength()};
}

std::string_view internalName(const oaSimpleName& name) {
    const oaScalarName* scalar = name.getScalar();
    return scalar ? internalName(*scalar) : std::string_view();
}

std::string_view internalName(const oaName& name) {
    const oaScalarName* scalar = name.getScalar();
    return scalar ? internalName(*scalar) : std::string_view();
}

DesignNames designNames(const oaScalarName& lib, const oaScalarName& cell,
                        const oaScalarName& view) {
    return {std::string(internalName(lib)), std::string(internalName(cell)),
            std::string(internalName(view))};
}

oaScalarName scalarName(const char* internal) {
    return *internal ? oaScalarName(oaNativeNS(), internal) : oaScalarName();
}

void spell(const char* internal, const oaNameSpace& ns, oaString& out) {
    scalarName(internal).get(ns, out);
}

} // namespace OpenAccess_4::impl

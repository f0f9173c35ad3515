#include "design/src/names.h"

#include <typeinfo>

namespace OpenAccess_4::impl {

std::string_view internalName(const oaScalarName& name) {
    const oaString& text = internalText(name);
    return {static_cast<const oaChar*>(text), text.getLength()};
}

namespace {

template <class Name>
std::string nativeText(const Name& name) {
    if (const oaScalarName* scalar = name.getScalar())
        return std::string(internalName(*scalar));
    oaString text;
    name.get(text);
    return std::string(text);
}

} // namespace

InternalName::InternalName(const oaSimpleName& name) : text_(nativeText(name)) {}

InternalName::InternalName(const oaName& name) : text_(nativeText(name)) {}

DesignNames designNames(const oaScalarName& lib, const oaScalarName& cell,
                        const oaScalarName& view) {
    return {std::string(internalName(lib)), std::string(internalName(cell)),
            std::string(internalName(view))};
}

oaScalarName scalarName(const char* internal) {
    return *internal ? oaScalarName(oaNativeNS(), internal) : oaScalarName();
}

oaSimpleName simpleName(const char* internal) {
    return *internal ? oaSimpleName(oaNativeNS(), internal) : oaSimpleName();
}

void spell(const char* internal, const oaNameSpace& ns, oaString& out) {
    if (typeid(ns) == typeid(oaNativeNS)) // which spells a name as it is kept
        out = internal;
    else
        scalarName(internal).get(ns, out);
}

void spellSimple(const char* internal, const oaNameSpace& ns, oaString& out) {
    simpleName(internal).get(ns, out);
}

} // namespace OpenAccess_4::impl

#include "design/src/names.h"

#include "base/src/native_text.h"

#include <typeinfo>

namespace OpenAccess_4::impl {

std::string_view scalarText(const oaScalarName& name) {
    const oaString& text = internalText(name);
    return {static_cast<const oaChar*>(text), text.getLength()};
}

namespace {

template <class Name>
std::string nativeText(const Name& name) {
    const oaScalarName* scalar = name.getScalar();
    if (scalar && isScalarEverywhere(scalarText(*scalar)))
        return std::string(scalarText(*scalar));
    oaString text;
    name.get(text);
    return std::string(text);
}

} // namespace

InternalName::InternalName(const oaScalarName& name) : text_(nativeText(oaSimpleName(name))) {}

InternalName::InternalName(const oaSimpleName& name) : text_(nativeText(name)) {}

InternalName::InternalName(const oaName& name) : text_(nativeText(name)) {}

DesignNames designNames(const oaScalarName& lib, const oaScalarName& cell,
                        const oaScalarName& view) {
    return {std::string(scalarText(lib)), std::string(scalarText(cell)),
            std::string(scalarText(view))};
}

oaScalarName scalarName(const char* text) {
    return *text ? oaScalarName(oaNativeNS(), text) : oaScalarName();
}

oaSimpleName simpleName(const char* internal) {
    return *internal ? oaSimpleName(oaNativeNS(), internal) : oaSimpleName();
}

oaScalarName scalarNameOf(const char* internal) {
    const oaSimpleName name = simpleName(internal);
    return name.getScalar() ? *name.getScalar() : scalarName(internal);
}

void spell(const char* text, const oaNameSpace& ns, oaString& out) {
    if (typeid(ns) == typeid(oaNativeNS)) // which spells a name as it is kept
        out = text;
    else
        scalarName(text).get(ns, out);
}

void spellSimple(const char* internal, const oaNameSpace& ns, oaString& out) {
    if (typeid(ns) == typeid(oaNativeNS))
        out = internal;
    else
        simpleName(internal).get(ns, out);
}

} // namespace OpenAccess_4::impl

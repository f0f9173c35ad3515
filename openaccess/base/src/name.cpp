#include "oaScalarName.h"

namespace OpenAccess_4 {

void oaScalarName::init(const oaNameSpace& ns, const oaChar* in) {
    ns.getInternalScalar(in, *this);
}

void oaScalarName::get(const oaNameSpace& ns, oaString& out) const {
    oaUInt4 loc = 0;
    out = "";
    ns.getScalarName(*this, out, loc);
}

const oaString& impl::NameAccess::text(const oaScalarName& name) {
    return name.member_.getValue();
}

const oaNameMem& impl::NameAccess::member(const oaScalarName& name) {
    return name.member_;
}

oaScalarName impl::NameAccess::scalar(std::string_view text, oaBoolean caseSensitive) {
    oaScalarName name;
    name.member_ = oaNameMem(oaString(text.data(), oaUInt4(text.size())), caseSensitive);
    return name;
}

} // namespace OpenAccess_4

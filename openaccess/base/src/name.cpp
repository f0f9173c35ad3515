#include "oaName.h"

namespace OpenAccess_4 {

void oaScalarName::init(const oaNameSpace& ns, const oaChar* in) {
    ns.getInternalScalar(in, *this);
}

void oaScalarName::get(const oaNameSpace& ns, oaString& out) const {
    oaUInt4 loc = 0;
    out = "";
    ns.getScalarName(*this, out, loc);
}

oaNameType oaSimpleName::getType() const {
    return scalar_.isEmpty() ? oacEmptyNameType : oacScalarNameType;
}

const oaString& impl::NameAccess::text(const oaScalarName& name) {
    return name.member_.getValue();
}

} // namespace OpenAccess_4

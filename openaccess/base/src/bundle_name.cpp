#include "base/src/internal_form.h"
#include "base/src/same_bundle.h"
#include "oaException.h"
#include "oaName.h"

#include <algorithm>
#include <limits>

namespace OpenAccess_4 {

void oaBundleName::init(const oaNameSpace& ns, const oaChar* in) {
    ns.getInternalBundle(in, *this);
}

void oaBundleName::get(const oaNameSpace& ns, oaString& out) const {
    oaUInt4 loc = 0;
    out = "";
    ns.getBundleName(*this, out, loc);
}

void oaBundleName::get(oaString& out) const {
    get(oaNativeNS(), out);
}

void oaBundleName::getBitName(const oaNameSpace& ns, oaUInt4 bit, oaString& out) const {
    oaUInt8 rest = bit;
    for (const oaSimpleName& member : members_) {
        const oaUInt8 bits = member.getNumBits();
        if (rest < bits * member.getRepeat())
            return member.getBitName(ns, oaUInt4(rest % bits), out);
        rest -= bits * member.getRepeat();
    }
    get(out);
    throw oaError(oacIndexedNameInvalid, static_cast<const oaChar*>(out));
}

void oaBundleName::append(const oaSimpleName& name, oaUInt4 repeat) {
    if (repeat == 0 || name.getType() == oacEmptyNameType) {
        oaString text;
        name.get(text);
        throw oaError(oacBundleNameInvalid, static_cast<const oaChar*>(text));
    }
    members_.push_back(name);
    members_.back().repeat_ = repeat;
}

oaUInt4 oaBundleName::getNumBits() const {
    constexpr oaUInt8 most = std::numeric_limits<oaUInt4>::max();
    oaUInt8 bits = 0;
    for (const oaSimpleName& member : members_)
        bits = std::min(most,
                        bits + std::min(most, oaUInt8(member.getNumBits()) * member.getRepeat()));
    return oaUInt4(bits);
}

void oaBundleName::resize(oaUInt4 newSize) {
    if (newSize < members_.size())
        members_.resize(newSize);
    members_.reserve(newSize);
}

void oaBundleName::addHierMem(const oaNameSpace& ns, const oaChar* in, oaUInt4 len) {
    for (oaSimpleName& member : members_)
        member.addHierMem(ns, in, len);
}

void oaBundleName::addHierMem(const oaNameMem& in) {
    for (oaSimpleName& member : members_)
        member.addHierMem(in);
}

void oaBundleName::addHierPath(const oaScalarName& path) {
    for (oaSimpleName& member : members_)
        member.addHierPath(path);
}

void oaBundleName::addHierPath(const oaVectorBitName& path) {
    for (oaSimpleName& member : members_)
        member.addHierPath(path);
}

bool oaBundleName::operator==(const oaBundleName& other) const {
    return impl::isSameBundle(*this, other,
                              [](const oaSimpleName& a, const oaSimpleName& b) { return a == b; });
}

} // namespace OpenAccess_4

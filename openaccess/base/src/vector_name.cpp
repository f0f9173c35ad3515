#include "oaName.h"

#include "oaException.h"

#include <limits>

namespace OpenAccess_4 {

namespace {

void requireStep(const oaScalarName& base, oaUInt4 step) {
    oaString text;
    base.get(text);
    if (step == 0)
        throw oaError(oacVectorNameInvalid, static_cast<const oaChar*>(text));
}

template <class Name>
oaScalarName baseNameOf(const Name& name) {
    oaScalarName base;
    impl::NameAccess::assign(base, impl::NameAccess::textView(name),
                             impl::NameAccess::isCaseSensitive(name));
    return base;
}

oaUInt8 countBits(const oaVectorName& name) {
    const oaUInt4 low = std::min(name.getStart(), name.getStop());
    const oaUInt4 high = std::max(name.getStart(), name.getStop());
    return oaUInt8(high - low) / name.getStep() + 1;
}

[[noreturn]] void throwNoBit(const oaString& name) {
    throw oaError(oacIndexedNameInvalid, static_cast<const oaChar*>(name));
}

} // namespace

void oaVectorBitName::init(const oaNameSpace& ns, const oaChar* in, oaBoolean baseOnly) {
    ns.getInternalVBit(in, *this, baseOnly);
}

void oaVectorBitName::get(const oaNameSpace& ns, oaString& out) const {
    oaUInt4 loc = 0;
    out = "";
    ns.getVectorBitName(*this, out, loc);
}

void oaVectorBitName::get(oaString& out) const {
    get(oaNativeNS(), out);
}

void oaVectorBitName::getBaseName(const oaNameSpace& ns, oaString& out) const {
    baseNameOf(*this).get(ns, out);
}

void oaVectorBitName::getBaseName(oaScalarName& out) const {
    out = baseNameOf(*this);
}

void oaVectorBitName::append(const oaNameSpace& ns, const oaChar* in, oaUInt4 len, oaUInt4) {
    appendMember(ns, in, len);
}

oaVectorName::oaVectorName(const oaNameSpace& ns, const oaChar* base, oaUInt4 start, oaUInt4 stop,
                           oaUInt4 step)
    : oaVectorName(oaScalarName(ns, base), start, stop, step) {}

oaVectorName::oaVectorName(const oaScalarName& base, oaUInt4 start, oaUInt4 stop, oaUInt4 step)
    : oaNameBase(base), start_(start), stop_(stop), step_(step) {
    requireStep(base, step);
}

void oaVectorName::init(const oaNameSpace& ns, const oaChar* in, oaBoolean baseOnly) {
    ns.getInternalVector(in, *this, baseOnly);
}

void oaVectorName::get(const oaNameSpace& ns, oaString& out) const {
    oaUInt4 loc = 0;
    out = "";
    ns.getVectorName(*this, out, loc);
}

void oaVectorName::get(oaString& out) const {
    get(oaNativeNS(), out);
}

void oaVectorName::getBaseName(const oaNameSpace& ns, oaString& out) const {
    baseNameOf(*this).get(ns, out);
}

void oaVectorName::getBaseName(oaScalarName& out) const {
    out = baseNameOf(*this);
}

void oaVectorName::append(const oaNameSpace& ns, const oaChar* in, oaUInt4 len, oaUInt4) {
    appendMember(ns, in, len);
}

void oaVectorName::setStep(oaUInt4 step) {
    requireStep(baseNameOf(*this), step);
    step_ = step;
}

oaUInt4 oaVectorName::getNumBits() const {
    return oaUInt4(std::min<oaUInt8>(countBits(*this), std::numeric_limits<oaUInt4>::max()));
}

void oaVectorName::getBitName(const oaNameSpace& ns, oaUInt4 bit, oaString& out) const {
    if (bit >= countBits(*this)) {
        get(out);
        throwNoBit(out);
    }
    const oaUInt4 offset = bit * step_;
    oaVectorBitName(baseNameOf(*this), start_ <= stop_ ? start_ + offset : start_ - offset)
        .get(ns, out);
}

} // namespace OpenAccess_4

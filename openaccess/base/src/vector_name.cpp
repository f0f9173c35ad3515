#include "oaName.h"

#include "base/src/indexed_name.h"
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

oaVectorName::oaVectorName(const oaNameSpace& ns, const oaChar* base, oaUInt4 start, oaUInt4 stop,
                           oaUInt4 step)
    : oaVectorName(oaScalarName(ns, base), start, stop, step) {}

oaVectorName::oaVectorName(const oaScalarName& base, oaUInt4 start, oaUInt4 stop, oaUInt4 step)
    : base_(base), start_(start), stop_(stop), step_(step) {
    requireStep(base_, step);
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

void oaVectorName::setStep(oaUInt4 step) {
    requireStep(base_, step);
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
    oaVectorBitName(base_, start_ <= stop_ ? start_ + offset : start_ - offset).get(ns, out);
}

void oaSimpleName::init(const oaNameSpace& ns, const oaChar* in) {
    switch (ns.getType(in)) {
    case oacVectorBitNameType:
        name_ = oaVectorBitName(ns, in);
        break;
    case oacVectorNameType:
        name_ = oaVectorName(ns, in);
        break;
    default: // which refuses what is no name at all
        name_ = oaScalarName(ns, in);
    }
}

void oaSimpleName::get(const oaNameSpace& ns, oaString& out) const {
    oaUInt4 loc = 0;
    out = "";
    ns.getSimpleName(*this, out, loc);
}

void oaSimpleName::get(oaString& out) const {
    get(oaNativeNS(), out);
}

void oaSimpleName::getBitName(const oaNameSpace& ns, oaUInt4 bit, oaString& out) const {
    if (const oaVectorName* vector = getVector())
        return vector->getBitName(ns, bit, out);
    if (bit > 0) {
        get(out);
        throwNoBit(out);
    }
    get(ns, out);
}

oaNameType oaSimpleName::getType() const {
    if (getScalar())
        return oacScalarNameType;
    if (getVectorBit())
        return oacVectorBitNameType;
    return getVector() ? oacVectorNameType : oacEmptyNameType;
}

oaUInt4 oaSimpleName::getNumMembers() const {
    return std::visit([](const auto& name) { return name.getNumMembers(); }, name_);
}

oaUInt4 oaSimpleName::getNumBits() const {
    return std::visit([](const auto& name) { return name.getNumBits(); }, name_);
}

} // namespace OpenAccess_4

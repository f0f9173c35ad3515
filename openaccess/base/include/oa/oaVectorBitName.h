#pragma once

#include "oaScalarName.h"

namespace OpenAccess_4 {

/// The name of one bit of a vector: a base name and an index. A default one is empty.
class OA_API oaVectorBitName {
public:
    oaVectorBitName() = default;
    /// Reads `in` as `ns` spells bits.
    /// @throws oaError  41: there is no text. oacIndexedNameInvalid: it is no bit in `ns`.
    oaVectorBitName(const oaNameSpace& ns, const oaChar* in) { init(ns, in); }
    /// Reads `base` as `ns` spells scalar names.
    oaVectorBitName(const oaNameSpace& ns, const oaChar* base, oaUInt4 index)
        : base_(ns, base), index_(index) {}
    oaVectorBitName(const oaScalarName& base, oaUInt4 index) : base_(base), index_(index) {}

    /// With `baseOnly`, reads the base name and leaves the index as it is.
    void init(const oaNameSpace& ns, const oaChar* in, oaBoolean baseOnly = false);
    /// Spells the name in `ns`, or natively. An empty name gives an empty text.
    void get(const oaNameSpace& ns, oaString& out) const;
    void get(oaString& out) const;
    void getBaseName(const oaNameSpace& ns, oaString& out) const { base_.get(ns, out); }
    void getBaseName(oaString& out) const { base_.get(out); }
    void getBaseName(oaScalarName& out) const { out = base_; }

    oaUInt4 getIndex() const { return index_; }
    void setIndex(oaUInt4 index) { index_ = index; }
    oaBoolean isEmpty() const { return base_.isEmpty(); }
    oaUInt4 getNumMembers() const { return base_.getNumMembers(); }
    oaUInt4 getNumBits() const { return 1; }

    bool operator==(const oaVectorBitName& other) const {
        return base_ == other.base_ && index_ == other.index_;
    }
    bool operator!=(const oaVectorBitName& other) const { return !(*this == other); }

private:
    oaScalarName base_;
    oaUInt4 index_ = 0;
};

} // namespace OpenAccess_4

#pragma once

#include "oaScalarName.h"

namespace OpenAccess_4 {

/// The name of one bit of a vector: a base name and an index. A default one is empty.
class OA_API oaVectorBitName : public oaNameBase {
public:
    oaVectorBitName() = default;
    /// Reads `in` as `ns` spells bits.
    /// @throws oaError  41: there is no text. oacIndexedNameInvalid: it is no bit in `ns`.
    oaVectorBitName(const oaNameSpace& ns, const oaChar* in) { init(ns, in); }
    /// Reads `base` as `ns` spells scalar names.
    oaVectorBitName(const oaNameSpace& ns, const oaChar* base, oaUInt4 index)
        : oaNameBase(oaScalarName(ns, base)), index_(index) {}
    oaVectorBitName(const oaScalarName& base, oaUInt4 index) : oaNameBase(base), index_(index) {}

    /// With `baseOnly`, reads the base name and leaves the index as it is.
    void init(const oaNameSpace& ns, const oaChar* in, oaBoolean baseOnly = false);
    /// Spells the name in `ns`, or natively. An empty name gives an empty text.
    void get(const oaNameSpace& ns, oaString& out) const;
    void get(oaString& out) const;
    /// The name without its indices.
    void getBaseName(const oaNameSpace& ns, oaString& out) const;
    void getBaseName(oaString& out) const { out = impl::NameAccess::text(*this); }
    void getBaseName(oaScalarName& out) const;
    /// Puts a member below the base name. There are no `flags` other than 0.
    void append(const oaNameSpace& ns, const oaChar* in, oaUInt4 len, oaUInt4 flags = 0);

    oaUInt4 getIndex() const { return index_; }
    void setIndex(oaUInt4 index) { index_ = index; }
    oaUInt4 getNumBits() const { return 1; }

    bool operator==(const oaVectorBitName& other) const {
        return hasMembersOf(other) && index_ == other.index_;
    }
    bool operator!=(const oaVectorBitName& other) const { return !(*this == other); }

private:
    oaUInt4 index_ = 0;
};

} // namespace OpenAccess_4

#pragma once

#include "oaString.h"

namespace OpenAccess_4 {

/// One member of a name, in internal form (see oaNameSpace); a member on the way down the hierarchy
/// may end with an index, `bus<3>`. A default one is empty and case sensitive.
class OA_API oaNameMem {
public:
    oaNameMem() = default;
    oaNameMem(const oaString& in, oaBoolean caseSensitive)
        : value_(in), caseSensitive_(caseSensitive != 0) {}
    oaNameMem(const oaChar* in, oaBoolean caseSensitive)
        : value_(in), caseSensitive_(caseSensitive != 0) {}

    const oaString& getValue() const { return value_; }
    oaBoolean isCaseSensitive() const { return caseSensitive_; }

    oaBoolean hasIndex() const;
    /// 0 when there is none.
    oaUInt4 getIndex() const;
    /// The member without its index.
    void getBaseName(oaString& out) const;

    /// Compares without regard to case when one of the two is not case sensitive.
    bool operator==(const oaNameMem& other) const {
        return value_.isEqual(other.value_, !caseSensitive_ || !other.caseSensitive_);
    }
    bool operator!=(const oaNameMem& other) const { return !(*this == other); }

private:
    oaString value_;
    bool caseSensitive_ = true;
};

} // namespace OpenAccess_4

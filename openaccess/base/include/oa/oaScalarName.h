#pragma once

#include "oaNameBase.h"

namespace OpenAccess_4 {

/// The name of one thing: not of a bus, a bit or a list. A default one is empty.
class OA_API oaScalarName : public oaNameBase {
public:
    oaScalarName() = default;
    /// Reads `in` as `ns` spells names.
    /// @throws oaError  41: there is no text. oacScalarNameInvalid: it is no scalar name of `ns`.
    ///                  oacHierNameInvalid: a member of the hierarchy is missing.
    oaScalarName(const oaNameSpace& ns, const oaChar* in) { init(ns, in); }

    void init(const oaNameSpace& ns, const oaChar* in);
    /// Spells the name in `ns`, or natively. An empty name gives an empty text.
    /// @throws oaError  the name space has no spelling for it
    void get(const oaNameSpace& ns, oaString& out) const;
    void get(oaString& out) const { out = impl::NameAccess::text(*this); }

    /// Puts a member below the name. There are no `flags` other than 0.
    /// @throws oaError  as oaNameSpace::getInternalMember. oacScalarNameInvalid: it has an index.
    void append(const oaNameSpace& ns, const oaChar* in, oaUInt4 len, oaUInt4 flags = 0);
    void append(const oaNameMem& in) { appendMember(in); }

    oaUInt4 getNumBits() const { return 1; }

    bool operator==(const oaScalarName& other) const { return hasMembersOf(other); }
    bool operator!=(const oaScalarName& other) const { return !(*this == other); }
};

} // namespace OpenAccess_4

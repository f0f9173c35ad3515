#pragma once

#include "oaNameMem.h"
#include "oaNameSpace.h"

#include <string_view>

namespace OpenAccess_4 {

namespace impl {

struct OA_API NameAccess {
    /// The internal form of a name, without a copy.
    static const oaString& text(const oaScalarName& name);
    static const oaNameMem& member(const oaScalarName& name);
    static oaScalarName scalar(std::string_view text, oaBoolean caseSensitive);
};

inline const oaString& internalText(const oaScalarName& name) {
    return NameAccess::text(name);
}

} // namespace impl

/// The name of one thing: not of a bus, a bit or a list. A default one is empty.
class OA_API oaScalarName {
public:
    oaScalarName() = default;
    /// Reads `in` as `ns` spells names.
    /// @throws oaError  41: there is no text. oacScalarNameInvalid: it is no scalar name of `ns`.
    oaScalarName(const oaNameSpace& ns, const oaChar* in) { init(ns, in); }

    void init(const oaNameSpace& ns, const oaChar* in);
    /// Spells the name in `ns`, or natively. An empty name gives an empty text.
    void get(const oaNameSpace& ns, oaString& out) const;
    void get(oaString& out) const { out = member_.getValue(); }

    oaBoolean isEmpty() const { return member_.getValue().isEmpty(); }
    oaUInt4 getNumMembers() const { return isEmpty() ? 0 : 1; }
    oaUInt4 getNumBits() const { return 1; }

    bool operator==(const oaScalarName& other) const { return member_ == other.member_; }
    bool operator!=(const oaScalarName& other) const { return !(*this == other); }

private:
    friend class impl::ScalarNameSpace;
    friend class oaNameSpace;
    friend struct impl::NameAccess;

    oaNameMem member_;
};

} // namespace OpenAccess_4

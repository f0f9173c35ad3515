#pragma once

#include "oaNameMem.h"
#include "oaNameSpace.h"

#include <string_view>
#include <vector>

namespace OpenAccess_4 {

class oaNameBase;

namespace impl {

struct NamePart;
using NamePath = std::vector<NamePart>;

struct OA_API NameAccess {
    /// The native spelling of a name, or of the base name of a bit or a vector, without a copy.
    static const oaString& text(const oaNameBase& name);
    static std::string_view textView(const oaNameBase& name);
    static oaBoolean isCaseSensitive(const oaNameBase& name);
    static void assign(oaNameBase& name, std::string_view text, oaBoolean caseSensitive);
    /// The members of a name. That of a bit or a vector does not show its indices.
    static NamePath path(const oaNameBase& name);
    static void assign(oaNameBase& name, const NamePath& path, oaBoolean caseSensitive);
};

inline const oaString& internalText(const oaNameBase& name) {
    return NameAccess::text(name);
}

} // namespace impl

/// What names of one thing and of its bits have in common: a row of members, of which all but the
/// last are the way down the hierarchy to the last. A default one is empty.
class OA_API oaNameBase {
public:
    oaNameBase() = default;

    /// Put a member, or a whole path, above the name: the way to it starts there.
    /// @throws oaError  as oaNameSpace::getInternalMember. oacHierNameInvalid: the last member of
    ///                  the name would have an index, because the name is empty.
    void addHierMem(const oaNameSpace& ns, const oaChar* in, oaUInt4 len);
    void addHierMem(const oaNameMem& in);
    void addHierPath(const oaScalarName& path);
    void addHierPath(const oaVectorBitName& path);

    oaUInt4 getNumMembers() const;
    oaBoolean isEmpty() const { return text_.isEmpty(); }
    /// Whether there is more than one member.
    oaBoolean isHier() const { return getNumMembers() > 1; }

protected:
    /// Whether the members are the same; without regard to case when one of the two names has none.
    bool hasMembersOf(const oaNameBase& other) const {
        return text_.isEqual(other.text_, !caseSensitive_ || !other.caseSensitive_);
    }
    /// Puts a member without an index below the name.
    void appendMember(const oaNameMem& in);
    void appendMember(const oaNameSpace& ns, const oaChar* in, oaUInt4 len);

private:
    friend struct impl::NameAccess;

    oaString text_; // native spelling
    bool caseSensitive_ = true;
};

} // namespace OpenAccess_4

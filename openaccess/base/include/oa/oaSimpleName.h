#pragma once

#include "oaVectorBitName.h"
#include "oaVectorName.h"

#include <variant>

namespace OpenAccess_4 {

/// A scalar name, a bit or a vector. A default one is empty.
class OA_API oaSimpleName {
public:
    oaSimpleName() = default;
    /// Reads the form that `in` has in `ns`.
    /// @throws oaError  as oaScalarName, oaVectorBitName or oaVectorName does.
    oaSimpleName(const oaNameSpace& ns, const oaChar* in) { init(ns, in); }
    oaSimpleName(const oaScalarName& name) : name_(name) {}
    oaSimpleName(const oaVectorBitName& name) : name_(name) {}
    oaSimpleName(const oaVectorName& name) : name_(name) {}

    void init(const oaNameSpace& ns, const oaChar* in);
    void get(const oaNameSpace& ns, oaString& out) const;
    void get(oaString& out) const;
    /// Spells the bit at that place, counted from 0; the only bit of a name of one bit is itself.
    /// @throws oaError  oacIndexedNameInvalid: there are fewer bits
    void getBitName(const oaNameSpace& ns, oaUInt4 bit, oaString& out) const;

    oaNameType getType() const;
    /// The name in it when it has that form and is not empty, owned by this name; else null.
    oaScalarName* getScalar() const { return partOf<oaScalarName>(); }
    oaVectorBitName* getVectorBit() const { return partOf<oaVectorBitName>(); }
    oaVectorName* getVector() const { return partOf<oaVectorName>(); }
    oaUInt4 getNumMembers() const;
    oaUInt4 getNumBits() const;
    /// How often the name stands at its place of a bundle; else 1.
    oaUInt4 getRepeat() const { return repeat_; }

    /// As oaNameBase does.
    void addHierMem(const oaNameSpace& ns, const oaChar* in, oaUInt4 len);
    void addHierMem(const oaNameMem& in);
    void addHierPath(const oaScalarName& path);
    void addHierPath(const oaVectorBitName& path);

    /// Compares form and name, not the repetition.
    bool operator==(const oaSimpleName& other) const { return name_ == other.name_; }
    bool operator!=(const oaSimpleName& other) const { return !(*this == other); }

private:
    friend class oaBundleName;

    template <class Name>
    Name* partOf() const {
        Name* name = std::get_if<Name>(&name_);
        return name && !name->isEmpty() ? name : nullptr;
    }

    // The calls for its parts are const and hand them out for change.
    mutable std::variant<oaScalarName, oaVectorBitName, oaVectorName> name_;
    oaUInt4 repeat_ = 1;
};

} // namespace OpenAccess_4

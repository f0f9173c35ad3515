#pragma once

#include "oaScalarName.h"

namespace OpenAccess_4 {

/// The name of a thing that may be one bit or many. A default one is empty.
class OA_API oaSimpleName {
public:
    oaSimpleName() = default;
    /// @throws oaError  as oaScalarName does.
    oaSimpleName(const oaNameSpace& ns, const oaChar* in) : scalar_(ns, in) {}
    oaSimpleName(const oaScalarName& name) : scalar_(name) {}

    void init(const oaNameSpace& ns, const oaChar* in) { scalar_.init(ns, in); }
    void get(const oaNameSpace& ns, oaString& out) const { scalar_.get(ns, out); }
    void get(oaString& out) const { scalar_.get(out); }

    oaNameType getType() const;
    /// The scalar name in it, owned by this name; null when it is empty.
    oaScalarName* getScalar() const { return scalar_.isEmpty() ? nullptr : &scalar_; }
    oaUInt4 getNumMembers() const { return scalar_.getNumMembers(); }
    oaUInt4 getNumBits() const { return scalar_.getNumBits(); }

    bool operator==(const oaSimpleName& other) const { return scalar_ == other.scalar_; }
    bool operator!=(const oaSimpleName& other) const { return !(*this == other); }

private:
    // getScalar() is const and hands it out for change.
    mutable oaScalarName scalar_;
};

} // namespace OpenAccess_4

#pragma once

#include "oaSimpleName.h"

namespace OpenAccess_4 {

/// A name of any form. A default one is empty.
class OA_API oaName {
public:
    oaName() = default;
    /// @throws oaError  as oaScalarName does.
    oaName(const oaNameSpace& ns, const oaChar* in) : simple_(ns, in) {}
    oaName(const oaScalarName& name) : simple_(name) {}
    oaName(const oaSimpleName& name) : simple_(name) {}

    void init(const oaNameSpace& ns, const oaChar* in) { simple_.init(ns, in); }
    void get(const oaNameSpace& ns, oaString& out) const { simple_.get(ns, out); }
    void get(oaString& out) const { simple_.get(out); }

    oaNameType getType() const { return simple_.getType(); }
    /// The scalar name in it, owned by this name; null when it is empty.
    oaScalarName* getScalar() const { return simple_.getScalar(); }
    oaUInt4 getNumBits() const { return simple_.getNumBits(); }

    bool operator==(const oaName& other) const { return simple_ == other.simple_; }
    bool operator!=(const oaName& other) const { return !(*this == other); }

private:
    oaSimpleName simple_;
};

} // namespace OpenAccess_4

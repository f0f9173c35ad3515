#pragma once

#include "oaSimpleName.h"

namespace OpenAccess_4 {

/// A name of any form. A default one is empty.
class OA_API oaName {
public:
    oaName() = default;
    /// @throws oaError  as oaSimpleName does.
    oaName(const oaNameSpace& ns, const oaChar* in) : simple_(ns, in) {}
    oaName(const oaScalarName& name) : simple_(name) {}
    oaName(const oaVectorBitName& name) : simple_(name) {}
    oaName(const oaVectorName& name) : simple_(name) {}
    oaName(const oaSimpleName& name) : simple_(name) {}

    void init(const oaNameSpace& ns, const oaChar* in) { simple_.init(ns, in); }
    void get(const oaNameSpace& ns, oaString& out) const { simple_.get(ns, out); }
    void get(oaString& out) const { simple_.get(out); }
    /// As oaSimpleName does.
    void getBitName(const oaNameSpace& ns, oaUInt4 bit, oaString& out) const {
        simple_.getBitName(ns, bit, out);
    }

    oaNameType getType() const { return simple_.getType(); }
    /// The name in it when it has that form and is not empty, owned by this name; else null.
    oaScalarName* getScalar() const { return simple_.getScalar(); }
    oaVectorBitName* getVectorBit() const { return simple_.getVectorBit(); }
    oaVectorName* getVector() const { return simple_.getVector(); }
    oaUInt4 getNumBits() const { return simple_.getNumBits(); }

    bool operator==(const oaName& other) const { return simple_ == other.simple_; }
    bool operator!=(const oaName& other) const { return !(*this == other); }

private:
    oaSimpleName simple_;
};

} // namespace OpenAccess_4

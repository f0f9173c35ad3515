#pragma once

#include "oaBundleName.h"

namespace OpenAccess_4 {

/// A name of any form. A default one is empty.
class OA_API oaName {
public:
    oaName() = default;
    /// @throws oaError  as oaSimpleName or oaBundleName does.
    oaName(const oaNameSpace& ns, const oaChar* in) { init(ns, in); }
    oaName(const oaScalarName& name) : name_(oaSimpleName(name)) {}
    oaName(const oaVectorBitName& name) : name_(oaSimpleName(name)) {}
    oaName(const oaVectorName& name) : name_(oaSimpleName(name)) {}
    oaName(const oaSimpleName& name) : name_(name) {}
    oaName(const oaBundleName& name) : name_(name) {}

    void init(const oaNameSpace& ns, const oaChar* in);
    void get(const oaNameSpace& ns, oaString& out) const;
    void get(oaString& out) const;
    /// As oaSimpleName and oaBundleName do.
    void getBitName(const oaNameSpace& ns, oaUInt4 bit, oaString& out) const;

    oaNameType getType() const;
    /// The name in it when it has that form and is not empty, owned by this name; else null.
    oaScalarName* getScalar() const { return simple() ? simple()->getScalar() : nullptr; }
    oaVectorBitName* getVectorBit() const { return simple() ? simple()->getVectorBit() : nullptr; }
    oaVectorName* getVector() const { return simple() ? simple()->getVector() : nullptr; }
    oaBundleName* getBundle() const;
    oaUInt4 getNumBits() const;

    /// As oaNameBase does; for each name of a bundle.
    void addHierMem(const oaNameSpace& ns, const oaChar* in, oaUInt4 len);
    void addHierMem(const oaNameMem& in);
    void addHierPath(const oaScalarName& path);
    void addHierPath(const oaVectorBitName& path);

    bool operator==(const oaName& other) const;
    bool operator!=(const oaName& other) const { return !(*this == other); }

private:
    oaSimpleName* simple() const { return std::get_if<oaSimpleName>(&name_); }

    // The calls for its parts are const and hand them out for change.
    mutable std::variant<oaSimpleName, oaBundleName> name_;
};

} // namespace OpenAccess_4

#pragma once

#include "oaSimpleName.h"

#include <vector>

namespace OpenAccess_4 {

/// A list of names, each of which may stand several times. A default one is empty.
class OA_API oaBundleName {
public:
    oaBundleName() = default;
    /// Reads `in` as `ns` spells bundles.
    /// @throws oaError  41: there is no text. oacBundleNameInvalid: it is no bundle in `ns`; or as
    ///                  the names in it.
    oaBundleName(const oaNameSpace& ns, const oaChar* in) { init(ns, in); }
    oaBundleName(const oaScalarName& in, oaUInt4 repeat = 1) { append(in, repeat); }
    oaBundleName(const oaVectorBitName& in, oaUInt4 repeat = 1) { append(in, repeat); }
    oaBundleName(const oaVectorName& in, oaUInt4 repeat = 1) { append(in, repeat); }
    oaBundleName(const oaSimpleName& in, oaUInt4 repeat = 1) { append(in, repeat); }

    void init(const oaNameSpace& ns, const oaChar* in);
    /// Spells the names in `ns`, or natively. An empty bundle gives an empty text.
    void get(const oaNameSpace& ns, oaString& out) const;
    void get(oaString& out) const;
    /// Spells the bit at that place, counted from 0 over all the names and their repetitions.
    /// @throws oaError  oacIndexedNameInvalid: there are fewer bits
    void getBitName(const oaNameSpace& ns, oaUInt4 bit, oaString& out) const;

    /// Adds a name at the end.
    /// @throws oaError  oacBundleNameInvalid: the name is empty, or it is to stand 0 times
    void append(const oaScalarName& name, oaUInt4 repeat = 1) {
        append(oaSimpleName(name), repeat);
    }
    void append(const oaVectorBitName& name, oaUInt4 repeat = 1) {
        append(oaSimpleName(name), repeat);
    }
    void append(const oaVectorName& name, oaUInt4 repeat = 1) {
        append(oaSimpleName(name), repeat);
    }
    void append(const oaSimpleName& name, oaUInt4 repeat = 1);

    /// The names as they were added, each once.
    oaUInt4 getNumMembers() const { return static_cast<oaUInt4>(members_.size()); }
    const oaSimpleName& operator[](oaUInt4 i) const { return members_[i]; }
    oaSimpleName& operator[](oaUInt4 i) { return members_[i]; }
    oaBoolean isEmpty() const { return members_.empty(); }
    /// 0xFFFFFFFF also when there are more.
    oaUInt4 getNumBits() const;

    /// The number of names that there is room for.
    oaUInt4 getSize() const { return static_cast<oaUInt4>(members_.capacity()); }
    /// Makes room; names that find none are dropped.
    void resize(oaUInt4 newSize);

    /// Put a member, or a path, above each of the names, as oaNameBase does.
    void addHierMem(const oaNameSpace& ns, const oaChar* in, oaUInt4 len);
    void addHierMem(const oaNameMem& in);
    void addHierPath(const oaScalarName& path);
    void addHierPath(const oaVectorBitName& path);

    /// Whether the same names stand in the same order, however they were added: `a` twice is `a`
    /// and `a`.
    bool operator==(const oaBundleName& other) const;
    bool operator!=(const oaBundleName& other) const { return !(*this == other); }

private:
    std::vector<oaSimpleName> members_;
};

} // namespace OpenAccess_4

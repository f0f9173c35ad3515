#pragma once

#include "oaBaseEnums.h"

namespace OpenAccess_4 {

class oaBundleName;
class oaName;
class oaNameMem;
class oaScalarName;
class oaSimpleName;
class oaVectorBitName;
class oaVectorName;

/// A way of spelling names. A name space reads its own spelling into the internal form of names,
/// and writes it back.
///
/// In the internal form of a member, bytes from 0x80 on and printable characters other than blank
/// and `< > ( ) , / \` and the back quote stand for themselves; every other byte is "#" and its two
/// hexadecimal digits in lower case; so is "#" where the two characters behind it would make it the
/// code of a byte. All name spaces agree in it, so a name read in one can be written in another.
///
/// Name spaces hold no data: objects may be static, temporary and copied, and work before any
/// init call. The order of the virtual members is part of the binary interface.
class OA_API oaNameSpace {
public:
    oaNameSpace();
    oaNameSpace(const oaNameSpace&);
    oaNameSpace& operator=(const oaNameSpace&);
    virtual ~oaNameSpace();

    /// Whether two names are the same name in this name space.
    virtual oaBoolean isEqual(const oaScalarName& n1, const oaScalarName& n2) const;
    virtual oaBoolean isEqual(const oaVectorName& n1, const oaVectorName& n2) const;
    virtual oaBoolean isEqual(const oaVectorBitName& n1, const oaVectorBitName& n2) const;
    virtual oaBoolean isEqual(const oaBundleName& n1, const oaBundleName& n2) const;
    virtual oaBoolean isEqual(const oaSimpleName& n1, const oaSimpleName& n2) const;
    virtual oaBoolean isEqual(const oaName& n1, const oaName& n2) const;
    virtual oaBoolean isEqual(const oaNameMem& n1, const oaNameMem& n2) const;

    /// The form of the name that `in` spells; oacEmptyNameType when it spells none.
    virtual oaNameType getType(const oaChar* in) const = 0;

    /// Reads the first `len` characters of `in`, one member of a name, into its internal form.
    /// @throws oaError  41: there is no text. oacScalarNameInvalid: it spells no name.
    virtual void getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive,
                                   oaUInt4 len, oaUInt4 flags = 0) const = 0;
    virtual void getInternalScalar(const oaChar* in, oaScalarName& out) const = 0;
    /// Read a bit and a vector; with `baseOnly`, `in` is the base name alone, and the indices of
    /// `out` stay. Unless a name space says otherwise, bits, vectors and bundles are spelled as one
    /// member that has the native spelling.
    /// @throws oaError  41: there is no text. oacIndexedNameInvalid, oacVectorNameInvalid,
    ///                  oacBundleNameInvalid: it is spelled otherwise.
    virtual void getInternalVBit(const oaChar* in, oaVectorBitName& out,
                                 oaBoolean baseOnly = false) const;
    virtual void getInternalVector(const oaChar* in, oaVectorName& out,
                                   oaBoolean baseOnly = false) const;
    virtual void getInternalBundle(const oaChar* in, oaBundleName& out) const;

    /// Writes the member whose internal form is `in` into `out` from position `loc` on, ends it
    /// with a zero byte and moves `loc` onto that.
    virtual void getMember(const oaChar* in, oaBoolean caseSensitive, oaString& out, oaUInt4& loc,
                           oaUInt4 flags = 0) const = 0;
    /// Writes the hierarchical name of these members.
    virtual void getMemberArray(const oaNameMem* in, oaUInt4 numMembers, oaString& out,
                                oaUInt4& loc) const;
    virtual void getScalarName(const oaScalarName& in, oaString& out, oaUInt4& loc) const = 0;
    virtual void getVectorName(const oaVectorName& in, oaString& out, oaUInt4& loc) const;
    virtual void getVectorBitName(const oaVectorBitName& in, oaString& out, oaUInt4& loc) const;
    /// Writes the bit `start` of the vector that these members name.
    virtual void getVectorBitName(const oaNameMem* in, oaUInt4 numMembers, oaUInt4 start,
                                  oaString& out, oaUInt4& loc) const;
    virtual void getBundleName(const oaBundleName& in, oaString& out, oaUInt4& loc) const;
    virtual void getSimpleName(const oaSimpleName& in, oaString& out, oaUInt4& loc) const;

protected:
    /// Writes one character at `loc`, behind it a zero byte, and moves `loc` onto that. `out`
    /// grows when it is too small.
    static void writeChar(oaChar c, oaString& out, oaUInt4& loc);
    /// Writes "#" and the two hexadecimal digits of `c` in lower case, as writeChar does.
    static void encodeChar(oaByte c, oaString& out, oaUInt4& loc);
    /// The byte that two hexadecimal digits of either case give.
    static oaByte decodeChar(const oaChar* twoHexDigits);
    /// Whether the byte is a letter, a digit or "_": it stands for itself in every name space.
    static oaBoolean isInternalNormalChar(oaByte c);
};

namespace impl {

struct HdlSyntax;

/// What name spaces have in common that spell a scalar name as one member with its native spelling.
class OA_API ScalarNameSpace : public oaNameSpace {
public:
    oaNameType getType(const oaChar* in) const override;
    void getInternalScalar(const oaChar* in, oaScalarName& out) const override;
    void getScalarName(const oaScalarName& in, oaString& out, oaUInt4& loc) const override;
};

/// What the name spaces of hardware description languages have in common: names of identifiers.
class OA_API HdlNameSpace : public oaNameSpace {
public:
    oaNameType getType(const oaChar* in) const override;
    void getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive, oaUInt4 len,
                           oaUInt4 flags = 0) const override;
    void getInternalScalar(const oaChar* in, oaScalarName& out) const override;
    void getInternalVBit(const oaChar* in, oaVectorBitName& out,
                         oaBoolean baseOnly = false) const override;
    void getInternalVector(const oaChar* in, oaVectorName& out,
                           oaBoolean baseOnly = false) const override;
    void getInternalBundle(const oaChar* in, oaBundleName& out) const override;
    void getMember(const oaChar* in, oaBoolean caseSensitive, oaString& out, oaUInt4& loc,
                   oaUInt4 flags = 0) const override;
    void getScalarName(const oaScalarName& in, oaString& out, oaUInt4& loc) const override;
    void getVectorName(const oaVectorName& in, oaString& out, oaUInt4& loc) const override;
    using oaNameSpace::getVectorBitName;
    void getVectorBitName(const oaVectorBitName& in, oaString& out, oaUInt4& loc) const override;
    void getBundleName(const oaBundleName& in, oaString& out, oaUInt4& loc) const override;

protected:
    explicit HdlNameSpace(const HdlSyntax& syntax);

private:
    const HdlSyntax* syntax_;
};

} // namespace impl

/// The spelling of the database itself: every text that is not empty is a name, and is written as
/// it was read.
///
/// `a/b` is `b` below `a`, `a[3]` a bit, `a[3:0]` and with a step `a[0:6:2]` a vector, `{a,b[3]}` a
/// bundle and `{2*a,b}` one that holds `a` twice. Each has this one spelling: `a[03]`, `a[0:6:1]`,
/// `a//b` and `a,b` are the names of one thing. A name that would be taken for another has "\" in
/// front of the characters that would mislead: `a\/b` is one member. A scalar name is read and
/// written as if there were no other forms, so it may be `a[3]`; where any form may stand, that one
/// is `a\[3]`.
class OA_API oaNativeNS : public impl::ScalarNameSpace {
public:
    oaNameType getType(const oaChar* in) const override;
    void getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive, oaUInt4 len,
                           oaUInt4 flags = 0) const override;
    void getInternalScalar(const oaChar* in, oaScalarName& out) const override;
    void getMember(const oaChar* in, oaBoolean caseSensitive, oaString& out, oaUInt4& loc,
                   oaUInt4 flags = 0) const override;
    void getScalarName(const oaScalarName& in, oaString& out, oaUInt4& loc) const override;
    void getSimpleName(const oaSimpleName& in, oaString& out, oaUInt4& loc) const override;
};

/// The spelling of net and terminal names in circuit descriptions.
///
/// Letters, digits and the printable characters other than `# < > ( ) , / \` and the back quote
/// stand for themselves; every other byte is "#" and its two hexadecimal digits. `a/b` is `b` below
/// `a`, `a<3>` a bit, `a<3:0>` and with a step `a<0:6:2>` a vector, `a,b<3>` a bundle. `<*2>` in
/// front of a name of a bundle, or of several in parentheses, repeats them.
class OA_API oaCdbaNS : public impl::ScalarNameSpace {
public:
    /// Of a name with angle brackets or commas, tells its form without reading it.
    oaNameType getType(const oaChar* in) const override;
    void getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive, oaUInt4 len,
                           oaUInt4 flags = 0) const override;
    void getInternalScalar(const oaChar* in, oaScalarName& out) const override;
    void getInternalVBit(const oaChar* in, oaVectorBitName& out,
                         oaBoolean baseOnly = false) const override;
    void getInternalVector(const oaChar* in, oaVectorName& out,
                           oaBoolean baseOnly = false) const override;
    void getInternalBundle(const oaChar* in, oaBundleName& out) const override;
    void getMember(const oaChar* in, oaBoolean caseSensitive, oaString& out, oaUInt4& loc,
                   oaUInt4 flags = 0) const override;
    void getScalarName(const oaScalarName& in, oaString& out, oaUInt4& loc) const override;
    void getVectorName(const oaVectorName& in, oaString& out, oaUInt4& loc) const override;
    using oaNameSpace::getVectorBitName;
    void getVectorBitName(const oaVectorBitName& in, oaString& out, oaUInt4& loc) const override;
    void getBundleName(const oaBundleName& in, oaString& out, oaUInt4& loc) const override;
};

/// The spelling of names as directories and files of a Unix system.
///
/// Letters, digits and "_" stand for themselves, every other byte is "#" and its two hexadecimal
/// digits; so do bits and vectors. Other texts are no names: directories that are spelled otherwise
/// belong to nobody.
class OA_API oaUnixNS : public impl::ScalarNameSpace {
public:
    oaNameType getType(const oaChar* in) const override;
    void getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive, oaUInt4 len,
                           oaUInt4 flags = 0) const override;
    void getMember(const oaChar* in, oaBoolean caseSensitive, oaString& out, oaUInt4& loc,
                   oaUInt4 flags = 0) const override;
};

/// The spelling of names as directories and files of a Windows system, which takes upper and
/// lower case letters for the same and reserves the names of devices.
///
/// As in oaUnixNS, and an upper-case letter has "%" in front, the name of a device "%%". Reading
/// takes the case of a letter from the "%" alone.
class OA_API oaWinNS : public impl::ScalarNameSpace {
public:
    oaNameType getType(const oaChar* in) const override;
    void getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive, oaUInt4 len,
                           oaUInt4 flags = 0) const override;
    void getMember(const oaChar* in, oaBoolean caseSensitive, oaString& out, oaUInt4& loc,
                   oaUInt4 flags = 0) const override;
};

/// The spelling of Verilog.
///
/// An identifier of letters, digits, "_" and "$" that does not start with a digit or "$" and is no
/// keyword stands for itself; every other member is an escaped identifier: "\", the characters, and
/// a blank. What cannot stand in one is "#" and its two hexadecimal digits. `a.b` is `b` below `a`,
/// `a[3]` a bit, `a[3:0]` a vector, `{a,b[3]}` a bundle and `{{2{a}},b}` one that holds `a` twice.
/// There are no steps.
class OA_API oaVerilogNS : public impl::HdlNameSpace {
public:
    oaVerilogNS();
};

/// The spelling of VHDL.
///
/// A basic identifier has no case and stands for its lower-case letters; every other member is an
/// extended identifier between "\", in which "\" is doubled. What cannot stand in one is "#" and
/// its two hexadecimal digits. `a.b` is `b` below `a`, `a(3)` a bit, `a(3 downto 0)` and
/// `a(0 to 3)` are vectors, `(a,b(3))` is a bundle, in which a repeated name is written repeatedly.
/// There are no steps.
class OA_API oaVhdlNS : public impl::HdlNameSpace {
public:
    oaVhdlNS();
};

} // namespace OpenAccess_4

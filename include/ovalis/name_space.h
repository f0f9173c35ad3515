#pragma once

#include <oa/oaDesignDB.h>

#include <ovalis/core.h>
#include <ovalis/export.h>

namespace ovalis {

/// Returns the native spelling of the name that `name` spells in `ns`.
///
/// @throws Exception  `ns` has no name of that spelling, or there is no text.
OVALIS_API oa::oaString toNativeName(const char* name, const oa::oaNameSpace& ns);

/// Returns the spelling in `ns` of the name that `name` spells natively.
///
/// @throws Exception  there is no text, or `ns` cannot spell the name.
OVALIS_API oa::oaString fromNativeName(const char* name, const oa::oaNameSpace& ns);

/// Returns the name space of the files of the system that `lib` was made on: that of Windows or of
/// Unix, which live as long as this library. The attribute `origFileSystem` of `lib` decides.
///
/// Where the attribute is missing or says something else, and where reading is refused, which is
/// not waited for, `fallback` is returned; it may be null.
/// @throws Exception  the database failed.
OVALIS_API const oa::oaNameSpace* getFileSystemNameSpace(oa::oaLib& lib,
                                                         const oa::oaNameSpace* fallback);

/// Spells names of nets so that UTF-8 passes unchanged.
///
/// As in `oa::oaCdbaNS`, and bytes from 0x80 on, as well as "#", stand for themselves. Blanks,
/// control characters and `< > ( ) , / \` and the back quote are "#" and two hexadecimal digits.
///
/// A member is kept inside the database as this name space spells it. What is written for a name
/// is read as that name again; of several spellings of one name ("#41" for "A", "#2F" for "#2f", a
/// blank as it is) the one that is written comes back.
class OVALIS_API NetNameNamespaceWithUTF8 : public oa::oaCdbaNS {
public:
    NetNameNamespaceWithUTF8() = default;
    NetNameNamespaceWithUTF8(const NetNameNamespaceWithUTF8&) = default;
    NetNameNamespaceWithUTF8(NetNameNamespaceWithUTF8&&) = default;
    NetNameNamespaceWithUTF8& operator=(const NetNameNamespaceWithUTF8&) = default;
    NetNameNamespaceWithUTF8& operator=(NetNameNamespaceWithUTF8&&) = default;
    ~NetNameNamespaceWithUTF8() override;

    /// Reads the first `length` bytes of `in`, one member of a name, into their internal form and
    /// sets `flag` to 1: case matters. `start` has no meaning.
    /// @throws oa::oaError  41: there is no text, or `length` is 0.
    void getInternalMember(const char* in, oa::oaString& out, int& flag, unsigned int length,
                           unsigned int start = 0) const override;

    /// Writes the member whose internal form is `in` into `out` from position `length` on and moves
    /// `length` behind it. `start` has no meaning.
    void getMember(const char* in, int flag, oa::oaString& out, unsigned int& length,
                   unsigned int start = 0) const override;
};

} // namespace ovalis

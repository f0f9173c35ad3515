#pragma once

#include "base/src/native_text.h"
#include "oaNameBase.h"

#include <string>

namespace OpenAccess_4 {

class oaBundleName;

namespace impl {

/// Writes bytes that are not plain, and each "#" that would be taken for the start of a code, as
/// codes.
std::string encodedBytes(std::string_view bytes, bool (*isPlain)(oaChar c));

/// The internal form of a member, and the bytes of which it is one. See oaNameSpace.
std::string internalForm(std::string_view bytes);
std::string bytesOf(const oaChar* internal);

/// Replaces the codes of bytes in a text that may hold other "#" as well.
std::string decoded(std::string_view text);

/// The internal form of a member that may have an index.
oaNameMem memberOf(const NamePart& part, oaBoolean caseSensitive);
NamePart partOf(const oaNameMem& member);

/// What the reading of a member gives.
struct ReadMember {
    std::string bytes;
    bool caseSensitive;
};

/// Reads the whole of `text` as one member, without an index.
ReadMember readMember(const oaNameSpace& ns, std::string_view text);
void writeMember(const oaNameSpace& ns, std::string_view bytes, oaBoolean caseSensitive,
                 oaString& out, oaUInt4& loc);
void writeText(std::string_view text, oaString& out, oaUInt4& loc);

/// Names and the forms of them.
SimpleForm formOf(const oaScalarName& name);
SimpleForm formOf(const oaVectorBitName& name);
SimpleForm formOf(const oaVectorName& name);
SimpleForm formOf(const oaSimpleName& name);
BundleForm formOf(const oaBundleName& name);
oaSimpleName simpleNameOf(const SimpleForm& form, oaBoolean caseSensitive);
oaBundleName bundleNameOf(const BundleForm& form, oaBoolean caseSensitive);

} // namespace impl

} // namespace OpenAccess_4

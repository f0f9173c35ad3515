#include <ovalis/name_space.h>

#include "core/boundary.h"
#include "core/names.h"

#include <cstring>

namespace ovalis {

namespace {

/// The number of a message of the database: a name was to be read where there is no text.
constexpr oa::oaUInt4 noTextToMap = 41;

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Whether "#" and the code of a byte stand at `place`. A name cannot hold a byte of zero.
bool isCode(const std::string& text, std::size_t place) {
    return text[place] == '#' && place + 2 < text.size() && isHexDigit(text[place + 1]) &&
           isHexDigit(text[place + 2]) && text.compare(place + 1, 2, "00") != 0;
}

bool isKept(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 || (byte > ' ' && byte < 0x7f && !std::strchr("<>`(),/\\", c));
}

std::size_t lengthWithin(const char* text, std::size_t most) {
    const void* end = std::memchr(text, '\0', most);
    return end ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : most;
}

const oa::oaNameSpace* nameSpaceOf(const oa::oaString& fileSystem) {
    if (fileSystem == "Windows") {
        return &windowsNameSpace;
    }
    return fileSystem == "Unix" ? &unixNameSpace : nullptr;
}

} // namespace

oa::oaString toNativeName(const char* name, const oa::oaNameSpace& ns) {
    return atBoundary([&] {
        initOa();
        oa::oaString text;
        oa::oaScalarName(ns, name).get(text);
        return text;
    });
}

oa::oaString fromNativeName(const char* name, const oa::oaNameSpace& ns) {
    return atBoundary([&] {
        initOa();
        oa::oaString text;
        oa::oaScalarName(nativeNameSpace, name).get(ns, text);
        return text;
    });
}

const oa::oaNameSpace* getFileSystemNameSpace(oa::oaLib& lib, const oa::oaNameSpace* fallback) {
    return atBoundary([&] {
        initOa();
        const ScopedLibAccess access(lib, oa::oacReadLibAccess, 0);
        if (!access) {
            return fallback;
        }
        oa::oaDMAttrArray attributes;
        lib.getAttributes(attributes);
        for (oa::oaUInt4 i = 0; i < attributes.getNumElements(); ++i) {
            if (attributes[i].getName() != "origFileSystem") {
                continue;
            }
            if (const oa::oaNameSpace* found = nameSpaceOf(attributes[i].getValue())) {
                return found;
            }
        }
        return fallback;
    });
}

NetNameNamespaceWithUTF8::~NetNameNamespaceWithUTF8() = default;

// A decoded byte is treated like one that was written as it stands, so both spellings give one
// internal form. "#" is a code itself where the bytes behind it would make it the start of one.
void NetNameNamespaceWithUTF8::getInternalMember(const char* in, oa::oaString& out, int& flag,
                                                 unsigned int length, unsigned int) const {
    initOa();
    if (in == nullptr || *in == '\0' || length == 0) {
        throw oa::oaError(noTextToMap);
    }
    const std::string text(in, lengthWithin(in, length));
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += isCode(text, i) ? 3 : 1) {
        bytes += isCode(text, i) ? static_cast<char>(decodeChar(&text[i + 1])) : text[i];
    }
    out = "";
    oa::oaUInt4 end = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (isKept(bytes[i]) && !isCode(bytes, i)) {
            writeChar(bytes[i], out, end);
        } else {
            encodeChar(static_cast<oa::oaByte>(bytes[i]), out, end);
        }
    }
    flag = 1;
}

void NetNameNamespaceWithUTF8::getMember(const char* in, int, oa::oaString& out,
                                         unsigned int& length, unsigned int) const {
    for (; *in != '\0'; ++in) {
        if (isKept(*in)) {
            writeChar(*in, out, length);
        } else {
            encodeChar(static_cast<oa::oaByte>(*in), out, length);
        }
    }
}

} // namespace ovalis

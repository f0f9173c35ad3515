#include "pcell/submaster_identity.h"

#include "core/param_encoding.h"
#include "pcell/canonical_params.h"
#include "pcell/sha256.h"

namespace ovalis {

namespace {

void appendNames(ByteBuffer& bytes, const oa::oaDesign& design) {
    static const oa::oaNativeNS native;
    oa::oaString name;
    design.getLibName(native, name);
    encodeText(bytes, name);
    design.getCellName(native, name);
    encodeText(bytes, name);
    design.getViewName(native, name);
    encodeText(bytes, name);
}

std::string hexadecimal(const Sha256Digest& digest) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text(2 * digest.size(), '\0');
    char* place = text.data();
    for (const unsigned char byte : digest) {
        *place++ = digits[byte >> 4];
        *place++ = digits[byte & 15];
    }
    return text;
}

std::string digestOf(const ByteBuffer& bytes) {
    Sha256 hash;
    hash.add(bytes.view());
    return hexadecimal(hash.finish());
}

} // namespace

oa::oaParamArray identityParams(const oa::oaDesign& design) {
    oa::oaParamArray params;
    if (design.isSubMaster() || design.isSuperMaster()) {
        design.getParams(params, true);
    }
    return params;
}

void appendIdentity(ByteBuffer& bytes, const oa::oaDesign& design) {
    appendNames(bytes, design);
    const oa::oaParamArray params = identityParams(design);
    CanonicalParams(params).appendTo(bytes);
}

SubmasterIdentity submasterIdentity(const oa::oaString& libName, const oa::oaString& cellName,
                                    const oa::oaString& viewName, const oa::oaParamArray& params) {
    ByteBuffer bytes;
    encodeText(bytes, libName);
    encodeText(bytes, cellName);
    encodeText(bytes, viewName);
    CanonicalParams(params).appendTo(bytes);
    return {std::string(bytes.view()), digestOf(bytes)};
}

std::string submasterIdHash(const oa::oaDesign& design) {
    ByteBuffer bytes;
    appendIdentity(bytes, design);
    return digestOf(bytes);
}

} // namespace ovalis

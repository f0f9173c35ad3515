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

/// The eight hexadecimal digits of a word, as a number that has the first of them in its lowest
/// byte.
std::uint64_t digitsOf(std::uint32_t word) {
    constexpr std::uint64_t ones = 0x0101010101010101;
    std::uint64_t nibbles = word; // each goes to a byte of its own, in reverse
    nibbles = (nibbles & 0xFFFF) << 32 | nibbles >> 16;
    nibbles = (nibbles & 0x000000FF000000FF) << 16 | (nibbles & 0x0000FF000000FF00) >> 8;
    nibbles = (nibbles & 0x000F000F000F000F) << 8 | (nibbles & 0x00F000F000F000F0) >> 4;
    const std::uint64_t letters = (nibbles + 6 * ones) >> 4 & ones;
    return nibbles + '0' * ones + letters * ('a' - '0' - 10);
}

std::string hexadecimal(const Sha256Digest& digest) {
    ByteBuffer text;
    for (std::size_t i = 0; i < digest.size(); i += 4) {
        const std::uint32_t word = std::uint32_t{digest[i]} << 24 |
                                   std::uint32_t{digest[i + 1]} << 16 |
                                   std::uint32_t{digest[i + 2]} << 8 | digest[i + 3];
        encodeNumber(text, digitsOf(word));
    }
    return std::string(text.view());
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

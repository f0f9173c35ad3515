#include "design/src/vector_insts.h"

#include "base/src/indexed_name.h"
#include "design/src/design_database.h"
#include "oa/oaDesignException.h"

#include <algorithm>

namespace OpenAccess_4::impl {

std::uint32_t InstRange::bits() const {
    return std::max(start, stop) - std::min(start, stop) + 1; // 0 for all of the 32 bits
}

bool InstRange::contains(std::uint32_t index) const {
    return index >= std::min(start, stop) && index <= std::max(start, stop);
}

std::string InstRange::bitName(std::uint32_t bit) const {
    return impl::bitName(base, index(bit));
}

InstRange rangeOf(std::string_view name) {
    const auto indices = readIndices(name, kNativeIndexMarks);
    if (!indices || indices->step != 1)
        return {};
    return {indices->base, indices->start, indices->stop, indices->isRange};
}

std::string rangeName(std::string_view base, std::uint32_t start, std::uint32_t stop) {
    return std::string(base) + spellIndices({{}, start, stop, 1, true}, kNativeIndexMarks);
}

std::string bitName(std::string_view base, std::uint32_t index) {
    return std::string(base) + spellIndices({{}, index}, kNativeIndexMarks);
}

void requireFreeBits(DesignDatabase& database, std::string_view name,
                     std::vector<std::uint32_t> own) {
    std::sort(own.begin(), own.end());
    const InstRange range = rangeOf(name);
    if (range.bits() == 0 || range.bits() > kMostInstBits)
        throw oaDesignError(oacInvalidInstName, std::string(name).c_str(),
                            "it has more than 65536 bits");
    for (std::uint32_t bit = 0; bit < range.bits(); ++bit) {
        const std::string bitName = range.bitName(bit);
        const std::uint32_t holder = database.instances.names.find(bitName);
        if (holder != kNone && !std::binary_search(own.begin(), own.end(), holder))
            throw oaDesignError(oacInstNameExists, bitName.c_str());
    }
}

const std::vector<std::uint32_t>& Instances::vectors() {
    for (; searched_ < insts.slots(); ++searched_)
        if (insts.isLive(searched_) && insts[searched_].isVector())
            vectors_.push_back(searched_);
    std::erase_if(vectors_, [&](std::uint32_t slot) { return !insts.isLive(slot); });
    return vectors_;
}

std::vector<std::uint32_t> Instances::bitsOf(std::uint32_t vector) {
    const InstRange range = rangeOf(database_.strings.text(insts[vector].name));
    std::vector<std::uint32_t> bits;
    bits.reserve(range.bits());
    for (std::uint32_t bit = 0; bit < range.bits(); ++bit)
        bits.push_back(names.find(range.bitName(bit)));
    return bits;
}

void Instances::addBits(std::uint32_t vector) {
    const std::string name(database_.strings.text(insts[vector].name));
    const InstRange range = rangeOf(name);
    for (std::uint32_t bit = 0; bit < range.bits(); ++bit) {
        const std::string bitName = range.bitName(bit);
        if (names.find(bitName) != kNone)
            continue; // one that the vector had already
        InstRecord record;
        record.kind = InstKind::ImplicitBit;
        record.name = database_.strings.intern(bitName);
        record.master = insts[vector].master;
        record.rows = vector;
        insts.add(record);
    }
}

void Instances::rename(std::uint32_t slot, std::string_view name) {
    const auto give = [&](std::uint32_t inst, std::string_view text) {
        names.remove(inst);
        insts[inst].name = database_.strings.intern(text);
        names.insert(inst);
    };
    if (!insts[slot].isVector())
        return give(slot, name);
    const std::vector<std::uint32_t> former = bitsOf(slot);
    const InstRange range = rangeOf(name);
    const bool sameBase = rangeOf(database_.strings.text(insts[slot].name)).base == range.base;
    give(slot, name);
    for (std::size_t bit = 0; bit < former.size(); ++bit) {
        const std::uint32_t index = rangeOf(database_.strings.text(insts[former[bit]].name)).start;
        if (sameBase && range.contains(index))
            continue;
        if (range.contains(index))
            give(former[bit], bitName(range.base, index));
        else
            database_.destroyFig({kInstTable, former[bit]});
    }
    addBits(slot);
}

void Instances::collect(std::uint32_t slot, std::uint32_t filterFlags,
                        std::vector<oaObject*>& shown) {
    const bool isVector = insts[slot].isVector();
    if (!isVector || !(filterFlags & oacInstIterSingleBit))
        shown.push_back(insts.handle(slot));
    if (isVector && !(filterFlags & oacInstIterNotImplicit))
        for (const std::uint32_t bit : bitsOf(slot))
            shown.push_back(insts.handle(bit));
}

bool Instances::areVectorsSound() {
    std::uint64_t expected = 0;
    for (const std::uint32_t vector : vectors()) {
        const InstRange range = rangeOf(database_.strings.text(insts[vector].name));
        if (range.base.empty() || !range.isVector || range.bits() == 0 ||
            range.bits() > kMostInstBits)
            return false;
        expected += range.bits();
    }
    // Bits have different names, so that a vector has all of them when it has as many.
    std::uint64_t found = 0;
    bool sound = true;
    insts.forEach([&](std::uint32_t, const InstRecord& inst) {
        if (inst.kind != InstKind::VectorBit && !inst.isImplicit())
            return;
        const InstRange bit = rangeOf(database_.strings.text(inst.name));
        sound = sound && !bit.base.empty() && !bit.isVector;
        if (!sound || !inst.isImplicit())
            return;
        const InstRecord& vector = insts[inst.vector()];
        const InstRange range = rangeOf(database_.strings.text(vector.name));
        sound = vector.isVector() && range.base == bit.base && range.contains(bit.start);
        ++found;
    });
    return sound && found == expected;
}

} // namespace OpenAccess_4::impl

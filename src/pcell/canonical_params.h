#pragma once

#include <array>
#include <cstdint>
#include <memory_resource>
#include <streambuf>
#include <vector>

#include <oa/oaDesignDB.h>

#include "pcell/byte_buffer.h"

namespace ovalis {

/// A parameter array in the form that is the same however its parameters are ordered: sorted by the
/// bytes of their names, of several with one name only the last.
class CanonicalParams {
public:
    /// Keeps a reference to `params`.
    /// @throws std::runtime_error  a parameter has a type without encoding
    explicit CanonicalParams(const oa::oaParamArray& params);

    /// Which elements of the array are written, in this order.
    std::vector<oa::oaUInt4> order() const;

    /// Writes the number of elements of the array, then each parameter that counts: its name, its
    /// type and its value.
    void appendTo(ByteBuffer& bytes) const;
    /// @throws std::ios_base::failure  the stream does not take a byte
    void writeTo(std::streambuf& stream) const;

private:
    /// The encoded form of one element.
    struct Entry {
        std::uint64_t nameStart; // of the name's first bytes, a number that sorts like them
        std::uint32_t begin;
        std::uint32_t size;
        oa::oaUInt4 element;
    };

    void encode();
    void encode(oa::oaUInt4 element, const oa::oaString& name);
    void sort();
    const char* nameOf(const Entry& entry) const { return encoded_.data() + entry.begin; }
    int compareNames(const Entry& left, const Entry& right) const;

    const oa::oaParamArray& params_;
    ByteBuffer encoded_; // in the order of the array
    // As many entries as are usual need no heap.
    std::array<std::byte, 32 * sizeof(Entry)> room_;
    std::pmr::monotonic_buffer_resource memory_{room_.data(), room_.size()};
    std::pmr::vector<Entry> entries_{&memory_};
};

/// Writes a parameter array as the identity of a submaster has it.
/// @throws std::ios_base::failure  the stream does not take a byte
/// @throws std::runtime_error      a parameter has a type without encoding
void serialize_oa_param_array(std::streambuf& stream, const oa::oaParamArray& params);

/// Fails for a parameter type without encoding.
[[noreturn]] void failForParamType(oa::oaUInt4 type);

} // namespace ovalis

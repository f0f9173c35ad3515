#include "pcell/canonical_params.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>

#include "core/param_encoding.h"
#include "core/stream_failure.h"

namespace ovalis {

namespace {

/// Writes to a stream and says which way of writing fails.
class StreamSink {
public:
    explicit StreamSink(std::streambuf& stream) : stream_(stream) {}

    void byte(unsigned char value) {
        if (stream_.sputc(static_cast<char>(value)) == std::streambuf::traits_type::eof()) {
            throw StreamFailure("std::streambuf::sputc in vexPcellCache::serialize_oa_param_array");
        }
    }

    void bytes(const void* data, std::size_t size) {
        const auto count = static_cast<std::streamsize>(size);
        if (stream_.sputn(static_cast<const char*>(data), count) != count) {
            throw StreamFailure("std::streambuf::sputn in vexPcellCache::serialize_oa_param_array");
        }
    }

private:
    std::streambuf& stream_;
};

template <ByteSink Sink>
void encodeParam(Sink& sink, const oa::oaString& name, const oa::oaParam& param) {
    const oa::oaUInt4 type = param.getType();
    encodeText(sink, name);
    sink.byte(static_cast<unsigned char>(type));
    if (!encodeParamValue(sink, type, param)) {
        failForParamType(type);
    }
}

/// Eight bytes can be read from each place in a buffer that ends in so many more.
constexpr char readable[sizeof(std::uint64_t)] = {};

/// The first bytes of a name as a number that sorts like them, zeros from the end of the name on.
std::uint64_t startOf(const char* name) {
    constexpr std::uint64_t ones = 0x0101010101010101;
    std::uint64_t word;
    std::memcpy(&word, name, sizeof(word));
    if constexpr (std::endian::native == std::endian::big) {
        word = __builtin_bswap64(word);
    }
    // The lowest bit that is set here is the highest of the first byte that is zero.
    const std::uint64_t zeros = (word - ones) & ~word & (ones << 7);
    const std::uint64_t before = (zeros & -zeros) - 1;
    return __builtin_bswap64(word & before);
}

} // namespace

void failForParamType(oa::oaUInt4 type) {
    throw std::runtime_error("serialize_oa_param_array: unsupported parameter type " +
                             std::to_string(type));
}

CanonicalParams::CanonicalParams(const oa::oaParamArray& params) : params_(params) {
    encode();
    sort();
}

void CanonicalParams::encode() {
    const oa::oaUInt4 count = params_.getNumElements();
    entries_.reserve(count);
    // A copy of a name that was made just now is slow to read, so each is made some turns ahead.
    constexpr oa::oaUInt4 ahead = 3;
    oa::oaString names[ahead + 1];
    for (oa::oaUInt4 i = 0; i < count + ahead; ++i) {
        if (i < count) {
            params_[i].getName(names[i % std::size(names)]);
        }
        if (i >= ahead) {
            encode(i - ahead, names[(i - ahead) % std::size(names)]);
        }
    }
    encoded_.bytes(readable, sizeof(readable));
    for (Entry& entry : entries_) {
        entry.nameStart = startOf(nameOf(entry));
    }
}

void CanonicalParams::encode(oa::oaUInt4 element, const oa::oaString& name) {
    const std::size_t begin = encoded_.size();
    encodeParam(encoded_, name, params_[element]);
    const std::size_t size = encoded_.size() - begin;
    entries_.push_back(
        {0, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(size), element});
}

int CanonicalParams::compareNames(const Entry& left, const Entry& right) const {
    if (left.nameStart != right.nameStart) {
        return left.nameStart < right.nameStart ? -1 : 1;
    }
    return std::strcmp(nameOf(left), nameOf(right));
}

void CanonicalParams::sort() {
    const auto comesBefore = [this](const Entry& left, const Entry& right) {
        const int order = compareNames(left, right);
        return order != 0 ? order < 0 : left.element > right.element;
    };
    const auto haveOneName = [this](const Entry& left, const Entry& right) {
        return compareNames(left, right) == 0;
    };
    // The later of one name comes first, and that is the one that stays.
    std::sort(entries_.begin(), entries_.end(), comesBefore);
    entries_.erase(std::unique(entries_.begin(), entries_.end(), haveOneName), entries_.end());
}

std::vector<oa::oaUInt4> CanonicalParams::order() const {
    std::vector<oa::oaUInt4> elements;
    for (const Entry& entry : entries_) {
        elements.push_back(entry.element);
    }
    return elements;
}

void CanonicalParams::appendTo(ByteBuffer& bytes) const {
    encodeNumber(bytes, params_.getNumElements());
    for (const Entry& entry : entries_) {
        bytes.bytes(encoded_.data() + entry.begin, entry.size);
    }
}

void CanonicalParams::writeTo(std::streambuf& stream) const {
    StreamSink sink(stream);
    encodeNumber(sink, params_.getNumElements());
    oa::oaString name;
    for (const Entry& entry : entries_) {
        params_[entry.element].getName(name);
        encodeParam(sink, name, params_[entry.element]);
    }
}

void serialize_oa_param_array(std::streambuf& stream, const oa::oaParamArray& params) {
    CanonicalParams(params).writeTo(stream);
}

} // namespace ovalis

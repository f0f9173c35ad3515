#include "base/src/hash.h"

#include <xxhash.h>

namespace OpenAccess_4::impl {

std::uint64_t hashBytes(const void* data, std::size_t size) {
    return XXH3_64bits(data, size);
}

struct StreamHash::State {
    XXH3_state_t xxh;
};

StreamHash::StreamHash() : state_(std::make_unique<State>()) {
    XXH3_64bits_reset(&state_->xxh);
}

StreamHash::~StreamHash() = default;

void StreamHash::add(std::span<const std::byte> bytes) {
    XXH3_64bits_update(&state_->xxh, bytes.data(), bytes.size());
}

std::uint64_t StreamHash::digest() const {
    return XXH3_64bits_digest(&state_->xxh);
}

} // namespace OpenAccess_4::impl

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace OpenAccess_4::impl {

/// XXH3, 64 bits. Database files store it as the checksum of their sections.
std::uint64_t hashBytes(const void* data, std::size_t size);

/// The same over bytes that come piece by piece.
class StreamHash {
public:
    StreamHash();
    ~StreamHash();

    void add(std::span<const std::byte> bytes);
    std::uint64_t digest() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace OpenAccess_4::impl

#pragma once

#include <cstddef>

namespace platform {

/// The size of the large pages that `allocatePages` aims at.
inline constexpr std::size_t largePageSize = std::size_t{2} << 20;

/// Takes zeroed memory straight from the system; it is not counted until it is touched. On posix it
/// starts at a multiple of `largePageSize` and asks for large pages, on Windows it starts at a
/// multiple of 64 KiB.
/// @throws std::bad_alloc  the system has no more.
void* allocatePages(std::size_t bytes);

/// Gives back what `allocatePages` answered for the same number of bytes; null is allowed.
void freePages(void* memory, std::size_t bytes) noexcept;

} // namespace platform

#pragma once

#include <cstdint>
#include <filesystem>

namespace ovalis::test {

/// Makes a file of `size` bytes that were never written and so need no room on the disk: what a
/// test asks about the size of large files does not depend on how much is free.
void makeSparseFile(const std::filesystem::path& path, std::uint64_t size);

} // namespace ovalis::test

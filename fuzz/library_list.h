#pragma once

#include <cstddef>
#include <span>

namespace fuzz {

/// Tries an input as two library definition files, as `tryLibraryDefinitions` does, with what the
/// exported library makes of them: the first is loaded and flattened, twice with the same result.
/// Every pair must be a definition of one of the two, the working directory the one from before.
/// Answers whether there was nothing to tell.
bool tryLibraryList(std::span<const std::byte> input);

} // namespace fuzz

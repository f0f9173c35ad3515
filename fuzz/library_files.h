#pragma once

#include <cstddef>
#include <span>

/// The small files of a library. Each function puts the input in the place of one of them in a
/// library of its own and opens that; it answers whether the input was accepted, and ends the
/// process when something is not as it must be.
namespace fuzz {

/// ".oalib". The attributes of an accepted one are set again, and must then be the same on disk.
bool tryLibraryMarker(std::span<const std::byte> input);

/// "master.tag". The primary file of an accepted one is a file of the cell view, and another cell
/// view of its view type has that view type after it was written.
bool tryMasterTag(std::span<const std::byte> input);

/// "data.dm", as it is, with its checksums put right, and with its sections put right. What is
/// accepted is visited, saved, and must then be the same; also after every second property and
/// group was destroyed.
bool tryLibraryData(std::span<const std::byte> input);

} // namespace fuzz

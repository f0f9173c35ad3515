#pragma once

#include <array>
#include <cstdint>
#include <type_traits>

/// The bytes of a database file: a header, a section table, the sections. All numbers are
/// little-endian; every section starts at a multiple of 16 bytes, with zeros before it.
namespace OpenAccess_4::impl {

/// The first bytes of every database file. A high byte and both kinds of line ends show at once
/// when a transfer has treated the file as text.
inline constexpr std::array<unsigned char, 8> kMagic = {0x89, 'O',  'V',  'D',
                                                        '\r', '\n', 0x1A, '\n'};
inline constexpr std::uint32_t kFormatVersion = 1;
inline constexpr std::uint64_t kSectionAlignment = 16;

struct FileHeader {
    std::array<unsigned char, 8> magic = kMagic;
    std::uint32_t version = kFormatVersion;
    std::uint32_t kind = 0; // DatabaseFileKind
    std::uint64_t fileSize = 0;
    std::uint32_t sectionCount = 0;
    std::uint32_t reserved = 0;
    std::uint64_t tableChecksum = 0;  // of the section table
    std::uint64_t headerChecksum = 0; // of the header before this field
};
static_assert(sizeof(FileHeader) == 48 && std::is_trivially_copyable_v<FileHeader>);

struct SectionEntry {
    std::uint32_t kind = 0;      // a table's kind, or one of the kinds below
    std::uint32_t number = 0;    // a table's number
    std::uint32_t parameter = 0; // a table's parameter
    std::uint32_t recordSize = 0;
    std::uint64_t count = 0; // records
    std::uint64_t offset = 0;
    std::uint64_t bytes = 0; // recordSize * count
    std::uint64_t checksum = 0;
};
static_assert(sizeof(SectionEntry) == 48 && std::is_trivially_copyable_v<SectionEntry>);

// Sections that are no tables.
inline constexpr std::uint32_t kStringsSection = 0x1001; // the texts, each with a NUL behind it
inline constexpr std::uint32_t kStringStartsSection = 0x1002; // where each starts, and the end
inline constexpr std::uint32_t kPointsSection = 0x1003;       // coordinate pairs

inline constexpr std::uint64_t alignSection(std::uint64_t offset) {
    return (offset + kSectionAlignment - 1) / kSectionAlignment * kSectionAlignment;
}

} // namespace OpenAccess_4::impl

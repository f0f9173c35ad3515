#include "reseal.h"

#include "base/src/hash.h"
#include "storage/src/format.h"

#include <algorithm>
#include <cstring>

namespace fuzz {

using namespace OpenAccess_4::impl;

namespace {

FileHeader headerOf(std::span<const std::byte> bytes) {
    FileHeader header;
    std::memcpy(&header, bytes.data(), sizeof(header));
    return header;
}

/// The section table, as far as it lies in the file.
std::vector<SectionEntry> sectionsOf(std::span<const std::byte> bytes, const FileHeader& header) {
    const std::size_t room = (bytes.size() - sizeof(FileHeader)) / sizeof(SectionEntry);
    std::vector<SectionEntry> sections(std::min<std::size_t>(header.sectionCount, room));
    if (!sections.empty())
        std::memcpy(sections.data(), bytes.data() + sizeof(FileHeader),
                    sections.size() * sizeof(SectionEntry));
    return sections;
}

/// Puts checksums, size and what every file begins with into `header` and `sections`, and both
/// over the beginning of `bytes`.
void seal(Bytes& bytes, FileHeader header, std::vector<SectionEntry> sections) {
    for (SectionEntry& section : sections)
        if (section.offset <= bytes.size() && section.bytes <= bytes.size() - section.offset)
            section.checksum = hashBytes(bytes.data() + section.offset, std::size_t(section.bytes));
    const std::size_t tableBytes = sections.size() * sizeof(SectionEntry);
    header.magic = kMagic;
    header.version = kFormatVersion;
    header.fileSize = bytes.size();
    header.sectionCount = std::uint32_t(sections.size());
    header.reserved = 0;
    header.tableChecksum = hashBytes(sections.data(), tableBytes);
    header.headerChecksum = hashBytes(&header, offsetof(FileHeader, headerChecksum));
    std::memcpy(bytes.data(), &header, sizeof(header));
    if (tableBytes > 0)
        std::memcpy(bytes.data() + sizeof(header), sections.data(), tableBytes);
}

} // namespace

Bytes withChecksums(std::span<const std::byte> input) {
    if (input.size() < sizeof(FileHeader))
        return {};
    const FileHeader header = headerOf(input);
    Bytes bytes(input.begin(), input.end());
    seal(bytes, header, sectionsOf(input, header));
    return bytes;
}

Bytes laidOut(std::span<const std::byte> input) {
    if (input.size() < sizeof(FileHeader))
        return {};
    const FileHeader header = headerOf(input);
    std::vector<SectionEntry> sections = sectionsOf(input, header);
    Bytes bytes(sizeof(FileHeader) + sections.size() * sizeof(SectionEntry));
    for (SectionEntry& section : sections) {
        section.recordSize = std::max(section.recordSize, 1u);
        const std::uint64_t from = std::min<std::uint64_t>(section.offset, input.size());
        const std::uint64_t room = (input.size() - from) / section.recordSize;
        section.count = std::min(section.count, room);
        section.bytes = section.count * section.recordSize;
        section.offset = alignSection(bytes.size());
        bytes.resize(std::size_t(section.offset));
        const auto content = input.subspan(std::size_t(from), std::size_t(section.bytes));
        bytes.insert(bytes.end(), content.begin(), content.end());
    }
    seal(bytes, header, std::move(sections));
    return bytes;
}

} // namespace fuzz

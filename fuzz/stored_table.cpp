#include "stored_table.h"

#include "storage/src/format.h"

#include <algorithm>
#include <span>
#include <stdexcept>
#include <vector>

namespace fuzz {

using OpenAccess_4::impl::FileHeader;
using OpenAccess_4::impl::SectionEntry;

StoredTable::StoredTable(const std::string& file, std::uint32_t number) {
    const std::span<const std::byte> bytes = std::as_bytes(std::span(file));
    file_.assign(bytes.begin(), bytes.end());
    FileHeader header;
    std::memcpy(&header, file_.data(), sizeof(header));
    std::vector<SectionEntry> sections(header.sectionCount);
    std::memcpy(sections.data(), file_.data() + sizeof(header),
                sections.size() * sizeof(SectionEntry));
    const auto found = std::ranges::find(sections, number, &SectionEntry::number);
    if (found == sections.end())
        throw std::runtime_error("the file has no table " + std::to_string(number));
    start_ = std::size_t(found->offset);
    records_ = std::size_t(found->count);
    recordSize_ = found->recordSize;
}

std::uint32_t StoredTable::word(std::size_t record, std::size_t offset) const {
    std::uint32_t word = 0;
    std::memcpy(&word, file_.data() + placeOf(record, offset, sizeof(word)), sizeof(word));
    return word;
}

Bytes StoredTable::withWord(std::size_t record, std::size_t offset, std::uint32_t word) const {
    Bytes bytes = file_;
    std::memcpy(bytes.data() + placeOf(record, offset, sizeof(word)), &word, sizeof(word));
    return withChecksums(bytes);
}

std::size_t StoredTable::placeOf(std::size_t record, std::size_t offset, std::size_t size) const {
    if (record >= records_ || offset + size > recordSize_)
        throw std::runtime_error("a table has no such place");
    return start_ + record * recordSize_ + offset;
}

} // namespace fuzz

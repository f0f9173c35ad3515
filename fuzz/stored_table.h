#pragma once

#include "reseal.h"

#include <cstdint>
#include <cstring>
#include <string>

namespace fuzz {

/// One table of a whole database file, and files that differ from it in one record.
class StoredTable {
public:
    /// @throws std::runtime_error  the file has no such table
    StoredTable(const std::string& file, std::uint32_t number);

    std::size_t records() const { return records_; }
    std::size_t recordSize() const { return recordSize_; }

    /// The four bytes at a place of a record.
    std::uint32_t word(std::size_t record, std::size_t offset) const;
    /// The file with other bytes there and the checksums that they call for.
    Bytes withWord(std::size_t record, std::size_t offset, std::uint32_t word) const;

    template <class Record>
    Record record(std::size_t record) const {
        Record value;
        std::memcpy(&value, file_.data() + placeOf(record, 0, sizeof(value)), sizeof(value));
        return value;
    }
    /// The file with another record, and the checksums that it calls for.
    template <class Record>
    Bytes with(std::size_t record, const Record& value) const {
        Bytes bytes = file_;
        std::memcpy(bytes.data() + placeOf(record, 0, sizeof(value)), &value, sizeof(value));
        return withChecksums(bytes);
    }

private:
    /// @throws std::runtime_error  there are no such bytes
    std::size_t placeOf(std::size_t record, std::size_t offset, std::size_t size) const;

    Bytes file_;
    std::size_t start_ = 0;
    std::size_t records_ = 0;
    std::size_t recordSize_ = 0;
};

} // namespace fuzz

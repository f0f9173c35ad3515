#pragma once

#include "base/src/refs.h"

#include <string_view>
#include <vector>

namespace OpenAccess_4::impl {

/// The texts of one database, each kept once. A text may hold any bytes, NUL included.
class StringPool {
public:
    StringPool();

    /// Takes over the two arrays of a database file, whose form the caller has verified.
    StringPool(std::vector<char> bytes, std::vector<std::uint32_t> starts);

    /// False when a text stands twice in what came from a file.
    bool isSound() const;

    /// The number of `text`, which is added when it is new.
    /// @throws oaError  oacStringPoolFull: the pool would pass 4 GiB.
    StringId intern(std::string_view text);

    /// The number of `text`, or kNone when the database does not hold it.
    StringId find(std::string_view text) const;

    std::string_view text(StringId id) const {
        return {bytes_.data() + starts_[id], starts_[id + 1] - starts_[id] - 1};
    }
    /// The text as a C string: it ends at its first NUL.
    const char* chars(StringId id) const { return bytes_.data() + starts_[id]; }
    std::uint32_t count() const { return std::uint32_t(starts_.size() - 1); }

    // As a database file holds them: the texts with a NUL behind each, and where each starts;
    // the last start is the end of the bytes.
    const std::vector<char>& bytes() const { return bytes_; }
    const std::vector<std::uint32_t>& starts() const { return starts_; }

private:
    std::size_t position(std::string_view text, std::uint32_t hash) const;
    void index() const;
    void growIndex() const;

    std::vector<char> bytes_;
    std::vector<std::uint32_t> starts_;
    // Open addressing over text numbers, built at the first look-up.
    mutable std::vector<std::uint32_t> hashes_;
    mutable std::vector<StringId> index_;
};

} // namespace OpenAccess_4::impl

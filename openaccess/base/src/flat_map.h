#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace OpenAccess_4::impl {

/// Map from 64-bit keys to small values in one block of memory, with linear probing.
/// The key of all ones is reserved. References stay valid until the next insertion or removal.
template <class Value>
class FlatMap {
public:
    /// The value of `key`, made by its default constructor when the key is new.
    Value& operator[](std::uint64_t key) {
        if ((size_ + 1) * 4 > entries_.size() * 3)
            grow();
        Entry& entry = entries_[position(key)];
        if (entry.key == kFree) {
            entry.key = key;
            ++size_;
        }
        return entry.value;
    }

    /// The value of `key`, or null.
    Value* find(std::uint64_t key) {
        if (entries_.empty())
            return nullptr;
        Entry& entry = entries_[position(key)];
        return entry.key == kFree ? nullptr : &entry.value;
    }
    const Value* find(std::uint64_t key) const { return const_cast<FlatMap*>(this)->find(key); }

    void erase(std::uint64_t key) {
        if (entries_.empty())
            return;
        std::size_t hole = position(key);
        if (entries_[hole].key == kFree)
            return;
        --size_;
        // Later entries of the same run move back, so that no probe meets a gap.
        for (std::size_t at = next(hole); entries_[at].key != kFree; at = next(at)) {
            const std::size_t home = slotOf(entries_[at].key);
            const bool reachable =
                hole <= at ? (home <= hole || home > at) : (home <= hole && home > at);
            if (reachable) {
                entries_[hole] = entries_[at];
                hole = at;
            }
        }
        entries_[hole] = Entry{};
    }

    void clear() {
        entries_.clear();
        size_ = 0;
    }
    std::size_t size() const { return size_; }

private:
    static constexpr std::uint64_t kFree = ~std::uint64_t(0);

    struct Entry {
        std::uint64_t key = kFree;
        Value value{};
    };

    std::size_t slotOf(std::uint64_t key) const {
        // Fibonacci hashing: neighbouring keys, as slots are, spread over the whole table.
        return std::size_t((key ^ (key >> 32)) * 0x9E3779B97F4A7C15ull >> shift_);
    }
    std::size_t next(std::size_t at) const { return (at + 1) & (entries_.size() - 1); }
    std::size_t position(std::uint64_t key) const {
        std::size_t at = slotOf(key);
        while (entries_[at].key != kFree && entries_[at].key != key)
            at = next(at);
        return at;
    }
    void grow() {
        std::vector<Entry> old = std::move(entries_);
        entries_ = std::vector<Entry>(old.empty() ? 16 : old.size() * 2);
        shift_ = 64 - std::countr_zero(entries_.size());
        for (const Entry& entry : old)
            if (entry.key != kFree)
                entries_[position(entry.key)] = entry;
    }

    std::vector<Entry> entries_;
    std::size_t size_ = 0;
    int shift_ = 0;
};

} // namespace OpenAccess_4::impl

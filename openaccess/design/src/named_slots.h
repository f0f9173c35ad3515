#pragma once

#include "base/src/database.h"
#include "base/src/flat_map.h"

#include <string>
#include <string_view>

namespace OpenAccess_4::impl {

/// A slot in a FlatMap, whose values start as "none".
struct SlotEntry {
    std::uint32_t slot = kNone;
};

/// Finds the records of one table by a key that differs from record to record. Derived from the
/// records, never stored. `Key` answers the key of a record, or the map's reserved key for records
/// that have none.
template <class Record, class Key>
class KeyedSlots {
public:
    explicit KeyedSlots(Table<Record>& table) : table_(table) {}

    std::uint32_t find(std::uint64_t key) {
        catchUp();
        const SlotEntry* entry = map_.find(key);
        return entry ? entry->slot : kNone;
    }
    /// To be called before the key of a record changes or the record is destroyed.
    void remove(std::uint32_t slot) {
        catchUp();
        const std::uint64_t key = Key()(table_[slot]);
        if (key != kUnkeyed)
            map_.erase(key);
    }
    /// To be called after the key of a record has changed.
    void insert(std::uint32_t slot) {
        const std::uint64_t key = Key()(table_[slot]);
        if (key != kUnkeyed)
            map_[key] = {slot};
    }
    /// True when no two records share a key; to be asked before any is destroyed.
    bool isSound() {
        catchUp();
        return map_.size() == keyed_;
    }

    static constexpr std::uint64_t kUnkeyed = ~std::uint64_t(0);

private:
    void catchUp() {
        for (; indexed_ < table_.slots(); ++indexed_) {
            if (!table_.isLive(indexed_))
                continue;
            insert(indexed_);
            keyed_ += Key()(table_[indexed_]) != kUnkeyed;
        }
    }

    Table<Record>& table_;
    FlatMap<SlotEntry> map_;
    std::uint32_t indexed_ = 0; // slots that the map knows
    std::size_t keyed_ = 0;
};

template <class Record>
struct NameKey {
    std::uint64_t operator()(const Record& record) const { return record.name; }
};

/// Finds the records of one table by their names, and makes names up.
template <class Record>
class NamedSlots : public KeyedSlots<Record, NameKey<Record>> {
public:
    NamedSlots(Database& database, Table<Record>& table)
        : KeyedSlots<Record, NameKey<Record>>(table), database_(database) {}

    std::uint32_t find(std::string_view name) {
        const StringId id = database_.strings.find(name);
        return id == kNone ? kNone : KeyedSlots<Record, NameKey<Record>>::find(id);
    }

    /// The first unused name of `prefix` with a number behind it.
    std::string automaticName(std::string_view prefix) {
        std::string name;
        do
            name = std::string(prefix) + std::to_string(nextNumber_++);
        while (find(name) != kNone);
        return name;
    }

private:
    Database& database_;
    std::uint32_t nextNumber_ = 0;
};

} // namespace OpenAccess_4::impl

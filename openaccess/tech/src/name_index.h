#pragma once

#include "base/src/database.h"
#include "base/src/flat_map.h"

#include <string_view>

namespace OpenAccess_4::impl {

/// Finds the records of one table by name, and by number where they have one; both differ from
/// record to record.
/// Derived from the records, never stored.
template <class Record>
class NameIndex {
public:
    NameIndex(Database& database, Table<Record>& table) : database_(database), table_(table) {}

    std::uint32_t find(std::string_view name) {
        const StringId id = database_.strings.find(name);
        return id == kNone ? kNone : slotIn(byName_, id);
    }
    std::uint32_t find(std::uint32_t number) { return slotIn(byNumber_, number); }

    void rename(std::uint32_t slot, std::string_view name) {
        catchUp();
        byName_.erase(table_[slot].name);
        table_[slot].name = database_.strings.intern(name);
        byName_[table_[slot].name] = {slot};
        database_.noteGarbage();
    }
    void renumber(std::uint32_t slot, std::uint32_t number) {
        catchUp();
        byNumber_.erase(table_[slot].number);
        table_[slot].number = number;
        byNumber_[number] = {slot};
    }
    void remove(std::uint32_t slot) {
        catchUp();
        byName_.erase(table_[slot].name);
        if constexpr (kHasNumbers)
            byNumber_.erase(table_[slot].number);
    }

    /// True when no two of the records, of which none is destroyed, share a name or a number.
    bool isSound() {
        catchUp();
        return byName_.size() == table_.live() &&
               (!kHasNumbers || byNumber_.size() == table_.live());
    }

private:
    static constexpr bool kHasNumbers = requires(Record record) { record.number; };

    struct Slot {
        std::uint32_t number = kNone;
    };

    std::uint32_t slotIn(FlatMap<Slot>& map, std::uint64_t key) {
        catchUp();
        const Slot* slot = map.find(key);
        return slot ? slot->number : kNone;
    }
    void catchUp() {
        for (; indexed_ < table_.slots(); ++indexed_) {
            byName_[table_[indexed_].name] = {indexed_};
            if constexpr (kHasNumbers)
                byNumber_[table_[indexed_].number] = {indexed_};
        }
    }

    Database& database_;
    Table<Record>& table_;
    FlatMap<Slot> byName_;
    FlatMap<Slot> byNumber_;
    std::uint32_t indexed_ = 0; // slots that the index knows
};

} // namespace OpenAccess_4::impl

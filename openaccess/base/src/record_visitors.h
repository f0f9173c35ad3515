#pragma once

#include "base/src/point_pool.h"
#include "base/src/refs.h"
#include "base/src/string_pool.h"

#include <unordered_map>
#include <vector>

namespace OpenAccess_4::impl {

class Database;

/// Visits the fields of the records that came out of a file, before anything uses them: every
/// number must name something that the database holds.
class RecordChecker {
public:
    explicit RecordChecker(const Database& database);

    void string(StringId id) { require(id < strings_); }
    void points(const PointsRef& run, std::uint32_t least) {
        require(run.count >= least && std::uint64_t(run.first) + run.count <= points_);
    }
    /// A slot of the table `table`.
    void slot(std::uint32_t table, std::uint32_t slot) { require(slot < slotsOf(table)); }
    void optionalSlot(std::uint32_t table, std::uint32_t slot) {
        require(slot == kNone || slot < slotsOf(table));
    }
    /// An object that clients see.
    void object(const ObjectRef& ref) {
        require(ref == kDatabaseItself ||
                (ref.slot < slotsOf(ref.table) && holdsObjects_[ref.table]));
    }
    /// One of the enumerators 0 to `count` - 1.
    void enumerator(std::uint32_t value, std::uint32_t count) { require(value < count); }
    void require(bool condition) { passed_ = passed_ && condition; }

    bool passed() const { return passed_; }

private:
    std::uint32_t slotsOf(std::uint32_t table) const {
        return table < slots_.size() ? slots_[table] : 0;
    }

    std::uint32_t strings_;
    std::uint64_t points_;
    std::vector<std::uint32_t> slots_;
    std::vector<bool> holdsObjects_;
    bool passed_ = true;
};

/// Visits the fields of copies of records that go into a file without the destroyed ones: gives
/// everything that they name its number there.
class RecordRemapper {
public:
    explicit RecordRemapper(const Database& database);

    void string(StringId& id) { id = strings_.intern(oldStrings_.text(id)); }
    void points(PointsRef& run, std::uint32_t /*least*/) {
        run = points_.append(oldPoints_.get(run));
    }
    void slot(std::uint32_t table, std::uint32_t& slot) { slot = renumbered(table, slot); }
    void optionalSlot(std::uint32_t table, std::uint32_t& slot) {
        if (slot != kNone)
            slot = renumbered(table, slot);
    }
    void object(ObjectRef& ref) {
        if (ref != kDatabaseItself)
            ref.slot = renumbered(ref.table, ref.slot);
    }
    void enumerator(std::uint32_t, std::uint32_t) {}
    void require(bool) {}

    /// The new numbers of the slots of `table`: kNone for destroyed ones. No list means that
    /// every slot keeps its number.
    void setNumbers(std::uint32_t table, std::vector<std::uint32_t> numbers) {
        numbers_[table] = std::move(numbers);
    }

    const StringPool& strings() const { return strings_; }
    const PointPool& points() const { return points_; }

private:
    std::uint32_t renumbered(std::uint32_t table, std::uint32_t slot) const {
        const auto found = numbers_.find(table);
        return found == numbers_.end() ? slot : found->second[slot];
    }

    const StringPool& oldStrings_;
    const PointPool& oldPoints_;
    StringPool strings_;
    PointPool points_;
    std::unordered_map<std::uint32_t, std::vector<std::uint32_t>> numbers_;
};

} // namespace OpenAccess_4::impl

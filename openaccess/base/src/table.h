#pragma once

#include "base/src/record_visitors.h"
#include "base/src/refs.h"
#include "oa/oaObject.h"

#include <cassert>
#include <concepts>
#include <cstddef>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

namespace OpenAccess_4::impl {

class Database;
class TableBase;

/// Slots of a table that lie together: their records, and beside them the handles, which are the
/// objects that clients see. A slab never moves and a slot is never used twice.
struct Slab {
    TableBase* table = nullptr;
    std::uint32_t first = 0;
    std::uint32_t used = 0;
    std::uint32_t capacity = 0;
    std::uint32_t made = 0; // handles are made when one of the slab is asked for
    std::byte* records = nullptr;
    oaObject* handles = nullptr;
};

/// Where an object stands: in which database, and as what.
struct Location {
    Database* database = nullptr;
    ObjectRef ref;
};

/// What a table of a database file says of itself.
struct TableId {
    std::uint32_t number = 0;    // its place in the database, named by ObjectRef::table
    std::uint32_t kind = 0;      // which records it holds
    std::uint32_t parameter = 0; // which of several tables of the kind it is
};

/// The objects of one kind in one database, whatever their records are.
class TableBase {
public:
    TableBase(Database& database, TableId id, std::size_t recordSize);
    TableBase(const TableBase&) = delete;
    TableBase& operator=(const TableBase&) = delete;

    /// Makes every handle invalid. The memory of the handles goes to tables made later.
    virtual ~TableBase();

    Database& database() const { return database_; }
    const TableId& id() const { return id_; }
    std::uint32_t slots() const { return slots_; }
    std::uint32_t live() const { return slots_ - destroyed_; }
    bool isLive(std::uint32_t slot) const { return gone_.empty() || !gone_[slot]; }
    std::size_t recordSize() const { return recordSize_; }

    /// The public object of a live slot.
    oaObject* handle(std::uint32_t slot);
    /// The handles from `slot` to the end of its slab, destroyed ones included.
    std::span<oaObject> handlesFrom(std::uint32_t slot);

    virtual oaTypeEnum typeOf(std::uint32_t slot) const = 0;
    /// True when the slots are objects that clients see: only to those can anything be attached.
    virtual bool holdsObjects() const = 0;
    virtual Location locate(std::uint32_t slot) const;

    // Reading and writing of whole tables.
    /// Makes `count` slots of a table that has none, their records to be filled by the caller.
    void appendSlots(std::uint32_t count);
    std::size_t slabs() const { return firstSlab_.records ? 1 + furtherSlabs_.size() : 0; }
    /// The bytes of the records of a slab, those of destroyed slots included.
    std::span<std::byte> recordBytes(std::size_t slab) const {
        return {slabAt(slab).records, slabAt(slab).used * recordSize_};
    }
    /// True when no record names anything that the database does not hold.
    virtual bool check(RecordChecker& checker) const = 0;
    /// Puts the new numbers of the live slots into `remapper`.
    void renumber(RecordRemapper& remapper) const;
    /// The records of the live slots, with everything that they name renumbered.
    virtual std::vector<std::byte> compacted(RecordRemapper& remapper) const = 0;

protected:
    std::uint32_t appendSlot();
    /// Takes a slot out of use; its handle becomes invalid.
    void retire(std::uint32_t slot);
    std::byte* recordAt(std::uint32_t slot) const;
    /// Makes the handles of a slab that are not made yet, all of them invalid.
    virtual void construct(Slab& slab) const = 0;

private:
    Slab& slabAt(std::size_t number) const {
        return number == 0 ? firstSlab_ : *furtherSlabs_[number - 1];
    }
    Slab& lastSlab() const { return slabAt(slabs() - 1); }
    Slab& slabOf(std::uint32_t slot) const;
    std::size_t slabNumber(std::uint32_t slot) const;
    std::uint32_t slabCapacity(std::size_t number) const;
    Slab& addSlab();
    void makeHandles(Slab& slab);

    Database& database_;
    TableId id_;
    std::size_t recordSize_;
    std::uint32_t firstSlabBits_; // the first slab has as many slots as this power of two
    std::uint32_t slots_ = 0;
    std::uint32_t destroyed_ = 0;
    mutable Slab firstSlab_; // most tables have no other
    std::vector<std::unique_ptr<Slab>> furtherSlabs_;
    std::vector<bool> gone_; // empty until something is destroyed
};

[[noreturn]] void throwInvalidObject();

/// The slab of a valid object. @throws oaError  oacInvalidObject
inline Slab& slabOf(const oaObject* object) {
    Slab* slab = object ? Handles::slabOf(object) : nullptr;
    if (!slab)
        throwInvalidObject();
    return *slab;
}

inline std::uint32_t slotOf(const oaObject* object) {
    const Slab& slab = slabOf(object);
    return slab.first + std::uint32_t(object - slab.handles);
}

inline TableBase& tableOf(const oaObject* object) {
    return *slabOf(object).table;
}

inline Location locationOf(const oaObject* object) {
    return tableOf(object).locate(slotOf(object));
}

/// The record behind a public object, which must be of the class that goes with `Record`.
template <class Record>
Record& recordOf(const oaObject* object) {
    const Slab& slab = slabOf(object);
    return reinterpret_cast<Record*>(slab.records)[object - slab.handles];
}

/// A record that database files hold: plain bytes that name other things by number only, and
/// that list those numbers for the checker and the remapper.
template <class Record>
concept StoredRecord = std::is_trivially_copyable_v<Record> &&
    requires(const Record& record, RecordChecker& checker) {
    Record::describe(record, checker);
};

/// The objects of one kind. A record type names its public class as `Handle` and its `kType`, or
/// has `type()` and `construct(void*)` where one table holds several public classes.
template <class Record>
class Table final : public TableBase {
public:
    Table(Database& database, TableId id) : TableBase(database, id, sizeof(Record)) {}
    ~Table() override {
        if constexpr (!std::is_trivially_destructible_v<Record>)
            for (std::uint32_t slot = 0; slot < slots(); ++slot)
                (*this)[slot].~Record();
    }

    Record& operator[](std::uint32_t slot) { return *reinterpret_cast<Record*>(recordAt(slot)); }
    const Record& operator[](std::uint32_t slot) const {
        return *reinterpret_cast<const Record*>(recordAt(slot));
    }

    std::uint32_t add(Record record) {
        const std::uint32_t slot = appendSlot();
        new (recordAt(slot)) Record(std::move(record));
        return slot;
    }

    void destroy(std::uint32_t slot) {
        retire(slot);
        if constexpr (!std::is_trivially_destructible_v<Record>) {
            Record& record = (*this)[slot];
            record.~Record();
            new (&record) Record{};
        }
    }

    /// Calls `visit(slot, record)` for every live slot.
    template <class Visit>
    void forEach(Visit visit) {
        for (std::uint32_t slot = 0; slot < slots(); ++slot)
            if (isLive(slot))
                visit(slot, (*this)[slot]);
    }

    oaTypeEnum typeOf(std::uint32_t slot) const override {
        if constexpr (requires(const Record& record) { record.type(); })
            return (*this)[slot].type();
        else
            return Record::kType;
    }
    bool holdsObjects() const override {
        if constexpr (requires { Record::kType; })
            return Record::kType != oacUnknownType;
        else
            return true;
    }
    Location locate(std::uint32_t slot) const override {
        if constexpr (requires(const Record& record) { record.location(); })
            return (*this)[slot].location();
        else
            return TableBase::locate(slot);
    }

    bool check(RecordChecker& checker) const override {
        if constexpr (StoredRecord<Record>)
            for (std::size_t slab = 0; slab < slabs(); ++slab)
                for (const Record& record : recordsIn(recordBytes(slab)))
                    Record::describe(record, checker);
        return checker.passed();
    }

    std::vector<std::byte> compacted(RecordRemapper& remapper) const override {
        std::vector<std::byte> bytes;
        if constexpr (StoredRecord<Record>) {
            bytes.reserve(std::size_t(live()) * sizeof(Record));
            for (std::uint32_t slot = 0; slot < slots(); ++slot) {
                if (!isLive(slot))
                    continue;
                Record record = (*this)[slot];
                Record::describe(record, remapper);
                const auto* first = reinterpret_cast<const std::byte*>(&record);
                bytes.insert(bytes.end(), first, first + sizeof(Record));
            }
        }
        return bytes;
    }

protected:
    void construct(Slab& slab) const override {
        const auto* records = reinterpret_cast<const Record*>(slab.records);
        for (; slab.made < slab.used; ++slab.made) {
            void* where = slab.handles + slab.made;
            if constexpr (requires(const Record& record) { record.construct(where); })
                records[slab.made].construct(where);
            else
                Handles::construct<typename Record::Handle>(where);
        }
    }

private:
    static std::span<const Record> recordsIn(std::span<const std::byte> bytes) {
        return {reinterpret_cast<const Record*>(bytes.data()), bytes.size() / sizeof(Record)};
    }
};

} // namespace OpenAccess_4::impl

#pragma once

#include "base/src/table.h"

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <new>
#include <vector>

namespace OpenAccess_4::impl {

/// The tables of a database by their numbers. There are dozens in the smallest database, so they
/// lie in one block of memory.
class TableList {
public:
    TableList() = default;
    TableList(const TableList&) = delete;
    TableList& operator=(const TableList&) = delete;
    ~TableList() {
        for (TableBase* table : tables_)
            if (table)
                table->~TableBase();
    }

    /// Null where there is none.
    TableBase* operator[](std::uint32_t number) const {
        return number < tables_.size() ? tables_[number] : nullptr;
    }

    /// One more than the highest number.
    std::uint32_t count() const { return std::uint32_t(tables_.size()); }

    /// Makes the table of that number, which is free.
    template <class Record>
    Table<Record>& add(Database& database, const TableId& id) {
        assert(!(*this)[id.number]);
        if (id.number >= tables_.size())
            makeNumbers(id.number + 1);
        void* memory = memory_.allocate(sizeof(Table<Record>), alignof(Table<Record>));
        auto* table = new (memory) Table<Record>(database, id);
        tables_[id.number] = table;
        return *table;
    }

private:
    static constexpr std::size_t kUsualTables = 64;

    void makeNumbers(std::size_t count) {
        if (tables_.empty())
            tables_.reserve(kUsualTables);
        tables_.resize(count);
    }

    std::pmr::monotonic_buffer_resource memory_{kUsualTables * sizeof(TableBase)};
    std::vector<TableBase*> tables_;
};

} // namespace OpenAccess_4::impl

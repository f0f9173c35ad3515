#include "base/src/record_visitors.h"

#include "base/src/database.h"

namespace OpenAccess_4::impl {

RecordChecker::RecordChecker(const Database& database)
    : strings_(database.strings.count()), points_(database.points.all().size()) {
    slots_.reserve(database.tableCount());
    holdsObjects_.reserve(database.tableCount());
    for (std::uint32_t number = 0; number < database.tableCount(); ++number) {
        const TableBase* table = database.table(number);
        slots_.push_back(table ? table->slots() : 0);
        holdsObjects_.push_back(table && table->holdsObjects());
    }
}

RecordRemapper::RecordRemapper(const Database& database)
    : oldStrings_(database.strings), oldPoints_(database.points) {
    for (std::uint32_t number = 0; number < database.tableCount(); ++number)
        if (const TableBase* table = database.table(number))
            table->renumber(*this);
}

} // namespace OpenAccess_4::impl

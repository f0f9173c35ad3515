#include "base/src/database.h"

namespace OpenAccess_4::impl {

Database::Database() : properties(*this), appValues(*this), groups(*this) {}

Database::~Database() = default;

TableBase* Database::makeVariableTable(const TableId& /*id*/) {
    return nullptr;
}

std::uint32_t Database::storedParameter(const TableBase& table,
                                        RecordRemapper& /*remapper*/) const {
    return table.id().parameter;
}

oaObject* Database::handle(const ObjectRef& ref) const {
    if (!ref)
        return nullptr;
    return ref == kDatabaseItself ? object() : table(ref.table)->handle(ref.slot);
}

void Database::reportConflicts() {
    appValues.reportConflicts();
    groups.reportConflicts();
}

void Database::forgetAttachments(const ObjectRef& ref) {
    properties.removeAll(ref);
    appValues.removeAll(ref);
    groups.removeAll(ref);
}

} // namespace OpenAccess_4::impl

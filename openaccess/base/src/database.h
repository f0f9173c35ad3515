#pragma once

#include "base/src/app_values.h"
#include "base/src/groups.h"
#include "base/src/point_pool.h"
#include "base/src/properties.h"
#include "base/src/string_pool.h"
#include "base/src/table.h"
#include "base/src/table_list.h"
#include "base/src/table_numbers.h"

#include <string_view>

namespace OpenAccess_4::impl {

/// The content of one open database, whichever kind: tables of records, and the texts and points
/// that they name. What a kind of database adds, and how it is opened and saved, is its package's.
class Database {
public:
    Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    virtual ~Database();

    /// The oaDesign, oaTech or oaSession that stands for the database.
    virtual oaObject* object() const = 0;

    /// Lets a change pass. @throws the error of the kind when the database is open for reading
    virtual void requireEditable() const = 0;

    /// True for databases whose objects may carry properties: designs and technologies.
    virtual bool holdsProperties() const { return true; }

    /// Makes the variable table of that kind for the reader; null when the kind is unknown.
    virtual TableBase* makeVariableTable(const TableId& id);

    /// The parameter of a table in a file that leaves out destroyed objects.
    virtual std::uint32_t storedParameter(const TableBase& table, RecordRemapper& remapper) const;

    TableBase* table(std::uint32_t number) const { return tables_[number]; }
    std::uint32_t tableCount() const { return tables_.count(); }

    template <class Record>
    Table<Record>& addTable(const TableId& id) {
        return tables_.add<Record>(*this, id);
    }
    /// A table that a database has once: its number is also its kind.
    template <class Record>
    Table<Record>& addTable(std::uint32_t number) {
        return addTable<Record>(TableId{number, number, 0});
    }

    /// The public object that a reference names; null for a reference to nothing.
    oaObject* handle(const ObjectRef& ref) const;

    /// Tells the observers of session-wide definitions where what a file has brought disagrees
    /// with them. Called when the content is read and found sound.
    virtual void reportConflicts();

    /// Drops what is attached to an object that is about to be destroyed.
    virtual void forgetAttachments(const ObjectRef& ref);

    bool isModified() const { return modified_; }
    void setModified(bool modified) { modified_ = modified; }
    /// Checks that the database may be changed, and notes that it is.
    void edit() {
        requireEditable();
        modified_ = true;
    }

    /// True when records were destroyed or texts and points replaced since the database was read:
    /// saving then renumbers.
    bool hasGarbage() const { return garbage_; }
    void noteGarbage() { garbage_ = true; }

    StringPool strings;
    PointPool points;

private:
    TableList tables_;
    bool modified_ = false;
    bool garbage_ = false;

public:
    Properties properties;
    AppValues appValues;
    Groups groups;
};

/// The database that holds the attachments of an object.
inline Database& databaseOf(const oaObject* object) {
    return *locationOf(object).database;
}

} // namespace OpenAccess_4::impl

#pragma once

#include "base/src/chain_index.h"
#include "base/src/flat_map.h"
#include "base/src/table.h"
#include "base/src/table_numbers.h"

#include <cstring>
#include <string_view>
#include <vector>

namespace OpenAccess_4 {
class oaAppDef;
}

namespace OpenAccess_4::impl {

/// The kinds of application-defined values.
enum class AppValueKind : std::uint32_t {
    Int,
    Float,
    String,
    Data,
    VarData,
    Time,
    Double,
    Boolean,
    VoidPointer, // never persistent; the kinds before it may be stored
    Count
};

/// The type of the definitions of values of that kind.
oaTypeEnum typeOf(AppValueKind kind);

/// True when the eight bytes of a value of that kind are the number of a text.
inline bool isText(AppValueKind kind) {
    return kind == AppValueKind::String || kind == AppValueKind::Data ||
           kind == AppValueKind::VarData;
}

/// A definition as a database stores it: the values of the database name it by its slot.
struct StoredAppDefRecord {
    StringId name = 0;
    StringId objectClass = 0; // the public class whose objects carry the value: "oaPin"
    AppValueKind kind = AppValueKind::Int;

    static constexpr oaTypeEnum kType = oacUnknownType;
    using Handle = oaObject;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.string(self.objectClass);
        visitor.enumerator(std::uint32_t(self.kind), std::uint32_t(AppValueKind::VoidPointer));
    }
};

struct AppValueRecord {
    ObjectRef owner;
    std::uint32_t def = 0;  // slot in the definitions of the database; transient: of the session
    std::uint32_t text = 0; // StringId of the kinds that are texts
    std::uint64_t bits = 0; // the value of the other kinds

    static constexpr oaTypeEnum kType = oacUnknownType;
    using Handle = oaObject;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.object(self.owner);
        visitor.slot(kAppDefTable, self.def);
        visitor.string(self.text);
    }
};

/// The application-defined values of the objects of one database. Definitions are the session's;
/// those that persist are stored with the values.
class AppValues {
public:
    explicit AppValues(Database& database);

    /// The value of an object, or null when it has none of its own.
    const AppValueRecord* find(const ObjectRef& owner, const oaAppDef* def);
    /// The value of an object, made when it has none.
    AppValueRecord& get(const ObjectRef& owner, const oaAppDef* def);
    void remove(const ObjectRef& owner, const oaAppDef* def);
    void removeAll(const ObjectRef& owner);
    void removeAll(const oaAppDef* def);

    /// Tells the observers of each definition of the database that the session has otherwise.
    void reportConflicts();

    bool any(const ObjectRef& owner);
    bool isUsed(const oaAppDef* def);
    /// The definitions of the values of an object; those that the session does not know are made.
    std::vector<oaObject*> definitionsOf(const ObjectRef& owner);

private:
    /// The values of one table and the list of each object's.
    struct Values {
        Table<AppValueRecord>& table;
        ChainIndex index;
        std::uint32_t indexed = 0;

        ChainIndex& byOwner();
        std::uint32_t find(const ObjectRef& owner, std::uint32_t def);
        void remove(std::uint32_t slot);
    };

    Values& valuesOf(const oaAppDef* def);
    /// The number by which the values of `def` name it; kNone when the database has none of them.
    std::uint32_t numberOf(const oaAppDef* def);
    std::uint32_t addNumber(const oaAppDef* def);

    Database& database_;
    Table<StoredAppDefRecord>& defs_;
    Values stored_;
    Values transient_;
    FlatMap<std::uint32_t> numbers_; // by the slot of the session's definition
};

} // namespace OpenAccess_4::impl

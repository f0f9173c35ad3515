#pragma once

#include "base/src/database.h"
#include "base/src/session.h"
#include "storage/src/database_file.h"

#include <string>
#include <vector>

/// A small kind of database with everything that a stored record may hold.
namespace sample {

using namespace OpenAccess_4;
using namespace OpenAccess_4::impl;

inline constexpr std::uint32_t kNodeTable = kFirstPackageTable;
inline constexpr std::uint32_t kLeafKind = 21;

struct NodeRecord {
    StringId name = 0;
    std::uint32_t parent = kNone;
    PointsRef outline;
    ObjectRef favourite;

    using Handle = oaObject;
    static constexpr oaTypeEnum kType = oacRectType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.optionalSlot(kNodeTable, self.parent);
        visitor.points(self.outline, 0);
        visitor.object(self.favourite);
    }
};

struct LeafRecord {
    std::uint32_t low = 0;
    std::uint32_t high = 0;

    using Handle = oaObject;
    static constexpr oaTypeEnum kType = oacDotType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.require(self.low <= self.high);
    }
};

class SampleDatabase final : public Database {
public:
    SampleDatabase() : nodes(addTable<NodeRecord>(kNodeTable)) {}

    oaObject* object() const override { return Session::instance().object(); }
    void requireEditable() const override {}
    TableBase* makeVariableTable(const TableId& id) override {
        return id.kind == kLeafKind ? &addTable<LeafRecord>(id) : nullptr;
    }

    Table<LeafRecord>& leaves(std::uint32_t which) {
        const std::uint32_t number = kFirstVariableTable + which;
        if (TableBase* existing = table(number))
            return static_cast<Table<LeafRecord>&>(*existing);
        return addTable<LeafRecord>(TableId{number, kLeafKind, which});
    }

    std::uint32_t addNode(const std::string& name, std::uint32_t parent = kNone,
                          const std::vector<oaPoint>& outline = {}) {
        return nodes.add({strings.intern(name), parent, points.add(outline), kDatabaseItself});
    }

    std::string nameOf(std::uint32_t node) const {
        return std::string(strings.text(nodes[node].name));
    }

    Table<NodeRecord>& nodes;
};

/// A database with a few of everything.
inline void fill(SampleDatabase& database) {
    const auto root = database.addNode("root", kNone, {{0, 0}, {10, 0}, {10, 20}});
    const auto child = database.addNode("child", root, {{-5, 7}});
    database.nodes[root].favourite = {kNodeTable, child};
    database.nodes[child].favourite = {kFirstVariableTable + 1, 2};
    for (std::uint32_t i = 0; i < 5; ++i)
        database.leaves(1).add({i, i + 10});
    PropPayload payload;
    payload.set(database.strings.intern("some text"));
    database.properties.create({kNodeTable, child}, "note", PropKind::String, payload);
}

inline void save(const std::string& path, const Database& database) {
    writeDatabaseFile(path, DatabaseFileKind::Design, database);
}

inline void load(const std::string& path, Database& database) {
    readDatabaseFile(path, DatabaseFileKind::Design, database);
}

} // namespace sample

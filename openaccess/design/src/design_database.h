#pragma once

#include "base/src/database.h"
#include "design/src/connectivity.h"
#include "design/src/instances.h"
#include "design/src/pcell_master.h"
#include "design/src/records.h"
#include "design/src/shape_tables.h"

#include <memory>
#include <string>

namespace OpenAccess_4 {
class oaBlock;
class oaDesign;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

/// The content of one open design.
class DesignDatabase final : public Database {
public:
    /// An empty design for the open design `slot` of the session.
    static std::unique_ptr<DesignDatabase> makeEmpty(std::uint32_t slot);
    /// @throws oaError  oacDatabaseFileNotRead, oacDatabaseFileDamaged
    static std::unique_ptr<DesignDatabase> read(std::uint32_t slot, const std::string& path);

    explicit DesignDatabase(std::uint32_t slot);

    oaObject* object() const override;
    void requireEditable() const override;
    TableBase* makeVariableTable(const TableId& id) override;
    void forgetAttachments(const ObjectRef& ref) override;

    oaDesign* design() const;
    const DesignNames& names() const;
    DesignInfoRecord& info() { return info_[0]; }

    /// The top block, or null.
    oaBlock* block();
    /// True when there is a top block.
    bool hasBlock() const { return blocks.live() > 0; }
    void destroyBlock();

    /// Destroys a figure: a shape or an instance.
    void destroyFig(const ObjectRef& fig);
    /// The text displays of an object, of all layers.
    std::vector<ObjectRef> displaysOf(const ObjectRef& object);
    /// The smallest box around everything in the block.
    oaBox extent();

    /// Drops what only objects that are destroyed needed, before the design is written.
    void dropUnused();
    std::uint32_t storedParameter(const TableBase& table, RecordRemapper& remapper) const override;

private:
    bool isSound();

    std::uint32_t slot_;
    Table<DesignInfoRecord>& info_;

public:
    Table<BlockRecord>& blocks;
    ShapeTables shapes;
    Connectivity connectivity;
    Instances instances;
    PcellMaster pcell;

    /// While the instances of the block are being measured: one of them may lead back to it.
    bool measuring = false;
};

/// The database of a design, or of one of its objects.
inline DesignDatabase& designDatabaseOf(const oaObject* object) {
    return static_cast<DesignDatabase&>(databaseOf(object));
}

} // namespace OpenAccess_4::impl

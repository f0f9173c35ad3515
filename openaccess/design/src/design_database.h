#pragma once

#include "base/src/database.h"
#include "design/src/connectivity.h"
#include "design/src/instances.h"
#include "design/src/occurrences.h"
#include "design/src/pcell_master.h"
#include "design/src/records.h"
#include "design/src/shape_tables.h"
#include "design/src/vias.h"

#include <memory>
#include <string>

namespace OpenAccess_4 {
class oaBlock;
class oaDesign;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

class DatabaseReader;

/// The content of one open design.
class DesignDatabase final : public Database {
public:
    /// An empty content for an open design.
    static std::unique_ptr<DesignDatabase> makeEmpty(oaDesign* design);
    /// @throws oaError  oacDatabaseFileNotRead, oacDatabaseFileDamaged
    static std::unique_ptr<DesignDatabase> read(oaDesign* design, const std::string& path);
    /// Fills a content that isUntouched() with the submaster that begins at a byte of a pcell file.
    /// After a failure it is to be thrown away.
    /// @throws oaError  oacDatabaseFileNotRead, oacDatabaseFileDamaged
    void readSubmaster(DatabaseReader& file, std::uint64_t offset);

    explicit DesignDatabase(oaDesign* design);

    /// True when nothing was put into it since it was constructed.
    bool isUntouched() const;

    oaObject* object() const override;
    void requireEditable() const override;
    TableBase* makeVariableTable(const TableId& id) override;
    void forgetAttachments(const ObjectRef& ref) override;

    oaDesign* design() const { return design_; }
    const DesignNames& names() const;
    DesignInfoRecord& info();

    /// The top block, or null.
    oaBlock* block();
    /// True when there is a top block.
    bool hasBlock() const { return blocks.live() > 0; }
    void destroyBlock();

    /// Destroys a figure: a shape, an instance or a via.
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
    void requireSound(const std::string& path);

    oaDesign* design_;
    Table<DesignInfoRecord>& info_;

public:
    Table<BlockRecord>& blocks;
    ShapeTables shapes;
    Connectivity connectivity;
    Instances instances;
    Vias vias;
    PcellMaster pcell;
    Occurrences occurrences{*this};

    /// While the instances and vias of the block are being measured: one may lead back to it.
    bool measuring = false;
};

/// The database of a design, or of one of its objects.
inline DesignDatabase& designDatabaseOf(const oaObject* object) {
    return static_cast<DesignDatabase&>(databaseOf(object));
}

} // namespace OpenAccess_4::impl

#include "design/src/design_database.h"

#include "design/src/open_designs.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaBlock.h"
#include "oa/oaDesignException.h"
#include "storage/src/database_file.h"
#include "storage/src/database_sequence.h"

#include <ctime>

namespace OpenAccess_4::impl {

DesignDatabase::DesignDatabase(oaDesign* design)
    : design_(design),
      info_(addTable<DesignInfoRecord>(kDesignInfoTable)),
      blocks(addTable<BlockRecord>(kBlockTable)),
      shapes(*this),
      connectivity(*this),
      instances(*this),
      vias(*this),
      pcell(*this) {}

std::unique_ptr<DesignDatabase> DesignDatabase::makeEmpty(oaDesign* design) {
    auto database = std::make_unique<DesignDatabase>(design);
    database->info();
    return database;
}

std::unique_ptr<DesignDatabase> DesignDatabase::read(oaDesign* design, const std::string& path) {
    auto database = std::make_unique<DesignDatabase>(design);
    readDatabaseFile(path, DatabaseFileKind::Design, *database);
    database->requireSound(path);
    return database;
}

void DesignDatabase::readSubmaster(DatabaseReader& file, std::uint64_t offset) {
    file.read(DatabaseFileKind::PcellSubmasters, offset, *this);
    requireSound(file.path());
    if (pcell.isDefined())
        throw oaError(oacDatabaseFileDamaged, file.path().c_str(), "holds a super master");
}

bool DesignDatabase::isUntouched() const {
    for (std::uint32_t number = 0; number < tableCount(); ++number)
        if (table(number) && table(number)->slots() > 0)
            return false;
    return strings.count() == 1 && points.all().empty();
}

DesignInfoRecord& DesignDatabase::info() {
    if (info_.slots() == 0)
        info_.add({std::int64_t(std::time(nullptr))});
    return info_[0];
}

void DesignDatabase::requireSound(const std::string& path) {
    if (!isSound())
        throw oaError(oacDatabaseFileDamaged, path.c_str(),
                      "has objects without a block, or two of one name or place, or vias that "
                      "disagree with their headers");
}

bool DesignDatabase::isSound() {
    if (info_.slots() != 1 || blocks.slots() > 1 || !pcell.isSound())
        return false;
    if (!hasBlock()) {
        for (std::uint32_t number = kBlockTable; number < tableCount(); ++number)
            if (table(number) && table(number)->slots() > 0 && !isPcellTable(number))
                return false;
        return true;
    }
    return shapes.isSound() && connectivity.isSound() && instances.isSound() && vias.isSound();
}

oaObject* DesignDatabase::object() const {
    return design_;
}

const DesignNames& DesignDatabase::names() const {
    return recordOf<OpenDesignRecord>(design_).names;
}

void DesignDatabase::requireEditable() const {
    const OpenDesignRecord& open = recordOf<OpenDesignRecord>(design_);
    requireNoViaMaster(design_);
    const bool isFinished = open.origin && open.origin->state != EvaluationState::Running;
    if (open.mode == 'r' || isFinished)
        throw oaDesignError(isFinished ? oacCannotModifySubMaster : oacCannotModifyReadModeDesign,
                            open.names.lib.c_str(), open.names.cell.c_str(),
                            open.names.view.c_str());
}

TableBase* DesignDatabase::makeVariableTable(const TableId& id) {
    return shapes.make(id);
}

void DesignDatabase::forgetAttachments(const ObjectRef& ref) {
    Database::forgetAttachments(ref);
    for (const ObjectRef& display : displaysOf(ref))
        destroyFig(display);
}

oaBlock* DesignDatabase::block() {
    for (std::uint32_t slot = blocks.slots(); slot-- > 0;)
        if (blocks.isLive(slot))
            return static_cast<oaBlock*>(blocks.handle(slot));
    return nullptr;
}

void DesignDatabase::destroyBlock() {
    for (const TableBase* table : shapes.all())
        for (std::uint32_t slot = 0; slot < table->slots(); ++slot)
            if (table->isLive(slot))
                destroyFig({table->id().number, slot});
    instances.insts.forEach([&](std::uint32_t slot, const InstRecord&) {
        destroyFig({kInstTable, slot});
    });
    vias.destroyAll();
    connectivity.nets.forEach(
        [&](std::uint32_t slot, const NetRecord&) { connectivity.destroyNet(slot); });
    const std::uint32_t slot = slotOf(block());
    forgetAttachments({kBlockTable, slot});
    blocks.destroy(slot);
    dropUnused();
}

void DesignDatabase::destroyFig(const ObjectRef& fig) {
    connectivity.netFigs.remove(fig);
    connectivity.pinFigs.remove(fig);
    if (fig.table == kInstTable) {
        instances.destroy(fig.slot);
        return;
    }
    if (fig.table == kViaTable) {
        vias.destroy(fig.slot);
        return;
    }
    forgetAttachments(fig);
    TableBase& table = *this->table(fig.table);
    shapes.forget(fig);
    shapes.shrink(table, fig.slot);
    withShapeRecord(table.id().kind,
                    [&]<class Record>() { static_cast<Table<Record>&>(table).destroy(fig.slot); });
}

std::vector<ObjectRef> DesignDatabase::displaysOf(const ObjectRef& object) {
    std::vector<ObjectRef> displays;
    const auto collect = [&]<class Record>(TableBase& table) {
        static_cast<Table<Record>&>(table).forEach([&](std::uint32_t slot, const Record& display) {
            if (display.shown() == object)
                displays.push_back({table.id().number, slot});
        });
    };
    for (TableBase* table : shapes.displayTables()) {
        if (table->id().kind == kPropDisplayKind)
            collect.operator()<PropDisplayRecord>(*table);
        else
            collect.operator()<AttrDisplayRecord>(*table);
    }
    return displays;
}

oaBox DesignDatabase::extent() {
    oaBox box = shapes.extent();
    if (!measuring) {
        enlarge(box, instances.extent());
        enlarge(box, vias.extent());
    }
    return box;
}

void DesignDatabase::dropUnused() {
    shapes.dropUnusedHeaders();
    instances.dropUnusedMasters();
}

std::uint32_t DesignDatabase::storedParameter(const TableBase& table,
                                              RecordRemapper& remapper) const {
    std::uint32_t pair = table.id().parameter;
    if (table.id().kind >= kFirstShapeKind && table.live() > 0)
        remapper.slot(kLPPHeaderTable, pair);
    return pair;
}

} // namespace OpenAccess_4::impl

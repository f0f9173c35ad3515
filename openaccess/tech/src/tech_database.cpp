#include "tech/src/tech_database.h"

#include "base/src/constant_tables.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaDerivedLayer.h"
#include "oa/oaException.h"
#include "oa/oaPhysicalLayer.h"
#include "oa/oaPurpose.h"
#include "oa/oaSizedLayer.h"
#include "oa/oaTechException.h"
#include "oa/oaValue.h"
#include "storage/src/database_file.h"
#include "tech/src/open_techs.h"

namespace OpenAccess_4::impl {

oaObject* LayerRecord::construct(void* where) const {
    switch (kind) {
    case LayerKind::Physical:
        return Handles::construct<oaPhysicalLayer>(where);
    case LayerKind::Derived:
        return Handles::construct<oaDerivedLayer>(where);
    default:
        return Handles::construct<oaSizedLayer>(where);
    }
}

TechDatabase::TechDatabase(std::uint32_t slot)
    : layers(addTable<LayerRecord>(kLayerTable)),
      purposes(addTable<PurposeRecord>(kPurposeTable)),
      reservedPurposes(
          addTable<PurposeRecord>(TableId{kReservedPurposeTable, kTransientKind, kConstantTable})),
      values(addTable<ValueRecord>(kValueTable)),
      layerIndex(*this, layers),
      purposeIndex(*this, purposes),
      slot_(slot),
      settings_(addTable<SettingsRecord>(kSettingsTable)) {
    for (std::uint32_t type = 0; type < kReservedPurposes; ++type)
        reservedPurposes.add({0, reservedPurposeNumber(type)});
}

std::unique_ptr<TechDatabase> TechDatabase::makeEmpty(std::uint32_t slot) {
    auto database = std::make_unique<TechDatabase>(slot);
    database->settings_.add({});
    return database;
}

std::unique_ptr<TechDatabase> TechDatabase::read(std::uint32_t slot, const std::string& path) {
    auto database = std::make_unique<TechDatabase>(slot);
    readDatabaseFile(path, DatabaseFileKind::Technology, *database);
    if (!database->isSound())
        throw oaError(oacDatabaseFileDamaged, path.c_str(),
                      "has no settings, or two layers or purposes of one name or number");
    return database;
}

bool TechDatabase::isSound() {
    bool reserved = false;
    purposes.forEach([&](std::uint32_t, const PurposeRecord& purpose) {
        reserved = reserved || purpose.number >= kFirstReservedPurposeNumber;
    });
    return settings_.slots() == 1 && layerIndex.isSound() && purposeIndex.isSound() && !reserved;
}

oaObject* TechDatabase::object() const {
    return openTechs().handle(slot_);
}

void TechDatabase::requireEditable() const {
    const TechRecord& tech = openTechs()[slot_];
    if (tech.mode == 'r')
        throw oaTechError(oacCannotModifyReadModeTech, nameOf(tech.lib).c_str());
}

TechDatabase& techDatabaseOf(const oaObject* object) {
    return static_cast<TechDatabase&>(databaseOf(object));
}

} // namespace OpenAccess_4::impl

#include "tech/src/tech_database.h"

#include "base/src/constant_tables.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaDerivedLayer.h"
#include "oa/oaDerivedLayerParam.h"
#include "oa/oaException.h"
#include "oa/oaPhysicalLayer.h"
#include "oa/oaPurpose.h"
#include "oa/oaSizedLayer.h"
#include "oa/oaTechException.h"
#include "oa/oaTechHeader.h"
#include "oa/oaValue.h"
#include "storage/src/database_file.h"
#include "tech/src/derived_layer_defs.h"
#include "tech/src/open_techs.h"
#include "tech/src/via_defs.h"

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
      refs(addTable<TechRefRecord>(kTechRefTable)),
      exclusions(addTable<ExclusionRecord>(kExclusionTable)),
      layerParamDefs(addTable<StoredLayerParamDefRecord>(kLayerParamDefTable)),
      layerParams(addTable<LayerParamRecord>(kLayerParamTable)),
      viaDefs(addTable<ViaDefRecord>(kViaDefTable)),
      siteDefs(addTable<SiteDefRecord>(kSiteDefTable)),
      siteRefs(addTable<SiteRefRecord>(kSiteRefTable)),
      layerIndex(*this, layers),
      purposeIndex(*this, purposes),
      viaDefIndex(*this, viaDefs),
      siteDefIndex(*this, siteDefs),
      slot_(slot),
      settings_(addTable<SettingsRecord>(kSettingsTable)),
      moreSettings_(addTable<MoreSettingsRecord>(kMoreSettingsTable)) {
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
                      "has no settings or two of them, or two objects of one name or number, or "
                      "layers that cannot be excluded or have parameters, or cuts or sites "
                      "where there are none");
    return database;
}

bool TechDatabase::isSound() {
    bool reserved = false;
    purposes.forEach([&](std::uint32_t, const PurposeRecord& purpose) {
        reserved = reserved || purpose.number >= kFirstReservedPurposeNumber;
    });
    return settings_.slots() == 1 && moreSettings_.slots() <= 1 && layerIndex.isSound() &&
           purposeIndex.isSound() && !reserved && haveLayersTheirKinds() &&
           areViaDefsSound(*this) && areSitesSound();
}

bool TechDatabase::haveLayersTheirKinds() {
    bool sound = true;
    exclusions.forEach([&](std::uint32_t, const ExclusionRecord& exclusion) {
        sound = sound && layers[exclusion.layer].kind == LayerKind::Physical;
    });
    std::vector<bool> owned(values.slots());
    layerParams.forEach([&](std::uint32_t, const LayerParamRecord& param) {
        sound = sound && !owned[param.value] &&
                (param.layer == kNone || layers[param.layer].kind == LayerKind::Derived);
        owned[param.value] = true;
    });
    return sound;
}

MoreSettingsRecord TechDatabase::moreSettings() const {
    return moreSettings_.slots() == 0 ? MoreSettingsRecord() : moreSettings_[0];
}

MoreSettingsRecord& TechDatabase::editMoreSettings() {
    edit();
    if (moreSettings_.slots() == 0)
        moreSettings_.add({});
    return moreSettings_[0];
}

void TechDatabase::forgetExclusions(std::uint32_t layer) {
    exclusions.forEach([&](std::uint32_t slot, const ExclusionRecord& exclusion) {
        if (exclusion.layer == layer)
            exclusions.destroy(slot);
    });
}

void TechDatabase::destroyParamsOf(std::uint32_t layer) {
    layerParams.forEach([&](std::uint32_t slot, const LayerParamRecord& param) {
        if (param.layer == layer)
            destroyParam(slot);
    });
}

void TechDatabase::destroyParam(std::uint32_t param) {
    const std::uint32_t value = layerParams[param].value;
    forgetAttachments({kLayerParamTable, param});
    layerParams.destroy(param);
    forgetAttachments({kValueTable, value});
    values.destroy(value);
}

std::uint32_t TechDatabase::paramOf(std::uint32_t value) {
    std::uint32_t found = kNone;
    layerParams.forEach([&](std::uint32_t slot, const LayerParamRecord& param) {
        if (param.value == value)
            found = slot;
    });
    return found;
}

void TechDatabase::reportConflicts() {
    Database::reportConflicts();
    reportDerivedLayerConflicts(*this);
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

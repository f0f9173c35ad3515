#pragma once

#include "base/src/database.h"
#include "tech/src/name_index.h"
#include "tech/src/records.h"
#include "tech/src/via_def_records.h"

#include <string>

namespace OpenAccess_4::impl {

/// The content of one open technology.
class TechDatabase final : public Database {
public:
    /// An empty technology for the open technology `slot` of the session.
    static std::unique_ptr<TechDatabase> makeEmpty(std::uint32_t slot);
    /// @throws oaError  oacDatabaseFileNotRead, oacDatabaseFileDamaged
    static std::unique_ptr<TechDatabase> read(std::uint32_t slot, const std::string& path);

    explicit TechDatabase(std::uint32_t slot);

    oaObject* object() const override;
    void requireEditable() const override;

    SettingsRecord& settings() { return settings_[0]; }
    /// The settings, to be changed.
    SettingsRecord& editSettings() {
        edit();
        return settings();
    }

    /// All unset when the technology says nothing of them.
    MoreSettingsRecord moreSettings() const;
    /// The further settings, to be changed.
    MoreSettingsRecord& editMoreSettings();

    void reportConflicts() override;

    // What belongs to a layer and goes with it. The caller has made the database editable.
    void forgetExclusions(std::uint32_t layer);
    void destroyParamsOf(std::uint32_t layer);
    void destroyParam(std::uint32_t param);
    /// The parameter that a value belongs to, or kNone.
    std::uint32_t paramOf(std::uint32_t value);

    Table<LayerRecord>& layers;
    Table<PurposeRecord>& purposes;
    Table<PurposeRecord>& reservedPurposes;
    Table<ValueRecord>& values;
    Table<TechRefRecord>& refs;
    Table<ExclusionRecord>& exclusions;
    Table<StoredLayerParamDefRecord>& layerParamDefs;
    Table<LayerParamRecord>& layerParams;
    Table<ViaDefRecord>& viaDefs;
    Table<SiteDefRecord>& siteDefs;
    Table<SiteRefRecord>& siteRefs;
    NameIndex<LayerRecord> layerIndex;
    NameIndex<PurposeRecord> purposeIndex;
    NameIndex<ViaDefRecord> viaDefIndex;
    NameIndex<SiteDefRecord> siteDefIndex;

private:
    bool isSound();
    bool haveLayersTheirKinds();
    bool areSitesSound();

    std::uint32_t slot_;
    Table<SettingsRecord>& settings_;
    Table<MoreSettingsRecord>& moreSettings_;
};

/// The database of a technology, or of one of its objects.
TechDatabase& techDatabaseOf(const oaObject* object);

} // namespace OpenAccess_4::impl

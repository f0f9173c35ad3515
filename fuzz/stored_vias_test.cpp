// Database files of which a single field that belongs to vias is not what was stored.

#include "stored_table.h"
#include "trial.h"
#include "visit.h"

#include "design/src/via_records.h"
#include "support/temporary_directory.h"
#include "tech/src/via_def_records.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace oa::impl;
using fuzz::StoredTable;

/// Numbers that are the first or the last of something, the next one, and two others.
std::set<std::uint32_t> otherThan(std::uint32_t stored) {
    std::set<std::uint32_t> values = {0,          1,          0x80000000,       0xFFFFFFFF,
                                      stored + 1, stored ^ 2, stored ^ (1 << 8)};
    values.erase(stored);
    return values;
}

class StoredVias : public testing::Test {
protected:
    template <class Record>
    struct Damage {
        const char* what;
        std::size_t record;
        std::function<void(Record&)> change;
    };

    /// Expects that none of these files is read.
    template <class Record>
    void expectRefused(const StoredTable& table, const std::vector<Damage<Record>>& damages) {
        for (const auto& [what, record, change] : damages) {
            auto damaged = table.record<Record>(record);
            change(damaged);
            const std::string refusal = trial.refusalOf(table.with(record, damaged));
            EXPECT_NE(refusal.find("' is not a sound database: it "), std::string::npos)
                << what << ": '" << refusal << "'";
        }
    }

    /// Tries every word of a table with values that it does not have.
    void tryWords(const StoredTable& table) {
        for (std::size_t record = 0; record < table.records(); ++record)
            for (std::size_t at = 0; at < table.recordSize(); at += sizeof(std::uint32_t))
                for (const std::uint32_t value : otherThan(table.word(record, at)))
                    trial.run(table.withWord(record, at, value));
    }

    ovalis::test::TemporaryDirectory directory;
    fuzz::Trial trial{directory.str() + "/lib"};
};

/// The vias of a design: one of "via" with its parameters, two with others, one of "custom via",
/// and one of "missing via" with parameters.
class StoredViasOfADesign : public StoredVias {
protected:
    const std::string file = trial.designFile([](oa::oaDesign* design) { fuzz::fill(design); });
    const StoredTable headers{file, kViaHeaderTable};
    const StoredTable subs{file, kViaSubHeaderTable};
    const StoredTable params{file, kViaParamTable};
    const StoredTable vias{file, kViaTable};
};

class StoredViaDefs : public StoredVias {
protected:
    const StoredTable defs{trial.techFile([](oa::oaTech* tech) { fuzz::defineVias(tech); }),
                           kViaDefTable};
};

} // namespace

TEST_F(StoredViasOfADesign, AreAllThere) {
    EXPECT_EQ(trial.refusalOf(vias.with(0, vias.record<ViaRecord>(0))), "");
    EXPECT_EQ(headers.records(), 3u);
    EXPECT_EQ(subs.records(), 4u);
    EXPECT_EQ(params.records(), 7u);
    EXPECT_EQ(vias.records(), 5u);
}

TEST_F(StoredViasOfADesign, HaveSoundHeaders) {
    expectRefused<ViaHeaderRecord>(
        headers,
        {{"no name", 0, [](auto& header) { header.name = kNone; }},
         {"no kind", 0, [](auto& header) { header.kind = ViaDefKind::Count; }},
         {"another kind", 0, [](auto& header) { header.kind = ViaDefKind::Custom; }},
         {"the name of another one", 1, [this](auto& header) { header.name = headers.word(2, 0); }},
         {"another kind", 1, [](auto& header) { header.kind = ViaDefKind::Standard; }}});
}

TEST_F(StoredViasOfADesign, HaveSoundSubHeaders) {
    using Sub = ViaSubHeaderRecord;
    expectRefused<Sub>(subs,
                       {{"no header", 0, [](Sub& sub) { sub.header = 3; }},
                        {"a header of the other kind", 0, [](Sub& sub) { sub.header = 1; }},
                        {"no kind", 0, [](Sub& sub) { sub.kind = ViaDefKind::Count; }},
                        {"another kind", 0, [](Sub& sub) { sub.kind = ViaDefKind::Custom; }},
                        {"the parameters of another one", 0,
                         [this](Sub& sub) { sub.params = subs.record<Sub>(1).params; }},
                        {"the header of another custom via", 2, [](Sub& sub) { sub.header = 2; }},
                        {"parameters of a custom via", 2,
                         [](Sub& sub) { sub.params.given = 1u << oa::oacCutRowsViaParamType; }}});
}

TEST_F(StoredViasOfADesign, HaveSoundStandardParameters) {
    using Sub = ViaSubHeaderRecord;
    expectRefused<Sub>(
        subs,
        {{"an unknown one", 1,
          [](Sub& sub) { sub.params.given |= 2u << StoredViaParam::kCutPattern; }},
         {"the size of cuts", 1,
          [](Sub& sub) { sub.params.given |= 1u << oa::oacCutSizeViaParamType; }},
         {"a layer not given", 1, [](Sub& sub) { sub.params.cutLayer = 1; }},
         {"columns not given", 1, [](Sub& sub) { sub.params.cutColumns = 2; }},
         {"no rows", 1, [](Sub& sub) { sub.params.cutRows = 0; }},
         {"rows not given", 0, [](Sub& sub) { sub.params.cutRows = 2; }},
         {"a width not given", 1, [](Sub& sub) { sub.params.cutWidth = 1; }},
         {"a height not given", 1, [](Sub& sub) { sub.params.cutHeight = 1; }},
         {"the first vector not given", 1, [](Sub& sub) { sub.params.vectors.front()[0] = 1; }},
         {"the last vector not given", 1, [](Sub& sub) { sub.params.vectors.back()[1] = 1; }},
         {"no pattern", 1, [](Sub& sub) { sub.params.missingCuts = kNone; }},
         {"half a cut", 1, [this](Sub& sub) { sub.params.missingCuts = headers.word(0, 0); }},
         {"a pattern not given", 0,
          [this](Sub& sub) { sub.params.missingCuts = headers.word(0, 0); }}});
}

TEST_F(StoredViasOfADesign, HaveSoundCustomParameters) {
    using Param = ViaParamRecord;
    expectRefused<Param>(
        params, {{"no owner", 0, [](Param& param) { param.owner = 4; }},
                 {"a standard owner", 0, [](Param& param) { param.owner = 0; }},
                 {"no name", 0, [](Param& param) { param.name = kNone; }},
                 {"no type", 0, [](Param& param) { param.type = oa::oacTimeParamType + 1; }},
                 {"no text", 0, [](Param& param) { param.text = kNone; }},
                 {"no type of bytes", 0, [](Param& param) { param.appType = kNone; }},
                 {"an unused field", 0, [](Param& param) { param.reserved = 1; }}});
}

TEST_F(StoredViasOfADesign, HaveTheirPlaces) {
    expectRefused<ViaRecord>(
        vias, {{"no sub header", 0, [](ViaRecord& via) { via.sub = 4; }},
               {"a sub header of the other kind", 0, [](ViaRecord& via) { via.sub = 3; }},
               {"a sub header left without vias", 0, [](ViaRecord& via) { via.sub = 1; }},
               {"no orientation", 0, [](ViaRecord& via) { via.orient = oa::oacMXR90 + 1; }},
               {"another kind", 0, [](ViaRecord& via) { via.isCustom = 1; }},
               {"another kind", 4, [](ViaRecord& via) { via.isCustom = 0; }},
               {"no kind", 4, [](ViaRecord& via) { via.isCustom = 2; }},
               {"an unused field", 0, [](ViaRecord& via) { via.reserved = 1; }}});
}

TEST_F(StoredViasOfADesign, AreReadOrRefusedWithoutHarmWhateverAFieldHolds) {
    for (const StoredTable& table : {headers, subs, params, vias})
        tryWords(table);
}

TEST_F(StoredViaDefs, AreSound) {
    using Def = ViaDefRecord;
    EXPECT_EQ(trial.refusalOf(defs.with(0, defs.record<Def>(0))), "");
    const StringId text = defs.word(1, 0);
    expectRefused<Def>(
        defs, {{"no name", 0, [](Def& def) { def.name = kNone; }},
               {"the name of another one", 0, [&](Def& def) { def.name = text; }},
               {"no kind", 0, [](Def& def) { def.kind = ViaDefKind::Count; }},
               {"another kind", 0, [](Def& def) { def.kind = ViaDefKind::Custom; }},
               {"another kind", 1, [](Def& def) { def.kind = ViaDefKind::Standard; }},
               {"no library of the master", 1, [](Def& def) { def.master[0] = kNone; }},
               {"no cell of the master", 1, [](Def& def) { def.master[1] = kNone; }},
               {"no view of the master", 1, [](Def& def) { def.master[2] = kNone; }},
               {"a standard via with a master", 0, [&](Def& def) { def.master[1] = text; }},
               {"a custom via with an implant", 1, [](Def& def) { def.implants[1] = 1; }},
               {"a custom via with parameters", 1,
                [](Def& def) { def.params.given = 1u << oa::oacCutRowsViaParamType; }},
               {"an unknown parameter", 0,
                [](Def& def) { def.params.given |= 2u << StoredViaParam::kCutPattern; }},
               {"no columns", 0, [](Def& def) { def.params.cutColumns = 0; }},
               {"rows not given", 0, [](Def& def) { def.params.cutRows = 2; }},
               {"no pattern", 0, [](Def& def) { def.params.missingCuts = kNone; }},
               {"half a cut", 0, [&](Def& def) { def.params.missingCuts = text; }}});
}

TEST_F(StoredViaDefs, AreReadOrRefusedWithoutHarmWhateverAFieldHolds) {
    tryWords(defs);
}

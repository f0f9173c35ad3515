#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include <cstring>
#include <memory>

#include <gtest/gtest.h>

#include "base/src/map_window.h"

using namespace ovalis;

namespace {

constexpr oa::oaUInt4 position = 8;

/// Bytes of a design file in which the record stands at `position`, with 0xEE around it.
class Record {
public:
    Record() : bytes_(64, 0xEE) {}

    explicit Record(const std::vector<oa::oaByte>& record) : Record() {
        std::copy(record.begin(), record.end(), bytes_.begin() + position);
    }

    /// Writes the record of a definition; answers where the writing ended.
    oa::oaUInt4 write(VexPcell& evaluator, oa::oaPcellDef& def) {
        oa::oaMapFileWindow window = view();
        oa::oaUInt4 loc = position;
        evaluator.onWrite(nullptr, window, loc, &def);
        return loc;
    }

    /// Reads the record into a definition; answers where the reading ended.
    oa::oaUInt4 read(VexPcell& evaluator, oa::oaPcellDef& def) {
        oa::oaMapFileWindow window = view();
        oa::oaUInt4 loc = position;
        evaluator.onRead(nullptr, window, loc, &def);
        return loc;
    }

    std::vector<oa::oaByte> bytes(oa::oaUInt4 end) const {
        return {bytes_.begin() + position, bytes_.begin() + end};
    }

    bool isUntouchedFrom(oa::oaUInt4 end) const {
        const auto other = [](oa::oaByte byte) { return byte != 0xEE; };
        return std::none_of(bytes_.begin(), bytes_.begin() + position, other) &&
               std::none_of(bytes_.begin() + end, bytes_.end(), other);
    }

private:
    oa::oaMapFileWindow view() {
        return oa::impl::MapWindowAccess::windowOver(bytes_.data(), bytes_.size());
    }

    std::vector<oa::oaByte> bytes_;
};

class MacroRecord : public ::testing::Test {
protected:
    std::unique_ptr<oa::oaPcellDef> definition(const char* macro = nullptr) {
        std::unique_ptr<oa::oaPcellDef> def(evaluator_->getPcellDef());
        if (macro != nullptr) {
            def->addData("SKRMacroName", macro);
        }
        return def;
    }

    static std::string macroOf(oa::oaPcellDef& def) {
        oa::oaString value = "absent";
        def.getDataValue("SKRMacroName", value);
        return fromOa(value);
    }

    VexSKRPcell& evaluator() { return *evaluator_; }

private:
    std::unique_ptr<VexSKRPcell> evaluator_ = std::make_unique<VexSKRPcell>();
};

} // namespace

TEST_F(MacroRecord, IsALengthAndTheBytesPaddedToWords) {
    Record record;
    const oa::oaUInt4 end = record.write(evaluator(), *definition("abcde"));
    EXPECT_EQ(end, position + 12);
    EXPECT_EQ(record.bytes(end),
              (std::vector<oa::oaByte>{5, 0, 0, 0, 'a', 'b', 'c', 'd', 'e', 0, 0, 0}));
    EXPECT_TRUE(record.isUntouchedFrom(end));
}

TEST_F(MacroRecord, IsALengthAloneWithoutAName) {
    for (const char* macro : {"", static_cast<const char*>(nullptr)}) {
        Record record;
        const oa::oaUInt4 end = record.write(evaluator(), *definition(macro));
        EXPECT_EQ(record.bytes(end), (std::vector<oa::oaByte>{0, 0, 0, 0}));
        EXPECT_TRUE(record.isUntouchedFrom(end));
    }
}

TEST_F(MacroRecord, TakesTheRoomThatWasAnnounced) {
    for (const char* macro : {"", "a", "abcd", "abcde", "größeArtwork"}) {
        Record record;
        const auto def = definition(macro);
        EXPECT_EQ(record.write(evaluator(), *def), position + evaluator().calcDiskSize(def.get()));
    }
}

TEST_F(MacroRecord, IsReadBackAsWritten) {
    for (const char* macro : {"", "a", "abcd", "resArtwork", "größeArtwork"}) {
        Record record;
        const oa::oaUInt4 end = record.write(evaluator(), *definition(macro));
        const auto def = definition();
        EXPECT_EQ(record.read(evaluator(), *def), end);
        EXPECT_EQ(macroOf(*def), macro);
    }
}

TEST_F(MacroRecord, ThatIsLongerThanItsFileIsRefused) {
    for (const oa::oaByte length : {oa::oaByte{53}, oa::oaByte{64}, oa::oaByte{255}}) {
        Record record({length, 0, 0, 0});
        const auto def = definition();
        EXPECT_THROW(record.read(evaluator(), *def), oa::oaException);
        EXPECT_EQ(macroOf(*def), "absent");
    }
    Record record({255, 255, 255, 255});
    EXPECT_THROW(record.read(evaluator(), *definition()), oa::oaException);
}

TEST(OtherRecords, AreEmpty) {
    const std::shared_ptr<VexPcell> evaluators[] = {
        std::make_shared<VexPSNPcell>(), std::make_shared<VexLayerMappingPcell>(),
        std::make_shared<VexReferencePcell>(), std::make_shared<VexViaPadPcell>(),
        std::make_shared<VexNestedTechnologyPcell>()};
    for (const auto& evaluator : evaluators) {
        const std::unique_ptr<oa::oaPcellDef> def(evaluator->getPcellDef());
        def->addData("SKRMacroName", "resArtwork");
        Record record;
        EXPECT_EQ(record.write(*evaluator, *def), position);
        EXPECT_TRUE(record.isUntouchedFrom(position));
        EXPECT_EQ(record.read(*evaluator, *def), position);
    }
}

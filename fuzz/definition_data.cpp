#include "definition_data.h"

#include "base/src/map_window.h"
#include "support/no_brokers.h"
#include "support/temporary_directory.h"

#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

namespace {

using namespace ovalis;

using Data = std::vector<oa::oaByte>;

void require(bool holds) {
    if (!holds)
        std::abort();
}

oa::oaScalarName nameOf(const char* text) {
    return oa::oaScalarName(oa::oaNativeNS(), text);
}

/// The macro name of a definition, if it has one.
std::optional<std::string> macroOf(oa::oaPcellDef& definition) {
    oa::oaString name;
    if (!definition.getDataValue(toOa(VexSKRPcell::dataName_SKRMacro()), name))
        return std::nullopt;
    return fromOa(name);
}

/// What must be read from `position` on: a length, and a text of so many bytes, which ends where a
/// zero byte stands.
std::optional<std::string> expectedMacro(const Data& data, std::size_t position) {
    oa::oaUInt4 length = 0;
    if (position > data.size() || data.size() - position < sizeof(length))
        return std::nullopt;
    std::memcpy(&length, data.data() + position, sizeof(length));
    const char* text = reinterpret_cast<const char*>(data.data()) + position + sizeof(length);
    if (length > data.size() - position - sizeof(length))
        return std::nullopt;
    const std::string_view given(text, length);
    return std::string(given.substr(0, given.find('\0')));
}

/// Data between bytes that nobody may touch.
class GuardedData {
public:
    explicit GuardedData(std::size_t size) : GuardedData(Data(size, kUntouched)) {}
    explicit GuardedData(const Data& data) : bytes_(kGuard, kUntouched) {
        bytes_.insert(bytes_.end(), data.begin(), data.end());
        bytes_.resize(bytes_.size() + kGuard, kUntouched);
    }

    oa::oaMapFileWindow window() {
        return oa::impl::MapWindowAccess::windowOver(bytes_.data() + kGuard, size());
    }
    std::size_t size() const { return bytes_.size() - 2 * kGuard; }
    Data data() const { return {bytes_.begin() + kGuard, bytes_.end() - kGuard}; }
    bool isGuarded() const {
        const Data guard(kGuard, kUntouched);
        return std::equal(guard.begin(), guard.end(), bytes_.begin()) &&
               std::equal(guard.begin(), guard.end(), bytes_.end() - kGuard);
    }

private:
    static constexpr std::size_t kGuard = 16;
    static constexpr oa::oaByte kUntouched = 0xEE;

    Data bytes_;
};

/// Reads definition data into a definition and answers its macro name, if they were accepted.
std::optional<std::string> readMacro(VexSKRPcell& evaluator, const Data& data,
                                     std::size_t position) {
    GuardedData guarded(data);
    oa::oaMapFileWindow window = guarded.window();
    const std::unique_ptr<oa::oaPcellDef> definition(evaluator.getPcellDef());
    oa::oaUInt4 loc = oa::oaUInt4(position);
    try {
        evaluator.onRead(nullptr, window, loc, definition.get());
        require(loc > position && loc <= data.size() && macroOf(*definition));
    } catch (const oa::oaException&) {
        require(!macroOf(*definition));
    }
    require(guarded.isGuarded() && guarded.data() == data);
    return macroOf(*definition);
}

void requireWrittenAsRead(VexSKRPcell& evaluator, const std::string& macro) {
    const std::unique_ptr<oa::oaPcellDef> definition(evaluator.getPcellDef());
    definition->addData(toOa(VexSKRPcell::dataName_SKRMacro()), toOa(macro));
    GuardedData guarded(evaluator.calcDiskSize(definition.get()));
    oa::oaMapFileWindow window = guarded.window();
    oa::oaUInt4 loc = 0;
    evaluator.onWrite(nullptr, window, loc, definition.get());
    require(loc == guarded.size() && guarded.isGuarded());
    require(readMacro(evaluator, guarded.data(), 0) == macro);
}

/// Stores any bytes as the definition data of the evaluator of script macros.
class AnyData : public VexSKRPcell {
public:
    void onWrite(oa::oaDesign*, oa::oaMapFileWindow& window, oa::oaUInt4& loc,
                 oa::oaPcellDef*) override {
        window.data().writeBytes(loc, oa::oaUInt4(data.size()), data.data());
    }
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef*) const override { return oa::oaUInt4(data.size()); }

    Data data;
};

/// A library with one super master. Lives as long as the process: fuzzers start from the same state
/// for every input.
class Place {
public:
    Place() {
        const ovalis::test::NoBrokers noBrokers;
        initOa();
        lib_ = oa::oaLib::create(nameOf("lib"), (directory_.str() + "/lib").c_str());
        lib_->getAccess(oa::oacWriteLibAccess);
    }
    ~Place() { lib_->close(); }

    VexSKRPcell& evaluator() { return *evaluator_; }

    /// The macro name of a super master with these data, if its evaluator accepts them.
    std::optional<std::string> macroOfStored(const Data& data) {
        any_->data = data;
        oa::oaDesign* design = open('w');
        design->defineSuperMaster(any_->getPcellDef(), oa::oaParamArray());
        saveAndPurge(design);
        return macroOfOpened('a');
    }

    /// The same for the super master as it was opened and saved last.
    std::optional<std::string> macroOfOpened(oa::oaChar mode) {
        oa::oaDesign* design = open(mode);
        require(design->isSuperMaster());
        std::optional<std::string> macro;
        if (oa::oaPcellDef* definition = design->getPcellDef())
            macro = macroOf(*definition);
        if (mode == 'a')
            saveAndPurge(design);
        else
            design->purge();
        return macro;
    }

private:
    static oa::oaDesign* open(oa::oaChar mode) {
        return oa::oaDesign::open(nameOf("lib"), nameOf("cell"), nameOf("layout"),
                                  oa::oaViewType::get(oa::oacMaskLayout), mode);
    }
    static void saveAndPurge(oa::oaDesign* design) {
        design->save();
        design->purge();
    }

    ovalis::test::TemporaryDirectory directory_;
    // Held by the count of their references, as the designs that they define hold them too.
    oaCommon::SPtr<VexSKRPcell> evaluator_ = oaCommon::SPtr<VexSKRPcell>(new VexSKRPcell);
    oaCommon::SPtr<AnyData> any_ = oaCommon::SPtr<AnyData>(new AnyData);
    oa::oaLib* lib_ = nullptr;
};

} // namespace

bool tryDefinitionData(std::span<const std::byte> input) {
    static Place place;
    if (input.empty())
        return false;
    const auto* bytes = reinterpret_cast<const oa::oaByte*>(input.data());
    const Data data(bytes + 1, bytes + input.size());
    // As far as one byte behind the data, so that most positions are worth reading at.
    const std::size_t position = bytes[0] % (data.size() + 2);

    const std::optional<std::string> macro = readMacro(place.evaluator(), data, position);
    require(macro == expectedMacro(data, position));
    if (macro)
        requireWrittenAsRead(place.evaluator(), *macro);

    const std::optional<std::string> stored = place.macroOfStored(data);
    require(stored == expectedMacro(data, 0));
    require(place.macroOfOpened('r') == stored);
    return macro.has_value();
}

} // namespace fuzz

#include "design/src/pcell_master.h"

#include "base/src/map_window.h"
#include "design/src/design_database.h"
#include "design/src/open_designs.h"
#include "design/src/param_records.h"
#include "design/src/pcell_links.h"
#include "design/src/pcell_observers.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaDesign.h"
#include "oa/oaDesignException.h"

namespace OpenAccess_4::impl {

namespace {

/// Definition data on its way to or from an evaluator.
class DefinitionData {
public:
    /// A copy of what is stored.
    explicit DefinitionData(std::string_view stored) : bytes_(stored) {}
    /// Room for what is to be stored.
    explicit DefinitionData(oaUInt4 size) : bytes_(size, '\0') {}

    oaMapFileWindow window() {
        return MapWindowAccess::windowOver(reinterpret_cast<oaByte*>(bytes_.data()), bytes_.size());
    }
    const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_;
};

} // namespace

PcellMaster::PcellMaster(Database& database)
    : database_(database),
      masters_(database.addTable<SuperMasterRecord>(kSuperMasterTable)),
      params_(database.addTable<PcellParamRecord>(kPcellParamTable)) {}

const SuperMasterRecord& PcellMaster::master() const {
    return masters_[masters_.slots() - 1]; // those before it are destroyed
}

SuperMasterRecord& PcellMaster::master() {
    return masters_[masters_.slots() - 1];
}

oaDesign* PcellMaster::design() const {
    return static_cast<oaDesign*>(database_.object());
}

const char* PcellMaster::evaluatorName() const {
    return database_.strings.chars(master().evaluator);
}

void PcellMaster::clear() {
    masters_.forEach([&](std::uint32_t slot, const SuperMasterRecord&) { masters_.destroy(slot); });
    params_.forEach([&](std::uint32_t slot, const PcellParamRecord&) { params_.destroy(slot); });
}

void PcellMaster::store(const oaString& evaluatorName, const oaParamArray& defaults) {
    clear();
    masters_.add({database_.strings.intern(std::string_view(evaluatorName)), 0});
    for (oaUInt4 i = 0; i < defaults.getNumElements(); ++i) {
        PcellParamRecord record;
        storeParam(record, database_.strings, defaults[i]);
        params_.add(record);
    }
}

void PcellMaster::keep(oaPcellDef* definition, IPcell* evaluator) {
    definition_ = definition;
    evaluator_ = oaCommon::SPtr<IPcell>(evaluator);
}

template <class Call>
void PcellMaster::tellWhenItFails(oaPcellErrorTypeEnum kind, Call call) {
    try {
        call();
    } catch (...) {
        tellPcellError(design(), textOfFailure(), kind);
        throw;
    }
}

void PcellMaster::define(oaPcellDef* definition, const oaParamArray& defaults) {
    if (!definition || !definition->getIPcell())
        throw oaDesignError(oacPcellInvalidPcellDef);
    database_.edit();
    oaString name;
    definition->getIPcell()->getName(name);
    const bool isNew = definition != definition_;
    if (isNew)
        unbind();
    store(name, defaults);
    if (!isNew)
        return;
    keep(definition, definition->getIPcell());
    try {
        tellWhenItFails(oacPcellBindError, [&] { evaluator_->onBind(design(), definition); });
    } catch (...) {
        unbind();
        clear();
        throw;
    }
}

void PcellMaster::undefine() {
    database_.edit();
    unbind();
    clear();
}

void PcellMaster::getParams(oaParamArray& params) const {
    params.setNumElements(params_.live());
    oaUInt4 next = 0;
    params_.forEach([&](std::uint32_t, const PcellParamRecord& record) {
        params[next++] = paramOf(record, database_.strings);
    });
}

bool PcellMaster::findParam(const oaString& name, oaParam& param) const {
    oaParamArray params;
    getParams(params);
    return params.find(name, param);
}

void PcellMaster::takeDefinition() {
    oaString reason = "it gives no definition";
    try {
        IPcell* evaluator = PcellLinks::instance().findOrLoad(evaluatorName())->getIPcell();
        if (oaPcellDef* definition = evaluator->getPcellDef())
            return keep(definition, evaluator);
    } catch (...) {
        reason = textOfFailure();
    }
    const DesignNames& names = designDatabaseOf(design()).names();
    throw oaDesignError(oacPcellEvaluatorMissing, evaluatorName(), names.lib.c_str(),
                        names.cell.c_str(), names.view.c_str(), static_cast<const oaChar*>(reason));
}

bool PcellMaster::bind() {
    if (!isDefined() || definition_)
        return false;
    try {
        tellWhenItFails(oacPcellPlugInError, [&] { takeDefinition(); });
        DefinitionData data(database_.strings.text(master().data));
        oaMapFileWindow window = data.window();
        oaUInt4 loc = 0;
        tellWhenItFails(oacPcellReadError,
                        [&] { evaluator_->onRead(design(), window, loc, definition_); });
        tellWhenItFails(oacPcellBindError, [&] { evaluator_->onBind(design(), definition_); });
        return true;
    } catch (...) {
        // The design can be worked with without its evaluator, as one of an unknown evaluator can.
        unbind();
        return false;
    }
}

void PcellMaster::evaluate(oaDesign* design) {
    evaluator_->onEval(design, definition_);
}

void PcellMaster::takeFrom(PcellMaster& other) {
    if (!other.isDefined())
        return;
    oaParamArray defaults;
    other.getParams(defaults);
    store(other.evaluatorName(), defaults);
    master().data = database_.strings.intern(other.database_.strings.text(other.master().data));
    definition_ = std::exchange(other.definition_, nullptr);
    evaluator_ = std::exchange(other.evaluator_, {});
}

void PcellMaster::unbind() noexcept {
    if (!definition_)
        return;
    oaPcellDef* definition = std::exchange(definition_, nullptr);
    const oaCommon::SPtr<IPcell> evaluator = std::exchange(evaluator_, {});
    try {
        evaluator->onUnbind(design(), definition);
    } catch (...) {
        // The design goes on, or goes, without the definition in any case.
        tellPcellError(design(), textOfFailure(), oacPcellUnbindError);
    }
}

void PcellMaster::write(oaMapFileWindow window) {
    oaUInt4 loc = 0;
    try {
        evaluator_->onWrite(design(), window, loc, definition_);
    } catch (const oaError& error) {
        if (error.getMsgId() != oacPackedDataOverrun)
            throw;
        const DesignNames& names = designDatabaseOf(design()).names();
        throw oaDesignError(oacPcellDefinitionTooLong, names.lib.c_str(), names.cell.c_str(),
                            names.view.c_str(), window.getSize(), evaluatorName());
    }
}

void PcellMaster::pack() {
    if (!definition_)
        return;
    oaUInt4 size = 0;
    tellWhenItFails(oacPcellCalcDiskSizeError,
                    [&] { size = evaluator_->calcDiskSize(definition_); });
    DefinitionData data(size);
    tellWhenItFails(oacPcellWriteError, [&] { write(data.window()); });
    const StringId packed = database_.strings.intern(data.bytes());
    if (packed != master().data) {
        master().data = packed;
        database_.noteGarbage();
    }
}

void requireParamsOf(const oaDesign* master, const oaParamArray& params) {
    if (!master)
        return;
    DesignDatabase& database = designDatabaseOf(master);
    const DesignNames& names = database.names();
    if (params.getNumElements() > 0 && !database.pcell.isDefined())
        throw oaDesignError(oacParamsSuppliedForNonPCellInstMaster, names.lib.c_str(),
                            names.cell.c_str(), names.view.c_str());
    for (oaUInt4 i = 0; i < params.getNumElements(); ++i) {
        oaString name;
        oaParam known;
        params[i].getName(name);
        if (!database.pcell.findParam(name, known) || known.getType() != params[i].getType())
            throw oaDesignError(oacInvalidDataTypeForParam, static_cast<const oaChar*>(name),
                                names.lib.c_str(), names.cell.c_str(), names.view.c_str());
    }
}

} // namespace OpenAccess_4::impl

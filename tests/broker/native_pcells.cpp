// Evaluators that can be loaded into the process.

#include <stdexcept>

#include <oa/oaPlugIn.h>

#include "pcell_master/recording_pcell.h"

namespace {

/// Says what was called, as an error of the design that the call was about.
class NativePcell : public ovalis::test::RecordingPcell {
public:
    NativePcell() : RecordingPcell("native") {}

    void onBind(oa::oaDesign* design, oa::oaPcellDef*) override { tell(design, "bind"); }
    void onUnbind(oa::oaDesign* design, oa::oaPcellDef* def) override {
        tell(design, "unbind");
        delete def;
    }
    void onEval(oa::oaDesign* design, oa::oaPcellDef*) override { tell(design, "eval"); }
    void onRead(oa::oaDesign* design, oa::oaMapFileWindow& window, oa::oaUInt4& loc,
                oa::oaPcellDef*) override {
        std::string text(2, '-');
        window.data().readBytes(loc, 2, reinterpret_cast<oa::oaByte*>(text.data()));
        tell(design, ("read " + text).c_str());
    }
    void onWrite(oa::oaDesign* design, oa::oaMapFileWindow& window, oa::oaUInt4& loc,
                 oa::oaPcellDef*) override {
        window.data().writeBytes(loc, 3, reinterpret_cast<const oa::oaByte*>("new"));
        tell(design, "write");
    }
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef*) const override { return 77; }

private:
    static void tell(oa::oaDesign* design, const char* call) {
        oa::oaPcellObserver::notifyErrorObservers(design, call, oa::oacPcellEvalError);
    }
};

/// Fails in the way that the name of the design's cell says.
class FailingPcell : public ovalis::test::RecordingPcell {
public:
    void onEval(oa::oaDesign* design, oa::oaPcellDef*) override {
        oa::oaString cell;
        design->getCellName(oa::oaNativeNS(), cell);
        if (cell == "database") {
            throw oa::oaDesignError(oa::oacPcellSubMasterNotProduced);
        }
        if (cell == "plug_in") {
            throw oaCommon::ExceptionBase(1, ": Error[5]: as it is");
        }
        if (cell == "standard") {
            throw std::runtime_error("native: Error[5]: taken apart");
        }
        throw 1;
    }
};

oaCommon::Factory<NativePcell> nativeFactory("native_type");
oaCommon::Factory<FailingPcell> failingFactory("native_failing");

} // namespace

extern "C" long getClassObject(const char* classID, const oaCommon::Guid& interfaceID, void** ptr) {
    return oaCommon::FactoryBase::getClassObject(classID, interfaceID, ptr);
}

// The pcell "trial" does what its parameter "action" says: draws, fails in one way or another, or
// takes its process with it.

#include <oa/oaBase.h>
#include <oa/oaCommonFactory.h>
#include <oa/oaDesignDB.h>
#include <oa/oaDesignInterfaces.h>

#include "platform/process.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

using namespace oaCommon;
using namespace oa;

std::string bytesOf(const oaParam& param) {
    std::string bytes(param.getNumBytes(), '\0');
    param.getAppVal(reinterpret_cast<oaByte*>(bytes.data()));
    oaString type;
    param.getAppType(type);
    return std::string(type) + "/" + bytes;
}

std::string valueOf(const oaParam& param) {
    switch (param.getType()) {
    case oacIntParamType:
        return std::to_string(param.getIntVal());
    case oacFloatParamType:
        return std::to_string(param.getFloatVal());
    case oacStringParamType:
        return param.getStringVal();
    case oacAppParamType:
        return bytesOf(param);
    case oacDoubleParamType:
        return std::to_string(param.getDoubleVal());
    case oacBooleanParamType:
        return param.getBooleanVal() ? "true" : "false";
    default:
        return std::to_string(param.getTimeVal());
    }
}

// One rectangle for each parameter, as wide as its place in the row, and one property with what it
// is.
void draw(oaDesign* design) {
    oaParamArray params;
    design->getParams(params);
    oaBlock* const block = oaBlock::create(design);
    for (oaUInt4 place = 0; place < params.getNumElements(); ++place) {
        oaString name;
        params[place].getName(name);
        oaRect::create(block, 1, oavPurposeNumberDrawing,
                       oaBox(0, 0, 10 * (oaCoord(place) + 1), 10));
        oaStringProp::create(block, name, valueOf(params[place]).c_str());
    }
}

void say(oaDesign* design) {
    std::cout << "said to the output" << std::endl;
    std::cerr << "said to the errors" << std::endl;
    draw(design);
}

void drawNothing(oaDesign*) {}

void failInDatabase(oaDesign*) {
    throw oaDesignError(1201);
}

void failInPlugIn(oaDesign*) {
    throw ExceptionBase(17, "the plug-in failed");
}

void failAsUsual(oaDesign*) {
    throw std::runtime_error("the width is too small");
}

void failStrangely(oaDesign*) {
    throw 1;
}

void report(oaDesign* design) {
    oaPcellObserver::notifyErrorObservers(design, "bad width", oaUInt4(1234));
}

// A failure whose text is the number of the process.
void tellNumber(oaDesign*) {
    throw ExceptionBase(17, std::to_string(platform::currentProcessId()).c_str());
}

void crash(oaDesign*) {
    std::cerr << "about to crash" << std::endl;
    std::abort();
}

void hang(oaDesign*) {
    for (;;)
        std::this_thread::sleep_for(std::chrono::hours(1));
}

void allocate(oaDesign*) {
    constexpr std::size_t step = std::size_t{1} << 22;
    for (;;)
        std::memset(new char[step], 1, step);
}

const std::map<std::string, void (*)(oaDesign*)> actions = {
    {"draw", draw},
    {"draw nothing", drawNothing},
    {"say", say},
    {"fail in the database", failInDatabase},
    {"fail in the plug-in", failInPlugIn},
    {"fail as usual", failAsUsual},
    {"fail strangely", failStrangely},
    {"report", report},
    {"number", tellNumber},
    {"crash", crash},
    {"hang", hang},
    {"allocate", allocate},
};

class Trial : public PlugInBase<IPcell> {
public:
    oaPcellDef* getPcellDef() override { return new oaPcellDef(this); }
    void getName(oaString& name) override { name = "trial"; }
    void onBind(oaDesign*, oaPcellDef*) override {}
    void onUnbind(oaDesign*, oaPcellDef* def) override { delete def; }
    void onEval(oaDesign* design, oaPcellDef*) override {
        oaParamArray params;
        oaParam action;
        design->getParams(params);
        params.find("action", action);
        actions.at(action.getStringVal())(design);
    }
    void onRead(oaDesign*, oaMapFileWindow&, oaUInt4&, oaPcellDef*) override {}
    void onWrite(oaDesign*, oaMapFileWindow&, oaUInt4&, oaPcellDef*) override {}
    oaUInt4 calcDiskSize(oaPcellDef*) const override { return 0; }

private:
    static Factory<Trial> factory;
};

Factory<Trial> Trial::factory("trial");

} // namespace

long getClassObject(const char* classID, const Guid& interfaceID, void** ptr) {
    return FactoryBase::getClassObject(classID, interfaceID, ptr);
}

// A pcell plug-in: a rectangle from the origin, "length" long and "width" wide.

#include <oa/oaCommonFactory.h>
#include <oa/oaDesignDB.h>
#include <oa/oaDesignInterfaces.h>

#include <cmath>

namespace {

using namespace oa;

class Stripe : public PlugInBase<IPcell> {
public:
    oaPcellDef* getPcellDef() override { return new oaPcellDef(this); }
    void getName(oaString& name) override { name = "stripe"; }
    void onBind(oaDesign*, oaPcellDef*) override {}
    void onUnbind(oaDesign*, oaPcellDef* def) override { delete def; }
    void onEval(oaDesign* design, oaPcellDef*) override {
        oaBlock* block = design->getTopBlock();
        if (!block)
            block = oaBlock::create(design);
        oaRect::create(block, 1, 1,
                       oaBox(0, 0, coordinate(design, "length"), coordinate(design, "width")));
    }
    void onRead(oaDesign*, oaMapFileWindow&, oaUInt4&, oaPcellDef*) override {}
    void onWrite(oaDesign*, oaMapFileWindow&, oaUInt4&, oaPcellDef*) override {}
    oaUInt4 calcDiskSize(oaPcellDef*) const override { return 0; }

private:
    // In thousandths of what the parameter says.
    static oaCoord coordinate(const oaDesign* design, const char* parameter) {
        oaParamArray params;
        oaParam param;
        design->getParams(params);
        if (!params.find(parameter, param) || param.getType() != oacDoubleParamType)
            throw ExceptionBase(1, "a stripe needs the numbers length and width");
        return oaCoord(std::lround(param.getDoubleVal() * 1000));
    }

    static Factory<Stripe> factory;
};

Factory<Stripe> Stripe::factory("stripe");

} // namespace

extern "C" long getClassObject(const char* classID, const Guid& interfaceID, void** ptr) {
    return FactoryBase::getClassObject(classID, interfaceID, ptr);
}

// The pcells "shapes" and "shapes_here" in a plug-in: as many shapes as their parameter says.

#include "design_library.h"

#include <oa/oaPlugIn.h>

namespace {

class ShapesPcell : public oaCommon::PlugInBase<oa::IPcell> {
public:
    explicit ShapesPcell(const char* name) : name_(name) {}

    oa::oaPcellDef* getPcellDef() override {
        return new oa::oaPcellDef(this); // deleted by onUnbind()
    }
    void getName(oa::oaString& name) override { name = name_; }
    void onBind(oa::oaDesign*, oa::oaPcellDef*) override {}
    void onUnbind(oa::oaDesign*, oa::oaPcellDef* def) override { delete def; }
    void onEval(oa::oaDesign* design, oa::oaPcellDef*) override {
        oa::oaParamArray params;
        design->getParams(params);
        oa::oaString name;
        for (oa::oaUInt4 i = 0; i < params.getNumElements(); ++i) {
            params[i].getName(name);
            if (name == "shapes")
                bench::drawContent(design, std::size_t(params[i].getIntVal()));
        }
    }
    void onRead(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) override {}
    void onWrite(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) override {}
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef*) const override { return 0; }

private:
    const char* name_;
};

struct Brokered : ShapesPcell {
    Brokered() : ShapesPcell("shapes") {}
};

struct Here : ShapesPcell {
    Here() : ShapesPcell("shapes_here") {}
};

oaCommon::Factory<Brokered> brokered("shapes");
oaCommon::Factory<Here> here("shapes_here");

} // namespace

extern "C" long getClassObject(const char* classID, const oaCommon::Guid& interfaceID, void** ptr) {
    return oaCommon::FactoryBase::getClassObject(classID, interfaceID, ptr);
}

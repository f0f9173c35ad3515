#include "via_library.h"

#include <oa/oaDesignDB.h>

namespace {

oa::oaScalarName name(const char* text) {
    return oa::oaScalarName(oa::oaNativeNS(), text);
}

oa::oaDesign* newDesign(const char* cell) {
    return oa::oaDesign::open(name("exchange"), name(cell), name("layout"),
                              oa::oaViewType::get(oa::oacMaskLayout), 'w');
}

/// Every parameter is given.
oa::oaViaParam allParams() {
    oa::oaViaParam params;
    params.setCutLayer(3);
    params.setCutColumns(3);
    params.setCutRows(2);
    params.setCutWidth(10);
    params.setCutHeight(20);
    params.setCutSpacing(oa::oaVector(6, 8));
    params.setOriginOffset(oa::oaVector(1, -2));
    params.setLayer1Enc(oa::oaVector(2, 3));
    params.setLayer2Enc(oa::oaVector(4, 5));
    params.setLayer1Offset(oa::oaVector(-1, 1));
    params.setLayer2Offset(oa::oaVector(0, 2));
    params.setImplant1Enc(oa::oaVector(7, 8));
    params.setImplant2Enc(oa::oaVector(9, 9));
    params.setCutPatternVal(1, 2, false);
    params.setCutPatternVal(0, 1, false);
    return params;
}

oa::oaViaParam oneRow() {
    oa::oaViaParam params;
    params.setCutRows(1);
    params.setCutSpacing(oa::oaVector(-3, 0));
    params.setCutPatternVal(0, 0, false);
    return params;
}

/// A parameter of each kind.
oa::oaParamArray customParams() {
    const oa::oaByte bytes[] = {0, 1, 0xFF};
    oa::oaParam boolean;
    boolean.setName("boolean");
    boolean.setBooleanVal(true);
    oa::oaParam time;
    time.setName("time");
    time.setTimeVal(1'000'000);
    const oa::oaParam params[] = {oa::oaParam("int", oa::oaInt4(-3)),
                                  oa::oaParam("float", 0.5f),
                                  oa::oaParam("double", 2.5),
                                  oa::oaParam("string", oa::oaString("gr\u00f6\u00dfe")),
                                  oa::oaParam("bytes", "type", 3, bytes),
                                  boolean,
                                  time};
    return oa::oaParamArray(params, 7);
}

/// The definitions of a technology, which comes with its layers.
struct Definitions {
    explicit Definitions(oa::oaTech* of) : tech(of) {
        const oa::oaViaParam all = allParams();
        array = oa::oaStdViaDef::create(tech, "array", metal1, metal2, all, nplus, pplus);
        array->setResistancePerCut(1.5f);
        oa::oaStringProp::create(array, "use", "power");
        oa::oaViaParam square;
        square.setCutLayer(3);
        square.setCutWidth(8);
        square.setCutHeight(4);
        plain = oa::oaStdViaDef::create(tech, "plain", metal2, metal1, square);
        custom = oa::oaCustomViaDef::create(tech, "custom", name("exchange"), name("drawn"),
                                            name("layout"), metal1, metal2);
        custom->setResistancePerCut(0.25f);
        oa::oaCustomViaDef::create(tech, "nowhere", name("exchange"), name("nothing"),
                                   name("layout"), metal2, metal1);
    }

    oa::oaTech* tech;
    oa::oaPhysicalLayer* metal1 = oa::oaPhysicalLayer::create(tech, "metal1", 1);
    oa::oaPhysicalLayer* metal2 = oa::oaPhysicalLayer::create(tech, "metal2", 2);
    oa::oaPhysicalLayer* cut = oa::oaPhysicalLayer::create(tech, "cut", 3);
    oa::oaPhysicalLayer* nplus = oa::oaPhysicalLayer::create(tech, "nplus", 4);
    oa::oaPhysicalLayer* pplus = oa::oaPhysicalLayer::create(tech, "pplus", 5);
    oa::oaStdViaDef* array = nullptr;
    oa::oaStdViaDef* plain = nullptr;
    oa::oaCustomViaDef* custom = nullptr;
};

void drawCustomMaster() {
    oa::oaDesign* design = newDesign("drawn");
    oa::oaRect::create(oa::oaBlock::create(design), 1, oa::oavPurposeNumberDrawing,
                       oa::oaBox(-3, -4, 5, 6));
    design->save();
    design->close();
}

void placeStandard(oa::oaBlock* block, const Definitions& defs) {
    oa::oaStdVia* gone = oa::oaStdVia::create(block, defs.plain, oa::oaTransform());
    for (oa::oaInt4 i = 0; i < 8; ++i)
        oa::oaStdVia::create(block, defs.plain,
                             oa::oaTransform(100 * i, -50, oa::oaOrientEnum(oa::oacR0 + i)));
    gone->destroy();

    const oa::oaName netName(oa::oaNativeNS(), "vdd");
    oa::oaNet* net = oa::oaNet::create(block, netName);
    oa::oaPin* pin = oa::oaPin::create(oa::oaTerm::create(net, netName), "pin");
    oa::oaStdVia* via = oa::oaStdVia::create(block, defs.array, oa::oaTransform(1000, 2000));
    via->addToNet(net);
    oa::oaStringProp::create(via, "note", "as defined");
    const oa::oaViaParam params = oneRow();
    via = oa::oaStdVia::create(block, defs.array, oa::oaTransform(1100, 2000), &params);
    via->addToPin(pin);
    oa::oaIntProp::create(via->getHeader(), "rows", 1);
    oa::oaIntProp::create(oa::oaViaHeader::find(block, "array"), "rank", 3);
    oa::oaStdVia::create(block, defs.array, oa::oaTransform(1200, 2000), &params);
}

void placeCustom(oa::oaBlock* block, const Definitions& defs) {
    const oa::oaParamArray params = customParams();
    oa::oaCustomVia::create(block, defs.custom, oa::oaTransform(10, 20, oa::oacMYR90));
    oa::oaCustomVia::create(block, defs.custom, oa::oaTransform(30, 40), &params);
}

/// Vias of either kind of one name, of which those of one kind have lost their definition.
void placeBothKinds(oa::oaBlock* block, const Definitions& defs) {
    auto* standard =
        oa::oaStdViaDef::create(defs.tech, "both", defs.metal1, defs.metal2, allParams());
    oa::oaStdVia::create(block, standard, oa::oaTransform(7, 7));
    standard->destroy();
    const auto* custom =
        oa::oaCustomViaDef::create(defs.tech, "both", name("exchange"), name("drawn"),
                                   name("layout"), defs.metal1, defs.metal2);
    oa::oaCustomVia::create(block, custom, oa::oaTransform(8, 8));
}

} // namespace

void makeViaLibrary(const std::string& path) {
    oa::oaDesignInit();
    oa::oaLib* lib = oa::oaLib::create(name("exchange"), path.c_str());
    drawCustomMaster();
    oa::oaTech* tech = oa::oaTech::create(lib);
    const Definitions definitions(tech);
    oa::oaDesign* design = newDesign("vias");
    oa::oaBlock* block = oa::oaBlock::create(design);
    placeStandard(block, definitions);
    placeCustom(block, definitions);
    placeBothKinds(block, definitions);
    design->save();
    tech->save();
    lib->close();
}

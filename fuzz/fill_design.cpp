#include "definitions.h"
#include "visit.h"

#include <array>

namespace fuzz {

namespace {

constexpr oa::oaPurposeNum kDrawing = 0xFFFFFFFF;

oa::oaScalarName scalar(const char* text) {
    return oa::oaScalarName(oa::oaNativeNS(), text);
}

oa::oaName general(const char* text) {
    return oa::oaName(oa::oaNativeNS(), text);
}

template <std::size_t count>
oa::oaPointArray pointsOf(const std::array<oa::oaPoint, count>& points) {
    return oa::oaPointArray(points.data(), oa::oaUInt4(count));
}

const oa::oaByte* bytesOf(const char* text) {
    return reinterpret_cast<const oa::oaByte*>(text);
}

} // namespace

void addProps(oa::oaObject* object) {
    oa::oaIntProp::create(object, "int", -7);
    oa::oaIntRangeProp::create(object, "int range", 1, 2, 3);
    oa::oaFloatProp::create(object, "float", 0.5f);
    oa::oaFloatRangeProp::create(object, "float range", 0.25f, 0.5f, 0.75f);
    oa::oaDoubleProp::create(object, "double", 3.25);
    oa::oaDoubleRangeProp::create(object, "double range", -1.0, 0.0, 1.0);
    oa::oaBooleanProp::create(object, "boolean", true);
    oa::oaTimeProp::create(object, "time", 1'000'000);
    oa::oaTimeRangeProp::create(object, "time range", 1, 2, 3);
    oa::oaStringProp::create(object, "string", "text");
    oa::oaAppProp::create(object, "app", "bytes", 3, bytesOf("\0\1\2"));
    const oa::oaString colours[] = {"red", "green"};
    oa::oaEnumProp::create(object, "enum", "red", 2, colours);
    oa::oaHierProp* group = oa::oaHierProp::create(object, "group");
    oa::oaIntProp::create(group, "inside", 1);
}

namespace {

void drawAreas(oa::oaBlock* block) {
    oa::oaRect* rect = oa::oaRect::create(block, 1, kDrawing, oa::oaBox(0, 0, 100, 50));
    definitions().size->set(rect, 5);
    definitions().weight->set(rect, 0.25f);
    definitions().time->set(rect, 77);
    oa::oaRect::create(block, 1, kDrawing, oa::oaBox(-5, -5, 5, 5));
    oa::oaRect::create(block, 2, kDrawing, oa::oaBox(0, 0, 10, 10))->setLPP(1, 7);
    oa::oaPolygon::create(block, 1, kDrawing, pointsOf<3>({{{0, 0}, {20, 0}, {10, 30}}}));
    oa::oaEllipse::create(block, 1, kDrawing, oa::oaBox(0, 0, 40, 20));
    oa::oaDonut::create(block, 1, kDrawing, oa::oaPoint(5, 5), 20, 10);
    oa::oaDot::create(block, 1, kDrawing, oa::oaPoint(1, 2), 3, 4);
}

void drawLines(oa::oaBlock* block) {
    const oa::oaPointArray corner = pointsOf<3>({{{0, 0}, {50, 0}, {50, 40}}});
    oa::oaLine::create(block, 1, kDrawing, corner);
    oa::oaPath::create(block, 1, kDrawing, 6, corner, oa::oacExtendPathStyle);
    oa::oaPathSeg::create(block, 1, kDrawing, oa::oaPoint(0, 0), oa::oaPoint(30, 0),
                          oa::oaSegStyle(8, oa::oacExtendEndStyle, oa::oacTruncateEndStyle));
    oa::oaArc::create(block, 1, kDrawing, oa::oaBox(0, 0, 40, 40), 0.5, 2.5);
}

void drawTexts(oa::oaBlock* block, oa::oaNet* net) {
    const oa::oaPoint origin(10, 20);
    oa::oaText::create(block, 3, kDrawing, "a text", origin, oa::oacCenterCenterTextAlign,
                       oa::oacR90, oa::oacRomanFont, 12);
    oa::oaEvalText::create(block, 3, kDrawing, "expression", origin, oa::oacLowerLeftTextAlign,
                           oa::oacR0, oa::oacRomanFont, 12, oa::oaString("evaluator"));
    oa::oaAttrDisplay::create(net, oa::oaNetAttrType(oa::oacNameNetAttrType), 3, kDrawing, origin,
                              oa::oacLowerLeftTextAlign, oa::oacR0, oa::oacRomanFont, 12);
    oa::oaPropDisplay::create(oa::oaProp::find(net, "int"), 3, kDrawing, origin,
                              oa::oacLowerLeftTextAlign, oa::oacR0, oa::oacRomanFont, 12);
}

oa::oaNet* connect(oa::oaBlock* block) {
    oa::oaNet* net = oa::oaNet::create(block, general("vdd"), oa::oacPowerSigType, true);
    oa::oaNet::create(block, general("unused"));
    oa::oaRect::create(block, 2, kDrawing, oa::oaBox(0, 0, 9, 9))->addToNet(net);
    oa::oaTerm* term = oa::oaTerm::create(net, general("VDD"), oa::oacInputTermType);
    term->setPosition(0);
    term->setIsInterface(true);
    oa::oaTerm::create(net, general("VDD2"));
    oa::oaPin* pin = oa::oaPin::create(term, "pin", oa::oacTop);
    oa::oaRect::create(block, 2, kDrawing, oa::oaBox(3, 3, 6, 6))->addToPin(pin);
    oa::oaPin::create(term);
    for (oa::oaObject* object : {static_cast<oa::oaObject*>(net), static_cast<oa::oaObject*>(term),
                                 static_cast<oa::oaObject*>(pin)})
        addProps(object);
    definitions().checked->set(net, true);
    definitions().remark->set(net, "a remark");
    definitions().fixed->set(term, bytesOf("wxyz"));
    definitions().free->set(term, 3, bytesOf("\0\1\2"));
    definitions().angle->set(pin, 270.0);
    return net;
}

oa::oaParamArray allParams() {
    std::array<oa::oaParam, 7> params = {oa::oaParam("int", oa::oaInt4(3)),
                                         oa::oaParam("float", 0.5f), oa::oaParam("double", 2.5),
                                         oa::oaParam("string", oa::oaString("text")),
                                         oa::oaParam("bytes", "type", 3, bytesOf("\0\1\2"))};
    params[5].setName("boolean");
    params[5].setBooleanVal(true);
    params[6].setName("time");
    params[6].setTimeVal(99);
    return oa::oaParamArray(params.data(), oa::oaUInt4(params.size()));
}

void place(oa::oaDesign* design) {
    const oa::oaNativeNS ns;
    oa::oaScalarName lib;
    oa::oaScalarName cell;
    oa::oaScalarName view;
    design->getLibName(lib);
    design->getCellName(cell);
    design->getViewName(view);
    oa::oaBlock* block = design->getTopBlock();
    const oa::oaParamArray params = allParams();
    oa::oaScalarInst::create(block, lib, scalar("missing"), view, scalar("I1"),
                             oa::oaTransform(oa::oaPoint(100, 200), oa::oacMXR90), &params);
    oa::oaScalarInst::create(block, lib, cell, view, scalar("I2"),
                             oa::oaTransform(oa::oaPoint(1, 2), oa::oacR0));
    oa::oaArrayInst::create(block, lib, cell, view, scalar("A"),
                            oa::oaTransform(oa::oaPoint(0, 0), oa::oacR180), 500, 600, 2, 3);
    oa::oaVectorInst* vector =
        oa::oaVectorInst::create(block, lib, cell, view, scalar("V"), 3, 1, oa::oaTransform(7, 8));
    oa::oaInst* bit = oa::oaVectorInstBit::create(block, lib, scalar("missing"), view, scalar("V"),
                                                  9, oa::oaTransform(0, 0), &params);
    oa::oaNet* net = oa::oaNet::find(block, general("vdd"));
    oa::oaInstTerm::create(net, vector, general("VDD"));
    oa::oaInstTerm::create(nullptr, vector->getBit(0), general("VDD2"));
    addProps(oa::oaInstTerm::create(net, bit, 0u));
}

void placeVias(oa::oaBlock* block) {
    const oa::oaTech* tech = block->getDesign()->getTech();
    const auto* standard = static_cast<oa::oaStdViaDef*>(oa::oaViaDef::find(tech, "via"));
    oa::oaViaParam rows;
    rows.setCutRows(3);
    rows.setCutPatternVal(2, 0, false);
    addProps(oa::oaStdVia::create(block, standard, oa::oaTransform(10, 20, oa::oacR90)));
    oa::oaStdVia::create(block, standard, oa::oaTransform(30, 40), &rows)
        ->addToNet(oa::oaNet::find(block, general("vdd")));
    oa::oaStdVia::create(block, standard, oa::oaTransform(50, 60), &rows);
    const auto* custom = static_cast<oa::oaCustomViaDef*>(oa::oaViaDef::find(tech, "custom via"));
    oa::oaCustomVia::create(block, custom, oa::oaTransform(70, 80, oa::oacMY));
    const auto* missing = static_cast<oa::oaCustomViaDef*>(oa::oaViaDef::find(tech, "missing via"));
    const oa::oaParamArray params = allParams();
    oa::oaCustomVia::create(block, missing, oa::oaTransform(90, 100), &params);
}

} // namespace

void fill(oa::oaDesign* design) {
    oa::oaBlock* block = oa::oaBlock::create(design);
    design->setCellType(oa::oacPadCellType);
    addProps(design);
    addProps(block);
    drawAreas(block);
    drawLines(block);
    drawTexts(block, connect(block));
    place(design);
    placeVias(block);
}

void makeMaster(oa::oaDesign* design) {
    oa::oaRect::create(oa::oaBlock::create(design), 1, kDrawing, oa::oaBox(0, 0, 10, 10));
    oa::oaPcellDef* def = oa::oaPcellLink::getPcellDef("note");
    def->addData("note", "definition data");
    design->defineSuperMaster(def, allParams());
}

} // namespace fuzz

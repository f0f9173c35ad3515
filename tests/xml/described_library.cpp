#include "xml/described_library.h"

namespace ovalis::test {

using namespace oa;

namespace {

oaPointArray corner() {
    oaPointArray points;
    points.append(oaPoint(0, 0));
    points.append(oaPoint(30, 0));
    points.append(oaPoint(30, 40));
    return points;
}

void drawShapes(oaBlock* block) {
    oaRect::create(block, 1, 2, oaBox(0, 0, 10, 20));
    oaPolygon::create(block, 1, 2, corner());
    oaPath::create(block, 1, 2, 4, corner());
    oaPathSeg::create(block, 1, 2, oaPoint(0, 0), oaPoint(10, 0),
                      oaSegStyle(4, oacTruncateEndStyle, oacTruncateEndStyle));
    oaLine::create(block, 2, oavPurposeNumberDrawing, corner());
    oaArc::create(block, 2, oavPurposeNumberDrawing, oaBox(0, 0, 10, 10), 0, 1);
    oaEllipse::create(block, 2, oavPurposeNumberDrawing, oaBox(0, 0, 10, 20));
    oaDonut::create(block, 2, oavPurposeNumberDrawing, oaPoint(50, 50), 9, 3);
    oaDot::create(block, 3, 1, oaPoint(5, 6));
    oaText::create(block, 3, 1, "<\"größe\">", oaPoint(7, 8), oacCenterCenterTextAlign, oacR90,
                   oacRomanFont, 10);
    oaEvalText::create(block, 3, 1, "1 + <1>", oaPoint(40, 40), oacLowerLeftTextAlign, oacR0,
                       oacRomanFont, 2);
    oaRect* marked = oaRect::create(block, 4, 1, oaBox(100, 100, 110, 110));
    oaIntAppDef<oaRect>::get("described mark")->set(marked, 1);
}

/// Draws what shows an attribute and a property of a net.
void drawDisplays(oaBlock* block) {
    oaNet* net = oaNet::create(block, oaName(oaNativeNS(), "shown"));
    oaAttrDisplay::create(net, oaNetAttrType(oacNameNetAttrType), 3, 1, oaPoint(40, 50),
                          oacLowerLeftTextAlign, oacR0, oacRomanFont, 2);
    oaPropDisplay::create(oaIntProp::create(net, "width", 7), 3, 1, oaPoint(40, 60),
                          oacLowerLeftTextAlign, oacR0, oacRomanFont, 2);
}

void addProps(oaObject* object) {
    const oaByte bytes[] = {1, 2, 255};
    const oaString enums[] = {"red", "green"};
    oaIntProp::create(object, "int", -5);
    oaIntRangeProp::create(object, "int range", 1, 2, 3);
    oaFloatProp::create(object, "float", 0.5F);
    oaFloatRangeProp::create(object, "float range", 0.5F, 1.5F, 2.5F);
    oaStringProp::create(object, "string", "a \"b\" <c>");
    oaAppProp::create(object, "app", "mine", 3, bytes);
    oaDoubleProp::create(object, "double", 0.25);
    oaDoubleRangeProp::create(object, "double range", 0.25, 0.5, 0.75);
    oaBooleanProp::create(object, "boolean", true);
    oaHierProp::create(object, "hier");
    oaTimeProp::create(object, "time", 1000000000);
    oaTimeRangeProp::create(object, "time range", 1, 2, 3);
    oaEnumProp::create(object, "enum", "green", 2, enums);
}

void connect(oaBlock* block) {
    const oaNativeNS ns;
    for (const char* name : {"a", "b<\"1\">"}) {
        oaNet* net = oaNet::create(block, oaName(ns, name));
        oaTerm* term = oaTerm::create(net, oaName(ns, name), oacInputTermType);
        oaPin* pin = oaPin::create(term, name);
        oaRect::create(block, 5, 1, oaBox(0, 0, 1, 1))->addToPin(pin);
        vexPinAngle->set(pin, 90);
    }
}

} // namespace

void DescribedLibrary::makeTech() {
    oaTech* tech = oaTech::open(&lib(), 'w');
    oaPhysicalLayer* metal = oaPhysicalLayer::create(tech, "metal", 1);
    oaPhysicalLayer* via = oaPhysicalLayer::create(tech, "via", 2, oacCutMaterial);
    oaDerivedLayer::create(metal, via, oacAndLayerOp, "metal and via", 10);
    oaSizedLayer::create(metal, oacGrowSizeOp, 5, "wide metal", 11);
    oaPurpose::create(tech, "label", 2);
    oaIntValue::create(tech, 7);
    tech->setDBUPerUU(oaViewType::get(oacMaskLayout), 2000);
    oaStringProp::create(tech, "foundry", "ours");
    oaIntAppDef<oaPhysicalLayer>::get("described color")->set(metal, 3);
    tech->save();
    tech->close();
}

void DescribedLibrary::makeLeaf() {
    oaBlock* block = newBlock("leaf");
    drawShapes(block);
    addProps(block->getDesign());
    connect(block);
    drawDisplays(block);
    oaStringAppDef<oaDesign>::get("described owner")->set(block->getDesign(), "us");
    finish(block);
}

void DescribedLibrary::makeMiddle() {
    const oaNativeNS ns;
    oaBlock* block = newBlock("middle");
    oaInst* single = oaScalarInst::create(block, name("lib"), name("leaf"), name("layout"),
                                          name("single"), oaTransform(100, 200, oacR90));
    oaArrayInst::create(block, name("lib"), name("leaf"), name("layout"), name("array"),
                        oaTransform(), 50, 60, 2, 3);
    oaVectorInst::create(block, name("lib"), name("leaf"), name("layout"), name("vector"), 1, 0,
                         oaTransform());
    oaNet* net = oaNet::create(block, oaName(ns, "n"));
    oaInstTerm::create(net, single, oaName(ns, "a"));
    oaInstTerm::create(nullptr, single, oaName(ns, "missing"));
    finish(block);
}

void DescribedLibrary::makeSquare() {
    oaBlock* block = newBlock("square");
    oaParamArray defaults;
    defaults.append(oaParam("size", oaInt4(10)));
    defaults.append(oaParam("label", oaString("none")));
    block->getDesign()->defineSuperMaster(evaluator_->getPcellDef(), defaults);
    finish(block);
}

void DescribedLibrary::makeMacro() {
    IntParam turns("turns", 3);
    oaBlock* block = newBlock("macro");
    makeSKRPcell(*block->getDesign(), {&turns}, CellOptions(), "drawInductor()");
    finish(block);
}

void DescribedLibrary::makeTop() {
    oaBlock* block = newBlock("top");
    oaParamArray params;
    params.append(oaParam("size", oaInt4(30)));
    oaScalarInst::create(block, name("lib"), name("middle"), name("layout"), name("m"),
                         oaTransform());
    oaScalarInst::create(block, name("lib"), name("square"), name("layout"), name("s"),
                         oaTransform(1000, 0), &params);
    oaScalarInst::create(block, name("lib"), name("macro"), name("layout"), name("k"),
                         oaTransform());
    oaScalarInst::create(block, name("lib"), name("none"), name("layout"), name("x"),
                         oaTransform());
    finish(block);
}

void DescribedLibrary::makeNotes() {
    const oaCellView* view = createCellView(lib(), "notes", "plan", "textPlan");
    oaDMFile::create(view, "plan.txt");
    oaDMFile::create(view->getCell(), "remarks.txt");
}

} // namespace ovalis::test

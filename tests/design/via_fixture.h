#pragma once

#include "design_fixture.h"

namespace design_test {

/// A design in a library whose technology has the layers and definitions of vias.
class ViaTest : public DesignTest {
protected:
    oaTech* tech = oaTech::create(lib);
    oaPhysicalLayer* metal1 = oaPhysicalLayer::create(tech, "metal1", 1, oacMetalMaterial);
    oaPhysicalLayer* metal2 = oaPhysicalLayer::create(tech, "metal2", 2, oacMetalMaterial);
    oaPhysicalLayer* cut = oaPhysicalLayer::create(tech, "cut", 3, oacCutMaterial);
    oaPhysicalLayer* implant = oaPhysicalLayer::create(tech, "implant", 4);
    oaStdViaDef* def = oaStdViaDef::create(tech, "via", metal1, metal2, oneCut());
    oaCustomViaDef* customDef = oaCustomViaDef::create(tech, "custom", name("lib"), name("drawn"),
                                                       name("layout"), metal1, metal2);
    oaBlock* block = makeBlock();

    /// One cut of 10 by 20, which metal 1 encloses by 2 and 3, and metal 2 by 4.
    static oaViaParam oneCut() {
        oaViaParam params;
        params.setCutLayer(3);
        params.setCutWidth(10);
        params.setCutHeight(20);
        params.setLayer1Enc(oaVector(2, 3));
        params.setLayer2Enc(oaVector(4, 4));
        return params;
    }
    /// Parameters of which only the number of columns is set.
    static oaViaParam columns(oaUInt4 count) {
        oaViaParam params;
        params.setCutColumns(count);
        return params;
    }

    oaStdVia* place(const oaTransform& xform = oaTransform(), const oaViaParam* params = nullptr) {
        return oaStdVia::create(block, def, xform, params);
    }
    oaCustomVia* placeCustom(const oaTransform& xform = oaTransform()) {
        return oaCustomVia::create(block, customDef, xform);
    }
    /// The master of custom vias: a square of 6.
    oaBlock* drawMaster() {
        oaBlock* drawn = makeBlock("drawn");
        oaRect::create(drawn, 1, oavPurposeNumberDrawing, oaBox(-3, -3, 3, 3));
        drawn->getDesign()->save();
        return drawn;
    }

    /// The rectangles of a design, as "layer: left bottom right top", in order.
    static std::vector<std::string> shapesOf(const oaDesign* design) {
        std::vector<std::string> shapes;
        for (const oaShape* shape : all(design->getTopBlock()->getShapes()))
            shapes.push_back(std::to_string(shape->getLayerNum()) + ": " + boxText(shape));
        std::sort(shapes.begin(), shapes.end());
        return shapes;
    }

    /// Saves and closes the design, the technology and the library, and opens them again.
    void reopenAll(oaChar mode = 'r') {
        tech->save();
        block->getDesign()->save();
        lib->close();
        lib = oaLib::open(name("lib"), (directory.str() + "/lib").c_str());
        tech = oaTech::open(lib, 'a');
        def = static_cast<oaStdViaDef*>(oaViaDef::find(tech, "via"));
        customDef = static_cast<oaCustomViaDef*>(oaViaDef::find(tech, "custom"));
        block = open("cell", mode)->getTopBlock();
    }
};

using Shapes = std::vector<std::string>;

} // namespace design_test

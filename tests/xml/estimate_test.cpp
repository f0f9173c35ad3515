// The room that the text of a design is given before it is made.

#include "xml/estimate.h"

#include "xml/described_library.h"

using namespace ovalis;
using namespace oa;

namespace {

class Estimate : public test::DescribedLibrary {
protected:
    static void drawRects(oaBlock* block, int count) {
        for (int i = 0; i < count; ++i) {
            oaRect::create(block, 1, 1, oaBox(i, i, i + 5, i + 7));
        }
    }

    /// Outlines of so many points, as large as they can be.
    static oaPointArray longOutline(int points) {
        oaPointArray outline;
        outline.append(oaPoint(0, -1000000000));
        for (int i = 1; i < points; ++i) {
            outline.append(oaPoint(-1000000000 + i * 1000, (i % 2) * 100));
        }
        return outline;
    }

    static void connect(oaBlock* block, oaInst* inst, int count) {
        for (int i = 0; i < count; ++i) {
            const std::string text = "net" + std::to_string(i);
            const oaName name(oaNativeNS(), text.c_str());
            oaNet* net = oaNet::create(block, name);
            vexPinAngle->set(oaPin::create(oaTerm::create(net, name), text.c_str()), 90);
            oaInstTerm::create(net, inst, name);
        }
    }

    static oaInst* place(oaBlock* block, int number) {
        const std::string text = "inst" + std::to_string(number);
        return oaScalarInst::create(block, name("lib"), name("leaf"), name("layout"),
                                    name(text.c_str()), oaTransform(number, number));
    }

    /// The text fits into its room, of which not too much is left.
    static void expectFit(const oaBlock* block) {
        const std::size_t size = xmlFormat(*block->getDesign()).size();
        const std::size_t room = estimatedSize(*block->getDesign());
        EXPECT_GE(room, size);
        EXPECT_LE(room, 2 * size);
    }
};

} // namespace

TEST_F(Estimate, OfASmallDesignIsNotMade) {
    oaBlock* block = newBlock("cell");
    EXPECT_EQ(estimatedSize(*block->getDesign()), 0U);
    drawRects(block, 3000);
    EXPECT_EQ(estimatedSize(*block->getDesign()), 0U);
    EXPECT_EQ(estimatedSize(design("empty", "layout", 'w')), 0U);
}

TEST_F(Estimate, HoldsForShapesOfOneKind) {
    oaBlock* block = newBlock("cell");
    drawRects(block, 20000);
    expectFit(block);
}

TEST_F(Estimate, HoldsForAFewLongOutlinesBehindManyShapes) {
    oaBlock* block = newBlock("cell");
    drawRects(block, 5000);
    for (int i = 0; i < 60; ++i) {
        oaPolygon::create(block, 2, 1, longOutline(2000));
        oaLine::create(block, 3, 1, longOutline(1000));
    }
    expectFit(block);
}

TEST_F(Estimate, HoldsForOneLongOutline) {
    oaBlock* block = newBlock("cell");
    oaPolygon::create(block, 2, 1, longOutline(100000));
    drawRects(block, 400);
    expectFit(block);
}

TEST_F(Estimate, HoldsForConnectionsAndInstances) {
    makeLeaf();
    oaBlock* block = newBlock("cell");
    oaInst* const first = place(block, 0);
    connect(block, first, 1500);
    for (int i = 1; i < 5000; ++i) {
        place(block, i);
    }
    expectFit(block);
}

#include "two_designs.h"

namespace comparison::test {
namespace {

/// Two designs whose technology has definitions of vias.
class ViaTest : public TwoDesigns {
protected:
    ViaTest() {
        oa::oaTech* const tech = oa::oaTech::find(scalar("lib"));
        auto* const first = oa::oaPhysicalLayer::find(tech, "M1");
        auto* const second = oa::oaPhysicalLayer::find(tech, "M2");
        oa::oaPhysicalLayer::create(tech, "cut", 3, oa::oacCutMaterial);
        oa::oaViaParam params;
        params.setCutLayer(3);
        params.setCutWidth(10);
        params.setCutHeight(20);
        standard_ = oa::oaStdViaDef::create(tech, "via", first, second, params);
        custom_ = oa::oaCustomViaDef::create(tech, "custom", scalar("lib"), scalar("drawn"),
                                             scalar("layout"), first, second);
    }

    oa::oaStdVia* place(oa::oaBlock* block, oa::oaCoord x, oa::oaUInt4 columns = 1) {
        oa::oaViaParam params;
        if (columns > 1)
            params.setCutColumns(columns);
        return oa::oaStdVia::create(block, standard_, oa::oaTransform(x, 0), &params);
    }
    oa::oaCustomVia* placeCustom(oa::oaBlock* block, oa::oaCoord x) {
        return oa::oaCustomVia::create(block, custom_, oa::oaTransform(x, 0));
    }

private:
    oa::oaStdViaDef* standard_;
    oa::oaCustomViaDef* custom_;
};

TEST_F(ViaTest, InAnotherOrderAreTheSame) {
    place(wasBlock(), 0);
    place(wasBlock(), 100, 3);
    placeCustom(wasBlock(), 0);
    placeCustom(isBlock(), 0);
    place(isBlock(), 100, 3);
    place(isBlock(), 0);
    EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(ViaTest, ThatMoveAreOneLineEach) {
    place(wasBlock(), 0);
    placeCustom(wasBlock(), 0);
    place(isBlock(), 5);
    placeCustom(isBlock(), 7);
    EXPECT_THAT(differences(),
                ::testing::UnorderedElementsAre("via \"via\" at (0, 0) moved by (5, 0)",
                                                "via \"custom\" at (0, 0) moved by (7, 0)"));
}

TEST_F(ViaTest, DifferInParametersOrientationAndNet) {
    inBoth([](oa::oaBlock* block) { oa::oaNet::create(block, general("n")); });
    place(wasBlock(), 0);
    place(isBlock(), 0, 2)->setOrient(oa::oacR90);
    place(wasBlock(), 100);
    place(isBlock(), 100)->addToNet(oa::oaNet::find(isBlock(), general("n")));
    EXPECT_THAT(differences(), ElementsAre("via \"via\" at (0, 0): cut columns was none, is 2",
                                           "via \"via\" at (0, 0): orientation was R0, is R90",
                                           "via \"via\" at (100, 0): net was none, is \"n\""));
}

TEST_F(ViaTest, ComeAndGo) {
    place(wasBlock(), 0);
    placeCustom(isBlock(), 50);
    EXPECT_THAT(differences(),
                ElementsAre("via \"via\" at (0, 0) removed", "via \"custom\" at (50, 0) added"));
}

} // namespace
} // namespace comparison::test

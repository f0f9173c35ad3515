#include "two_designs.h"

namespace comparison::test {
namespace {

class InstanceTest : public TwoDesigns {};

oa::oaParamArray turns(oa::oaInt4 count) {
    const oa::oaParam param("turns", count);
    return {&param, 1};
}

oa::oaInst* place(oa::oaBlock* block, const char* name, oa::oaCoord x = 0,
                  const oa::oaParamArray* params = nullptr) {
    return oa::oaScalarInst::create(block, scalar("lib"), scalar("coil"), scalar("layout"),
                                    scalar(name), oa::oaTransform(x, 0), params);
}

TEST_F(InstanceTest, OfEveryKindAreTheSame) {
    const oa::oaParamArray params = turns(3);
    const auto placeAll = [&params](oa::oaBlock* block) {
        place(block, "I1", 5, &params);
        oa::oaArrayInst::create(block, scalar("lib"), scalar("coil"), scalar("layout"), scalar("A"),
                                oa::oaTransform(0, 0), 10, 20, 2, 3);
        oa::oaVectorInst* const vector =
            oa::oaVectorInst::create(block, scalar("lib"), scalar("coil"), scalar("layout"),
                                     scalar("V"), 3, 1, oa::oaTransform(7, 8));
        oa::oaVectorInstBit::create(block, scalar("lib"), scalar("coil"), scalar("layout"),
                                    scalar("V"), 9, oa::oaTransform(0, 0));
        oa::oaNet* const net = oa::oaNet::create(block, general("n"));
        oa::oaInstTerm::create(net, vector, general("T"));
        oa::oaInstTerm::create(net, vector->getBit(0), general("U"));
    };
    inBoth(placeAll);
    EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(InstanceTest, ThatMovesAndTurnsSaysBoth) {
    inBoth([](oa::oaBlock* block) { place(block, "I1", 5); });
    place(wasBlock(), "I2");
    place(isBlock(), "I2")->setTransform(oa::oaTransform(3, 4, oa::oacR90));
    EXPECT_THAT(differences(), ElementsAre("instance \"I2\" moved by (3, 4)",
                                           "instance \"I2\": orientation was R0, is R90"));
}

TEST_F(InstanceTest, WithAnotherParameterIsOneLine) {
    const oa::oaParamArray three = turns(3);
    const oa::oaParamArray four = turns(4);
    place(wasBlock(), "I1", 0, &three);
    place(isBlock(), "I1", 0, &four);
    place(wasBlock(), "I2");
    place(isBlock(), "I2", 0, &four);
    EXPECT_THAT(differences(),
                ElementsAre("instance \"I1\": parameter \"turns\" was int 3, is int 4",
                            "instance \"I2\": parameter \"turns\" added: int 4"));
}

TEST_F(InstanceTest, OfAnotherMasterIsOneLine) {
    inBoth([](oa::oaBlock* block) { place(block, "I1"); });
    oa::oaInst::find(isBlock(), scalar("I1"))
        ->setMaster(scalar("other"), scalar("coil"), scalar("layout"));
    EXPECT_THAT(differences(), ElementsAre("instance \"I1\": master was lib/coil/layout, is "
                                           "other/coil/layout"));
}

TEST_F(InstanceTest, OfTheOwnLibraryIsTheSameWhateverThatIsCalled) {
    place(wasBlock(), "I1");
    place(isBlock(), "I1")->setMaster(scalar("copy"), scalar("coil"), scalar("layout"));
    Log log;
    compareDesigns(Place("at", log), was(), is(), {"lib", "copy"});
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(InstanceTest, ThatIsRenamedIsOneLine) {
    for (oa::oaBlock* block : {wasBlock(), isBlock()}) {
        const char* const name = block == wasBlock() ? "I1" : "J1";
        oa::oaInstTerm::create(oa::oaNet::create(block, general("n")), place(block, name),
                               general("T"));
        place(block, "K", 100);
    }
    EXPECT_THAT(differences(), ElementsAre("instance \"I1\" renamed to \"J1\""));
}

TEST_F(InstanceTest, ThatComesOrGoesTakesItsTerminalsAlong) {
    oa::oaNet* const net = oa::oaNet::create(wasBlock(), general("n"));
    oa::oaNet::create(isBlock(), general("n"));
    oa::oaInstTerm::create(net, place(wasBlock(), "I1"), general("T"));
    place(isBlock(), "I2", 7);
    EXPECT_THAT(differences(), ElementsAre("instance \"I1\" removed", "instance \"I2\" added"));
}

TEST_F(InstanceTest, TerminalsAreConnectedElsewhere) {
    inBoth([](oa::oaBlock* block) {
        oa::oaNet* const net = oa::oaNet::create(block, general("a"));
        oa::oaNet::create(block, general("b"));
        oa::oaInst* const inst = place(block, "I1");
        oa::oaInstTerm::create(net, inst, general("S"));
        oa::oaInstTerm::create(net, inst, general("T"));
    });
    oa::oaInst* const inst = oa::oaInst::find(isBlock(), scalar("I1"));
    oa::oaInstTerm::find(inst, general("S"))->addToNet(oa::oaNet::find(isBlock(), general("b")));
    oa::oaInstTerm::find(inst, general("T"))->destroy();
    EXPECT_THAT(differences(),
                ElementsAre("terminal \"S\" of instance \"I1\": net was \"a\", is \"b\"",
                            "terminal \"T\" of instance \"I1\" removed"));
}

TEST_F(InstanceTest, ArraysOfAnotherSizeSayWhat) {
    const auto placeArray = [](oa::oaBlock* block, oa::oaUInt4 rows) {
        oa::oaArrayInst::create(block, scalar("lib"), scalar("coil"), scalar("layout"), scalar("A"),
                                oa::oaTransform(0, 0), 10, 20, rows, 3);
    };
    placeArray(wasBlock(), 2);
    placeArray(isBlock(), 4);
    EXPECT_THAT(differences(), ElementsAre("instance \"A\": rows was 2, is 4"));
}

TEST_F(InstanceTest, BitsHaveOnlyTheirOwnDifferences) {
    const auto placeVector = [](oa::oaBlock* block, oa::oaCoord x) {
        return oa::oaVectorInst::create(block, scalar("lib"), scalar("coil"), scalar("layout"),
                                        scalar("V"), 1, 0, oa::oaTransform(x, 0));
    };
    placeVector(wasBlock(), 0);
    oa::oaIntProp::create(placeVector(isBlock(), 5)->getBit(1), "N", 1);
    EXPECT_THAT(differences(), ElementsAre("instance \"V[0]\": property \"N\" added: int 1",
                                           "instance \"V[1:0]\" moved by (5, 0)"));
}

} // namespace
} // namespace comparison::test

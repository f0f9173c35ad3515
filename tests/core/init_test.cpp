#include <ovalis/core.h>

#include <algorithm>

#include "support/environment_override.h"
#include "support/library_fixture.h"
#include "support/no_brokers.h"
#include "support/places.h"
#include "support/run_program.h"

namespace {

/// What a fresh process prints about its start-up, with line feeds alone.
std::string startUp(const std::vector<std::string>& arguments) {
    using namespace ovalis::test;
    std::string text = runProgram(builtProgram("start_up"), arguments).output;
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    return text;
}

std::string failedWith(int id) {
    return "failed with " + std::to_string(id) + ", no angle\n";
}

class PinAngle : public ovalis::test::LibraryTest {};

} // namespace

TEST(StartUp, RegistersEvaluatorsAndExtensions) {
    EXPECT_EQ(startUp({"once"}), "no angle before\n"
                                 "are linked\n"
                                 "initialised, angle\n"
                                 "PSNPcell LayerMappingPcell ReferencePcell CorvidViaPad "
                                 "NestedTechnologyPcell SKRPcell are linked\n"
                                 "PSNPcell: PSN, PSNPcell\n"
                                 "LayerMappingPcell: layers, LayerMappingPcell\n"
                                 "ReferencePcell: reference, ReferencePcell\n"
                                 "CorvidViaPad: via pad, CorvidViaPad\n"
                                 "NestedTechnologyPcell: technology, NestedTechnologyPcell\n"
                                 "SKRPcell: macro, SKRPcell\n"
                                 "growEnvelope of 1 layer\n"
                                 "angle persistent: 1, default: 0, same: 1\n");
}

TEST(StartUp, HappensOnce) {
    EXPECT_EQ(startUp({"twice"}), "initialised, angle\n"
                                  "initialised, angle\n"
                                  "growEnvelope: 0, SKRPcell: 0, same angle: 1\n");
}

TEST(StartUp, RegistersInOrderAndStopsWhereTheDatabaseRefuses) {
    const std::vector<std::string> order = {
        "PSNPcell",     "LayerMappingPcell",     "ReferencePcell",
        "CorvidViaPad", "NestedTechnologyPcell", "SKRPcell"};
    std::string before;
    for (const std::string& name : order) {
        EXPECT_EQ(startUp({"taken", name}),
                  failedWith(oa::oacPcellLinkExists) + before + "growEnvelope: 0\n");
        before += name + "\n";
    }
}

TEST(StartUp, StartsAgainAfterAFailure) {
    EXPECT_EQ(startUp({"again"}),
              failedWith(oa::oacPcellLinkExists) + "initialised, angle\ngrowEnvelope: 1\n");
}

TEST(StartUp, IsNotDoneWhenTheLayerOperationFails) {
    EXPECT_EQ(startUp({"grow-taken"}), failedWith(oa::oacDerivedLayerDefExists) +
                                           failedWith(oa::oacPcellLinkExists) + "SKRPcell: 1\n");
}

TEST(StartUp, IsMadeByOtherFunctionsAndItsFailureTranslated) {
    EXPECT_EQ(startUp({"translated"}), "failed with " + std::to_string(oa::oacPcellLinkExists) +
                                           "\nexists: 0, growEnvelope: 1\n");
}

TEST(StartUp, SaysThatBrokersAreNotConfigured) {
    using namespace ovalis::test;
    const EnvironmentOverride home("PCELLBROKER_HOME", std::nullopt);
    std::string log = runProgram(builtProgram("start_up"), {"twice"}).errors;
    std::erase(log, '\r');
    EXPECT_EQ(log, "pcellBrokerClient: registerPcellEvaluators: PCELLBROKER_HOME is not set\n");
}

TEST(StartUp, RegistersTypesForBrokersLast) {
    const ovalis::test::NoBrokers configured;
    const ovalis::test::EnvironmentOverride types("PCELLBROKER_CONFIG", "typeB,SKRPcell,typeA:EX");
    EXPECT_EQ(startUp({"links"}),
              "initialised, angle\n"
              "PSNPcell LayerMappingPcell ReferencePcell CorvidViaPad NestedTechnologyPcell "
              "SKRPcell typeB typeA are linked\n");
}

TEST_F(PinAngle, IsZeroUntilSet) {
    oa::oaDesign& layout = design("cell", "layout", 'w');
    oa::oaBlock* block = oa::oaBlock::create(&layout);
    oa::oaNet* net = oa::oaNet::create(block, oa::oaName(oa::oaNativeNS(), "a"));
    oa::oaTerm* term = oa::oaTerm::create(net, oa::oaName(oa::oaNativeNS(), "a"));
    oa::oaPin* pin = oa::oaPin::create(term);
    EXPECT_EQ(ovalis::vexPinAngle->get(pin), 0.0);
    ovalis::vexPinAngle->set(pin, 45.5);
    EXPECT_EQ(ovalis::vexPinAngle->get(pin), 45.5);
}

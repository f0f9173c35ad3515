#include <gtest/gtest.h>

#include "diagnosis/installation.h"
#include "workplace.h"

namespace cli::test {
namespace {

using diagnosis::test::Installation;

/// Runs the built program in the environment of the installation.
Outcome brokersProgram(const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments = {"brokers"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const auto result = ovalis::test::runProgram(ovalis::test::builtProgram("ovalis"), arguments);
    return {result.exitCode, withoutCarriageReturns(result.output),
            withoutCarriageReturns(result.errors)};
}

TEST(Brokers, TellsWhatEvaluatesEachTypeAndWhy) {
    Installation here;
    here.writeFile();
    EXPECT_EQ(
        brokersProgram(),
        (Outcome{0,
                 "configuration  " + here.file() + " from PCELLBROKER_HOME\n" +
                     "types          'coil:X' from CONFIG (line 4)\n" + "forced version none\n" +
                     "probe          " + here.at(Installation::program("probe")) +
                     ": prefers version 6\n" + "\n" + "type           coil\n" +
                     "  options      brokers only (X); internal OA libs\n" +
                     "  versions     6, then 5\n" +
                     "  tried        6 (through broker using internal OA libs): " +
                     here.at(Installation::program("broker6")) + "\n" +
                     "    answer     takes the type\n" +
                     "  evaluator    pcellBroker6 using internal OA libs\n",
                 ""}));
}

TEST(Brokers, NamesFaultsWithTheirCuresAndFails) {
    Installation here;
    here.set("PCELLBROKER_HOME", std::nullopt);
    EXPECT_EQ(brokersProgram(),
              (Outcome{1,
                       "configuration  none\n"
                       "refused        PCELLBROKER_HOME is not set\n"
                       "types          none\n"
                       "forced version none\n"
                       "fault          PCELLBROKER_HOME is not set\n"
                       "  cure         set PCELLBROKER_HOME to the directory that holds "
                       "pcellBroker.cfg\n",
                       ""}));
}

TEST(Brokers, NamesTheFaultsOfATypeBelowIt) {
    Installation here;
    here.set("TEST_BROKER_TYPES", "another");
    here.set("PCELLBROKER_FORCED_OA_API_VERSION", "5");
    here.writeFile();
    const Outcome told = brokersProgram();
    EXPECT_EQ(told.status, 1);
    EXPECT_EQ(told.out.substr(told.out.find("\n\n") + 1),
              "\ntype           coil\n"
              "  options      brokers only (X); internal OA libs\n"
              "  versions     5\n"
              "  tried        5 (through broker using internal OA libs): " +
                  here.at(Installation::program("broker5")) +
                  "\n"
                  "    answer     does not take the type\n"
                  "  evaluator    none\n"
                  "fault          no plug-in directory is configured, where coil.plg could be\n"
                  "  cure         set MY_OA_PLUGIN_DIR_5 and _6 in the file, or OA_PLUGIN_PATH\n"
                  "fault          pcellBroker5 using internal OA libs does not take the type "
                  "'coil'\n"
                  "  cure         give it the plug-in\n");
}

TEST(Brokers, WritesJsonForPrograms) {
    Installation here;
    here.change("CONFIG", "coil:EX");
    here.lines.push_back("OA_LIB_DIR_6=absent");
    here.writeFile();
    const Outcome told = brokersProgram({"--json"});
    EXPECT_EQ(told.status, 0);
    using Json = nlohmann::json;
    const Json attempt = {{"version", 6},
                          {"way", "through broker using external OA libs"},
                          {"program", here.at(Installation::program("broker6"))},
                          {"works", true},
                          {"answer", "takes the type"}};
    const Json fault = {
        {"fault", "OA_LIB_DIR_6 (line 5): there is no directory " + here.at("absent")},
        {"cure", "name the directory, from PCELLBROKER_HOME on, or take the line "
                 "out"}};
    const Json type = {{"type", "coil"},
                       {"native", false},
                       {"libraries", "external"},
                       {"versions", {6, 5}},
                       {"attempts", Json::array({attempt})},
                       {"evaluator", "pcellBroker6 using external OA libs"},
                       {"faults", Json::array()}};
    const Json expected = {
        {"home", here.home()},
        {"file", here.file()},
        {"refusal", nullptr},
        {"types", {{"value", "coil:EX"}, {"origin", "CONFIG (line 4)"}}},
        {"forcedVersion", {{"value", nullptr}, {"origin", nullptr}}},
        {"probe",
         {{"program", here.at(Installation::program("probe"))}, {"answer", "prefers version 6"}}},
        {"faults", Json::array({fault})},
        {"evaluators", Json::array({type})}};
    EXPECT_EQ(Json::parse(told.out), expected);
}

/// An output at which the database fails.
class FailingOutput : public std::streambuf {
protected:
    int_type overflow(int_type) override {
        throw oa::oaError(oa::oacInvalidMajorAPIRev, oa::oaUInt4(6), oa::oaUInt4(7));
    }
};

TEST(Brokers, AnExceptionOfTheDatabaseIsAnErrorLine) {
    Installation here;
    here.set("PCELLBROKER_HOME", std::nullopt);
    FailingOutput failing;
    std::ostream out(&failing);
    out.exceptions(std::ios::badbit);
    std::ostringstream talk;
    Console console{out, talk, false};
    EXPECT_EQ(run({"brokers"}, console), 2);
    const oa::oaError error(oa::oacInvalidMajorAPIRev, oa::oaUInt4(6), oa::oaUInt4(7));
    EXPECT_EQ(talk.str(), "ovalis: " + ovalis::fromOa(error.getMsg()) + "\n");
}

TEST(Brokers, AListOfNoTypesIsSound) {
    Installation here;
    here.change("CONFIG", ",");
    here.writeFile();
    EXPECT_EQ(brokersProgram().status, 0);
}

} // namespace
} // namespace cli::test

#include "design_fixture.h"

#include "support/run_program.h"

namespace pcellBrokerClient::test {

namespace {

using namespace std::string_literals;

const std::string prefix = "pcellBrokerClient: registerPcellEvaluators: ";

/// A configuration below a directory of its own, with copies of the small programs in it.
class Registration : public DesignTest {
protected:
    Registration() {
        set("PCELLBROKER_HOME", path("home"));
        set("PCELLBROKER_CONFIG", std::nullopt);
        set("PCELLBROKER_FORCED_OA_API_VERSION", std::nullopt);
        set("PATH", ovalis::test::utf8(ovalis::test::builtProgram("any").parent_path()) +
                        platform::pathListSeparator() +
                        platform::environmentVariable("PATH").value_or(""));
        platform::createDirectory(path("home"));
        platform::copyFile(program("probe_exits"), path("home/probe"));
        platform::copyFile(program("broker_answers"), path("home/broker"));
        tell("REQUESTS", path("requests"));
    }

    void configure(const std::string& text) {
        ovalis::test::writeText(path("home/pcellBroker.cfg"),
                                "PROBE_EXE=probe\nBROKER_EXE_5=broker\nBROKER_EXE_6=broker\n" +
                                    text);
    }

    /// What a process that does all this prints, and what goes to its log.
    ovalis::test::ProgramResult result(const std::vector<std::string>& actions) {
        auto result =
            ovalis::test::runProgram(ovalis::test::builtProgram("register_evaluators"), actions);
        EXPECT_EQ(result.exitCode, 0);
        std::erase(result.output, '\r');
        std::erase(result.errors, '\r');
        return result;
    }

    std::string logOf(const std::vector<std::string>& actions) { return result(actions).errors; }

    std::string requests() { return ovalis::test::readText(path("requests")); }

    static std::string setUp() { return "\1" + platform::currentDirectory() + "\0"s; }
};

const std::string evaluation = "\4lib\0cell\0layout\0\0\0\0\0"s;

} // namespace

TEST_F(Registration, SaysThatThereIsNoConfiguration) {
    set("PCELLBROKER_HOME", std::nullopt);
    const auto seen = result({"register", "find:typeA"});
    EXPECT_EQ(seen.errors, prefix + "PCELLBROKER_HOME is not set\n");
    EXPECT_EQ(seen.output, "typeA: unknown\n");
}

TEST_F(Registration, MakesTheConfiguredTypesKnown) {
    configure("CONFIG=typeA,,typeB:X,typeC:EX,\n");
    const auto seen =
        result({"find:typeA", "register", "find:typeA", "find:typeB", "find:typeC", "find:typeD"});
    EXPECT_EQ(seen.errors, "");
    EXPECT_EQ(seen.output, "typeA: unknown\ntypeA: known\ntypeB: known\ntypeC: known\n"
                           "typeD: unknown\n");
}

TEST_F(Registration, HappensOnceWhenItSucceeded) {
    configure("CONFIG=typeA\n");
    const auto seen = result({"register", "set:PCELLBROKER_CONFIG=typeB", "register",
                              "set:PCELLBROKER_HOME=elsewhere", "register", "find:typeB"});
    EXPECT_EQ(seen.errors, "");
    EXPECT_EQ(seen.output, "typeB: unknown\n");
}

TEST_F(Registration, StartsAgainAfterAFailure) {
    configure("CONFIG=typeA\nFORCED_OA_API_VERSION=7\n");
    const auto seen = result({"register", "find:typeA", "set:PCELLBROKER_FORCED_OA_API_VERSION=5",
                              "register", "register", "find:typeA"});
    EXPECT_EQ(seen.errors, prefix + "invalid [PCELLBROKER_]FORCED_OA_API_VERSION\n");
    EXPECT_EQ(seen.output, "typeA: unknown\ntypeA: known\n");
}

TEST_F(Registration, SaysWhatIsWrongInTheFile) {
    const char separator = platform::pathSeparator();
    const std::string file = path("home") + separator + "pcellBroker.cfg";
    EXPECT_EQ(logOf({"register", "register"}), prefix + "failed to open '" + file + "'\n" + prefix +
                                                   "failed to open '" + file + "'\n");
    configure("WRONG=1\n");
    EXPECT_EQ(logOf({"register"}), prefix + file + ": invalid key 'WRONG'\n");
}

TEST_F(Registration, AnEmptyListOfTypesIsReportedOnceLikeAnItem) {
    configure("FORCED_OA_API_VERSION=7\n");
    const auto seen = result({"register", "set:PCELLBROKER_CONFIG=typeA",
                              "set:PCELLBROKER_FORCED_OA_API_VERSION=6", "register", "find:typeA"});
    EXPECT_EQ(seen.errors, prefix + ": empty [PCELLBROKER_]CONFIG\n");
    EXPECT_EQ(seen.output, "typeA: unknown\n");
}

TEST_F(Registration, AWrongItemDoesNotStopTheOthers) {
    configure("CONFIG=typeA:Y,typeB,typeB:X,typeC\n");
    const auto seen = result({"register", "find:typeA", "find:typeB", "find:typeC"});
    const oa::oaDesignError taken(oa::oacPcellLinkExists, "typeB");
    EXPECT_EQ(seen.errors,
              prefix +
                  "typeA: invalid pcellBroker config string, only 'E' or 'X' options are  "
                  "supported\n" +
                  prefix + "typeB: " + std::string(taken.getMsg()) + "\n");
    EXPECT_EQ(seen.output, "typeA: unknown\ntypeB: known\ntypeC: known\n");
}

TEST_F(Registration, AnEmptyExecutableFailsWhenItIsStarted) {
    configure("BROKER_EXE_6=\nCONFIG=typeA:X\n");
    const std::string log = logOf({"register", "evaluate:typeA"});
    const std::string start =
        "pcellBrokerClient: while initializing brokered pcell type 'typeA': "
        "while starting pcellBroker6 using internal OA libs: CreateProcess(\"" +
        path("home") + platform::pathSeparator() + "\") failed: ";
    EXPECT_EQ(log.substr(0, start.size()), start);
}

TEST_F(Registration, SubmastersAreEvaluatedByTheBroker) {
    configure("CONFIG=typeA\n");
    tell("RESULT", resultFile(70));
    const auto seen = result({"register", "submaster:typeA"});
    EXPECT_EQ(seen.errors, "");
    EXPECT_EQ(seen.output, "width 70\n");
    EXPECT_EQ(filesBeside("result."), 0U);
}

TEST_F(Registration, BrokersAreSetUpAgainWhenLibrariesChange) {
    configure("CONFIG=typeA:X\n");
    const std::string list = path("lib.defs");
    ovalis::test::writeText(list, "");
    result({"register", "evaluate:typeA", "evaluate:typeA", "create:new", "evaluate:typeA",
            "close:new", "evaluate:typeA", "open:new", "evaluate:typeA", "evaluate:typeA",
            "definitions:" + list, "evaluate:typeA"});
    const std::string plain = "\0"s + evaluation;
    const std::string withSetUp = "\0"s + setUp() + evaluation;
    const std::string question = "\0\3typeA\0"s;
    oa::oaLibDefList* const definitions = oa::oaLibDefList::get(list.c_str(), 'r');
    oa::oaString full;
    definitions->getFullPath(full);
    definitions->destroy();
    EXPECT_EQ(requests(), question + withSetUp + plain + withSetUp + withSetUp + withSetUp + plain +
                              "\0"s + setUp() + "\2" + std::string(full) + "\0"s + evaluation);
}

TEST_F(Registration, EveryRunningBrokerIsSetUpAgainWhenLibrariesChange) {
    configure("CONFIG=typeA:X,typeB:EX\n");
    result({"register", "evaluate:typeA", "evaluate:typeB", "evaluate:typeA", "create:new",
            "evaluate:typeA", "evaluate:typeB", "evaluate:typeB"});
    const std::string plain = "\0"s + evaluation;
    const std::string withSetUp = "\0"s + setUp() + evaluation;
    EXPECT_EQ(requests(), "\0\3typeA\0"s + withSetUp + "\0\3typeB\0"s + withSetUp + plain +
                              withSetUp + withSetUp + plain);
}

} // namespace pcellBrokerClient::test

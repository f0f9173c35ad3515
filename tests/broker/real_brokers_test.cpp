// From an application of the library to the brokers and the probe that ship with it, and to the
// spiral of the examples.

#include <regex>

#include <oa/oaDesignDB.h>

#include <platform/file.h>
#include <platform/path.h>

#include "start_fixture.h"
#include "support/run_program.h"

namespace pcellBrokerClient::test {

namespace {

using ovalis::test::ProgramResult;

oa::oaScalarName name(const std::string& text) {
    return oa::oaScalarName(oa::oaNativeNS(), text.c_str());
}

/// A library with the pcells "coil" of the type "spiral" and "trial", and an installation of the
/// brokers. The application itself finds no plug-ins unless it is told to.
class RealBrokers : public StartTest {
protected:
    RealBrokers() {
        for (const char* variable : {"TMPDIR", "TMP", "TEMP"}) {
            set(variable, path("temporary"));
        }
        platform::createDirectory(path("temporary"));
        set("PCELLBROKER_EVALUATION_SECONDS", "120");
        makeLibrary();
        install();
    }

    /// Configures the brokers; one that has no program cannot be started.
    void configure(const std::string& programOf5, const std::string& programOf6,
                   const std::string& more = "") {
        const auto fileName = [](const std::string& programName) {
            return platform::fileName(program(programName));
        };
        ovalis::test::writeText(path("home/pcellBroker.cfg"),
                                "PROBE_EXE=" + fileName("pcbProbeOaVersion") +
                                    "\nBROKER_EXE_5=" + fileName(programOf5) + "\nBROKER_EXE_6=" +
                                    fileName(programOf6) + "\nCONFIG=spiral,trial\n" + more);
    }

    ProgramResult evaluated(std::vector<std::string> evaluations) {
        evaluations.insert(evaluations.begin(), path("lib.defs"));
        ProgramResult result =
            ovalis::test::runProgram(ovalis::test::builtProgram("pcell_host"), evaluations);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        std::erase(result.output, '\r');
        std::erase(result.errors, '\r');
        return result;
    }

    /// The same by the plug-ins, in the process of the application.
    std::string nativelyEvaluated(const std::vector<std::string>& evaluations) {
        const ovalis::test::EnvironmentOverride home("PCELLBROKER_HOME", std::nullopt);
        const ovalis::test::EnvironmentOverride native("OA_PLUGIN_PATH", plugIns());
        return evaluated(evaluations).output;
    }

private:
    static std::string plugIns() {
        const std::string build = platform::parentPath(platform::parentPath(program("any")));
        return platform::joinPath(build, "plugins") + platform::pathListSeparator() +
               platform::joinPath(build, "plug_ins");
    }

    void makeLibrary() {
        const ovalis::test::EnvironmentOverride native("OA_PLUGIN_PATH", plugIns());
        oa::oaDesignInit();
        oa::oaLib* const lib = oa::oaLib::create(name("lib"), path("lib").c_str());
        oa::oaTech* const tech = oa::oaTech::create(lib);
        tech->setDBUPerUU(oa::oaViewType::get(oa::oacMaskLayout), 1000);
        tech->save();
        saveMaster("coil", "spiral",
                   {oa::oaParam("shape", oa::oaString("octagon")),
                    oa::oaParam("turns", oa::oaInt4(3)), oa::oaParam("width", 10.0),
                    oa::oaParam("spacing", 5.0), oa::oaParam("innerDiameter", 100.0),
                    oa::oaParam("layer", oa::oaInt4(8)), oa::oaParam("viaLayer", oa::oaInt4(7)),
                    oa::oaParam("underpassLayer", oa::oaInt4(6))});
        saveMaster("trial", "trial", {oa::oaParam("action", oa::oaString("draw"))});
        tech->close();
        lib->close();
        ovalis::test::writeText(path("lib.defs"), "DEFINE lib lib\n");
    }

    static void saveMaster(const std::string& cell, const char* type,
                           const std::vector<oa::oaParam>& defaults) {
        oa::oaParamArray params;
        for (const oa::oaParam& param : defaults) {
            params.append(param);
        }
        oa::oaDesign* const master = oa::oaDesign::open(
            name("lib"), name(cell), name("layout"), oa::oaViewType::get(oa::oacMaskLayout), 'w');
        master->defineSuperMaster(oa::oaPcellLink::getPcellDef(type), params);
        master->save();
        master->close();
        oa::oaPcellLink::find(type)->destroy();
    }

    // Only the brokers are told where the plug-ins are.
    void install() {
        platform::createDirectory(path("home"));
        for (const char* installed : {"pcbProbeOaVersion", "pcellBroker5", "pcellBroker6",
                                      "pcellBrokerWorker5", "pcellBrokerWorker6"}) {
            const std::string file = program(installed);
            platform::copyFile(file, path("home/" + platform::fileName(file)));
        }
        set("PATH", platform::parentPath(program("any")) + platform::pathListSeparator() +
                        platform::environmentVariable("PATH").value_or(""));
        set("PCELLBROKER_HOME", path("home"));
        set("PCELLBROKER_CONFIG", std::nullopt);
        set("PCELLBROKER_FORCED_OA_API_VERSION", std::nullopt);
        set("PCELLBROKER_ENV", "OA_PLUGIN_PATH");
        set("PCELLBROKER_ENV_OA_PLUGIN_PATH", plugIns());
    }
};

const std::vector<std::string> coils = {"coil", "coil/turns=5", "coil/shape=square"};

/// One of the two brokers is there, and the choice has to come to it.
struct Installed {
    const char* name;
    const char* programOf5;
    const char* programOf6;
    const char* more;
};

class OneRealBroker : public RealBrokers, public testing::WithParamInterface<Installed> {
protected:
    OneRealBroker() { configure(GetParam().programOf5, GetParam().programOf6, GetParam().more); }
};

INSTANTIATE_TEST_SUITE_P(
    Choice, OneRealBroker,
    testing::Values(Installed{"Probed6", "absent", "pcellBroker6", ""},
                    Installed{"Forced5", "pcellBroker5", "absent", "FORCED_OA_API_VERSION=5\n"},
                    Installed{"Forced6", "absent", "pcellBroker6", "FORCED_OA_API_VERSION=6\n"}),
    [](const auto& choice) { return choice.param.name; });

} // namespace

TEST_F(RealBrokers, AreChosenByAProbeThatTellsTheVersionOfTheDatabase) {
    EXPECT_EQ(
        ovalis::test::runProgram(ovalis::test::builtProgram("pcbProbeOaVersion"), {}).exitCode, 6);
}

TEST_F(RealBrokers, AreNeededWhereTheApplicationHasNoPlugIns) {
    configure("absent", "absent");
    const ProgramResult result = evaluated({"coil"});
    EXPECT_THAT(result.errors,
                testing::HasSubstr("while initializing brokered pcell type 'spiral': while "
                                   "starting pcellBroker6 using internal OA libs: "));
    EXPECT_THAT(result.output, testing::HasSubstr("error 2: no suitable OpenAccess plugin "
                                                  "available for evaluating Pcell type 'spiral'"));
}

TEST_P(OneRealBroker, DrawsWhatThePlugInDraws) {
    const std::string native = nativelyEvaluated(coils);
    EXPECT_THAT(native, testing::HasSubstr("coil/turns=5\n  Polygon on 8/"));
    const ProgramResult result = evaluated(coils);
    EXPECT_EQ(result.output, native);
    EXPECT_EQ(result.errors, "");
}

TEST_P(OneRealBroker, HasItsErrorsToldWithTheirCodes) {
    EXPECT_EQ(evaluated({"coil/turns=0", "trial/action=report", "coil"}).output,
              "coil/turns=0\nerror 2: turns is 0: it must be 1 to 100\n  nothing\n"
              "trial/action=report\nerror 1234: bad width\n  nothing\n" +
                  nativelyEvaluated({"coil"}));
}

TEST_P(OneRealBroker, LosesOneEvaluationToACrash) {
    const std::string output = evaluated({"trial", "trial/action=crash", "coil"}).output;
    // How a process ends by itself is told differently by each system.
    const std::regex ended("ended with [^;\n]+;");
    EXPECT_EQ(std::regex_replace(output, ended, "ended;"),
              nativelyEvaluated({"trial"}) +
                  "trial/action=crash\n"
                  "error 2: the evaluating process failed: ended; it said last:\n"
                  "about to crash\n  nothing\n" +
                  nativelyEvaluated({"coil"}));
}

} // namespace pcellBrokerClient::test

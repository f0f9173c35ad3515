#include "start_fixture.h"

#include <platform/file.h>
#include <platform/path.h>
#include <platform/process.h>

#include "broker/env_override.h"
#include "broker/wire.h"

namespace pcellBrokerClient::test {

namespace {

std::string list(const std::vector<std::string>& parts) {
    std::string joined;
    for (const std::string& part : parts) {
        const bool isFirst = joined.empty() || part.empty();
        joined += (isFirst ? "" : std::string(1, platform::pathListSeparator())) + part;
    }
    return joined;
}

std::string libraryPath() {
    return platform::environmentVariable(platform::libraryPathVariable()).value_or("");
}

bool isAnswering(BrokerConnection& connection) {
    writeByte(*connection.toBroker, 0);
    flush(*connection.toBroker);
    return readByte(*connection.fromBroker) == ':';
}

class Start : public StartTest {
protected:
    /// What a broker that was just started notes about itself.
    std::string startsOf(BrokerConnection& connection) {
        tell("STARTS", path("starts"));
        startBroker(connection, system);
        EXPECT_TRUE(isAnswering(connection));
        return textOf("starts");
    }
};

/// Every variable that a start touches.
std::map<std::string, std::optional<std::string>> touchedVariables() {
    std::map<std::string, std::optional<std::string>> values;
    for (const std::string name : {"PATH", platform::libraryPathVariable(), "OA_PLUGIN_PATH",
                                   "TCL_LIBRARY", "TEST_SET", "TEST_EMPTY", "TEST_UNSET"}) {
        values[name] = platform::environmentVariable(name);
    }
    return values;
}

} // namespace

TEST_F(Start, GivesABrokerThatAnswers) {
    BrokerConnection connection = connectionTo("broker_answers");
    connection.setUpNeeded = false;
    EXPECT_FALSE(connection.isStarted());
    startBroker(connection, system);
    EXPECT_TRUE(connection.isStarted());
    EXPECT_TRUE(connection.alive);
    EXPECT_TRUE(connection.setUpNeeded);
    EXPECT_TRUE(isAnswering(connection));
}

TEST_F(Start, TellsTheBrokerItsVersion) {
    BrokerConnection connection = connectionTo("broker_answers", {5, true});
    EXPECT_EQ(startsOf(connection).substr(0, 17), "pcellBroker5.exe\n");
}

TEST_F(Start, PutsTheDirectoriesBeforeTheOldValues) {
    set("OA_PLUGIN_PATH", "old");
    set("TCL_LIBRARY", "old tcl");
    BrokerConnection connection = connectionTo("broker_answers");
    connection.libDirs = {"lib1", "lib2"};
    connection.pluginDirs = {"plug1", "plug2"};
    connection.tclLibDir = "tcl";
    const std::string library = platform::libraryPathVariable();
    EXPECT_EQ(startsOf(connection),
              "pcellBroker6.exe\n" + library + "=" + list({"lib1", "lib2", libraryPath()}) +
                  "\nOA_PLUGIN_PATH=" + list({"plug1", "plug2", "old"}) + "\nTCL_LIBRARY=tcl\n");
}

TEST_F(Start, LeavesOutWhatIsEmpty) {
    BrokerConnection connection = connectionTo("broker_answers");
    connection.pluginDirs = {"", "plug2"};
    const std::string library = platform::libraryPathVariable();
    EXPECT_EQ(startsOf(connection), "pcellBroker6.exe\n" + library + "=" + libraryPath() +
                                        "\nOA_PLUGIN_PATH=plug2\nTCL_LIBRARY is not set\n");
}

TEST_F(Start, KeepsTheTclLibraryWhenThereIsNoOther) {
    set("TCL_LIBRARY", "callers");
    BrokerConnection connection = connectionTo("broker_answers");
    EXPECT_THAT(startsOf(connection), testing::HasSubstr("\nTCL_LIBRARY=callers\n"));
}

TEST_F(Start, SetsWhatTheUserWantsTheBrokerToSee) {
    set("PCELLBROKER_ENV", "FOO=BAR==FOO=OA_PLUGIN_PATH");
    set("PCELLBROKER_ENV_FOO", "1");
    set("PCELLBROKER_ENV_OA_PLUGIN_PATH", "users");
    set("FOO", "0");
    set("BAR", "0");
    tell("VARIABLES", "FOO,BAR");
    BrokerConnection connection = connectionTo("broker_answers");
    connection.pluginDirs = {"plug", ""};
    EXPECT_THAT(startsOf(connection),
                testing::HasSubstr("\nOA_PLUGIN_PATH=" + list({"plug", "users"}) +
                                   "\nTCL_LIBRARY is not set\nFOO=1\nBAR=\n"));
    EXPECT_EQ(platform::environmentVariable("OA_PLUGIN_PATH"), std::nullopt);
    EXPECT_EQ(platform::environmentVariable("FOO"), "0");
}

TEST_F(Start, NamesMayHaveAnyLetters) {
    set("PATH", platform::parentPath(program("any")) + platform::pathListSeparator() +
                    platform::environmentVariable("PATH").value_or(""));
    set("PCELLBROKER_ENV", "FOO");
    set("PCELLBROKER_ENV_FOO", "größe");
    tell("VARIABLES", "FOO");
    platform::createDirectory(path("größe"));
    BrokerConnection connection = connectionTo("broker_answers");
    connection.exePath = path("größe/mäkler");
    platform::copyFile(program("broker_answers"), connection.exePath);
    connection.tclLibDir = "größe";
    EXPECT_THAT(startsOf(connection), testing::EndsWith("\nTCL_LIBRARY=größe\nFOO=größe\n"));
    BrokerConnection absent = connectionTo("absent");
    absent.exePath = path("größe/fehlt");
    EXPECT_THAT(failureOf([&] { startBroker(absent, system); }),
                testing::StartsWith("while starting pcellBroker6 using internal OA libs: "
                                    "CreateProcess(\"" +
                                    absent.exePath + "\") failed: "));
}

TEST_F(Start, LeavesTheEnvironmentAsItWas) {
    set("PCELLBROKER_ENV", "TEST_SET=TEST_EMPTY=TEST_UNSET=PATH");
    set("PCELLBROKER_ENV_PATH", libraryPath());
    set("TEST_SET", "value");
    set("TEST_EMPTY", "");
    set("TEST_UNSET", std::nullopt);
    BrokerConnection connection = connectionTo("broker_exits_at_once");
    connection.libDirs = {"lib1", ""};
    connection.tclLibDir = "tcl";
    const auto before = touchedVariables();
    startBroker(connection, system);
    EXPECT_EQ(touchedVariables(), before);
    connection.exePath += "-absent";
    EXPECT_NE(failureOf([&] { startBroker(connection, system); }), "none");
    EXPECT_EQ(touchedVariables(), before);
}

TEST_F(Start, SaysWhichProgramCannotBeStarted) {
    BrokerConnection connection = connectionTo("absent", {5, true});
    const std::string failure = failureOf([&] { startBroker(connection, system); });
    const std::string start =
        "while starting pcellBroker5 using external OA libs: CreateProcess(\"" +
        connection.exePath + "\") failed: ";
    ASSERT_EQ(failure.substr(0, start.size()), start);
    EXPECT_NE(failure.substr(start.size()), "");
    EXPECT_FALSE(connection.isStarted());
    EXPECT_FALSE(connection.alive);
}

TEST_F(Start, SaysWhichCallFailed) {
    const std::string reason = FailingSystem::errorText();
    const BrokerConnection wanted = connectionTo("broker_answers");
    const std::string calls[] = {"CreatePipe failed: " + reason,
                                 "DuplicateHandle failed: " + reason,
                                 "CreatePipe failed: " + reason,
                                 "DuplicateHandle failed: " + reason,
                                 "CreateProcess(\"" + wanted.exePath + "\") failed: " + reason,
                                 "_open_osfhandle failed",
                                 "_fdopen failed",
                                 "_open_osfhandle failed",
                                 "_fdopen failed"};
    for (int call = 0; call < 9; ++call) {
        BrokerConnection connection = connectionTo("broker_answers");
        FailingSystem failing(call);
        EXPECT_EQ(failureOf([&] { startBroker(connection, failing); }),
                  "while starting pcellBroker6 using internal OA libs: " + calls[call]);
        EXPECT_FALSE(connection.isStarted());
        EXPECT_FALSE(connection.alive);
        startBroker(connection, system);
        EXPECT_TRUE(isAnswering(connection));
    }
}

TEST_F(Start, SaysSoWhenThereIsNothingToSay) {
    struct Silent : ProcessSystem {
        bool start(const platform::ProgramStart&, platform::StartedProcess&) override { throw 1; }
    } silent;
    BrokerConnection connection = connectionTo("broker_answers");
    EXPECT_EQ(failureOf([&] { startBroker(connection, silent); }),
              "while starting pcellBroker6 using internal OA libs: unknown error");
}

namespace {

/// Fails one call, and starts no program: programs are slow to start on Windows.
class SparingSystem : public FailingSystem {
public:
    using FailingSystem::FailingSystem;

    bool start(const platform::ProgramStart&, platform::StartedProcess&) override {
        return !fails();
    }
};

} // namespace

// At every step in turn, of which there are nine; the tenth of them succeeds. On Windows one in ten
// of those that come so far as to start the program does so.
TEST_F(Start, AThousandOfThemLeaveNoHandleBehind) {
    const auto attempt = [](auto&& failingSystem) {
        BrokerConnection connection = connectionTo("broker_exits_at_once");
        return failureOf([&] { startBroker(connection, failingSystem); }) == "none";
    };
    attempt(FailingSystem(9));
    const std::size_t before = platform::openHandleCount();
    const auto environment = touchedVariables();
    const bool startsAll = std::string(platform::systemName()) != "windows";
    int started = 0;
    for (int i = 0; i < 1000; ++i) {
        const bool runs = startsAll || i / 10 % 10 == 0;
        started += runs ? attempt(FailingSystem(i % 10)) : attempt(SparingSystem(i % 10));
    }
    EXPECT_EQ(started, 100);
    EXPECT_EQ(platform::openHandleCount(), before);
    EXPECT_EQ(touchedVariables(), environment);
}

// One that had the ends of the other would keep it from seeing that the host has gone.
TEST_F(Start, BrokersDoNotHaveThePipesOfOthers) {
    BrokerConnection first = connectionTo("broker_answers");
    BrokerConnection second = connectionTo("broker_answers", {5, false});
    startBroker(first, system);
    startBroker(second, system);
    EXPECT_TRUE(isAnswering(first));
    first.toBroker.reset();
    EXPECT_EQ(failureOf([&] { readByte(*first.fromBroker); }), "std::streambuf::sbumpc failed");
    EXPECT_TRUE(isAnswering(second));
}

TEST(EnvOverride, PutsTheOldValueBack) {
    for (const std::optional<std::string>& old :
         {std::optional<std::string>("old"), std::optional<std::string>(""),
          std::optional<std::string>()}) {
        const ovalis::test::EnvironmentOverride variable("TEST_VARIABLE", old);
        {
            const EnvOverride first("TEST_VARIABLE", "new");
            const EnvOverride second("TEST_VARIABLE", "");
            EXPECT_EQ(platform::environmentVariable("TEST_VARIABLE"), "");
        }
        EXPECT_EQ(platform::environmentVariable("TEST_VARIABLE"), old);
    }
}

namespace {

class Probe : public StartTest {
protected:
    std::int32_t answerFor(const std::string& exitCode) {
        tell("EXIT", exitCode);
        BrokerConfig config;
        config.probeExe = program("probe_exits");
        probeOaApiVersion(config, system);
        return config.probedOaApiVersion;
    }

    std::string failureOfProbe(const std::string& path, ProcessSystem& used) {
        BrokerConfig config;
        config.probeExe = path;
        const std::string failure = failureOf([&] { probeOaApiVersion(config, used); });
        EXPECT_EQ(config.probedOaApiVersion, 0);
        EXPECT_EQ(failureOf([&] { probeOaApiVersion(config, used); }), "none");
        return failure;
    }
};

const std::string probing = "while probing the OpenAccess API version: ";

} // namespace

TEST_F(Probe, AnswersWithItsExitCode) {
    EXPECT_EQ(answerFor("5"), 5);
    EXPECT_EQ(answerFor("6"), 6);
    for (const char* other : {"0", "4", "7", "9"}) {
        EXPECT_EQ(answerFor(other), 0) << other;
    }
}

TEST_F(Probe, FailsWithALargeExitCode) {
    for (const char* exitCode : {"10", "200"}) {
        tell("EXIT", exitCode);
        EXPECT_EQ(failureOfProbe(program("probe_exits"), system),
                  probing + "pcbProbeOaVersion exited with an error");
    }
    EXPECT_EQ(failureOfProbe(program("probe_crashes"), system),
              probing + "pcbProbeOaVersion exited with an error");
}

TEST_F(Probe, FailsWhenItIsNotThere) {
    const std::string absent = program("absent");
    const std::string start = probing + "CreateProcess(\"" + absent + "\") failed: ";
    const std::string failure = failureOfProbe(absent, system);
    EXPECT_EQ(failure.substr(0, start.size()), start);
    EXPECT_GT(failure.size(), start.size());
}

TEST_F(Probe, SaysWhichCallFailed) {
    FailingSystem start(0);
    EXPECT_EQ(failureOfProbe("probe", start),
              probing + "CreateProcess(\"probe\") failed: " + FailingSystem::errorText());
    FailingSystem wait(1);
    EXPECT_EQ(failureOfProbe(program("probe_exits"), wait),
              probing + "GetExitCodeProcess failed: " + FailingSystem::errorText());
    struct Silent : ProcessSystem {
        bool start(const platform::ProgramStart&, platform::StartedProcess&) override { throw 1; }
    } silent;
    EXPECT_EQ(failureOfProbe("probe", silent), probing + "unknown error");
}

TEST_F(Probe, RunsOnceWithTheUsersEnvironment) {
    set("PCELLBROKER_ENV", "TEST_BROKER_NOTE");
    set("PCELLBROKER_ENV_TEST_BROKER_NOTE", "users");
    tell("STARTS", path("starts"));
    tell("EXIT", "7");
    BrokerConfig config;
    config.probeExe = program("probe_exits");
    for (int i = 0; i < 3; ++i) {
        probeOaApiVersion(config, system);
        EXPECT_EQ(config.probedOaApiVersion, 0);
    }
    EXPECT_EQ(textOf("starts"), "pcbProbeOaVersion.exe|users\n");
    EXPECT_EQ(platform::environmentVariable("TEST_BROKER_NOTE"), std::nullopt);
}

TEST_F(Probe, LeavesNoHandleBehind) {
    answerFor("0");
    const std::size_t before = platform::openHandleCount();
    for (int i = 0; i < 20; ++i) {
        answerFor("0");
        FailingSystem failing(i % 2);
        failureOfProbe(program("probe_exits"), failing);
    }
    EXPECT_EQ(platform::openHandleCount(), before);
}

} // namespace pcellBrokerClient::test

#include "broker/config.h"

#include <optional>

#include <gmock/gmock.h>

#include <platform/file.h>

#include "support/environment_override.h"
#include "support/files.h"
#include "support/temporary_directory.h"

using namespace pcellBrokerClient;
using ovalis::test::EnvironmentOverride;
using testing::ElementsAre;

namespace {

const std::string required = "PROBE_EXE=probe\nBROKER_EXE_5=five\nBROKER_EXE_6=six\n";

std::string separator() {
    return std::string(1, platform::pathSeparator());
}

/// A directory with a configuration file and an environment that says nothing but where it is.
class Config : public testing::Test {
protected:
    void write(const std::string& text) {
        ovalis::test::writeText(home_.str() + "/pcellBroker.cfg", text);
    }

    std::string home() const { return home_.str(); }
    std::string path() const { return below("pcellBroker.cfg"); }
    std::string below(const std::string& value) const { return home() + separator() + value; }

    BrokerConfig read() {
        connections = makeConnections();
        return readBrokerConfig(connections);
    }

    BrokerConfig read(const std::string& text) {
        write(text);
        return read();
    }

    std::string failure() {
        try {
            read();
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "none";
    }

    std::string failureOf(const std::string& text) {
        write(text);
        return failure();
    }

    const BrokerConnection& record(std::uint32_t apiVersion, bool useExternalOaLibs) const {
        return connections.at({apiVersion, useExternalOaLibs});
    }

    BrokerConnections connections = makeConnections();

private:
    ovalis::test::TemporaryDirectory home_;
    EnvironmentOverride homeVariable_{"PCELLBROKER_HOME", home_.str()};
    EnvironmentOverride configVariable_{"PCELLBROKER_CONFIG", std::nullopt};
    EnvironmentOverride versionVariable_{"PCELLBROKER_FORCED_OA_API_VERSION", std::nullopt};
};

std::string failureOfItem(const std::string& item) {
    try {
        parseItem(item);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "none";
}

} // namespace

TEST_F(Config, NeedsItsVariable) {
    const EnvironmentOverride home("PCELLBROKER_HOME", std::nullopt);
    EXPECT_EQ(failure(), "PCELLBROKER_HOME is not set");
}

TEST_F(Config, NeedsItsFile) {
    EXPECT_EQ(failure(), "failed to open '" + path() + "'");
    platform::createDirectory(path());
    EXPECT_EQ(failure(), "failed to open '" + path() + "'");
}

TEST_F(Config, FileLiesBehindASeparatorEvenWhereTheVariableEndsInOne) {
    const EnvironmentOverride variable("PCELLBROKER_HOME", home() + separator());
    EXPECT_EQ(failure(),
              "failed to open '" + home() + separator() + separator() + "pcellBroker.cfg'");
}

TEST_F(Config, ReadsWhatItNeeds) {
    const BrokerConfig config = read(required + "CONFIG=typeA,typeB:X,typeC:EX\n");
    EXPECT_EQ(config.directory, home());
    EXPECT_EQ(config.probeExe, below("probe"));
    EXPECT_EQ(config.forcedOaApiVersion, 0U);
    EXPECT_LT(config.probedOaApiVersion, 0);
    EXPECT_THAT(config.items, ElementsAre("typeA", "typeB:X", "typeC:EX"));
    for (const bool external : {false, true}) {
        EXPECT_EQ(record(5, external).exePath, below("five"));
        EXPECT_EQ(record(6, external).exePath, below("six"));
    }
}

TEST_F(Config, LinesMayEndInCarriageReturnsAndTheLastNeedsNoEnd) {
    const BrokerConfig config =
        read("PROBE_EXE=probe\r\n\r\n\nBROKER_EXE_5=five\r\nBROKER_EXE_6=six\r\nCONFIG=a");
    EXPECT_EQ(config.probeExe, below("probe"));
    EXPECT_EQ(record(5, false).exePath, below("five"));
    EXPECT_THAT(config.items, ElementsAre("a"));
}

TEST_F(Config, RefusesLinesThatAreNone) {
    EXPECT_EQ(failureOf(required + "CONFIG\n"), path() + ": missing '=' after key 'CONFIG'");
    EXPECT_EQ(failureOf(" \n"), path() + ": missing '=' after key ' '");
    EXPECT_EQ(failureOf("# note\n"), path() + ": missing '=' after key '# note'");
}

TEST_F(Config, RefusesKeysThatAreNone) {
    for (const std::string key :
         {"config", "CONFIG ", " CONFIG", "", "#", "BROKER_EXE_4", "BROKER_EXE_", "5", "OA_LIB_DIR",
          "MY_OA_LIB_DIR_7", "TCL_LIB_DIR5", "PCELLBROKER_HOME"}) {
        EXPECT_EQ(failureOf(required + key + "=v\n"), path() + ": invalid key '" + key + "'");
    }
}

TEST_F(Config, ReportsTheFirstWrongLine) {
    EXPECT_EQ(failureOf("A=1\nB\n"), path() + ": invalid key 'A'");
    EXPECT_EQ(failureOf("B\nA=1\n"), path() + ": missing '=' after key 'B'");
}

TEST_F(Config, NamesTheFirstKeyThatIsMissing) {
    EXPECT_EQ(failureOf(""), path() + ": missing PROBE_EXE key");
    EXPECT_EQ(failureOf("CONFIG=a\nPROBE_EXE=p\n"), path() + ": missing BROKER_EXE_5 key");
    EXPECT_EQ(failureOf("PROBE_EXE=p\nBROKER_EXE_6=six\n"), path() + ": missing BROKER_EXE_5 key");
    EXPECT_EQ(failureOf("PROBE_EXE=p\nBROKER_EXE_5=five\n"), path() + ": missing BROKER_EXE_6 key");
}

TEST_F(Config, AnEmptyValueIsAValue) {
    read("PROBE_EXE=\nBROKER_EXE_5=\nBROKER_EXE_6=\nCONFIG=a\n");
    EXPECT_EQ(record(5, false).exePath, below(""));
    EXPECT_EQ(record(6, true).exePath, below(""));
}

TEST_F(Config, LaterValuesWinAndKeepTheirEqualsSigns) {
    const BrokerConfig config = read(required + "PROBE_EXE=a=b\nCONFIG=x\nCONFIG=y=z\n");
    EXPECT_EQ(config.probeExe, below("a=b"));
    EXPECT_THAT(config.items, ElementsAre("y=z"));
}

TEST_F(Config, DirectoriesGoToTheRecordsOfTheirVersion) {
    read(required + "CONFIG=a\n"
                    "OA_LIB_DIR_5=lib5\nMY_OA_PLUGIN_DIR_5=mine5\nOA_PLUGIN_DIR_5=plug5\n"
                    "TCL_LIB_DIR_5=tcl5\nMY_OA_LIB_DIR_6=mylib6\n");
    EXPECT_THAT(record(5, false).libDirs, ElementsAre("", below("lib5")));
    EXPECT_THAT(record(5, false).pluginDirs, ElementsAre(below("mine5"), below("plug5")));
    EXPECT_EQ(record(5, false).tclLibDir, below("tcl5"));
    EXPECT_THAT(record(5, true).libDirs, ElementsAre("", ""));
    EXPECT_THAT(record(5, true).pluginDirs, ElementsAre(below("mine5"), ""));
    EXPECT_EQ(record(5, true).tclLibDir, "");
    EXPECT_THAT(record(6, false).libDirs, ElementsAre("", below("mylib6")));
    EXPECT_THAT(record(6, true).libDirs, ElementsAre(below("mylib6"), ""));
    EXPECT_THAT(record(6, true).pluginDirs, ElementsAre("", ""));
}

TEST_F(Config, TwoKeysShareTheInternalLibraryDirectory) {
    read(required + "CONFIG=a\nMY_OA_LIB_DIR_5=mine\nOA_LIB_DIR_5=theirs\n"
                    "OA_LIB_DIR_6=theirs\nMY_OA_LIB_DIR_6=mine\n");
    EXPECT_THAT(record(5, false).libDirs, ElementsAre("", below("theirs")));
    EXPECT_THAT(record(6, false).libDirs, ElementsAre("", below("mine")));
    EXPECT_THAT(record(5, true).libDirs, ElementsAre(below("mine"), ""));
    EXPECT_THAT(record(6, true).libDirs, ElementsAre(below("mine"), ""));
}

TEST_F(Config, PathsAreBelowTheDirectoryWhateverTheyLookLike) {
    read(required + "BROKER_EXE_6=C:\\bin6\\pcellBroker\nCONFIG=a\n");
    EXPECT_EQ(record(6, false).exePath, below("C:\\bin6\\pcellBroker"));
}

TEST_F(Config, NamesMayHaveAnyLetters) {
    platform::createDirectory(below("größe"));
    const EnvironmentOverride variable("PCELLBROKER_HOME", below("größe"));
    const std::string text = required + "PROBE_EXE=пробник\nCONFIG=катушка:E\n";
    platform::File(below("größe") + "/pcellBroker.cfg", platform::OpenMode::write)
        .write(text.data(), text.size());
    const BrokerConfig config = read();
    EXPECT_EQ(config.probeExe, below("größe") + separator() + "пробник");
    EXPECT_EQ(record(5, false).exePath, below("größe") + separator() + "five");
    EXPECT_THAT(config.items, ElementsAre("катушка:E"));
    const EnvironmentOverride types("PCELLBROKER_CONFIG", "größe");
    EXPECT_THAT(read().items, ElementsAre("größe"));
}

TEST_F(Config, WithoutItemsThereIsNothingToBroker) {
    EXPECT_EQ(failureOf(required), "empty [PCELLBROKER_]CONFIG");
    EXPECT_EQ(failureOf(required + "CONFIG=\n"), "empty [PCELLBROKER_]CONFIG");
    EXPECT_EQ(failureOf(required + "CONFIG=\nFORCED_OA_API_VERSION=7\n"),
              "empty [PCELLBROKER_]CONFIG");
    EXPECT_THROW(read(), EmptyConfiguration);
}

TEST_F(Config, ItemsOfTheVariableGoBeforeThoseOfTheFile) {
    const EnvironmentOverride variable("PCELLBROKER_CONFIG", "fromVariable");
    EXPECT_THAT(read(required + "CONFIG=fromFile\n").items, ElementsAre("fromVariable"));
    EXPECT_THAT(read(required).items, ElementsAre("fromVariable"));
    EXPECT_EQ(failureOf("CONFIG\n"), path() + ": missing '=' after key 'CONFIG'");
}

TEST_F(Config, AnEmptyVariableIsNone) {
    const EnvironmentOverride variable("PCELLBROKER_CONFIG", "");
    const EnvironmentOverride version("PCELLBROKER_FORCED_OA_API_VERSION", "");
    const BrokerConfig config = read(required + "CONFIG=fromFile\nFORCED_OA_API_VERSION=5\n");
    EXPECT_THAT(config.items, ElementsAre("fromFile"));
    EXPECT_EQ(config.forcedOaApiVersion, 5U);
}

TEST_F(Config, ItemsStandBetweenCommas) {
    EXPECT_THAT(read(required + "CONFIG=a,,b\n").items, ElementsAre("a", "b"));
    EXPECT_THAT(read(required + "CONFIG=,a, b ,\n").items, ElementsAre("a", " b "));
    EXPECT_TRUE(read(required + "CONFIG=,\n").items.empty());
}

TEST_F(Config, ForcedVersionsAreFiveAndSix) {
    const std::string text = required + "CONFIG=a\nFORCED_OA_API_VERSION=";
    EXPECT_EQ(read(text + "\n").forcedOaApiVersion, 0U);
    EXPECT_EQ(read(text + "5\n").forcedOaApiVersion, 5U);
    EXPECT_EQ(read(text + "6\n").forcedOaApiVersion, 6U);
    for (const std::string wrong : {"7", "05", " 5", "5 ", "56", "x"}) {
        EXPECT_EQ(failureOf(text + wrong + "\n"), "invalid [PCELLBROKER_]FORCED_OA_API_VERSION");
    }
}

TEST_F(Config, ForcedVersionOfTheVariableGoesBeforeThatOfTheFile) {
    const std::string text = required + "CONFIG=a\nFORCED_OA_API_VERSION=7\n";
    EXPECT_EQ(failureOf(text), "invalid [PCELLBROKER_]FORCED_OA_API_VERSION");
    const EnvironmentOverride six("PCELLBROKER_FORCED_OA_API_VERSION", "6");
    EXPECT_EQ(read(text).forcedOaApiVersion, 6U);
    const EnvironmentOverride wrong("PCELLBROKER_FORCED_OA_API_VERSION", "x");
    EXPECT_EQ(failureOf(required + "CONFIG=a\n"), "invalid [PCELLBROKER_]FORCED_OA_API_VERSION");
}

TEST(ConfigItem, NamesATypeAndItsOptions) {
    EXPECT_EQ(parseItem("a"), (BrokeredType{"a", true, false}));
    EXPECT_EQ(parseItem("a:"), (BrokeredType{"a", true, false}));
    EXPECT_EQ(parseItem("a:E"), (BrokeredType{"a", true, true}));
    EXPECT_EQ(parseItem("a:X"), (BrokeredType{"a", false, false}));
    EXPECT_EQ(parseItem("a:XEX"), (BrokeredType{"a", false, true}));
    EXPECT_EQ(parseItem(" a b "), (BrokeredType{" a b ", true, false}));
    EXPECT_EQ(parseItem(":E"), (BrokeredType{"", true, true}));
}

TEST(ConfigItem, RefusesOtherOptions) {
    for (const std::string options : {"Y", "e", "x", " ", "E ", "E:X", "EX,"}) {
        EXPECT_EQ(failureOfItem("a:" + options),
                  "invalid pcellBroker config string, only 'E' or 'X' options are  supported");
    }
    EXPECT_EQ(itemTypeName("a:Y"), "a");
}

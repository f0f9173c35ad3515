#include <functional>

#include <platform/process.h>
#include <platform/shared_module.h>
#include <platform/started_process.h>
#include <platform/system_error.h>

#include "diagnosis/installation.h"

namespace diagnosis::test {
namespace {

using Told = std::function<Faults(const Installation&)>;

// Whether every type has an evaluator in spite of the fault.
enum class Types { work, fail };

/// A fault that is made, and how it is told.
struct Seed {
    const char* name;
    Types types;
    std::function<void(Installation&)> plant;
    Told told;
};

void PrintTo(const Seed& seed, std::ostream* stream) {
    *stream << seed.name;
}

std::function<void(Installation&)> line(const std::string& text) {
    return [text](Installation& here) { here.lines.push_back(text); };
}

std::function<void(Installation&)> key(const std::string& name, const std::string& value) {
    return [=](Installation& here) { here.change(name, value); };
}

std::function<void(Installation&)> variable(const std::string& name,
                                            const std::optional<std::string>& value) {
    return [=](Installation& here) { here.set(name, value); };
}

std::function<void(Installation&)> without(const std::string& name) {
    return [=](Installation& here) { here.remove(name); };
}

/// The broker of version 6 is another program.
std::function<void(Installation&)> broker6(const std::string& builtName) {
    return [=](Installation& here) { here.install(builtName, "broker6"); };
}

std::function<void(Installation&)> both(const std::function<void(Installation&)>& first,
                                        const std::function<void(Installation&)>& second) {
    return [=](Installation& here) {
        first(here);
        second(here);
    };
}

/// No broker takes the type, and its description has this text.
std::function<void(Installation&)> description(const std::string& text) {
    return [=](Installation& here) {
        here.set("TEST_BROKER_TYPES", "another");
        here.write("plugins/coil.plg", text);
        here.change("MY_OA_PLUGIN_DIR_6", "plugins");
        here.change("MY_OA_PLUGIN_DIR_5", "plugins");
    };
}

Told told(const std::string& text, const std::string& cure) {
    return [=](const Installation&) { return Faults{{text, cure}}; };
}

/// The texts have "@NAME@" for the path of NAME in the installation, "#NAME#" for a program.
std::string expand(std::string text, const Installation& here) {
    for (const char mark : {'@', '#'}) {
        for (std::size_t begin = text.find(mark); begin != std::string::npos;
             begin = text.find(mark)) {
            const std::size_t end = text.find(mark, begin + 1);
            const std::string name = text.substr(begin + 1, end - begin - 1);
            text.replace(begin, end + 1 - begin,
                         here.at(mark == '@' ? name : Installation::program(name)));
        }
    }
    return text;
}

Told toldHere(const std::string& text, const std::string& cure) {
    return [=](const Installation& here) {
        return Faults{{expand(text, here), expand(cure, here)}};
    };
}

Told operator+(Told first, Told second) {
    return [=](const Installation& here) {
        Faults all = first(here);
        const Faults more = second(here);
        all.insert(all.end(), more.begin(), more.end());
        return all;
    };
}

/// What the system says of the attempt to start a program, without the end of its line.
std::string startFailure(const std::string& path) {
    platform::StartedProcess started;
    if (platform::startProcess({path, {path}, {}}, started))
        return "it starts";
    std::string text = platform::lastSystemErrorText();
    text.resize(text.find_last_not_of("\r\n") + 1);
    return text;
}

/// A program that cannot be started is told a second time, by the attempt to start it.
Told toldAtStart(const std::string& during, const std::string& program, const std::string& cure) {
    return [=](const Installation& here) {
        const std::string path = expand(program, here);
        return Faults{{during + ": CreateProcess(\"" + path + "\") failed: " + startFailure(path),
                       expand(cure, here)}};
    };
}

Told toldAtStartOf6(const std::string& program) {
    return toldAtStart("while starting pcellBroker6 using internal OA libs", program,
                       "see the faults of BROKER_EXE_6");
}

/// No broker takes the type then.
Told refusals(const std::string& cure = "give it the plug-in") {
    return told("pcellBroker6 using internal OA libs does not take the type 'coil'", cure) +
           told("pcellBroker5 using internal OA libs does not take the type 'coil'", cure);
}

/// The first bytes of a program, so that they name another processor.
void patchProcessor(Installation& here) {
    const std::filesystem::path program = here.path(Installation::program("broker6"));
    std::string bytes = ovalis::test::readText(program);
    if (bytes.starts_with("MZ")) {
        const std::size_t start = static_cast<unsigned char>(bytes[0x3c]) +
                                  256U * static_cast<unsigned char>(bytes[0x3d]);
        bytes.replace(start + 4, 2, "\x64\xaa"); // a processor with other instructions
    } else {
        bytes.replace(18, 2, std::string("\xb7\0", 2));
    }
    ovalis::test::writeText(program, bytes);
}

void useProgramOfOtherSystem(Installation& here) {
    std::string bytes(512, '\0');
    if (std::string(platform::systemName()) == "windows") {
        bytes.replace(0, 5, "\177ELF\2");
    } else {
        bytes.replace(0, 2, "MZ");
        bytes[0x3c] = 64;
        bytes.replace(64, 2, "PE");
    }
    ovalis::test::writeText(here.path(Installation::program("broker6")), bytes);
}

const std::string cureOfHome = "set PCELLBROKER_HOME to the directory that holds pcellBroker.cfg";
const std::string cureOfProgram = "name the program, from PCELLBROKER_HOME on";
const std::string cureOfDirectory =
    "name the directory, from PCELLBROKER_HOME on, or take the line out";
const std::string internal6 = "pcellBroker6 using internal OA libs";
const std::string cureOfBroker =
    "see what #broker6# says on standard error; it needs its OpenAccess libraries and has to "
    "speak the protocol (docs/broker.md)";
const std::string cureOfRefusal =
    "its plug-in is there: see what the broker says on standard error";
const std::string module = platform::moduleFileName("coil_module");

std::vector<Seed> configurationSeeds() {
    return {
        {"HomeNotSet", Types::fail, variable("PCELLBROKER_HOME", std::nullopt),
         told("PCELLBROKER_HOME is not set", cureOfHome)},
        {"HomeMissing", Types::fail,
         [](Installation& here) {
             here.writesFile = false;
             here.set("PCELLBROKER_HOME", here.at("absent"));
         },
         toldHere("PCELLBROKER_HOME: there is no directory @absent@", cureOfHome)},
        {"HomeIsAFile", Types::fail,
         [](Installation& here) {
             here.write("file", "");
             here.set("PCELLBROKER_HOME", here.at("file"));
         },
         toldHere("PCELLBROKER_HOME: @file@ is not a directory", cureOfHome)},
        {"HomeRelative", Types::fail, variable("PCELLBROKER_HOME", "."),
         told("PCELLBROKER_HOME: . depends on the working directory of the program",
              "write the whole path") +
             told(std::string("there is no file .") + platform::pathSeparator() + "pcellBroker.cfg",
                  "make it, with at least PROBE_EXE, BROKER_EXE_5 and BROKER_EXE_6")},
        {"FileMissing", Types::fail, [](Installation& here) { here.writesFile = false; },
         toldHere("there is no file @pcellBroker.cfg@",
                  "make it, with at least PROBE_EXE, BROKER_EXE_5 and BROKER_EXE_6")},
        {"FileIsADirectory", Types::fail,
         [](Installation& here) {
             here.writesFile = false;
             std::filesystem::create_directory(here.path("pcellBroker.cfg"));
         },
         toldHere("@pcellBroker.cfg@ is a directory", "put the file in its place")},
        {"Comment", Types::fail, line("# brokers"),
         told("line 5: '# brokers' has no '='",
              "write KEY=VALUE or take the line out; there are no comments")},
        {"UnknownKey", Types::fail, line("BROKER_EXE_7=x"),
         told("line 5: there is no key 'BROKER_EXE_7'",
              "the keys are CONFIG, PROBE_EXE, BROKER_EXE_5, BROKER_EXE_6, MY_OA_LIB_DIR_5, "
              "MY_OA_LIB_DIR_6, OA_LIB_DIR_5, OA_LIB_DIR_6, MY_OA_PLUGIN_DIR_5, "
              "MY_OA_PLUGIN_DIR_6, OA_PLUGIN_DIR_5, OA_PLUGIN_DIR_6, TCL_LIB_DIR_5, "
              "TCL_LIB_DIR_6, FORCED_OA_API_VERSION")},
        {"KeyWithBlank", Types::fail, line("OA_LIB_DIR_6 = lib"),
         told("line 5: there is no key 'OA_LIB_DIR_6 '",
              "write OA_LIB_DIR_6=VALUE, in capitals and without blanks")},
        {"KeyInLowerCase", Types::fail, line("config=coil"),
         told("line 5: there is no key 'config'",
              "write CONFIG=VALUE, in capitals and without blanks")},
        {"NoProbeKey", Types::fail, without("PROBE_EXE"),
         told("PROBE_EXE is missing", "add a line PROBE_EXE=PROGRAM")},
        {"NoBroker5Key", Types::fail, without("BROKER_EXE_5"),
         told("BROKER_EXE_5 is missing", "add a line BROKER_EXE_5=PROGRAM")},
        {"NoBroker6Key", Types::fail, without("BROKER_EXE_6"),
         told("BROKER_EXE_6 is missing", "add a line BROKER_EXE_6=PROGRAM")},
        {"NoTypes", Types::fail, without("CONFIG"),
         told("no pcell type is configured",
              "set CONFIG=TYPE,TYPE in the file, or PCELLBROKER_CONFIG")},
        {"ForcedVersionInFile", Types::fail, line("FORCED_OA_API_VERSION=5 "),
         told("FORCED_OA_API_VERSION (line 5): '5 ' is not a version",
              "set it to 5 or 6, without blanks, or to nothing")},
        {"ForcedVersionInVariable", Types::fail, variable("PCELLBROKER_FORCED_OA_API_VERSION", "7"),
         told("PCELLBROKER_FORCED_OA_API_VERSION: '7' is not a version",
              "set it to 5 or 6, without blanks, or to nothing")},
        {"KeyTwice", Types::work, line("CONFIG=wire:X"),
         told("line 4: CONFIG is set again in line 5",
              "take one of the two lines out; the later one counts")},
        {"HiddenLibraries", Types::work, both(line("OA_LIB_DIR_6=."), line("MY_OA_LIB_DIR_6=.")),
         told("line 5: OA_LIB_DIR_6 has no effect on the internal OA libs",
              "the later of OA_LIB_DIR_6 and MY_OA_LIB_DIR_6 counts: keep the one that is meant")},
        {"NamesSeparatedWrongly", Types::work, variable("PCELLBROKER_ENV", "A,B"),
         told("PCELLBROKER_ENV names the variable 'A,B'", "put '=' between names")},
        {"VariableEmptied", Types::work, variable("PCELLBROKER_ENV", "TEST_A"),
         told("PCELLBROKER_ENV empties TEST_A, because PCELLBROKER_ENV_TEST_A is not set",
              "set PCELLBROKER_ENV_TEST_A to what brokers are to see")},
    };
}

std::vector<Seed> typeSeeds() {
    return {
        {"UnknownOption", Types::fail, key("CONFIG", "wire:Y,coil:X"),
         told("CONFIG (line 4): 'wire:Y' has an option that there is none of",
              "after ':' only the letters E and X may stand")},
        {"TypeTwice", Types::work, variable("PCELLBROKER_CONFIG", "coil:X,coil:EX"),
         told("PCELLBROKER_CONFIG: 'coil:EX' comes after another 'coil' and has no effect",
              "name each type once")},
        {"TypeOfTheLibrary", Types::work, key("CONFIG", "PSNPcell,coil:X"),
         told("CONFIG (line 4): 'PSNPcell' is a type that the library evaluates itself",
              "take it out of the list")},
        {"BlankInType", Types::work, key("CONFIG", "wire:X, coil:X"),
         told("CONFIG (line 4): ' coil:X' has a blank in the name of the type",
              "take blanks out of the list")},
    };
}

std::vector<Seed> diskSeeds() {
    return {
        {"ProbeMissing", Types::fail, key("PROBE_EXE", "absent"),
         toldHere("PROBE_EXE (line 4): there is no file @absent@", cureOfProgram) +
             toldAtStart("while probing the OpenAccess API version", "@absent@",
                         "run @absent@ by hand: its exit code is to be 5 or 6; or force a "
                         "version")},
        {"BrokerMissing", Types::fail, key("BROKER_EXE_6", "absent"),
         toldHere("BROKER_EXE_6 (line 4): there is no file @absent@", cureOfProgram) +
             toldAtStartOf6("@absent@")},
        {"BrokerIsADirectory", Types::fail,
         both(key("BROKER_EXE_6", "folder"),
              [](Installation& here) { std::filesystem::create_directory(here.path("folder")); }),
         toldHere("BROKER_EXE_6 (line 4): @folder@ is a directory", cureOfProgram) +
             toldAtStartOf6("@folder@")},
        {"BrokerWithoutValue", Types::fail, key("BROKER_EXE_6", ""),
         told("BROKER_EXE_6 (line 4) has no value", cureOfProgram) + toldAtStartOf6("@@")},
        {"BrokerByWholePath", Types::fail, key("BROKER_EXE_6", "/opt/brokers/pcellBroker6"),
         toldHere("BROKER_EXE_6 (line 4): there is no file @/opt/brokers/pcellBroker6@",
                  "values start at PCELLBROKER_HOME: write the path from there on, with .. where "
                  "needed") +
             toldAtStartOf6("@/opt/brokers/pcellBroker6@")},
        {"BlankBehindValue", Types::fail, key("BROKER_EXE_6", "absent "),
         toldHere("BROKER_EXE_6 (line 4): there is no file @absent @",
                  "take the blank at the begin or end of the value out") +
             toldAtStartOf6("@absent @")},
        {"BrokerIsNoProgram", Types::fail,
         [](Installation& here) {
             ovalis::test::writeText(here.path(Installation::program("broker6")), "broker");
         },
         toldHere("BROKER_EXE_6 (line 3): #broker6# is not a program",
                  "install the program that was built for this machine") +
             toldAtStartOf6("#broker6#")},
        {"OtherProcessor", Types::fail, patchProcessor,
         toldHere("BROKER_EXE_6 (line 3): #broker6# is a program for another processor",
                  "install the program that was built for this machine") +
             toldAtStartOf6("#broker6#")},
        {"OtherSystem", Types::fail, useProgramOfOtherSystem,
         toldHere("BROKER_EXE_6 (line 3): #broker6# is a program for another system",
                  "install the program that was built for this machine") +
             toldAtStartOf6("#broker6#")},
        {"BrokerOfOtherVersion", Types::work,
         [](Installation& here) {
             here.install("broker_answers", "pcellBroker5");
             here.change("BROKER_EXE_6", Installation::program("pcellBroker5"));
         },
         told("BROKER_EXE_6 (line 4): pcellBroker5 is the broker of version 5",
              "name the program of version 6, or swap the two keys")},
        {"OneBrokerForBoth", Types::work, key("BROKER_EXE_6", Installation::program("broker5")),
         told("BROKER_EXE_5 (line 2) and BROKER_EXE_6 (line 4) name the same program",
              "each version has a broker of its own: name both")},
        {"LibraryDirectoryMissing", Types::work, line("OA_LIB_DIR_6=absent"),
         toldHere("OA_LIB_DIR_6 (line 5): there is no directory @absent@", cureOfDirectory)},
        {"LibraryDirectoryIsAFile", Types::work,
         both(line("MY_OA_LIB_DIR_5=file"), [](Installation& here) { here.write("file", ""); }),
         toldHere("MY_OA_LIB_DIR_5 (line 5): @file@ is not a directory",
                  "name the directory that holds it")},
        {"DirectoryWithoutValue", Types::work, line("OA_LIB_DIR_5="),
         told("OA_LIB_DIR_5 (line 5) has no value, which means PCELLBROKER_HOME itself",
              "name the directory or take the line out")},
        {"PlugInDirectoryMissing", Types::work, line("OA_PLUGIN_DIR_6=absent"),
         toldHere("OA_PLUGIN_DIR_6 (line 5): there is no directory @absent@", cureOfDirectory)},
        {"PlugInDirectoryEmpty", Types::work,
         both(line("MY_OA_PLUGIN_DIR_6=empty"),
              [](Installation& here) { std::filesystem::create_directory(here.path("empty")); }),
         toldHere("MY_OA_PLUGIN_DIR_6 (line 5): @empty@ holds no plug-in (no file *.plg)",
                  "put the plug-in's .plg file and module there")},
        {"TclDirectoryMissing", Types::work, line("TCL_LIB_DIR_6=tcl"),
         toldHere("TCL_LIB_DIR_6 (line 5): there is no directory @tcl@", cureOfDirectory)},
    };
}

std::vector<Seed> processSeeds() {
    return {
        {"ProbeFails", Types::fail, variable("TEST_BROKER_EXIT", "10"),
         toldHere("while probing the OpenAccess API version: pcbProbeOaVersion exited with an "
                  "error",
                  "run #probe# by hand: its exit code is to be 5 or 6; or force a version")},
        {"BrokerExitsAtOnce", Types::fail, broker6("broker_exits_at_once"),
         toldHere(internal6 + " ended before it showed that it is alive", cureOfBroker)},
        {"WrongSignOfLife", Types::fail, broker6("broker_wrong_liveness"),
         toldHere(internal6 + " shows that it is alive with the byte 59 instead of ':'",
                  cureOfBroker)},
        {"BrokerAnswersTooMuch", Types::fail,
         both(broker6("broker_answers_too_much"),
              both(variable("TEST_BROKER_COMMAND", "0"), variable("TEST_BROKER_EXTRA", ":"))),
         toldHere(internal6 + " has sent what nobody asked for", cureOfBroker)},
        {"BrokerExitsAtTheQuestion", Types::fail,
         both(broker6("broker_exits_after_bytes"), variable("TEST_BROKER_BYTES", "1")),
         toldHere(internal6 + " ended when it was asked for 'coil'", cureOfBroker)},
        {"BrokerRefusesATypeItHasAPlugInFor", Types::fail,
         both(description("<plugIn lib=\"coil_module\"/>"),
              [](Installation& here) { here.write("plugins/" + module, ""); }),
         refusals(cureOfRefusal)},
        {"BrokerRefusesATypeOnItsUsersPath", Types::fail,
         both(variable("TEST_BROKER_TYPES", "another"),
              [](Installation& here) {
                  here.write("plugins/coil.plg", "<plugIn lib=\"coil_module\"/>");
                  here.write("plugins/" + module, "");
                  here.set("PCELLBROKER_ENV", "OA_PLUGIN_PATH");
                  here.set("PCELLBROKER_ENV_OA_PLUGIN_PATH", here.at("plugins"));
              }),
         refusals(cureOfRefusal)},
        {"BrokerRefusesATypeOfItsInstallation", Types::fail,
         both(variable("TEST_BROKER_TYPES", "another"),
              [](Installation& here) {
                  here.write("oa/lib/" + platform::moduleFileName("openaccess"), "");
                  here.write("oa/data/plugins/coil.plg", "<plugIn lib=\"coil_module\"/>");
                  here.write("oa/data/plugins/" + module, "");
                  here.change("OA_LIB_DIR_5", "oa/lib");
                  here.change("OA_LIB_DIR_6", "oa/lib");
              }),
         refusals(cureOfRefusal)},
    };
}

std::vector<Seed> plugInSeeds() {
    const std::string file = std::string("@plugins@") + platform::pathSeparator() + "coil.plg";
    return {
        {"NoPlugInDirectory", Types::fail, variable("TEST_BROKER_TYPES", "another"),
         told("no plug-in directory is configured, where coil.plg could be",
              "set MY_OA_PLUGIN_DIR_5 and _6 in the file, or OA_PLUGIN_PATH") +
             refusals()},
        {"NoDescription", Types::fail,
         both(variable("TEST_BROKER_TYPES", "another"),
              [](Installation& here) {
                  here.write("plugins/other.plg", "");
                  here.change("OA_PLUGIN_DIR_6", "plugins");
                  here.set("OA_PLUGIN_PATH", here.at("absent"));
              }),
         toldHere("there is no coil.plg in @plugins@, @absent@ (not there)",
                  "put coil.plg and its module into one of these directories") +
             told(internal6 + " does not take the type 'coil'", "give it the plug-in") +
             toldHere("there is no coil.plg in @absent@ (not there)",
                      "put coil.plg and its module into one of these directories") +
             told("pcellBroker5 using internal OA libs does not take the type 'coil'",
                  "give it the plug-in")},
        {"DescriptionWithoutModule", Types::fail, description("<plugIn category=\"coils\"/>"),
         toldHere(file + " names no module", "write <plugIn lib=\"NAME\"/> into it") + refusals()},
        {"DescriptionMalformed", Types::fail, description("<plugIn lib=\"coil_module\""),
         toldHere(file + " is not a description of a plug-in: line 1: expected a name",
                  "write <plugIn lib=\"NAME\"/> into it") +
             refusals()},
        {"DescriptionOfTwo", Types::fail, description("<plugIn lib='a' treatAs='b'></plugIn>"),
         toldHere(file + " names a module and another plug-in", "keep either lib or treatAs") +
             refusals()},
        {"ModuleByPath", Types::fail, description("<plugin lib='bin/coil_module'/>"),
         toldHere(file + ": 'bin/coil_module' is not the bare name of a module",
                  "put the module beside the file and write its name without directory") +
             refusals()},
        {"ModuleMissing", Types::fail, description("<plugIn lib = 'coil_module'/>"),
         toldHere("the module " + module + " is neither beside " + file +
                      " nor in a directory of " + platform::libraryPathVariable(),
                  "put it there, or correct the name in lib=\"coil_module\"") +
             refusals()},
        {"DescriptionLeadsNowhere", Types::fail, description("<plugIn treatAs='wire'/>"),
         toldHere("there is no wire.plg in @plugins@",
                  "put wire.plg and its module into one of these directories") +
             refusals()},
        {"DescriptionLeadsToItself", Types::fail, description("<plugIn treatAs='coil'/>"),
         told("the descriptions lead from 'coil' back to it",
              "have the last one name its module with lib") +
             refusals()},
    };
}

class Faulty : public testing::TestWithParam<Seed> {};

TEST_P(Faulty, IsToldWithItsCure) {
    Installation here;
    GetParam().plant(here);
    const Report report = here.diagnose();
    EXPECT_EQ(faultsOf(report), GetParam().told(here));
    EXPECT_EQ(report.isSound(), GetParam().types == Types::work);
}

const auto nameOfSeed = [](const auto& info) { return std::string(info.param.name); };

INSTANTIATE_TEST_SUITE_P(Configuration, Faulty, testing::ValuesIn(configurationSeeds()),
                         nameOfSeed);
INSTANTIATE_TEST_SUITE_P(Types, Faulty, testing::ValuesIn(typeSeeds()), nameOfSeed);
INSTANTIATE_TEST_SUITE_P(Disk, Faulty, testing::ValuesIn(diskSeeds()), nameOfSeed);
INSTANTIATE_TEST_SUITE_P(Processes, Faulty, testing::ValuesIn(processSeeds()), nameOfSeed);
INSTANTIATE_TEST_SUITE_P(PlugIns, Faulty, testing::ValuesIn(plugInSeeds()), nameOfSeed);

TEST(Fault, AProgramWithoutTheRightToExecuteIsTold) {
    if (std::string(platform::systemName()) == "windows")
        GTEST_SKIP() << "every file is executable";
    Installation here;
    std::filesystem::permissions(here.path("broker6"), std::filesystem::perms::owner_read);
    const Report report = here.diagnose();
    EXPECT_EQ(report.faults,
              (Faults{{"BROKER_EXE_6 (line 3): " + here.at("broker6") + " is not executable",
                       "give this user the right to execute it"}}));
    EXPECT_FALSE(report.isSound());
}

TEST(Fault, ABrokerThatIsSilentIsGivenUp) {
    Installation here;
    here.install("broker_silent", "broker6");
    const Report report = here.diagnose(std::chrono::milliseconds(200));
    ASSERT_EQ(report.types.size(), 1U);
    ASSERT_EQ(report.types[0].faults.size(), 1U);
    EXPECT_EQ(report.types[0].faults[0].text, internal6 + " does not show that it is alive");
    EXPECT_EQ(report.types[0].attempts.back().answer, "broken connection to " + internal6);
}

} // namespace
} // namespace diagnosis::test

#include "component.h"
#include "support/environment_override.h"
#include "support/files.h"
#include "support/places.h"
#include "support/run_program.h"
#include "support/temporary_directory.h"

#include "platform/environment.h"
#include "platform/path.h"
#include "platform/shared_module.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace oaCommon;
using namespace ovalis::test;
using platform::joinPath;
using test::IAnswer;

namespace {

// Of the program itself: no plug-in, whatever a description says.
Factory<test::Component> ofProgram("answer_of_program");

constexpr const char* kHeader = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";

/// Where the modules are, with a description for each of their classes.
const std::string kPlugIns = TEST_PLUG_INS;

std::string pathList(const std::vector<std::string>& directories) {
    std::string list;
    for (const std::string& directory : directories)
        list += (list.empty() ? "" : std::string(1, platform::pathListSeparator())) + directory;
    return list;
}

struct Failure {
    long status = IBase::cOK;
    std::string text;

    bool operator==(const Failure&) const = default;
};

void PrintTo(const Failure& failure, std::ostream* out) {
    *out << failure.status << " " << failure.text;
}

Failure failureOf(const char* plugIn) {
    try {
        const SPtr<IAnswer> made(plugIn);
        return {IBase::cOK, "made"};
    } catch (const oaPlugInError& error) {
        return {error.getStatus(), error.getMsg()};
    }
}

Failure failed(const std::string& plugIn, const std::string& reason, long status = IBase::cFail) {
    return {status, "Plug-in '" + plugIn + "': " + reason};
}

/// Descriptions of a test's own, in a directory that is searched before the common one.
class PlugIn : public ::testing::Test {
protected:
    std::string describe(const std::string& name, const std::string& element) {
        writeText(directory.path() /
                      std::filesystem::path(std::u8string(name.begin(), name.end()) + u8".plg"),
                  kHeader + element + "\n");
        return joinPath(directory.str(), name + ".plg");
    }

    static int answerOf(const char* plugIn) { return SPtr<IAnswer>(plugIn)->answer(); }

    /// The directory that is searched last.
    static std::string installed() {
        const std::string library =
            platform::moduleHolding(reinterpret_cast<const void*>(&internal::plugInInstance));
        return joinPath(platform::parentPath(platform::parentPath(library)), "data/plugins");
    }

    TemporaryDirectory directory;
    EnvironmentOverride path{"OA_PLUGIN_PATH", pathList({directory.str(), kPlugIns})};
};

} // namespace

TEST_F(PlugIn, IsMadeByItsName) {
    const SPtr<IAnswer> answer("answer");
    EXPECT_EQ(answer->answer(), 42);
    const SPtr<IAnswer> another("answer");
    EXPECT_TRUE(answer != another);
    EXPECT_EQ(SPtr<IAnswer>("answer_too")->answer(), 42);
}

TEST_F(PlugIn, BelongsToItsHolders) {
    {
        const SPtr<IAnswer> first("count");
        const SPtr<IAnswer> second("count");
        EXPECT_EQ(second->answer(), 2);
    }
    EXPECT_EQ(answerOf("count"), 1);
}

TEST_F(PlugIn, IsLookedForWhereTheVariableSaysNow) {
    const EnvironmentOverride elsewhere("OA_PLUGIN_PATH", directory.str());
    EXPECT_EQ(failureOf("answer"), failed("answer", "there is no answer.plg in " + directory.str() +
                                                        ", " + installed()));
    const EnvironmentOverride there("OA_PLUGIN_PATH", kPlugIns);
    EXPECT_EQ(answerOf("answer"), 42);
}

TEST_F(PlugIn, IsLookedForInTheInstallationAlone) {
    const EnvironmentOverride unset("OA_PLUGIN_PATH", std::nullopt);
    EXPECT_EQ(failureOf("answer"), failed("answer", "there is no answer.plg in " + installed() +
                                                        " (OA_PLUGIN_PATH is not set)"));
    const EnvironmentOverride empty("OA_PLUGIN_PATH", "");
    EXPECT_EQ(failureOf("answer").status, IBase::cFail);
}

TEST_F(PlugIn, IsTakenFromTheFirstDirectoryThatHasIt) {
    const std::string file = describe("answer", "<plugIn lib='no_such_module'/>");
    EXPECT_EQ(failureOf("answer").text.find("Plug-in 'answer': " + file), 0u);
    const EnvironmentOverride turned("OA_PLUGIN_PATH", pathList({kPlugIns, directory.str()}));
    EXPECT_EQ(answerOf("answer"), 42);
}

TEST_F(PlugIn, IsNotLookedForWhereThereIsNothing) {
    const EnvironmentOverride gaps(
        "OA_PLUGIN_PATH", pathList({"", joinPath(directory.str(), "missing"), "", kPlugIns, ""}));
    EXPECT_EQ(answerOf("answer"), 42);
    const EnvironmentOverride nothing("OA_PLUGIN_PATH", pathList({"", "", ""}));
    EXPECT_EQ(failureOf("answer"), failed("answer", "there is no answer.plg in " + installed()));
}

TEST_F(PlugIn, MayHaveAnyLettersInItsNameAndDirectory) {
    const EnvironmentOverride there("OA_PLUGIN_PATH", joinPath(kPlugIns, "größe"));
    EXPECT_EQ(answerOf("größe"), 42);
}

TEST_F(PlugIn, IsTreatedAsAnother) {
    describe("alias", "<plugin treatAs=\"answer\"/>");
    describe("second alias", "<!-- old --><plugIn category='x' treatAs='alias'></plugIn>");
    EXPECT_EQ(answerOf("alias"), 42);
    EXPECT_EQ(answerOf("second alias"), 42);
}

TEST_F(PlugIn, IsNotTreatedAsItself) {
    const std::string itself = describe("itself", "<plugin treatAs='itself'/>");
    EXPECT_EQ(failureOf("itself"),
              failed("itself", itself + ": the descriptions lead from 'itself' back to it"));
    describe("a", "<plugin treatAs='b'/>");
    describe("b", "<plugin treatAs='c'/>");
    const std::string last = describe("c", "<plugin treatAs='b'/>");
    EXPECT_EQ(failureOf("a"), failed("a", last + ": the descriptions lead from 'b' back to it"));
}

TEST_F(PlugIn, NeedsTheOneItIsTreatedAs) {
    describe("alias", "<plugin treatAs='nobody'/>");
    EXPECT_EQ(failureOf("alias"), failed("alias", "there is no nobody.plg in " + directory.str() +
                                                      ", " + kPlugIns + ", " + installed()));
}

TEST_F(PlugIn, HasANameThatCanBeThatOfAFile) {
    for (const char* name : {"", "../answer", "a\\b", "c:answer"})
        EXPECT_EQ(failureOf(name), failed(name, "a plug-in cannot have this name"));
    EXPECT_EQ(failureOf(nullptr), failed("", "a plug-in cannot have this name"));
}

TEST_F(PlugIn, NeedsADescriptionThatCanBeRead) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "line 3: expected '<' before the end of the file"},
        {"lib=answering", "line 2: expected '<'"},
        {"<plugIn lib='answering'>", "line 3: expected '<' before the end of the file"},
        {"<plugOut lib='answering'/>", "expected <plugIn>, not <plugOut>"},
        {"<plugIn/>", "expected either the attribute lib or the attribute treatAs"},
        {"<plugIn lib='answering' treatAs='answer'/>",
         "expected either the attribute lib or the attribute treatAs"},
        {"<plugIn lib=''/>", "'' is not the name of a module"},
        {"<plugIn lib='../answering'/>", "'../answering' is not the name of a module"},
        {"<plugIn treatAs='../answer'/>", "'../answer' is not the name of a plug-in"},
    };
    for (const auto& [element, reason] : cases) {
        const std::string file = describe("bad", element);
        EXPECT_EQ(failureOf("bad"), failed("bad", file + ": " + reason));
    }
}

TEST_F(PlugIn, IsNotADirectory) {
    std::filesystem::create_directory(directory.path() / "answer.plg");
    EXPECT_EQ(answerOf("answer"), 42);
}

TEST_F(PlugIn, NeedsItsModule) {
    const std::string file = describe("lost", "<plugIn lib='no_such_module'/>");
    const Failure failure = failureOf("lost");
    const std::string start = "Plug-in 'lost': " + file + ": the module " +
                              platform::moduleFileName("no_such_module") + " cannot be loaded: ";
    EXPECT_EQ(failure.text.substr(0, start.size()), start);
    EXPECT_GT(failure.text.size(), start.size()); // the system's reason
    EXPECT_EQ(failure.status, IBase::cFail);
}

TEST_F(PlugIn, NeedsAModuleThatIsOne) {
    const std::string file = describe("broken", "<plugIn lib='broken'/>");
    const std::string module = joinPath(directory.str(), platform::moduleFileName("broken"));
    writeText(module, "not a module");
    const std::string start =
        "Plug-in 'broken': " + file + ": the module " + module + " cannot be loaded: ";
    EXPECT_EQ(failureOf("broken").text.substr(0, start.size()), start);
}

TEST_F(PlugIn, NeedsAModuleOfPlugIns) {
    const std::string module = joinPath(kPlugIns, platform::moduleFileName("mute"));
    EXPECT_EQ(failureOf("mute"),
              failed("mute", "the module " + module + " does not export getClassObject"));
}

TEST_F(PlugIn, NeedsAModuleWithItsClass) {
    const std::string answering = joinPath(kPlugIns, platform::moduleFileName("answering"));
    for (const std::string name : {"unknown", "answer_of_program"})
        EXPECT_EQ(
            failureOf(name.c_str()),
            failed(name, "the module " + answering + " has no class '" + name + "' (status 1)"));
    const std::string refusing = joinPath(kPlugIns, platform::moduleFileName("refusing"));
    EXPECT_EQ(
        failureOf("refusing"),
        failed("refusing", "the module " + refusing + " has no class 'refusing' (status 23)", 23));
}

TEST_F(PlugIn, NeedsTheInterfaceThatIsAskedFor) {
    try {
        const SPtr<IFactory> other("answer");
        ADD_FAILURE() << "an answer is no factory";
    } catch (const oaPlugInError& error) {
        const std::string module = joinPath(kPlugIns, platform::moduleFileName("answering"));
        EXPECT_EQ((Failure{error.getStatus(), error.getMsg()}),
                  failed("answer",
                         "the class in the module " + module +
                             " does not have the interface that is needed (status 2)",
                         IBase::cNoInterface));
    }
}

TEST_F(PlugIn, TellsWhyItsConstructorFails) {
    EXPECT_EQ(
        failureOf("failing"),
        failed("failing", "its constructor failed: the answer is not known yet (status 17)", 17));
    EXPECT_EQ(failureOf("failing_silently"),
              failed("failing_silently", "its constructor failed (status 18)", 18));
}

TEST_F(PlugIn, IsAlsoFoundWhereTheSystemFindsLibraries) {
    describe("answer", "<plugIn lib='answering'/>");
    const std::string before =
        platform::environmentVariable(TEST_LIBRARY_PATH_VARIABLE).value_or("");
    const EnvironmentOverride elsewhere("OA_PLUGIN_PATH", directory.str());
    const EnvironmentOverride libraries(TEST_LIBRARY_PATH_VARIABLE, pathList({kPlugIns, before}));
    EXPECT_EQ(runProgram(builtProgram("ask_plug_in"), {"answer"}).output.substr(0, 2), "42");
}

#include <gmock/gmock.h>

#include "platform/child_process.h"
#include "workplace.h"

namespace cli::test {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> namesIn(const std::string& directory) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory))
        names.push_back(ovalis::test::utf8(entry.path().filename()));
    return names;
}

/// Exports the component in a process of its own.
class Exporter {
public:
    Exporter(const Workplace& work, const std::string& name, const std::string& library)
        : cell_(library + "/" + name),
          child_(ovalis::test::utf8(ovalis::test::builtProgram("ovalis")),
                 {"export", component(work, name), "--lib", library},
                 {work.path(name + "_out.txt"), work.path(name + "_talk.txt")}) {}

    /// True when it failed, or has made the cell.
    bool keptItsWord() { return child_.wait() != 0 || fs::exists(cell_ + "/layout/layout.oa"); }

private:
    static std::string component(const Workplace& work, const std::string& name) {
        nlohmann::json description = work.component;
        description["name"] = name;
        ovalis::test::writeText(work.path(name + ".json"), description.dump());
        return work.path(name + ".json");
    }

    std::string cell_;
    platform::ChildProcess child_;
};

TEST(NewLibrary, IsWholeWhenTwoMakeItAtOnce) {
    const Workplace work;
    work.componentFile(); // the layout lies beside it
    for (const std::string round : {"1", "2", "3", "4", "5", "6", "7", "8"}) {
        fs::create_directory(work.path(round));
        const std::string library = work.path(round) + "/lib";
        Exporter one(work, "one", library);
        Exporter two(work, "two", library);
        EXPECT_TRUE(one.keptItsWord());
        EXPECT_TRUE(two.keptItsWord());
        EXPECT_THAT(namesIn(work.path(round)), ElementsAre("lib"));
        EXPECT_EQ(ovalisHere({"check", library}), (Outcome{0, "", ""}));
    }
}

TEST(NewLibrary, IsNotCheckedWhenSomebodyElseHasItByThen) {
    const Workplace work;
    ovalis::LibPtr taken;
    const ExportReport report = work.exportWatched([&](Step step) {
        if (step == Step::newCellInPlace)
            taken = ovalis::openLib(work.library(), true, "lib");
    });
    EXPECT_THAT(report.lacks, testing::StartsWith("not checked: "));
}

TEST(NewLibrary, LeavesNothingBesideItWhenItGoesAgain) {
    const Workplace work;
    work.componentFile();
    const std::vector<std::string> before = namesIn(work.path(""));
    const auto breakOff = [](Step) { throw std::runtime_error("broken on purpose"); };
    EXPECT_THROW(work.exportWatched(breakOff), std::runtime_error);
    EXPECT_THAT(namesIn(work.path("")), testing::UnorderedElementsAreArray(before));
}

TEST(NewLibrary, GoesAgainWhenThePcellInItFails) {
    const Workplace work;
    const std::string tooLong(300, 'c');
    EXPECT_EQ(ovalisHere({"pcell", work.library(), tooLong, "layout", "PSNPcell"}).status, 2);
    EXPECT_THAT(namesIn(work.path("")), IsEmpty());
}

TEST(NewLibrary, HasANameThatItsListCanHold) {
    const Workplace work;
    for (const std::string name : {"a\"b", "#a", "--a", "a\x7F"})
        EXPECT_EQ(
            work.exportIt({"--name=" + name}),
            (Outcome{2, "",
                     "ovalis: " + work.library() +
                         ": a library definition file cannot hold the name '" + name + "'\n"}));
    EXPECT_FALSE(fs::exists(work.library()));
}

TEST(NewLibrary, MayBeMadeInAnEmptyDirectoryWhichStays) {
    const Workplace work;
    fs::create_directory(work.library());
    const auto breakOff = [](Step) { throw std::runtime_error("broken on purpose"); };
    EXPECT_THROW(work.exportWatched(breakOff), std::runtime_error);
    EXPECT_TRUE(fs::is_directory(work.library()));
}

} // namespace
} // namespace cli::test

#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "platform/child_process.h"
#include "workplace.h"

namespace cli::test {
namespace {

namespace fs = std::filesystem;

constexpr int kills = 40;

/// Replaces the cell in a process that is killed after a while.
void exportAndKill(const Workplace& work, const std::string& file,
                   std::chrono::milliseconds after) {
    platform::ChildProcess child(ovalis::test::utf8(ovalis::test::builtProgram("ovalis")),
                                 {"export", file, "--lib", work.library(), "--replace"},
                                 {work.path("killed_out.txt"), work.path("killed_talk.txt")});
    std::this_thread::sleep_for(after);
    child.kill();
    child.wait();
}

/// The names of the cell's files, wherever a killed export has left the last whole one. Locks are
/// left out: a process that is killed leaves those it held, or was just taking, to be taken over.
std::vector<std::string> filesOfWholeCell(const Workplace& work) {
    const std::string home = work.library() + "/coil";
    std::vector<std::string> names;
    for (const auto& [name, bytes] :
         treeOf(fs::exists(home) ? home : work.library() + "/.ovalis-export/old/coil"))
        if (name.find(".cdslck") == std::string::npos)
            names.push_back(name);
    return names;
}

TEST(KilledExport, LeavesAWholeCellAtAnyMoment) {
    Workplace work;
    const std::string file = work.componentFile();
    ASSERT_EQ(work.exportIt().status, 0);
    const std::vector<std::string> names = filesOfWholeCell(work);
    for (int kill = 0; kill < kills; ++kill) {
        exportAndKill(work, file, std::chrono::milliseconds(kill * 37 % 200));
        ASSERT_EQ(filesOfWholeCell(work), names) << kill;
    }
    EXPECT_EQ(work.exportIt({"--replace"}).status, 0);
    const Tree afterwards = treeOf(work.library() + "/coil");
    EXPECT_EQ(afterwards.size(), names.size()); // no lock has stayed
    EXPECT_EQ(ovalisHere({"check", work.library()}), (Outcome{0, "", ""}));
    EXPECT_FALSE(fs::exists(work.library() + "/.ovalis-export"));
    EXPECT_TRUE(ovalisHere({"draw", work.library(), "coil", "layout"}).out.ends_with("</svg>\n"));
}

} // namespace
} // namespace cli::test

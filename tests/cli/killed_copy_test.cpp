#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "platform/child_process.h"
#include "platform/file.h"
#include "workplace.h"

namespace cli::test {
namespace {

namespace fs = std::filesystem;

/// Half of them early, where a copy is on its way on a fast system, half of them all over.
constexpr int kills = 30;

/// Copies in a process that is killed after a while.
void copyAndKill(const Workplace& work, std::chrono::milliseconds after) {
    platform::ChildProcess child(ovalis::test::utf8(ovalis::test::builtProgram("ovalis")),
                                 {"copy", work.library(), work.path("copy")},
                                 {work.path("killed_out.txt"), work.path("killed_talk.txt")});
    std::this_thread::sleep_for(after);
    child.kill();
    child.wait();
}

TEST(KilledCopy, IsWholeOrNotThere) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string content(1 << 20, 'x');
    for (const char* name : {"1", "2", "3", "4", "5", "6", "7", "8"})
        ovalis::test::writeText(work.library() + "/coil/" + name, content);
    const Tree whole = work.tree();
    const std::string copy = work.path("copy");
    for (int kill = 0; kill < kills; ++kill) {
        copyAndKill(work, std::chrono::milliseconds(kill % 2 == 0 ? kill : kill * 37 % 200));
        ASSERT_TRUE(!fs::exists(copy) || treeOf(copy) == whole) << kill;
        platform::removeTree(copy);
    }
    ASSERT_EQ(ovalisHere({"copy", work.library(), copy}).status, 0);
    EXPECT_TRUE(treeOf(copy) == whole);
    for (const auto& entry : fs::directory_iterator(work.path("")))
        EXPECT_FALSE(ovalis::test::utf8(entry.path().filename()).starts_with(".ovalis")) << entry;
}

} // namespace
} // namespace cli::test

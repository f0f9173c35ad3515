#include "sample_database.h"

#include "platform/child_process.h"
#include "platform/file.h"
#include "support/places.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace {

using namespace sample;
using namespace ovalis::test;

/// Lets the child save for a while, and ends it at a moment of its own.
void saveUntilKilled(const std::string& path, const std::string& ready,
                     std::chrono::microseconds moment) {
    platform::ChildProcess child(utf8(builtProgram("save_forever")), {path, ready});
    while (!platform::exists(ready))
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    std::this_thread::sleep_for(moment);
    child.kill();
    child.wait();
    platform::removeFile(ready);
}

TEST(AKilledSave, LeavesAWholeFileAtWhateverMomentItCame) {
    TemporaryDirectory directory;
    const std::string path = directory.str() + "/sample.oa";
    save(path, SampleDatabase());
    std::uint32_t generation = 0;
    for (int kill = 0; kill < 200; ++kill) {
        saveUntilKilled(path, directory.str() + "/ready",
                        std::chrono::microseconds(kill * 61 % 4000));
        SampleDatabase database;
        ASSERT_NO_THROW(load(path, database)) << kill;
        ASSERT_EQ(database.leaves(0).slots(), database.leaves(1).slots()) << kill;
        ASSERT_GE(database.leaves(0).slots(), generation) << kill;
        generation = database.leaves(0).slots();
    }
    EXPECT_GT(generation, 0u);

    // The next save clears away what the killed ones left.
    SampleDatabase database;
    load(path, database);
    save(path, database);
    EXPECT_EQ(platform::listDirectory(directory.str()),
              (std::vector<platform::DirectoryEntry>{{"sample.oa", platform::EntryKind::file}}));
}

} // namespace

#include "design_fixture.h"

#include "support/places.h"

#include "platform/child_process.h"
#include "platform/file.h"

#include <chrono>
#include <thread>

namespace design_test {

using namespace ovalis::test;

namespace {

class KilledSave : public DesignTest {
protected:
    std::string library() const { return directory.str() + "/lib"; }

    /// Lets another process save for a while, and ends it at a moment of its own.
    void saveUntilKilled(std::chrono::microseconds moment) const {
        const std::string ready = directory.str() + "/ready";
        platform::ChildProcess child(utf8(builtProgram("save_forever_design")), {library(), ready});
        while (!platform::exists(ready))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        std::this_thread::sleep_for(moment);
        child.kill();
        child.wait();
        platform::removeFile(ready);
    }
};

} // namespace

TEST_F(KilledSave, LeavesADesignThatOpensAndCanBeEdited) {
    makeBlock()->getDesign()->save();
    open("cell", 'a')->purge();
    oaUInt4 saved = 0;
    for (int kill = 0; kill < 200; ++kill) {
        saveUntilKilled(std::chrono::microseconds(kill * 53 % 4000));
        oaDesign* design = open("cell", 'a'); // takes the lock of the dead process over
        ASSERT_NE(design, nullptr) << kill;
        const oaUInt4 shapes = design->getTopBlock()->getShapes().getCount();
        ASSERT_EQ(shapes % 2, 0u) << kill;
        ASSERT_GE(shapes, saved) << kill;
        saved = shapes;
        design->purge();
    }
    EXPECT_GT(saved, 0u);

    oaDesign* design = open("cell", 'a');
    design->save();
    design->purge();
    EXPECT_EQ(platform::listDirectory(library() + "/cell/layout").size(), 2u)
        << "layout.oa and master.tag";
}

} // namespace design_test

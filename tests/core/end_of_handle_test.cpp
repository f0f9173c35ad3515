#include "support/library_fixture.h"
#include "support/places.h"
#include "support/run_program.h"

using ovalis::test::builtProgram;
using ovalis::test::runProgram;

namespace {

class EndOfHandle : public ovalis::test::FolderTest {
protected:
    /// Exit status of a process whose handle gives back what was given back before.
    int statusAfter(const std::string& handle) const {
        return runProgram(builtProgram("end_of_handle"), {pathOf("lib"), handle}).exitCode;
    }
};

} // namespace

TEST_F(EndOfHandle, EndsTheProcessWhenASharedLibraryCannotBeClosed) {
    EXPECT_EQ(statusAfter("shared"), 10);
}

TEST_F(EndOfHandle, EndsTheProcessWhenAnAccessCannotBeReleased) {
    EXPECT_EQ(statusAfter("access"), 10);
}

TEST_F(EndOfHandle, DropsAFailureToReleaseALock) {
    EXPECT_EQ(statusAfter("lock"), 0);
    EXPECT_EQ(statusAfter("try-lock"), 0);
}

TEST_F(EndOfHandle, LeavesALibraryAloneThatIsClosedAlready) {
    EXPECT_EQ(statusAfter("owned"), 0);
}

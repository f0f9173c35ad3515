#include <sstream>

#include "support/library_fixture.h"
#include "support/places.h"
#include "support/run_program.h"

using ovalis::test::builtProgram;
using ovalis::test::runProgram;

namespace {

class EndOfHandle : public ovalis::test::FolderTest {
protected:
    /// What a process says and leaves whose handle gives back what was given back before.
    std::string after(const std::string& handle) const {
        const auto result = runProgram(builtProgram("end_of_handle"), {pathOf(handle), handle});
        std::istringstream output(result.output);
        std::string all;
        for (std::string word; output >> word;) {
            all += word + " ";
        }
        return all + std::to_string(result.exitCode);
    }
};

} // namespace

TEST_F(EndOfHandle, EndsTheProcessWhenASharedLibraryCannotBeClosed) {
    EXPECT_EQ(after("shared"), "ready 10");
}

TEST_F(EndOfHandle, EndsTheProcessWhenAnAccessCannotBeReleased) {
    EXPECT_EQ(after("access"), "ready 10");
}

TEST_F(EndOfHandle, DropsAFailureToReleaseALock) {
    EXPECT_EQ(after("lock"), "ready went on 0");
    EXPECT_EQ(after("try-lock"), "ready went on 0");
}

TEST_F(EndOfHandle, LeavesALibraryAloneThatIsClosedAlready) {
    EXPECT_EQ(after("owned"), "ready went on 0");
}

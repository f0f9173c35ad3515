#include <gtest/gtest.h>

#include "support/places.h"
#include "support/run_program.h"

namespace {

std::string startUp(const std::vector<std::string>& arguments) {
    using namespace ovalis::test;
    return runProgram(builtProgram("short_of_memory"), arguments).output;
}

} // namespace

TEST(StartUpShortOfMemory, StartsAgainWhenItFailedBeforeTheEvaluators) {
    EXPECT_EQ(startUp({"1"}), "out of memory, no angle; initialised, angle\n");
}

TEST(StartUpShortOfMemory, CountsAsDoneWhenOnlyThePinAngleFailed) {
    const std::string last = startUp({});
    EXPECT_EQ(startUp({last}), "out of memory, no angle; growEnvelope; initialised, no angle\n");
}

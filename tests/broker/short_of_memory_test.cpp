#include <gtest/gtest.h>

#include "support/environment_override.h"
#include "support/places.h"
#include "support/run_program.h"

// A configuration that is missing is not told each time then, but start-up goes on.
TEST(RegistrationShortOfMemory, ThrowsNothing) {
    const ovalis::test::EnvironmentOverride home("PCELLBROKER_HOME", std::nullopt);
    const auto result =
        ovalis::test::runProgram(ovalis::test::builtProgram("register_short_of_memory"), {});
    EXPECT_EQ(result.output, "nothing was thrown\n");
    EXPECT_EQ(result.exitCode, 0);
}

#include "broker/log.h"

#include <gmock/gmock.h>

#include <oa/oaDesignDB.h>

#include "broker/registration.h"
#include "platform/system_log.h"
#include "support/environment_override.h"

namespace pcellBrokerClient::test {

using ovalis::test::systemLog;
using testing::ElementsAre;

TEST(Log, LinesGoToStandardErrorAndToTheSystemsLogOfOneSource) {
    systemLog().errors.clear();
    testing::internal::CaptureStderr();
    logMessage("no broker: 100 %s");
    logMessage("größe");
    std::string printed = testing::internal::GetCapturedStderr();
    std::erase(printed, '\r');
    const std::string first = "pcellBrokerClient: no broker: 100 %s";
    const std::string second = "pcellBrokerClient: größe";
    EXPECT_EQ(printed, first + "\n" + second + "\n");
    EXPECT_THAT(systemLog().errors, ElementsAre(first, second));
    // Also when other tests of this process have logged before.
    EXPECT_EQ(systemLog().sources, ovalis::test::onceRegistered("pcellBrokerClient"));
}

TEST(Log, HasTheLinesOfARegistrationThatFails) {
    const ovalis::test::EnvironmentOverride home("PCELLBROKER_HOME", std::nullopt);
    oa::oaDesignInit();
    systemLog().errors.clear();
    testing::internal::CaptureStderr();
    ovalis::registerPcellEvaluators();
    std::string printed = testing::internal::GetCapturedStderr();
    std::erase(printed, '\r');
    const std::string line =
        "pcellBrokerClient: registerPcellEvaluators: PCELLBROKER_HOME is not set";
    EXPECT_EQ(printed, line + "\n");
    EXPECT_THAT(systemLog().errors, ElementsAre(line));
}

} // namespace pcellBrokerClient::test

#include <gtest/gtest.h>

#include "platform/file.h"
#include "workplace.h"

namespace cli::test {
namespace {

TEST(TechnologiesExample, MakesLibrariesInADirectoryOfAnyName) {
    const Workplace work;
    const std::string directory = work.path("B\u00fcro \u6728");
    platform::createDirectory(directory);
    const auto made = ovalis::test::runProgram(
        ovalis::test::builtProgram("incremental_technologies"), {directory});
    EXPECT_EQ(made.exitCode, 0) << made.errors;
    EXPECT_EQ(ovalisHere({"list", directory + "/chip"}),
              (Outcome{0, "top  layout  maskLayout\n", ""}));
}

} // namespace
} // namespace cli::test

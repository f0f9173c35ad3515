#include <gtest/gtest.h>

#include "platform/pipe_file.h"
#include "workplace.h"

namespace cli::test {
namespace {

TEST(ExportPipe, APipeIsNoComponentAndNoLayoutAndIsNotWaitedFor) {
    Workplace work;
    const std::string pipe = work.path("pipe");
    ASSERT_TRUE(ovalis::test::makePipeFile(pipe));
    const Outcome refused{2, "", "ovalis: " + pipe + ": is no file\n"};
    EXPECT_EQ(ovalisHere({"export", pipe, "--lib", work.library()}), refused);
    work.component["layout"] = "pipe";
    EXPECT_EQ(work.exportIt(), refused);
    EXPECT_FALSE(std::filesystem::exists(work.library()));
}

} // namespace
} // namespace cli::test

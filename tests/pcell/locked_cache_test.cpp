#include "cached_pcells.h"
#include "platform/exclusive_file.h"
#include "platform/system_error.h"

using ovalis::test::CachedPcells;
using ovalis::test::drawnWidth;

namespace {

/// The system's number for a file that another handle does not share.
constexpr long notShared = 32;

using LockedCache = CachedPcells;

} // namespace

TEST_F(LockedCache, IsToldWithTheReasonOfTheSystem) {
    put(7);
    std::string told;
    // The file is open without sharing for as long as its content is judged.
    const bool removed = platform::removeFileIf(ovalis::test::utf8(cached(7)), [&](const auto&) {
        told = toldOfFailure();
        return false;
    });
    EXPECT_FALSE(removed);
    const std::string reason = platform::SystemError(notShared).text();
    EXPECT_FALSE(reason.empty());
    EXPECT_EQ(told.find("before: 7\n"), 0U) << told;
    EXPECT_NE(told.find(cached(7).filename().string()), std::string::npos) << told;
    EXPECT_NE(told.find(reason), std::string::npos) << told;
    EXPECT_EQ(told.rfind(" (evaluation): 7\n"), told.size() - 17);
    EXPECT_EQ(drawnWidth(open(7)), 7); // once the other handle is closed
}

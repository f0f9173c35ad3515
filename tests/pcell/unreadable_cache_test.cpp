#include "cached_pcells.h"
#include "platform/ordinary_user.h"

using ovalis::test::CachedPcells;
using ovalis::test::drawnWidth;
using ovalis::test::OrdinaryUser;

namespace fs = std::filesystem;

namespace {

class UnreadableCache : public CachedPcells {
protected:
    std::string toldOfFailureWithoutRights() {
        const OrdinaryUser user;
        return toldOfFailure();
    }
};

} // namespace

TEST_F(UnreadableCache, IsToldWithTheReasonOfTheSystem) {
    put(7);
    fs::permissions(cached(7), fs::perms::none);
    const std::string told = toldOfFailureWithoutRights();
    EXPECT_EQ(told.find("before: 7\n"), 0U);
    EXPECT_NE(told.find(cached(7).string()), std::string::npos) << told;
    EXPECT_NE(told.find("Permission denied"), std::string::npos) << told;
    EXPECT_EQ(told.rfind(" (evaluation): 7\n"), told.size() - 17);
}

TEST_F(UnreadableCache, HasNoFilesForWhomMayNotLook) {
    put(7);
    fs::permissions(cache(), fs::perms::none);
    EXPECT_EQ(toldOfFailureWithoutRights(), missing);
    fs::permissions(cache(), fs::perms(0755));
    EXPECT_EQ(drawnWidth(open(7)), 7);
}

#include <oa/oaDesignDB.h>

#include <gtest/gtest.h>

// Deliberately without a using-directive: clients name these functions and constants bare.

namespace {

void bringUpEverything() {
    oaBaseInit(6, 603);
    oaDMInit(6, 603);
    oaTechInit(6, 603);
    oaDesignInit(6, 603);
}

oa::oaUInt4 refusalOf(void (*init)(oa::oaUInt4, oa::oaUInt4, oa::oaUInt4), oa::oaUInt4 major,
                      oa::oaUInt4 minor, oa::oaUInt4 dataModel) {
    try {
        init(major, minor, dataModel);
    } catch (const oa::oaError& error) {
        return error.getMsgId();
    }
    return 0;
}

} // namespace

TEST(Init, IsHarmlessWhenRepeated) {
    EXPECT_NO_THROW(bringUpEverything());
    EXPECT_NO_THROW(bringUpEverything());
    EXPECT_NO_THROW(oa::oaDesignInit());
    EXPECT_NO_THROW(oaDesignInit(oacAPIMajorRevNumber, oacAPIMinorRevNumber, 3));
}

TEST(Init, AcceptsOlderRevisionsAndRefusesLaterOnes) {
    const auto inits = {&oa::oaBaseInit, &oa::oaDMInit, &oa::oaTechInit, &oa::oaDesignInit};
    for (const auto init : inits) {
        EXPECT_EQ(refusalOf(init, 6, 0, 0), 0u);
        EXPECT_EQ(refusalOf(init, 7, 0, 0), oa::oaUInt4(oa::oacInvalidMajorAPIRev));
        EXPECT_EQ(refusalOf(init, 6, 604, 6), oa::oaUInt4(oa::oacInvalidAPIRev));
        EXPECT_EQ(refusalOf(init, 6, 603, 7), oa::oaUInt4(oa::oacInvalidDataModelRev));
    }
}

TEST(Init, TellsTheReleaseOfEachPackage) {
    for (const char* package : {"oaCommon", "oaBase", "oaDM", "oaTech", "oaDesign"}) {
        const oa::oaBuildInfo* info = oa::oaBuildInfo::find(package);
        ASSERT_NE(info, nullptr) << package;
        EXPECT_EQ(info->getPackageName(), package);
        EXPECT_EQ(info->getMajorReleaseNum(), 22u);
        EXPECT_EQ(info->getMinorReleaseNum(), 60u);
        EXPECT_EQ(info->getBuildName(), "22.60.p000");
        EXPECT_EQ(info->getBuildNumber(), 0u);
    }
    EXPECT_EQ(oa::oaBuildInfo::getNumPackages(), 5u);
    EXPECT_EQ(oa::oaBuildInfo::find("oaWafer"), nullptr);
}

TEST(Init, RemembersTheBuildOfTheApplication) {
    oaBaseInitAppBuild("22.61.d003");
    EXPECT_EQ(oa::oaBuildInfo::getAppBuildName(), "22.61.d003");
    EXPECT_EQ(oa::oaCompatibilityError("x", 7, "y").getAppBuildName(), "22.61.d003");
    oaBaseInitAppBuild("");
}

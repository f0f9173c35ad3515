#include <oa/oaBase.h>

#include "platform/process.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

using namespace oa;

TEST(Functions, FloatsAreEqualWithinARelativeTolerance) {
    EXPECT_TRUE(oaIsFloatEqual(1.0, 1.0));
    EXPECT_TRUE(oaIsFloatEqual(1e20, 1e20 * (1 + 1e-9)));
    EXPECT_FALSE(oaIsFloatEqual(1.0, 1.001));
    EXPECT_TRUE(oaIsFloatEqual(1.0, 1.001, 0.01));
    EXPECT_TRUE(oaIsFloatEqual(-1.0, -1.001, 0.01));
    EXPECT_FALSE(oaIsFloatEqual(-1.0, 1.0, 0.5));
    EXPECT_TRUE(oaIsFloatEqual(0.0, 0.0));
    EXPECT_FALSE(oaIsFloatEqual(NAN, NAN));
    EXPECT_TRUE(oaIsFloatEqual(INFINITY, INFINITY));
}

TEST(Functions, RoundGoesToTheNearestInteger) {
    EXPECT_EQ(oaRound(1.4), 1);
    EXPECT_EQ(oaRound(1.5), 2);
    EXPECT_EQ(oaRound(-1.5), -2);
    EXPECT_EQ(oaRound(-0.4), 0);
    EXPECT_EQ(oaRound(1e12), INT_MAX);
    EXPECT_EQ(oaRound(-1e12), INT_MIN);
}

TEST(Functions, Log2IsRoundedDown) {
    EXPECT_EQ(oaLog2(0), 0u);
    EXPECT_EQ(oaLog2(1), 0u);
    EXPECT_EQ(oaLog2(2), 1u);
    EXPECT_EQ(oaLog2(1023), 9u);
    EXPECT_EQ(oaLog2(1024), 10u);
    EXPECT_EQ(oaLog2(UINT_MAX), 31u);
}

TEST(Functions, PowerOfTwoIsRoundedUp) {
    EXPECT_EQ(oaRoundUpToPow2(0), 1u);
    EXPECT_EQ(oaRoundUpToPow2(1), 1u);
    EXPECT_EQ(oaRoundUpToPow2(5), 8u);
    EXPECT_EQ(oaRoundUpToPow2(8), 8u);
    EXPECT_EQ(oaRoundUpToPow2(1u << 31), 1u << 31);
    EXPECT_EQ(oaRoundUpToPow2((1u << 31) + 1), 0u);
}

TEST(Functions, ThisProcessIsActive) {
    EXPECT_TRUE(oaIsProcessActive(platform::currentProcessId()));
}

TEST(Timer, RunsFromItsStart) {
    oaTimer older;
    EXPECT_GE(older.getElapsed(), 0.0f);
    oaSleep(1);
    oaTimer younger;
    const oaFloat afterOne = younger.getElapsed();
    EXPECT_GE(older.getElapsed(), afterOne + 0.99f);
    older.reset();
    const oaFloat afterReset = older.getElapsed();
    EXPECT_GE(younger.getElapsed(), afterReset);
}

TEST(TimeStamp, CountsUp) {
    oaTimeStamp stamp;
    EXPECT_EQ(oaUInt4(stamp), 0u);
    EXPECT_EQ(oaUInt4(++stamp), 1u);
    EXPECT_EQ(oaUInt4(stamp++), 1u);
    stamp += 5;
    EXPECT_TRUE(stamp == oaTimeStamp(7));
    EXPECT_TRUE(stamp != oaTimeStamp(8));
    stamp.set(3);
    EXPECT_EQ(oaUInt4(stamp), 3u);
    oaTimeStamp other;
    other.set(stamp);
    EXPECT_EQ(other, stamp);
}

TEST(SystemTime, IsAPossibleDate) {
    const oaSystemTime now;
    EXPECT_TRUE(now.getYear() >= 2024 && now.getYear() < 2200);
    EXPECT_TRUE(now.getMonth() >= 1 && now.getMonth() <= 12);
    EXPECT_TRUE(now.getDay() >= 1 && now.getDay() <= 31);
    EXPECT_LT(now.getHour(), 24u);
    EXPECT_LT(now.getMinute(), 60u);
    EXPECT_LT(now.getSecond(), 60u);
}

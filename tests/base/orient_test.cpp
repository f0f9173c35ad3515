#include <oa/oaBase.h>

#include <gtest/gtest.h>

using namespace oa;

TEST(Orient, IsR0AtFirst) {
    EXPECT_EQ(oaOrient(), oacR0);
}

TEST(Orient, ConcatenationTurnsByTheFirstAndThenByTheSecond) {
    const struct {
        oaOrientEnum first, second, both;
    } rows[] = {
        {oacR0, oacMXR90, oacMXR90}, {oacR90, oacR90, oacR180},   {oacR270, oacR180, oacR90},
        {oacMX, oacMX, oacR0},       {oacMX, oacR90, oacMXR90},   {oacMY, oacR90, oacMYR90},
        {oacR90, oacMX, oacMYR90},   {oacR90, oacMY, oacMXR90},   {oacMX, oacMY, oacR180},
        {oacMY, oacR180, oacMX},     {oacMXR90, oacMXR90, oacR0}, {oacMYR90, oacMXR90, oacR180},
    };
    for (const auto& row : rows)
        EXPECT_EQ(oaOrient(row.first).concat(row.second), row.both)
            << oaOrient(row.first).getName() << " " << oaOrient(row.second).getName();
}

TEST(Orient, RelativeOrientationLeadsFromOneToTheOther) {
    for (int from = 0; from < 8; ++from) {
        for (int to = 0; to < 8; ++to) {
            const oaOrient start(static_cast<oaOrientEnum>(from));
            const oaOrient end(static_cast<oaOrientEnum>(to));
            EXPECT_EQ(start.concat(start.getRelativeOrient(end)), end);
        }
    }
}

#include "geometry_printers.h"

#include <gtest/gtest.h>

using namespace oa;

namespace {

std::vector<oaTransform> someTransforms() {
    std::vector<oaTransform> transforms;
    for (int orient = 0; orient < 8; ++orient)
        transforms.emplace_back(7 * orient - 3, 11 - orient, static_cast<oaOrientEnum>(orient));
    return transforms;
}

} // namespace

TEST(Transform, MovesNothingAtFirst) {
    const oaTransform xform;
    EXPECT_TRUE(xform.isIdentity());
    EXPECT_EQ(xform.offset(), oaPoint());
    EXPECT_EQ(xform.orient(), oacR0);
}

TEST(Transform, IsMadeFromItsParts) {
    EXPECT_EQ(oaTransform(oaPoint(1, 2)), oaTransform(1, 2, oacR0));
    EXPECT_EQ(oaTransform(oaPoint(1, 2), oacMX), oaTransform(1, 2, oacMX));
    EXPECT_EQ(oaTransform(oacR90), oaTransform(0, 0, oacR90));
    EXPECT_NE(oaTransform(oacR90), oaTransform(1, 0, oacR90));
    EXPECT_NE(oaTransform(oacR90), oaTransform(oacR180));
}

TEST(Transform, IsReadAndWrittenByPart) {
    oaTransform xform;
    xform.xOffset() = 4;
    xform.yOffset() = 5;
    xform.orient() = oacMY;
    EXPECT_EQ(xform, oaTransform(4, 5, oacMY));
    xform.offset() = oaPoint(6, 7);
    const oaTransform& fixed = xform;
    EXPECT_EQ(fixed.xOffset(), 6);
    EXPECT_EQ(fixed.yOffset(), 7);
}

TEST(Transform, IsSetFromItsParts) {
    oaTransform xform(9, 9, oacMX);
    xform.set(oaPoint(1, 2), oacR90);
    EXPECT_EQ(xform, oaTransform(1, 2, oacR90));
    xform.set(3, 4);
    EXPECT_EQ(xform, oaTransform(3, 4, oacR0));
    xform.set(oacR270);
    EXPECT_EQ(xform, oaTransform(0, 0, oacR270));
    xform.init();
    EXPECT_TRUE(xform.isIdentity());
}

TEST(Transform, ConcatenationMovesByTheFirstAndThenByTheSecond) {
    const oaPoint point(13, -4);
    for (const oaTransform& first : someTransforms()) {
        for (const oaTransform& second : someTransforms()) {
            const oaPoint expected(oaPoint(point, first), second);
            oaTransform result;
            first.concat(second, result);
            EXPECT_EQ(oaPoint(point, result), expected);
            EXPECT_EQ(oaTransform(first, second), result);
            oaTransform inPlace(first);
            inPlace.concat(second);
            EXPECT_EQ(inPlace, result);
            inPlace.set(first, second);
            EXPECT_EQ(inPlace, result);
        }
    }
}

TEST(Transform, ConcatenatesWithItself) {
    oaTransform xform(10, 0, oacR90);
    xform.concat(xform);
    EXPECT_EQ(xform, oaTransform(10, 10, oacR180));
}

TEST(Transform, InverseMovesBack) {
    for (const oaTransform& xform : someTransforms()) {
        oaTransform inverse;
        xform.invert(inverse);
        EXPECT_TRUE(oaTransform(xform, inverse).isIdentity());
        EXPECT_TRUE(oaTransform(inverse, xform).isIdentity());
        oaTransform inPlace(xform);
        inPlace.invert();
        EXPECT_EQ(inPlace, inverse);
    }
}

#include "cached_pcells.h"

using namespace ovalis;
using ovalis::test::CachedPcells;
using ovalis::test::drawnWidth;
using ovalis::test::native;
using ovalis::test::paramsOf;

namespace {

class CachedInstances : public CachedPcells {
protected:
    /// Places the pcell with that width.
    static oa::oaScalarInst* place(oa::oaBlock* block, int width) {
        const oa::oaParamArray params = paramsOf(width, "poly");
        return oa::oaScalarInst::create(block, native("lib"), native("resistor"), native("layout"),
                                        oa::oaTransform(0, 0), &params);
    }

    /// An empty block of a cell.
    oa::oaBlock* block(const char* cell) {
        return oa::oaBlock::create(&design(cell, "layout", 'w'));
    }
};

} // namespace

TEST_F(CachedInstances, AreFilledForAnInstance) {
    put(7);
    oa::oaBlock* top = block("top");
    EXPECT_EQ(drawnWidth(place(top, 7)->getMaster()), 7);
    EXPECT_EQ(notes().text(), "before: 7\nafter: 7\n");
}

TEST_F(CachedInstances, StayEmptyForAnInstanceWithoutAFile) {
    oa::oaBlock* top = block("top");
    oa::oaDesign* master = place(top, 7)->getMaster();
    ASSERT_NE(master, nullptr);
    EXPECT_EQ(master->getTopBlock(), nullptr);
    EXPECT_EQ(notes().text(), missing);
}

TEST_F(CachedInstances, AreEvaluatedOnceForAllInstances) {
    put(7);
    put(8);
    oa::oaBlock* top = block("top");
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(drawnWidth(place(top, 7 + i % 2)->getMaster()), 7 + i % 2);
    }
    EXPECT_EQ(drawnWidth(open(7)), 7);
    EXPECT_EQ(notes().text(), "before: 7\nafter: 7\nbefore: 8\nafter: 8\n");
}

TEST_F(CachedInstances, AreEvaluatedOnceWhenTheyAreMissing) {
    oa::oaBlock* top = block("top");
    for (int i = 0; i < 10; ++i) {
        place(top, 7)->getMaster();
    }
    EXPECT_EQ(notes().text(), missing);
}

TEST_F(CachedInstances, AreFilledByOpeningAHierarchy) {
    put(7);
    put(8);
    place(block("part"), 7);
    oa::oaBlock* top = block("top");
    place(top, 7);
    place(top, 8);
    oa::oaScalarInst::create(top, native("lib"), native("part"), native("layout"),
                             oa::oaTransform(0, 0));
    for (const char* cell : {"part", "top"}) {
        design(cell, "layout", 'a').save();
    }
    reopen();
    oa::oaDesign& opened = design("top", "layout", 'r');
    EXPECT_EQ(notes().text(), "");
    opened.openHier();
    EXPECT_EQ(notes().text(), "before: 7\nafter: 7\nbefore: 8\nafter: 8\n");
}

#include "submaster_fixture.h"

using namespace oa;
using namespace ovalis::test;

namespace {

/// What keeps designs open: openings, and designs with instances of them.
class ReferenceCount : public SubmasterFixture {
protected:
    static oaScalarInst* place(oaDesign* design, oaDesign* master, oaInt4 size) {
        oaBlock* block = design->getTopBlock();
        const oaParamArray params = sized(size);
        return oaScalarInst::create(block ? block : oaBlock::create(design), master, oaTransform(),
                                    &params);
    }

    static std::vector<oaUInt4> countsOf(const std::vector<oaDesign*>& designs) {
        std::vector<oaUInt4> counts;
        for (const oaDesign* design : designs)
            counts.push_back(design->getRefCount());
        return counts;
    }

    static std::vector<int> widthsOf(const oaDesign* superMaster) {
        std::vector<int> widths;
        for (const oaDesign* submaster : submastersOf(superMaster))
            widths.push_back(widthOf(submaster));
        return widths;
    }

    oaDesign* superMaster = openCell('r');
};

using Counts = std::vector<oaUInt4>;

TEST_F(ReferenceCount, CountsEachDesignWithInstancesOnce) {
    oaDesign* first = openCell('w', "first");
    oaDesign* second = openCell('w', "second");
    oaDesign* submaster = place(first, superMaster, 30)->getMaster();
    EXPECT_EQ(countsOf({superMaster, submaster}), (Counts{2, 1}));
    place(first, superMaster, 30);
    EXPECT_EQ(countsOf({superMaster, submaster}), (Counts{2, 1}));
    place(second, superMaster, 30);
    EXPECT_EQ(countsOf({superMaster, submaster}), (Counts{3, 2}));
    first->close();
    EXPECT_EQ(countsOf({superMaster, submaster}), (Counts{2, 1}));
    second->close();
    EXPECT_FALSE(submaster->isValid());
    EXPECT_EQ(countsOf({superMaster}), Counts{1});
}

TEST_F(ReferenceCount, FollowsTheInstances) {
    oaDesign* top = openCell('w', "top");
    oaScalarInst* first = place(top, superMaster, 30);
    oaScalarInst* second = place(top, superMaster, 30);
    oaDesign* submaster = first->getMaster();
    first->destroy();
    EXPECT_EQ(countsOf({superMaster, submaster}), (Counts{2, 1}));
    second->destroy();
    EXPECT_EQ(countsOf({superMaster, submaster}), (Counts{1, 0}));
    oaScalarInst* last = place(top, superMaster, 30);
    EXPECT_EQ(last->getMaster(), submaster);
    EXPECT_EQ(countsOf({superMaster, submaster}), (Counts{2, 1}));
    const oaParamArray other = sized(31);
    last->setParams(other);
    EXPECT_EQ(countsOf({superMaster, submaster, last->getMaster()}), (Counts{2, 0, 1}));
}

TEST_F(ReferenceCount, OfAMasterReturnsWithAnotherInstanceByName) {
    openCell('w', "plain")->save();
    oaDesign* plain = openCell('r', "plain");
    oaDesign* top = openCell('w', "top");
    oaBlock* block = oaBlock::create(top);
    const auto placePlain = [&] {
        return oaScalarInst::create(block, name("lib"), name("plain"), name("layout"),
                                    oaTransform());
    };
    oaScalarInst* first = placePlain();
    EXPECT_EQ(first->getMaster(), plain);
    EXPECT_EQ(plain->getRefCount(), 3u);
    first->destroy();
    plain->close(); // of two openings
    EXPECT_EQ(plain->getRefCount(), 1u);
    placePlain();
    EXPECT_EQ(plain->getRefCount(), 2u);
    plain->close();
    EXPECT_TRUE(plain->isValid());
    top->close();
    EXPECT_FALSE(plain->isValid());
}

TEST_F(ReferenceCount, DropsWithTheContentOfADesign) {
    oaDesign* top = openCell('w', "top");
    oaDesign* submaster = place(top, superMaster, 30)->getMaster();
    top->reopen('w');
    EXPECT_FALSE(submaster->isValid());
    EXPECT_EQ(countsOf({superMaster}), Counts{1});
    EXPECT_EQ(place(top, superMaster, 30)->getMaster()->getRefCount(), 1u);
    EXPECT_EQ(countsOf({superMaster}), Counts{2});
}

TEST_F(ReferenceCount, OfASuperMasterCountsTheSubmastersThatAreOpened) {
    oaDesign* first = openSubmaster(sized(30));
    openSubmaster(sized(30));
    oaDesign* second = openSubmaster(sized(31));
    EXPECT_EQ(countsOf({superMaster, first, second}), (Counts{3, 2, 1}));
    first->close();
    EXPECT_EQ(countsOf({superMaster, first, second}), (Counts{3, 1, 1}));
    first->close();
    EXPECT_EQ(countsOf({superMaster, second}), (Counts{2, 1}));
    second->purge();
    EXPECT_EQ(countsOf({superMaster}), Counts{1});
}

TEST_F(ReferenceCount, LetsASubmasterGoFromAmongOthersThatKeepTheirOrder) {
    std::vector<oaDesign*> opened;
    for (const oaInt4 size : {30, 20, 50, 40, 10})
        opened.push_back(openSubmaster(sized(size)));
    opened[2]->close();
    opened[0]->close();
    EXPECT_EQ(widthsOf(superMaster), (std::vector<int>{20, 40, 10}));
    opened.push_back(openSubmaster(sized(30)));
    EXPECT_EQ(widthsOf(superMaster), (std::vector<int>{20, 40, 10, 30}));
}

TEST_F(ReferenceCount, OfManySubmastersEndsWithTheOneDesignThatHasThem) {
    constexpr oaInt4 count = 1000;
    oaDesign* top = openCell('w', "top");
    oaDesign* other = openCell('w', "other");
    for (oaInt4 size = 1; size <= count; ++size)
        place(top, superMaster, size);
    oaDesign* kept = place(other, superMaster, 500)->getMaster();
    EXPECT_EQ(submastersOf(superMaster).size(), std::size_t(count));
    EXPECT_EQ(countsOf({superMaster, kept}), (Counts{3, 2}));
    top->close();
    EXPECT_EQ(submastersOf(superMaster), std::vector<oaDesign*>{kept});
    EXPECT_EQ(countsOf({superMaster, kept}), (Counts{2, 1}));
    other->close();
    EXPECT_EQ(submastersOf(superMaster), std::vector<oaDesign*>());
    EXPECT_EQ(countsOf({superMaster}), Counts{1});
}

} // namespace

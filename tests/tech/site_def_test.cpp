#include "tech_news.h"

using namespace oa;
using namespace ovalis::test;

namespace {

oaSitePattern patternOf(std::initializer_list<oaSiteRef> refs) {
    oaSitePattern pattern;
    for (const oaSiteRef& ref : refs)
        pattern.append(ref);
    return pattern;
}

/// Two sites side by side, the second one turned by a quarter.
oaSitePattern twoSites() {
    return patternOf({oaSiteRef("core", oaTransform(0, 0)),
                      oaSiteRef("core", oaTransform(oaPoint(300, 0), oacR90))});
}

} // namespace

TEST(SiteDef, KeepsWhatItWasGiven) {
    NewTech tech;
    oaScalarSiteDef* site =
        oaScalarSiteDef::create(tech, "core", oacCoreSiteDefType, 100, 200, false, true);
    EXPECT_EQ(site->getType(), oacScalarSiteDefType);
    EXPECT_TRUE(site->isSiteDef());
    EXPECT_EQ(nameOf(site), "core");
    EXPECT_EQ(site->getSiteDefType(), oacCoreSiteDefType);
    EXPECT_EQ(site->getWidth(), 100u);
    EXPECT_EQ(site->getHeight(), 200u);
    EXPECT_FALSE(site->isSymmetricInX());
    EXPECT_TRUE(site->isSymmetricInY());
    EXPECT_FALSE(site->isSymmetricInRot());
    EXPECT_EQ(oaSiteDef::find(tech, "core"), site);
}

TEST(SiteDef, CanBeChangedAndSurvivesASave) {
    NewTech tech;
    oaScalarSiteDef* site = oaScalarSiteDef::create(tech, "core", oacCoreSiteDefType, 1, 1);
    site->setWidth(30);
    site->setHeight(40);
    site->setType(oacPadSiteDefType);
    site->setSymmetricInX(true);
    site->setSymmetricInY(true);
    site->setSymmetricInRot(true);
    site->setSymmetricInY(false);
    tech.saveAndReopen();
    const oaSiteDef* read = oaSiteDef::find(tech, "core");
    EXPECT_EQ(read->getWidth(), 30u);
    EXPECT_EQ(read->getHeight(), 40u);
    EXPECT_EQ(read->getSiteDefType(), oacPadSiteDefType);
    EXPECT_TRUE(read->isSymmetricInX());
    EXPECT_FALSE(read->isSymmetricInY());
    EXPECT_TRUE(read->isSymmetricInRot());
}

TEST(SiteDef, OfAnArrayIsAsLargeAsTheSitesOfItsPattern) {
    NewTech tech;
    oaArraySiteDef* row = oaArraySiteDef::create(tech, "row", oacCoreSiteDefType, twoSites());
    EXPECT_EQ(row->getType(), oacArraySiteDefType);
    EXPECT_EQ(row->getWidth(), 0u);
    oaScalarSiteDef::create(tech, "core", oacCoreSiteDefType, 100, 200);
    EXPECT_EQ(row->getWidth(), 300u);
    EXPECT_EQ(row->getHeight(), 200u);
    row->setSitePattern(patternOf({oaSiteRef("core", oaTransform(-50, -60))}));
    EXPECT_EQ(row->getWidth(), 100u);
}

TEST(SiteDef, OfAnArrayThatLeadsBackToItselfHasAnEnd) {
    NewTech tech;
    const oaSiteDef* row = oaArraySiteDef::create(tech, "row", oacCoreSiteDefType,
                                                  patternOf({oaSiteRef("row", oaTransform(1, 1))}));
    EXPECT_EQ(row->getWidth(), 0u);
}

TEST(SiteDef, OfAnArrayKeepsItsPatternThroughASave) {
    NewTech tech;
    oaArraySiteDef::create(tech, "gone", oacCoreSiteDefType, twoSites())->destroy();
    oaArraySiteDef::create(tech, "row", oacPadSiteDefType, twoSites(), true);
    tech.saveAndReopen();
    const auto* row = static_cast<oaArraySiteDef*>(oaSiteDef::find(tech, "row"));
    ASSERT_EQ(row->getType(), oacArraySiteDefType);
    oaSitePattern pattern;
    row->getSitePattern(pattern);
    ASSERT_EQ(pattern.getNumElements(), 2u);
    for (oaUInt4 i = 0; i < 2; ++i)
        EXPECT_EQ(pattern[i], twoSites()[i]) << i;
    EXPECT_TRUE(row->isSymmetricInX());
    EXPECT_EQ(namesOf(tech->getSiteDefs()), std::vector<std::string>{"row"});
}

TEST(SiteDef, OfAnyKindTakesItsName) {
    NewTech tech;
    oaScalarSiteDef::create(tech, "core", oacCoreSiteDefType, 1, 1);
    EXPECT_EQ(thrown<oaTechError>(
                  oacSiteDefNameExists,
                  [&] { oaArraySiteDef::create(tech, "core", oacCoreSiteDefType, twoSites()); }),
              "The technology of library 'lib' already has a site definition named 'core'.");
}

TEST(SiteDef, OfOneNameInTwoTechnologiesIsAConflict) {
    NewTech base("base");
    NewTech metal("metal");
    NewTech chip("chip");
    TechNews news;
    chip->setRefs(refsTo({base, metal}));
    const oaSiteDef* site = oaScalarSiteDef::create(base, "core", oacCoreSiteDefType, 1, 1);
    EXPECT_EQ(oaSiteDef::find(chip, "core"), site);
    EXPECT_EQ(oaSiteDef::find(chip, "core", true), nullptr);
    EXPECT_EQ(chip->getSiteDefs().getCount(), 1u);
    EXPECT_EQ(chip->getSiteDefs(oacSiteDefIterLocal).getCount(), 0u);
    news.take();
    oaScalarSiteDef::create(metal, "core", oacCoreSiteDefType, 2, 2);
    EXPECT_EQ(news.take(), News{"conflict 5 chip: base:core metal:core"});
    EXPECT_FALSE(chip->validate());
}

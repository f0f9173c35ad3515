#include "tech_tests.h"

#include <climits>
#include <cmath>

using namespace oa;
using namespace ovalis::test;

namespace {

const oaReservedViewTypeEnum designViewTypes[] = {oacMaskLayout, oacSchematic, oacSchematicSymbol,
                                                  oacNetlist, oacHierDesign};

const oaViewType* layout() {
    return oaViewType::get(oacMaskLayout);
}

} // namespace

TEST(Units, HaveDefaults) {
    NewTech tech;
    for (const oaReservedViewTypeEnum type : designViewTypes) {
        const oaViewType* viewType = oaViewType::get(type);
        const bool isLayout = type == oacMaskLayout;
        EXPECT_FALSE(tech->isDBUPerUUSet(viewType));
        EXPECT_FALSE(tech->isUserUnitsSet(viewType));
        EXPECT_EQ(tech->getDBUPerUU(viewType), isLayout ? 1000u : 160u);
        EXPECT_EQ(tech->getUserUnits(viewType), isLayout ? oacMicron : oacInch);
        EXPECT_EQ(oaTech::getDefaultDBUPerUU(viewType), isLayout ? 1000u : 160u);
        EXPECT_EQ(oaTech::getDefaultUserUnits(viewType), isLayout ? oacMicron : oacInch);
    }
}

TEST(Units, AreSetForEachViewTypeAndSurviveASave) {
    NewTech tech;
    oaUInt4 next = 2000;
    for (const oaReservedViewTypeEnum type : designViewTypes) {
        tech->setDBUPerUU(oaViewType::get(type), next++);
        tech->setUserUnits(oaViewType::get(type), oacMil);
    }
    tech.saveAndReopen();
    next = 2000;
    for (const oaReservedViewTypeEnum type : designViewTypes) {
        const oaViewType* viewType = oaViewType::get(type);
        EXPECT_TRUE(tech->isDBUPerUUSet(viewType));
        EXPECT_TRUE(tech->isUserUnitsSet(viewType));
        EXPECT_EQ(tech->getDBUPerUU(viewType), next++);
        EXPECT_EQ(tech->getUserUnits(viewType), oacMil);
    }
}

TEST(Units, AreTheDefaultAgainWhenUnset) {
    NewTech tech;
    tech->setDBUPerUU(layout(), 2000);
    tech->setUserUnits(layout(), oacMicron);
    EXPECT_TRUE(tech->isUserUnitsSet(layout()));
    tech->unsetDBUPerUU(layout());
    tech->unsetUserUnits(layout());
    EXPECT_FALSE(tech->isDBUPerUUSet(layout()));
    EXPECT_FALSE(tech->isUserUnitsSet(layout()));
    EXPECT_EQ(tech->getDBUPerUU(layout()), 1000u);
}

TEST(Units, BelongToTheViewTypesOfDesigns) {
    NewTech tech;
    const oaViewType* text = oaViewType::get(oacVerilogText);
    const std::string expected = "View type 'verilogText' has no place in a technology.";
    const auto refused = [](auto call) {
        return thrown<oaTechError>(oacInvalidTechViewType, call);
    };
    EXPECT_EQ(refused([&] { tech->getDBUPerUU(text); }), expected);
    EXPECT_EQ(refused([&] { tech->isDBUPerUUSet(text); }), expected);
    EXPECT_EQ(refused([&] { tech->setDBUPerUU(text, 1); }), expected);
    EXPECT_EQ(refused([&] { tech->unsetDBUPerUU(text); }), expected);
    EXPECT_EQ(refused([&] { tech->getUserUnits(text); }), expected);
    EXPECT_EQ(refused([&] { tech->isUserUnitsSet(text); }), expected);
    EXPECT_EQ(refused([&] { tech->setUserUnits(text, oacMicron); }), expected);
    EXPECT_EQ(refused([&] { tech->unsetUserUnits(text); }), expected);
    EXPECT_EQ(refused([&] { oaTech::getDefaultDBUPerUU(text); }), expected);
    EXPECT_EQ(refused([&] { oaTech::getDefaultUserUnits(text); }), expected);
}

TEST(Units, AreNeverNothing) {
    NewTech tech;
    EXPECT_EQ(thrown<oaTechError>(oacInvalidDBUPerUU, [&] { tech->setDBUPerUU(layout(), 0); }),
              "A user unit cannot have 0 database units.");
    EXPECT_FALSE(tech->isDBUPerUUSet(layout()));
}

TEST(Units, ConvertCoordinatesToTheNearest) {
    NewTech tech;
    EXPECT_EQ(tech->uuToDBU(layout(), 1.5), 1500);
    EXPECT_EQ(tech->uuToDBU(layout(), -1.2346), -1235);
    EXPECT_EQ(tech->uuToDBU(oaViewType::get(oacSchematic), 0.0625), 10);
    EXPECT_EQ(tech->dbuToUU(layout(), -1500), -1.5);
    tech->setDBUPerUU(layout(), 2000);
    EXPECT_EQ(tech->uuToDBU(layout(), 1.5), 3000);
    EXPECT_EQ(tech->dbuToUU(layout(), 3000), 1.5);
}

TEST(Units, ConvertDistancesAndAreas) {
    NewTech tech;
    EXPECT_EQ(tech->uuToDBUDistance(layout(), 2.5), 2500u);
    EXPECT_EQ(tech->dbuToUUDistance(layout(), 5000000000000ull), 5e9);
    EXPECT_EQ(tech->uuToDBUArea(layout(), 2.5), 2500000u);
    EXPECT_EQ(tech->dbuToUUArea(layout(), 2500000), 2.5);
}

TEST(Units, KeepWhatHasNoPlaceAtTheEndOfTheRange) {
    NewTech tech;
    EXPECT_EQ(tech->uuToDBU(layout(), 1e9), INT_MAX);
    EXPECT_EQ(tech->uuToDBU(layout(), -1e9), INT_MIN);
    EXPECT_EQ(tech->uuToDBU(layout(), std::nan("")), 0);
    EXPECT_EQ(tech->uuToDBUDistance(layout(), -1), 0u);
    EXPECT_EQ(tech->uuToDBUDistance(layout(), 1e9), UINT_MAX);
    EXPECT_EQ(tech->uuToDBUArea(layout(), 1e15), ULLONG_MAX);
}

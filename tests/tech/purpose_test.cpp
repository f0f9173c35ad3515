#include "tech_tests.h"

using namespace oa;
using namespace ovalis::test;

namespace {

const std::vector<std::string> reservedNames = {
    "drawing", "fill",      "slot",  "OPCSerif", "OPCAntiSerif", "annotation",
    "gapFill", "redundant", "oaAny", "oaNo",     "oaFillOPC"};

} // namespace

TEST(Purpose, OfEachTypeIsReservedInEveryTechnology) {
    NewTech tech;
    EXPECT_EQ(namesOf(tech->getPurposes()), reservedNames);
    for (oaUInt4 type = 0; type < reservedNames.size(); ++type) {
        oaPurpose* purpose = oaPurpose::get(tech, oaPurposeTypeEnum(type));
        EXPECT_EQ(purpose->getNumber(), 0xFFFFFFFFu - type);
        EXPECT_EQ(purpose->getPurposeType(), oaPurposeTypeEnum(type));
        EXPECT_EQ(nameOf(purpose), reservedNames[type]);
        EXPECT_TRUE(purpose->isReserved());
        EXPECT_EQ(oaPurpose::find(tech, reservedNames[type].c_str()), purpose);
        EXPECT_EQ(oaPurpose::find(tech, 0xFFFFFFFFu - type), purpose);
    }
    EXPECT_EQ(oaPurpose::find(tech, -1), oaPurpose::get(tech, oacDrawingPurposeType));
    EXPECT_EQ(oaPurpose::find(tech, 0xFFFFFFFFu - 11), nullptr);
}

TEST(Purpose, IsFoundByNameAndByNumber) {
    NewTech tech;
    oaPurpose* pin = oaPurpose::create(tech, "pin", 251);
    EXPECT_EQ(oaPurpose::find(tech, "pin"), pin);
    EXPECT_EQ(oaPurpose::find(tech, 251), pin);
    EXPECT_EQ(oaPurpose::find(tech, "net"), nullptr);
    EXPECT_EQ(oaPurpose::find(tech, 252), nullptr);
    EXPECT_EQ(nameOf(pin), "pin");
    EXPECT_EQ(pin->getNumber(), 251u);
    EXPECT_EQ(pin->getTech(), static_cast<oaTech*>(tech));
    EXPECT_EQ(pin->getType(), oacPurposeType);
    EXPECT_EQ(pin->getPurposeType(), oacNoPurposeType);
    EXPECT_FALSE(pin->isReserved());
    EXPECT_FALSE(pin->isLayer());
}

TEST(Purpose, TakesItsNameAndItsNumber) {
    NewTech tech("chip");
    oaPurpose::create(tech, "pin", 251);
    EXPECT_EQ(
        thrown<oaTechError>(oacPurposeNameExists, [&] { oaPurpose::create(tech, "pin", 252); }),
        "The technology of library 'chip' already has a purpose named 'pin'.");
    EXPECT_EQ(
        thrown<oaTechError>(oacPurposeNumberExists, [&] { oaPurpose::create(tech, "net", 251); }),
        "The technology of library 'chip' already has a purpose with number 251.");
    EXPECT_EQ(
        thrown<oaTechError>(oacPurposeNameExists, [&] { oaPurpose::create(tech, "drawing", 253); }),
        "The technology of library 'chip' already has a purpose named 'drawing'.");
}

TEST(Purpose, CannotHaveAReservedNumber) {
    NewTech tech;
    EXPECT_EQ(thrown<oaTechError>(oacPurposeNumberIsReserved,
                                  [&] { oaPurpose::create(tech, "low", 0xFFFF0000u); }),
              "Purpose number 4294901760 is reserved.");
    oaPurpose* last = oaPurpose::create(tech, "last", 0xFFFEFFFFu);
    EXPECT_EQ(
        thrown<oaTechError>(oacPurposeNumberIsReserved, [&] { last->setNumber(0xFFFFFFFFu); }),
        "Purpose number 4294967295 is reserved.");
}

TEST(Purpose, ThatIsReservedCannotBeChanged) {
    NewTech tech;
    oaPurpose* drawing = oaPurpose::get(tech, oacDrawingPurposeType);
    EXPECT_EQ(drawing->getNumber(), oavPurposeNumberDrawing);
    const std::string text = "Purpose number 4294967295 is reserved.";
    EXPECT_EQ(thrown<oaTechError>(oacPurposeNumberIsReserved, [&] { drawing->setName("d"); }),
              text);
    EXPECT_EQ(thrown<oaTechError>(oacPurposeNumberIsReserved, [&] { drawing->setNumber(5); }),
              text);
    EXPECT_EQ(thrown<oaTechError>(oacPurposeNumberIsReserved, [&] { drawing->destroy(); }), text);
}

TEST(Purpose, CanBeRenamedRenumberedAndDestroyed) {
    NewTech tech;
    oaPurpose* purpose = oaPurpose::create(tech, "pin", 251);
    purpose->setName("label");
    purpose->setNumber(9);
    EXPECT_EQ(oaPurpose::find(tech, "label"), purpose);
    EXPECT_EQ(oaPurpose::find(tech, 9), purpose);
    EXPECT_EQ(oaPurpose::find(tech, "pin"), nullptr);
    purpose->destroy();
    EXPECT_FALSE(purpose->isValid());
    EXPECT_EQ(oaPurpose::find(tech, "label"), nullptr);
    EXPECT_EQ(namesOf(tech->getPurposes()), reservedNames);
}

TEST(Purpose, SurvivesASaveBehindTheReservedOnes) {
    NewTech tech;
    oaPurpose::create(tech, "pin", 251);
    oaIntProp::create(oaPurpose::get(tech, oacFillPurposeType), "density", 40);
    tech.saveAndReopen();
    std::vector<std::string> expected = reservedNames;
    expected.push_back("pin");
    EXPECT_EQ(namesOf(tech->getPurposes()), expected);
    EXPECT_EQ(oaPurpose::find(tech, "pin")->getNumber(), 251u);
    oaProp* density = oaProp::find(oaPurpose::find(tech, "fill"), "density");
    EXPECT_EQ(static_cast<oaIntProp*>(density)->getValue(), 40);
}

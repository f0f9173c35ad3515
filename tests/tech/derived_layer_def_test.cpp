#include "tech_tests.h"

using namespace oa;
using namespace ovalis::test;

TEST(DerivedLayerDef, IsFoundByItsNameUntilItIsDestroyed) {
    oaDerivedLayerDef* def = oaDerivedLayerDef::create("growAround", 1);
    EXPECT_EQ(oaDerivedLayerDef::find("growAround"), def);
    EXPECT_EQ(nameOf(def), "growAround");
    EXPECT_EQ(def->getNumLayers(), 1u);
    EXPECT_FALSE(def->isBuiltIn());
    EXPECT_EQ(def->getType(), oacDerivedLayerDefType);
    EXPECT_EQ(def->getSession(), oaSession::get());
    def->destroy();
    EXPECT_FALSE(def->isValid());
    EXPECT_EQ(oaDerivedLayerDef::find("growAround"), nullptr);
}

TEST(DerivedLayerDef, HasANameOfItsOwn) {
    oaDerivedLayerDef* def = oaDerivedLayerDef::create("growAround", 1);
    EXPECT_EQ(thrown<oaTechError>(oacDerivedLayerDefExists,
                                  [] { oaDerivedLayerDef::create("growAround", 2); }),
              "A derived layer definition named 'growAround' already exists.");
    EXPECT_EQ(
        thrown<oaTechError>(oacDerivedLayerDefExists, [] { oaDerivedLayerDef::create("AND", 2); }),
        "A derived layer definition named 'AND' already exists.");
    def->destroy();
}

TEST(DerivedLayerDef, OfEachBuiltInOperationExists) {
    for (int value = oacAndLayerOp; value <= oacShrinkHorizontalLayerOp; ++value) {
        const oaLayerOp operation = oaLayerOpEnum(value);
        if (operation == oacUserDefinedLayerOp)
            continue;
        oaDerivedLayerDef* def = oaDerivedLayerDef::get(operation);
        EXPECT_EQ(nameOf(def), std::string(operation.getName()));
        EXPECT_EQ(oaDerivedLayerDef::find(operation.getName()), def);
        EXPECT_TRUE(def->isBuiltIn());
        EXPECT_EQ(def->getNumLayers(), operation < oacAreaLayerOp ? 2u : 1u);
    }
    EXPECT_EQ(oaDerivedLayerDef::get(oacUserDefinedLayerOp), nullptr);
}

TEST(DerivedLayerDef, ThatIsBuiltInCannotBeDestroyed) {
    oaDerivedLayerDef* def = oaDerivedLayerDef::get(oacAndLayerOp);
    EXPECT_EQ(thrown<oaTechError>(oacDerivedLayerDefIsBuiltIn, [&] { def->destroy(); }),
              "The derived layer definition 'AND' is built in.");
    EXPECT_TRUE(def->isValid());
}

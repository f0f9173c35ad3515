#include "tech_tests.h"

#include <cmath>

using namespace oa;
using namespace ovalis::test;

TEST(Value, OfEachKindIsCounted) {
    NewTech tech;
    EXPECT_EQ(tech->getValues().getCount(), 0u);
    oaIntValue::create(tech, 1);
    oaFltValue::create(tech, 1.5f);
    oaBooleanValue::create(tech, true);
    oaStringValue::create(tech, "one");
    EXPECT_EQ(tech->getValues().getCount(), 4u);
}

TEST(Value, SurvivesASave) {
    NewTech tech;
    oaIntValue::create(tech, -5);
    oaFltValue::create(tech, 0.25f);
    oaBooleanValue::create(tech, 3);
    oaStringValue::create(tech, "copper");
    tech.saveAndReopen();
    oaIter<oaValue> values(tech->getValues());
    EXPECT_EQ(static_cast<oaIntValue*>(values.getNext())->get(), -5);
    EXPECT_EQ(static_cast<oaFltValue*>(values.getNext())->get(), 0.25f);
    EXPECT_EQ(static_cast<oaBooleanValue*>(values.getNext())->get(), 1);
    auto* text = static_cast<oaStringValue*>(values.getNext());
    EXPECT_EQ(text->getType(), oacStringValueType);
    oaString content;
    text->get(content);
    EXPECT_EQ(content, "copper");
    EXPECT_EQ(values.getNext(), nullptr);
}

TEST(Value, CanBeSet) {
    NewTech tech;
    oaIntValue* number = oaIntValue::create(tech, 1);
    oaFltValue* real = oaFltValue::create(tech, 1);
    oaBooleanValue* flag = oaBooleanValue::create(tech, true);
    oaStringValue* text = oaStringValue::create(tech, "one");
    number->set(2);
    real->set(2.5f);
    flag->set(false);
    text->set("two");
    oaString content;
    text->get(content);
    EXPECT_EQ(number->get(), 2);
    EXPECT_EQ(real->get(), 2.5f);
    EXPECT_FALSE(flag->get());
    EXPECT_EQ(content, "two");
}

TEST(Value, IsEqualToOneOfTheSameKindAndContent) {
    NewTech tech;
    oaValue* one = oaIntValue::create(tech, 1);
    EXPECT_TRUE(one->isEqual(oaIntValue::create(tech, 1)));
    EXPECT_FALSE(one->isEqual(oaIntValue::create(tech, 2)));
    EXPECT_FALSE(one->isEqual(oaBooleanValue::create(tech, true)));
    EXPECT_TRUE(oaFltValue::create(tech, 0.0f)->isEqual(oaFltValue::create(tech, -0.0f)));
    oaValue* nan = oaFltValue::create(tech, std::nanf(""));
    EXPECT_FALSE(nan->isEqual(nan));
}

TEST(Value, IsCopiedIntoAnotherTechnology) {
    NewTech tech;
    NewTech other("other");
    oaStringValue::create(other, "first");
    oaValue* text = oaStringValue::create(tech, "copper");
    EXPECT_TRUE(text->isEqual(text->copy()));
    oaValue* copy = text->copyTo(other);
    EXPECT_TRUE(copy->isEqual(text));
    EXPECT_EQ(copy->getDatabase(), static_cast<oaTech*>(other));
    EXPECT_EQ(tech->getValues().getCount(), 2u);
}

TEST(Value, ThatIsDestroyedIsGone) {
    NewTech tech;
    oaValue* value = oaIntValue::create(tech, 1);
    value->destroy();
    EXPECT_FALSE(value->isValid());
    EXPECT_EQ(tech->getValues().getCount(), 0u);
}

TEST(Value, IsKeptByTechnologiesOnly) {
    EXPECT_EQ(thrown<oaTechError>(oacInvalidDatabaseForValue,
                                  [] { oaIntValue::create(oaSession::get(), 1); }),
              "A Session does not keep values.");
}

TEST(Value, OfTheFurtherKindsSurvivesASave) {
    NewTech tech;
    oaUInt8Value::create(tech, 1ull << 40)->set(1ull << 41);
    oaLayerValue::create(tech, 1)->set(0xFFFFFFF0u);
    oaDualIntValue* two = oaDualIntValue::create(tech, 0, -2);
    two->setFirst(-1);
    two->setSecond(2);
    oaIntRangeValue::create(tech, oaIntRange(oacClosedRangeType, 1, 2))
        ->set(oaIntRange(oacOpenLeftRangeType, -5, 7));
    oaUInt8RangeValue::create(tech, oaUInt8Range(oacLessThanRangeType, 1ull << 40));
    tech.saveAndReopen();
    oaIter<oaValue> values(tech->getValues());
    auto* large = static_cast<oaUInt8Value*>(values.getNext());
    EXPECT_EQ(large->getType(), oacUInt8ValueType);
    EXPECT_EQ(large->get(), 1ull << 41);
    EXPECT_EQ(static_cast<oaLayerValue*>(values.getNext())->get(), 0xFFFFFFF0u);
    two = static_cast<oaDualIntValue*>(values.getNext());
    EXPECT_EQ(two->getFirst(), -1);
    EXPECT_EQ(two->getSecond(), 2);
    oaIntRange range;
    static_cast<oaIntRangeValue*>(values.getNext())->get(range);
    EXPECT_EQ(range.getType(), oacOpenLeftRangeType);
    EXPECT_EQ(range.getLowerBound(), -5);
    EXPECT_EQ(range.getUpperBound(), 7);
    oaUInt8Range large2;
    static_cast<oaUInt8RangeValue*>(values.getNext())->get(large2);
    EXPECT_EQ(large2.getType(), oacLessThanRangeType);
    EXPECT_EQ(large2.getUpperBound(), 1ull << 40);
}

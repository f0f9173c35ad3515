#include "sample_database.h"

#include "base/src/source.h"
#include "oa/oaAppDef.h"
#include "oa/oaException.h"
#include "oa/oaProps.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace sample;

TEST(Objects, StayWhereTheyAreWhileTheirTableGrows) {
    SampleDatabase database;
    const auto first = database.addNode("first");
    const oaObject* object = database.nodes.handle(first);
    for (int i = 0; i < 1000; ++i)
        database.addNode("more");
    EXPECT_EQ(database.nodes.handle(first), object);
    EXPECT_EQ(slotOf(object), first);
}

TEST(Objects, AnswerThatTheyAreInvalidOnceDestroyed) {
    SampleDatabase database;
    const auto kept = database.addNode("kept");
    const auto gone = database.addNode("gone");
    oaObject* object = database.nodes.handle(gone);
    EXPECT_TRUE(object->isValid());
    database.nodes.destroy(gone);
    EXPECT_FALSE(object->isValid());
    EXPECT_TRUE(database.nodes.handle(kept)->isValid());
    EXPECT_EQ(database.nodes.live(), 1u);
}

TEST(Objects, AnswerThatTheyAreInvalidOnceTheirDatabaseIsClosed) {
    auto database = std::make_unique<SampleDatabase>();
    const oaObject* object = database->nodes.handle(database->addNode("node"));
    database.reset();
    EXPECT_FALSE(object->isValid());
}

TEST(Objects, RefuseEveryOtherCallOnceDestroyed) {
    SampleDatabase database;
    const auto slot = database.addNode("node");
    const oaObject* object = database.nodes.handle(slot);
    database.nodes.destroy(slot);
    try {
        object->getType();
        FAIL() << "no error";
    } catch (const oaError& error) {
        EXPECT_EQ(error.getMsgId(), oaUInt4(oacInvalidObject));
        EXPECT_STREQ(error.getMsg(), "The object was destroyed, or its database was closed.");
    }
}

TEST(Objects, KnowTheirTypeAndDatabase) {
    SampleDatabase database;
    const oaObject* object = database.nodes.handle(database.addNode("node"));
    EXPECT_EQ(object->getType(), oacRectType);
    EXPECT_EQ(object->getDatabase(), database.object());
    EXPECT_EQ(object->getDomain(), oacBlockDomain);
    EXPECT_FALSE(object->isDesign());
    EXPECT_FALSE(object->isProp());
}

using Nodes = oaCollection<oaObject, oaObject>;

TEST(Iterators, MeetObjectsInTheOrderOfCreationThroughAllSlabs) {
    SampleDatabase database;
    for (int i = 0; i < 500; ++i)
        database.addNode("node");
    oaIter<oaObject> walk(collectionOf<Nodes>({&database.nodes}));
    for (std::uint32_t slot = 0; slot < 500; ++slot)
        ASSERT_EQ(walk.getNext(), database.nodes.handle(slot));
    EXPECT_EQ(walk.getNext(), nullptr);
}

TEST(Iterators, SurviveTheDestructionOfWhatTheyHandOut) {
    SampleDatabase database;
    for (int i = 0; i < 200; ++i)
        database.addNode("node");
    const Nodes nodes = collectionOf<Nodes>({&database.nodes});
    oaIter<oaObject> walk(nodes);
    int met = 0;
    while (oaObject* object = walk.getNext()) {
        database.nodes.destroy(slotOf(object));
        ++met;
    }
    EXPECT_EQ(met, 200);
    EXPECT_TRUE(nodes.isEmpty());
}

TEST(Iterators, PassOverWhatIsDestroyedBeforeTheyReachIt) {
    SampleDatabase database;
    for (int i = 0; i < 3; ++i)
        database.addNode("node");
    oaIter<oaObject> walk(collectionOf<Nodes>({&database.nodes}));
    EXPECT_EQ(walk.getNext(), database.nodes.handle(0));
    database.nodes.destroy(1);
    EXPECT_EQ(walk.getNext(), database.nodes.handle(2));
    EXPECT_EQ(walk.getNext(), nullptr);
    walk.reset();
    EXPECT_EQ(walk.getNext(), database.nodes.handle(0));
}

TEST(Collections, CountWhatIsThere) {
    SampleDatabase database;
    const auto first = database.addNode("first");
    database.addNode("second");
    const Nodes nodes = collectionOf<Nodes>({&database.nodes, &database.leaves(0)});
    const oaObject* object = database.nodes.handle(first);
    EXPECT_EQ(nodes.getCount(), 2u);
    EXPECT_TRUE(nodes.includes(object));
    database.leaves(0).add({1, 2});
    EXPECT_EQ(nodes.getCount(), 3u);
    database.nodes.destroy(first);
    EXPECT_EQ(nodes.getCount(), 2u);
    EXPECT_FALSE(nodes.includes(object));
}

class Attachments : public testing::Test {
protected:
    oaObject* node(const char* name) { return database.nodes.handle(database.addNode(name)); }

    SampleDatabase database;
    oaObject* object = node("object");
};

std::string textOf(const oaProp* prop) {
    oaString value;
    prop->getValue(value);
    return std::string(value);
}

TEST_F(Attachments, HoldPropertiesOfEveryKind) {
    const oaByte bytes[] = {0x00, 0xAB, 0x7F};
    const oaString enums[] = {"low", "high"};
    const std::pair<oaProp*, const char*> expected[] = {
        {oaIntProp::create(object, "int", -5), "-5"},
        {oaFloatProp::create(object, "float", 0.5F), "0.5"},
        {oaDoubleProp::create(object, "double", 1e-30), "1e-30"},
        {oaBooleanProp::create(object, "boolean", true), "true"},
        {oaTimeProp::create(object, "time", 1234567890123), "1234567890123"},
        {oaStringProp::create(object, "string", "text"), "text"},
        {oaIntRangeProp::create(object, "intRange", 1, 2, 3), "1:2:3"},
        {oaFloatRangeProp::create(object, "floatRange", 0.5F, 1.F, 2.F), "0.5:1:2"},
        {oaDoubleRangeProp::create(object, "doubleRange", -1.5, 0., 1.5), "-1.5:0:1.5"},
        {oaTimeRangeProp::create(object, "timeRange", 1, 2, 3), "1:2:3"},
        {oaAppProp::create(object, "app", "kind", 3, bytes), "00ab7f"},
        {oaEnumProp::create(object, "enum", "high", 2, enums), "high"},
        {oaHierProp::create(object, "hier"), "hierProp"},
    };
    oaIter<oaProp> walk(object->getProps());
    for (const auto& [prop, text] : expected) {
        ASSERT_EQ(walk.getNext(), prop);
        EXPECT_EQ(textOf(prop), text);
        EXPECT_EQ(prop->getOwner(), object);
        EXPECT_TRUE(prop->isProp());
    }
    EXPECT_EQ(walk.getNext(), nullptr);
    EXPECT_EQ(object->getProps().getCount(), 13u);
}

TEST_F(Attachments, FindPropertiesByName) {
    oaProp* prop = oaIntProp::create(object, "width", 7);
    EXPECT_EQ(oaProp::find(object, "width"), prop);
    EXPECT_EQ(oaProp::find(object, "height"), nullptr);
    EXPECT_EQ(oaProp::find(node("other"), "width"), nullptr);
    EXPECT_EQ(dynamic_cast<oaIntProp*>(prop)->getValue(), 7);
    EXPECT_EQ(dynamic_cast<oaStringProp*>(prop), nullptr);
}

TEST_F(Attachments, RefuseASecondPropertyOfAName) {
    oaIntProp::create(object, "width", 7);
    oaProp* other = oaIntProp::create(object, "height", 7);
    const auto expectRefusal = [](const auto& attempt) {
        try {
            attempt();
            FAIL() << "no error";
        } catch (const oaError& error) {
            EXPECT_EQ(error.getMsgId(), oaUInt4(oacPropNameUsed));
            EXPECT_STREQ(error.getMsg(), "The object already has a property named 'width'.");
        }
    };
    expectRefusal([&] { oaStringProp::create(object, "width", "x"); });
    expectRefusal([&] { other->setName("width"); });
    other->setName("height");
    other->setName("depth");
    EXPECT_EQ(oaProp::find(object, "depth"), other);
    EXPECT_EQ(oaProp::find(object, "height"), nullptr);
}

TEST_F(Attachments, ChangeTheValuesOfProperties) {
    oaIntRangeProp* range = oaIntRangeProp::create(object, "range", 1, 2, 3);
    range->setValue(5);
    EXPECT_EQ(textOf(range), "1:5:3");
    range->set(0, 4, 9);
    EXPECT_EQ(range->getLowerBound(), 0);
    EXPECT_EQ(range->getValue(), 4);
    EXPECT_EQ(range->getUpperBound(), 9);

    oaStringProp* text = oaStringProp::create(object, "text", "before");
    text->setValue("after");
    EXPECT_EQ(textOf(text), "after");

    const oaByte bytes[] = {1, 2};
    oaAppProp* app = oaAppProp::create(object, "app", "kind", 0, bytes);
    app->setValue(2, bytes);
    oaString appType;
    app->getAppType(appType);
    EXPECT_STREQ(appType, "kind");
    EXPECT_EQ(app->getSize(), 2u);
    EXPECT_EQ(textOf(app), "0102");
}

TEST_F(Attachments, KeepEnumsToTheirTexts) {
    const oaString enums[] = {"low", "middle", "high"};
    oaEnumProp* prop = oaEnumProp::create(object, "level", "low", 3, enums);
    prop->setValue("middle");
    EXPECT_EQ(textOf(prop), "middle");
    try {
        prop->setValue("huge");
        FAIL() << "no error";
    } catch (const oaError& error) {
        EXPECT_EQ(error.getMsgId(), oaUInt4(oacNotAnEnumOfProp));
        EXPECT_STREQ(error.getMsg(), "'huge' is not one of the values of the property.");
    }
    EXPECT_EQ(prop->getEnums().getCount(), 3u);
    oaEnumPropIter walk(prop->getEnums());
    oaString text;
    std::string all;
    while (walk.getNext(text))
        all += std::string(text) + " ";
    EXPECT_EQ(all, "low middle high ");
}

TEST_F(Attachments, TakeNestedPropertiesAlong) {
    oaHierProp* outer = oaHierProp::create(object, "outer");
    oaProp* inner = oaIntProp::create(outer, "inner", 1);
    EXPECT_EQ(oaProp::find(outer, "inner"), inner);
    outer->destroy();
    EXPECT_FALSE(outer->isValid());
    EXPECT_FALSE(inner->isValid());
    EXPECT_FALSE(object->hasProp());
}

TEST_F(Attachments, CopyAndMoveProperties) {
    SampleDatabase elsewhere;
    oaObject* far = elsewhere.nodes.handle(elsewhere.addNode("far"));
    oaObject* near = node("near");
    oaProp* prop = oaStringProp::create(object, "text", "value");

    oaProp* copy = prop->copyTo(far);
    EXPECT_EQ(textOf(copy), "value");
    EXPECT_EQ(copy->getOwner(), far);

    EXPECT_EQ(prop->moveTo(near), prop);
    EXPECT_EQ(prop->getOwner(), near);
    EXPECT_FALSE(object->hasProp());

    copy->destroy();
    oaProp* moved = prop->moveTo(far);
    EXPECT_FALSE(prop->isValid());
    EXPECT_EQ(oaProp::find(far, "text"), moved);
}

TEST_F(Attachments, RefuseToMoveAPropertyBelowItself) {
    oaHierProp* outer = oaHierProp::create(object, "outer");
    oaHierProp* inner = oaHierProp::create(outer, "inner");
    for (oaObject* target : {static_cast<oaObject*>(outer), static_cast<oaObject*>(inner)}) {
        try {
            outer->moveTo(target);
            FAIL() << "no error";
        } catch (const oaError& error) {
            EXPECT_EQ(error.getMsgId(), oaUInt4(oacPropBelowItself));
            EXPECT_STREQ(error.getMsg(), "Property 'outer' cannot be moved below itself.");
        }
    }
    EXPECT_EQ(outer->getOwner(), object);
}

TEST_F(Attachments, RefusePropertiesOnSessionObjects) {
    try {
        oaIntProp::create(oaSession::get(), "width", 1);
        FAIL() << "no error";
    } catch (const oaError& error) {
        EXPECT_EQ(error.getMsgId(), oaUInt4(oacInvalidObjForProp));
        EXPECT_STREQ(error.getMsg(),
                     "An object of type Session cannot have properties or stored values.");
    }
}

TEST_F(Attachments, GiveTheDefaultOfAnApplicationValueUntilItIsSet) {
    auto* def = oaDoubleAppDef<oaObject>::get("objects_test angle", 1.5);
    EXPECT_EQ(def->get(object), 1.5);
    EXPECT_FALSE(object->hasAppDef());
    def->set(object, 90.0);
    EXPECT_EQ(def->get(object), 90.0);
    EXPECT_EQ(def->get(node("other")), 1.5);
    EXPECT_TRUE(object->hasAppDef());
    oaIter<oaAppDef> walk(object->getAppDefs());
    EXPECT_EQ(walk.getNext(), def);
    EXPECT_EQ(walk.getNext(), nullptr);
    EXPECT_TRUE(def->isUsedIn(object));
    def->set(object, 1.5);
    EXPECT_FALSE(object->hasAppDef());
    EXPECT_FALSE(def->isUsedIn(object));
}

TEST_F(Attachments, KnowApplicationValuesOfEveryKind) {
    const oaByte bytes[] = {1, 0, 3};
    auto* integer = oaIntAppDef<oaObject>::get("objects_test int", 3);
    auto* number = oaFloatAppDef<oaObject>::get("objects_test float", 0.5F);
    auto* flag = oaBooleanAppDef<oaObject>::get("objects_test flag");
    auto* time = oaTimeAppDef<oaObject>::get("objects_test time", 9);
    auto* text = oaStringAppDef<oaObject>::get("objects_test text", "nothing");
    auto* data = oaDataAppDef<oaObject>::get("objects_test data", 3, bytes);
    auto* var = oaVarDataAppDef<oaObject>::get("objects_test var");
    EXPECT_EQ(integer->getType(), oacIntAppDefType);
    EXPECT_EQ(var->getType(), oacVarDataAppDefType);

    integer->set(object, -4);
    number->set(object, 2.5F);
    flag->set(object, true);
    time->set(object, 1'000'000'000'000);
    text->set(object, "something");
    const oaByte other[] = {9, 8, 7};
    data->set(object, other);
    var->set(object, 2, other);

    oaString string;
    oaByte read[3] = {};
    EXPECT_EQ(integer->get(object), -4);
    EXPECT_EQ(number->get(object), 2.5F);
    EXPECT_EQ(flag->get(object), true);
    EXPECT_EQ(time->get(object), 1'000'000'000'000);
    text->get(object, string);
    EXPECT_STREQ(string, "something");
    data->get(object, read);
    EXPECT_EQ(read[2], 7);
    EXPECT_EQ(var->getSize(object), 2u);
    EXPECT_EQ(object->getAppDefs().getCount(), 7u);
    text->get(node("other"), string);
    EXPECT_STREQ(string, "nothing");
}

TEST_F(Attachments, GiveTheDefaultForStoredBytesOfAnotherSize) {
    const oaByte bytes[] = {1, 2};
    auto* data = oaDataAppDef<oaObject>::get("objects_test sized", 2, bytes);
    const oaByte other[] = {7, 8};
    data->set(object, other);
    AppValueRecord& value = database.appValues.get(locationOf(object).ref, data);
    value.text = database.strings.intern("longer than two");
    oaByte read[2] = {};
    data->get(object, read);
    EXPECT_EQ(read[0], 1);
    EXPECT_EQ(read[1], 2);
}

TEST_F(Attachments, FindADefinitionByKindAndName) {
    auto* def = oaIntAppDef<oaObject>::get("objects_test find", 3, false);
    oaString name;
    def->getName(name);
    EXPECT_STREQ(name, "objects_test find");
    EXPECT_FALSE(def->isPersistent());
    EXPECT_EQ(oaIntAppDef<oaObject>::find("objects_test find"), def);
    EXPECT_EQ(oaIntAppDef<oaObject>::get("objects_test find", 4), def);
    EXPECT_EQ(def->getDefault(), 3);
    EXPECT_EQ(oaDoubleAppDef<oaObject>::find("objects_test find"), nullptr);
    EXPECT_EQ(oaIntAppDef<oaProp>::find("objects_test find"), nullptr);
    EXPECT_TRUE(oaSession::get()->getAppDefs().includes(def));
}

TEST_F(Attachments, TakeApplicationValuesAway) {
    auto* def = oaIntAppDef<oaObject>::get("objects_test away");
    oaObject* other = node("other");
    def->set(object, 1);
    def->set(other, 2);
    def->destroy(object);
    EXPECT_EQ(def->get(object), 0);
    EXPECT_EQ(def->get(other), 2);
    def->remove(other);
    EXPECT_EQ(def->get(other), 0);
}

} // namespace

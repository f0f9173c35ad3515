#include "two_designs.h"

namespace comparison::test {
namespace {

class AttachmentsTest : public TwoDesigns {
protected:
    AttachmentsTest() {
        for (oa::oaDesign* design : {&was(), &is()})
            oa::oaNet::create(design->getTopBlock(), general("n"));
    }

    oa::oaNet* wasNet() { return oa::oaNet::find(wasBlock(), general("n")); }
    oa::oaNet* isNet() { return oa::oaNet::find(isBlock(), general("n")); }
};

const oa::oaByte* bytes(const char* text) {
    return reinterpret_cast<const oa::oaByte*>(text);
}

void addProps(oa::oaObject* object, int n) {
    const auto real = oa::oaFloat(n) / 2;
    const oa::oaString colours[] = {"red", "green", "blue"};
    oa::oaIntProp::create(object, "int", n);
    oa::oaIntRangeProp::create(object, "int range", 0, n, 9);
    oa::oaFloatProp::create(object, "float", real);
    oa::oaFloatRangeProp::create(object, "float range", 0, real, 9);
    oa::oaDoubleProp::create(object, "double", real);
    oa::oaDoubleRangeProp::create(object, "double range", 0, real, 9);
    oa::oaBooleanProp::create(object, "boolean", n % 2);
    oa::oaTimeProp::create(object, "time", oa::oaTime(n));
    oa::oaTimeRangeProp::create(object, "time range", 0, oa::oaTime(n), 9);
    oa::oaStringProp::create(object, "string", n == 1 ? "one\n" : "two");
    oa::oaAppProp::create(object, "app", "kind", 2, bytes(n == 1 ? "\1\2" : "\1\3"));
    oa::oaEnumProp::create(object, "enum", colours[n], 3, colours);
    oa::oaIntProp::create(oa::oaHierProp::create(object, "group"), "inside", n);
}

TEST_F(AttachmentsTest, PropertiesOfEveryKindAreTheSame) {
    addProps(wasNet(), 1);
    addProps(isNet(), 1);
    EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(AttachmentsTest, PropertiesOfEveryKindDiffer) {
    addProps(wasNet(), 1);
    addProps(isNet(), 2);
    const std::string start = "net \"n\": property ";
    EXPECT_THAT(
        differences(),
        ElementsAre(start + "\"app\" was bytes of \"kind\" 0102, is bytes of \"kind\" 0103",
                    start + "\"boolean\" was true, is false",
                    start + "\"double range\" was double range 0:0.5:9, is double range 0:1:9",
                    start + "\"double\" was double 0.5, is double 1",
                    start + "\"enum\" was \"green\" of \"red\" \"green\" \"blue\", is \"blue\" of "
                            "\"red\" \"green\" \"blue\"",
                    start + "\"float range\" was float range 0:0.5:9, is float range 0:1:9",
                    start + "\"float\" was float 0.5, is float 1",
                    start + "\"group/inside\" was int 1, is int 2",
                    start + "\"int range\" was int range 0:1:9, is int range 0:2:9",
                    start + "\"int\" was int 1, is int 2",
                    start + "\"string\" was \"one\\n\", is \"two\"",
                    start + "\"time range\" was time range 0:1:9, is time range 0:2:9",
                    start + "\"time\" was time 1, is time 2"));
}

TEST_F(AttachmentsTest, APropertyOfAnotherTypeDiffers) {
    oa::oaIntProp::create(wasNet(), "N", 1);
    oa::oaDoubleProp::create(isNet(), "N", 1);
    EXPECT_THAT(differences(), ElementsAre("net \"n\": property \"N\" was int 1, is double 1"));
}

TEST_F(AttachmentsTest, ApplicationValuesOfEveryKindDiffer) {
    oa::oaIntAppDef<oa::oaNet>::get("int")->set(isNet(), 3);
    oa::oaFloatAppDef<oa::oaNet>::get("float")->set(isNet(), 0.5f);
    oa::oaDoubleAppDef<oa::oaNet>::get("double")->set(isNet(), 0.25);
    oa::oaBooleanAppDef<oa::oaNet>::get("boolean")->set(isNet(), true);
    oa::oaTimeAppDef<oa::oaNet>::get("time")->set(isNet(), 7);
    oa::oaStringAppDef<oa::oaNet>::get("string")->set(isNet(), "text");
    oa::oaDataAppDef<oa::oaNet>::get("data", 2, bytes("\0\0"))->set(isNet(), bytes("\1\2"));
    oa::oaVarDataAppDef<oa::oaNet>::get("free")->set(isNet(), 3, bytes("\1\2\3"));
    const std::string start = "net \"n\": application value ";
    EXPECT_THAT(
        differences(),
        ElementsAre(start + "\"boolean\" added: true", start + "\"data\" added: bytes 0102",
                    start + "\"double\" added: double 0.25", start + "\"float\" added: float 0.5",
                    start + "\"free\" added: bytes 010203", start + "\"int\" added: int 3",
                    start + "\"string\" added: \"text\"", start + "\"time\" added: time 7"));
}

TEST_F(AttachmentsTest, ApplicationValuesDifferOnEveryObject) {
    const auto setAll = [](oa::oaDesign& design, int n) {
        oa::oaBlock* const block = design.getTopBlock();
        oa::oaNet* const net = oa::oaNet::find(block, general("n"));
        oa::oaTerm* const term = oa::oaTerm::create(net, general("T"));
        oa::oaPin* const pin = oa::oaPin::create(term, "p");
        oa::oaProp* const prop = oa::oaIntProp::create(net, "N", 1);
        oa::oaRect* const rect = oa::oaRect::create(block, 1, drawing, oa::oaBox(0, 0, 9, 9));
        oa::oaIntAppDef<oa::oaDesign>::get("value")->set(&design, n);
        oa::oaIntAppDef<oa::oaBlock>::get("value")->set(block, n);
        oa::oaIntAppDef<oa::oaScalarNet>::get("value")->set(static_cast<oa::oaScalarNet*>(net), n);
        oa::oaIntAppDef<oa::oaTerm>::get("value")->set(term, n);
        oa::oaIntAppDef<oa::oaPin>::get("value")->set(pin, n);
        oa::oaIntAppDef<oa::oaProp>::get("value")->set(prop, n);
        oa::oaIntAppDef<oa::oaShape>::get("value")->set(rect, n);
        oa::oaIntAppDef<oa::oaRect>::get("other")->set(rect, n);
    };
    setAll(was(), 1);
    setAll(is(), 2);
    EXPECT_THAT(
        differences(),
        ElementsAre("design: application value \"value\" was int 1, is int 2",
                    "block: application value \"value\" was int 1, is int 2",
                    "net \"n\": application value \"value\" was int 1, is int 2",
                    "net \"n\": property \"N\" application value \"value\" was int 1, is int 2",
                    "terminal \"T\": application value \"value\" was int 1, is int 2",
                    "pin \"p\" of terminal \"T\": application value \"value\" was int 1, is int 2",
                    "rectangle on M1/drawing (0, 0)-(9, 9): application value \"other\" was int 1, "
                    "is int 2",
                    "rectangle on M1/drawing (0, 0)-(9, 9): application value \"value\" was int 1, "
                    "is int 2"));
}

TEST_F(AttachmentsTest, ValuesThatAreNotStoredDoNotCount) {
    oa::oaIntAppDef<oa::oaNet>::get("of this session", 0, false)->set(isNet(), 3);
    EXPECT_THAT(differences(), IsEmpty());
}

} // namespace
} // namespace comparison::test

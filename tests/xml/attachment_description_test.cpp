// The descriptions of parameters, boxes, nets, pins and shapes.

#include <limits>
#include <sstream>

#include <ovalis/xml.h>

#include "support/library_fixture.h"

using namespace ovalis;
using namespace oa;

namespace {

class Description : public test::LibraryTest {
protected:
    oaBlock* block() {
        if (block_ == nullptr) {
            block_ = oaBlock::create(&design("cell", "layout", 'w'));
        }
        return block_;
    }

    static oaPointArray points(std::initializer_list<oaPoint> list) {
        oaPointArray array;
        for (const oaPoint& point : list) {
            array.append(point);
        }
        return array;
    }

    /// The description of a shape on layer 1, purpose 2, without what is the same for all.
    static std::string geometry(const oaShape* shape, const std::string& type) {
        const std::string text = xmlFormat(*shape);
        const std::string head = "<shape \n    layerNum=\"1\"\n    purposeNum=\"2\"\n    type=\"" +
                                 type + "\"\n    hasAppDef=\"0\">\n";
        const std::string tail = "</shape>\n";
        EXPECT_EQ(text.substr(0, head.size()), head);
        EXPECT_TRUE(text.ends_with(tail)) << text;
        return text.substr(head.size(), text.size() - head.size() - tail.size());
    }

private:
    oaBlock* block_ = nullptr;
};

oaParam boolean(const char* name, bool value) {
    oaParam param;
    param.setName(name);
    param.setBooleanVal(value);
    return param;
}

oaParam time(const char* name, oaTime value) {
    oaParam param;
    param.setName(name);
    param.setTimeVal(value);
    return param;
}

} // namespace

TEST(ParamDescription, HasTypeAndValue) {
    EXPECT_EQ(xmlFormat(oaParam("w", oaInt4(-5))),
              "<oaParam name = \"w\" type=\"int\" value=\"-5\"/>\n");
    EXPECT_EQ(xmlFormat(oaParam("f", 0.1F)),
              "<oaParam name = \"f\" type=\"float\" value=\"0.1\"/>\n");
    EXPECT_EQ(xmlFormat(oaParam("d", 1.0 / 3)),
              "<oaParam name = \"d\" type=\"double\" value=\"0.333333\"/>\n");
    EXPECT_EQ(xmlFormat(oaParam("s", oaString("a b"))),
              "<oaParam name = \"s\" type=\"string\" value=\"a b\"/>\n");
    EXPECT_EQ(xmlFormat(boolean("b", true)), "<oaParam name = \"b\" type=\"bool\" value=\"1\"/>\n");
    EXPECT_EQ(xmlFormat(boolean("b", false)),
              "<oaParam name = \"b\" type=\"bool\" value=\"0\"/>\n");
    EXPECT_EQ(xmlFormat(time("t", 1000000000)),
              "<oaParam name = \"t\" type=\"time\" value=\"1000000000\"/>\n");
    const oaByte bytes[] = {1, 2};
    EXPECT_EQ(xmlFormat(oaParam("a", "mine", 2, bytes)),
              "<oaParam name = \"a\" type=\"other\" value=\"unknown\"/>\n");
}

TEST(ParamDescription, HasRealNumbersAsStreamsWriteThem) {
    for (const double value : {0.0, -0.0, 3.0, 1e-9, 123456789.0, 1e300, 0.0001, 0.00001,
                               std::numeric_limits<double>::infinity()}) {
        std::ostringstream stream;
        stream << value;
        EXPECT_EQ(xmlFormat(oaParam("d", value)),
                  "<oaParam name = \"d\" type=\"double\" value=\"" + stream.str() + "\"/>\n");
    }
}

TEST(ParamDescription, HasNamesAndTextsAsTheyAre) {
    EXPECT_EQ(xmlFormat(oaParam("<\"größe\">", oaString("a\"b<c>&\nd"))),
              "<oaParam name = \"<\"größe\">\" type=\"string\" value=\"a\"b<c>&\nd\"/>\n");
    const std::string longText(100000, 'x');
    EXPECT_EQ(xmlFormat(oaParam("s", oaString(longText.c_str()))),
              "<oaParam name = \"s\" type=\"string\" value=\"" + longText + "\"/>\n");
}

TEST(BoxDescription, HasItsCorners) {
    EXPECT_EQ(xmlFormat(oaBox(-1, -2, 30, 40)),
              "<box upperLeft=\"-1,40\" lowerRight=\"30,-2\"/>\n");
    EXPECT_EQ(
        xmlFormat(oaBox(INT_MIN, INT_MIN, INT_MAX, INT_MAX)),
        "<box upperLeft=\"-2147483648,2147483647\" lowerRight=\"2147483647,-2147483648\"/>\n");
}

TEST_F(Description, OfShapesHasTheirGeometry) {
    EXPECT_EQ(geometry(oaRect::create(block(), 1, 2, oaBox(0, 0, 10, 20)), "Rect"),
              "<rect><box upperLeft=\"0,20\" lowerRight=\"10,0\"/></rect>\n");
    EXPECT_EQ(
        geometry(oaPolygon::create(block(), 1, 2, points({{0, 0}, {10, 0}, {0, -5}})), "Polygon"),
        "<polygon>\n"
        "<vertex x=\"0\" y=\"0\"/>\n"
        "<vertex x=\"10\" y=\"0\"/>\n"
        "<vertex x=\"0\" y=\"-5\"/>\n"
        "</polygon>\n");
    EXPECT_EQ(geometry(oaEllipse::create(block(), 1, 2, oaBox(0, 0, 10, 20)), "Ellipse"),
              "<ellipse><box upperLeft=\"0,20\" lowerRight=\"10,0\"/></ellipse>\n");
    EXPECT_EQ(geometry(oaDot::create(block(), 1, 2, oaPoint(-7, 8)), "Dot"), "<dot>-7,8</dot>\n");
    EXPECT_EQ(geometry(oaText::create(block(), 1, 2, "a<b>\"c\"", oaPoint(3, 4),
                                      oacLowerLeftTextAlign, oacR0, oacRomanFont, 10),
                       "Text"),
              "<text><origin x=\"3\" y=\"4\"/>a<b>\"c\"</text>\n");
    EXPECT_EQ(geometry(oaLine::create(block(), 1, 2, points({{0, 0}, {10, 0}, {10, -5}})), "Line"),
              "<line points=\"0,0 10,0 10,-5\"></line>\n");
}

TEST_F(Description, OfOtherShapesHasNoGeometry) {
    EXPECT_EQ(geometry(oaPath::create(block(), 1, 2, 4, points({{0, 0}, {10, 0}})), "Path"), "");
    EXPECT_EQ(geometry(oaPathSeg::create(block(), 1, 2, oaPoint(0, 0), oaPoint(10, 0),
                                         oaSegStyle(4, oacTruncateEndStyle, oacTruncateEndStyle)),
                       "PathSeg"),
              "");
    EXPECT_EQ(geometry(oaArc::create(block(), 1, 2, oaBox(0, 0, 9, 9), 0, 1), "Arc"), "");
    EXPECT_EQ(geometry(oaDonut::create(block(), 1, 2, oaPoint(0, 0), 9, 3), "Donut"), "");
    EXPECT_EQ(geometry(oaEvalText::create(block(), 1, 2, "1 + 1", oaPoint(0, 0),
                                          oacLowerLeftTextAlign, oacR0, oacRomanFont, 10),
                       "EvalText"),
              "");
    oaNet* net = oaNet::create(block(), oaName(oaNativeNS(), "n"));
    EXPECT_EQ(
        geometry(oaAttrDisplay::create(net, oaNetAttrType(oacNameNetAttrType), 1, 2, oaPoint(0, 0),
                                       oacLowerLeftTextAlign, oacR0, oacRomanFont, 10),
                 "AttrDisplay"),
        "");
    EXPECT_EQ(geometry(oaPropDisplay::create(oaIntProp::create(net, "p", 1), 1, 2, oaPoint(0, 0),
                                             oacLowerLeftTextAlign, oacR0, oacRomanFont, 10),
                       "PropDisplay"),
              "");
}

TEST_F(Description, OfAShapeHasItsValues) {
    oaRect* rect = oaRect::create(block(), 4294966519U, 0xFFFFFFFF, oaBox(0, 0, 10, 20));
    oaIntAppDef<oaRect>::get("described \"number\"")->set(rect, 5);
    oaDoubleAppDef<oaRect>::get("described real", 0, false)->set(rect, 5);
    EXPECT_EQ(xmlFormat(static_cast<const oaShape&>(*rect)),
              "<shape \n"
              "    layerNum=\"4294966519\"\n"
              "    purposeNum=\"4294967295\"\n"
              "    type=\"Rect\"\n"
              "    hasAppDef=\"1\">\n"
              "<appDefs>\n"
              "<appDef \n"
              "    name=\"described \"number\"\"\n"
              "    type=\"AppIntDef\"\n"
              "    isPersistent=\"1\"/>\n"
              "<appDef \n"
              "    name=\"described real\"\n"
              "    type=\"AppDoubleDef\"\n"
              "    isPersistent=\"0\"/>\n"
              "</appDefs>\n"
              "<rect><box upperLeft=\"0,20\" lowerRight=\"10,0\"/></rect>\n"
              "</shape>\n");
}

TEST_F(Description, OfANetHasItsFlags) {
    const oaNativeNS ns;
    oaNet* net = oaNet::create(block(), oaName(ns, "a[3]"));
    oaIntProp::create(net, "p", 1);
    EXPECT_EQ(xmlFormat(*net), "<net \n"
                               "    name=\"a[3]\"\n"
                               "    hasAppDef=\"0\"\n"
                               "    hasAssociate=\"0\"\n"
                               "    hasConstraintGroup=\"0\"\n"
                               "    hasDefaultConstraintGroup=\"0\"\n"
                               "    hasProp=\"1\"/>\n");
}

TEST_F(Description, OfAPinHasItsTerminal) {
    const oaNativeNS ns;
    oaNet* net = oaNet::create(block(), oaName(ns, "n"));
    oaTerm* term = oaTerm::create(net, oaName(ns, "t"), oacOutputTermType);
    term->setPosition(7);
    term->setIsInterface(true);
    oaPin* pin = oaPin::create(term, "p\"1\"");
    pin->setPinType(oacBumpPinType);
    vexPinAngle->set(pin, 90);
    EXPECT_EQ(xmlFormat(*pin), "<pin \n"
                               "    name=\"p\"1\"\"\n"
                               "    type=\"bump\"\n"
                               "    hasAppDef=\"1\"\n"
                               "    hasAssociate=\"0\"\n"
                               "    hasProp=\"0\">\n"
                               "<appDefs>\n"
                               "<appDef \n"
                               "    name=\"vexPinAngle\"\n"
                               "    type=\"AppDoubleDef\"\n"
                               "    isPersistent=\"1\"/>\n"
                               "</appDefs>\n"
                               "<term \n"
                               "    name=\"t\"\n"
                               "    type=\"output\"\n"
                               "    typeEnum=\"1\"\n"
                               "    hasAppDef=\"0\"\n"
                               "    hasAssociate=\"0\"\n"
                               "    hasProp=\"0\"\n"
                               "    numBits=\"1\"\n"
                               "    position=\"7\"\n"
                               "    isImplicit=\"0\"\n"
                               "    isInterface=\"1\">\n"
                               "</term>\n"
                               "</pin>\n");
}

TEST_F(Description, OfAnObjectThatIsGoneIsAFailure) {
    oaRect* rect = oaRect::create(block(), 1, 2, oaBox(0, 0, 10, 20));
    rect->destroy();
    EXPECT_EQ(test::messageIdOf([&] { xmlFormat(static_cast<const oaShape&>(*rect)); }),
              oacInvalidObject);
}

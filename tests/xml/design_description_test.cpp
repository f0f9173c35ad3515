// The descriptions of designs.

#include "xml/described_library.h"

using namespace ovalis;
using namespace oa;

namespace {

class DesignDescription : public test::DescribedLibrary {
protected:
    std::string described(const char* cell) {
        oaDesign& open = design(cell, "layout", 'r');
        const std::string text = xmlFormat(open);
        open.close();
        return text;
    }

    /// What stands between two pieces of a text.
    static std::string between(const std::string& text, const std::string& begin,
                               const std::string& end) {
        const std::size_t from = text.find(begin);
        const std::size_t to = text.find(end, from);
        return from == std::string::npos || to == std::string::npos
                   ? "not there"
                   : text.substr(from + begin.size(), to - from - begin.size());
    }
};

} // namespace

TEST_F(DesignDescription, OfADesignWithoutABlockIsItsHead) {
    oaDesign& empty = design("cell", "layout", 'w');
    EXPECT_EQ(xmlFormat(empty), "<design \n"
                                "      hasProp=\"0\"\n"
                                "      hasAppDef=\"0\"\n"
                                "      isSubMaster=\"0\"\n"
                                "      isSuperMaster=\"0\">\n"
                                "<appDefs>\n"
                                "</appDefs>\n"
                                "<props>\n"
                                "</props>\n"
                                "</design>\n");
}

TEST_F(DesignDescription, OfAnEmptyBlockHasAnInvertedBox) {
    const oaBlock* block = newBlock("cell");
    EXPECT_EQ(between(xmlFormat(*block->getDesign()), "</props>\n", "</design>\n"),
              "<block \n"
              "     DBUperUU=\"1000\"\n"
              "     UserUnits=\"micron\">\n"
              "<box upperLeft=\"2147483647,-2147483648\" lowerRight=\"-2147483648,2147483647\"/>\n"
              "<shapes>\n"
              "</shapes>\n"
              "<nets>\n"
              "</nets>\n"
              "<pins>\n"
              "</pins>\n"
              "<instTerms>\n"
              "</instTerms>\n"
              "</block>\n"
              "<occurrence instances = \"0\">\n"
              "</occurrence>\n");
}

TEST_F(DesignDescription, OfAComponentNamesItsMacro) {
    makeMacro();
    const std::string text = described("macro");
    EXPECT_EQ(between(text, "isSuperMaster=\"1\"\n", ">\n"),
              "      PcellEvaluatorName=\"SKRPcell\"");
    EXPECT_EQ(between(text, "</props>\n", "<block "),
              "<pCellData data=\"SKRMacroName\" value=\"macroArtwork\"/>\n"
              "<oaParam name = \"turns\" type=\"int\" value=\"3\"/>\n");
}

TEST_F(DesignDescription, OfAnotherPcellHasNoMacro) {
    makeSquare();
    const std::string text = described("square");
    EXPECT_EQ(between(text, "isSuperMaster=\"1\"\n", ">\n"), "      PcellEvaluatorName=\"square\"");
    EXPECT_EQ(between(text, "</props>\n", "<block "),
              "<oaParam name = \"size\" type=\"int\" value=\"10\"/>\n"
              "<oaParam name = \"label\" type=\"string\" value=\"none\"/>\n");
}

TEST_F(DesignDescription, OfASubmasterHasAllItsParameters) {
    makeSquare();
    oaParamArray params;
    params.append(oaParam("size", oaInt4(30)));
    oaDesign* submaster = oaDesign::open(name("lib"), name("square"), name("layout"), params);
    EXPECT_EQ(xmlFormat(*submaster), "<design \n"
                                     "      hasProp=\"0\"\n"
                                     "      hasAppDef=\"0\"\n"
                                     "      isSubMaster=\"1\"\n"
                                     "      isSuperMaster=\"0\">\n"
                                     "<appDefs>\n"
                                     "</appDefs>\n"
                                     "<props>\n"
                                     "</props>\n"
                                     "<oaParam name = \"size\" type=\"int\" value=\"30\"/>\n"
                                     "<oaParam name = \"label\" type=\"string\" value=\"none\"/>\n"
                                     "<block \n"
                                     "     DBUperUU=\"1000\"\n"
                                     "     UserUnits=\"micron\">\n"
                                     "<box upperLeft=\"0,30\" lowerRight=\"30,0\"/>\n"
                                     "<shapes>\n"
                                     "<shape \n"
                                     "    layerNum=\"1\"\n"
                                     "    purposeNum=\"2\"\n"
                                     "    type=\"Rect\"\n"
                                     "    hasAppDef=\"0\">\n"
                                     "<rect><box upperLeft=\"0,30\" lowerRight=\"30,0\"/></rect>\n"
                                     "</shape>\n"
                                     "</shapes>\n"
                                     "<nets>\n"
                                     "</nets>\n"
                                     "<pins>\n"
                                     "</pins>\n"
                                     "<instTerms>\n"
                                     "</instTerms>\n"
                                     "</block>\n"
                                     "<occurrence instances = \"0\">\n"
                                     "</occurrence>\n"
                                     "</design>\n");
}

TEST_F(DesignDescription, OfInstancesTellsScalarOnesMore) {
    makeLeaf();
    makeMiddle();
    EXPECT_EQ(between(described("middle"), "<occurrence", "</occurrence>\n"),
              " instances = \"3\">\n"
              "<processInst>\n"
              "name = single\n"
              "pathName = single\n"
              "usesTermPositions = 0\n"
              "type = OccScalarInst\n"
              "type inst\n"
              "scalar instance origin = 100,200\n"
              "scalar instance orient = R90\n"
              "scalar instance block bbox = <box upperLeft=\"0,110\" lowerRight=\"110,-19\"/>\n"
              "scalar instance block # shapes = 16\n"
              "</processInst>\n"
              "<processInst>\n"
              "name = array\n"
              "pathName = array\n"
              "usesTermPositions = 0\n"
              "type = OccArrayInst\n"
              "</processInst>\n"
              "<processInst>\n"
              "name = vector[1:0]\n"
              "pathName = vector[1:0]\n"
              "usesTermPositions = 0\n"
              "type = OccVectorInst\n"
              "</processInst>\n");
}

TEST_F(DesignDescription, OfInstancesTellsWhatHasNoBlock) {
    makeTop();
    const std::string text = described("top");
    EXPECT_EQ(between(text, "name = x\n", "</processInst>\n"),
              "pathName = x\n"
              "usesTermPositions = 0\n"
              "type = OccScalarInst\n"
              "type inst\n"
              "scalar instance origin = 0,0\n"
              "scalar instance orient = R0\n"
              "scalar instance block bbox = none\n"
              "scalar instance block # shapes = none\n");
}

TEST_F(DesignDescription, OfConnectionsTellsWhatTheyJoin) {
    makeLeaf();
    makeMiddle();
    EXPECT_EQ(between(described("middle"), "<instTerms>\n", "</instTerms>\n"),
              "<instTerm \n"
              "    termName=\"a\"\n"
              "    termPosition=\"4294967295\"\n"
              "    usesTermPosition=\"0\"\n"
              "    numBits=\"1\"\n"
              "    isImplicit=\"0\"\n"
              "    getInst=\"single\"\n"
              "    getTerm=\"a\"\n"
              "    getNet=\"n\"/>\n"
              "</instTerm>\n"
              "<instTerm \n"
              "    termName=\"missing\"\n"
              "    termPosition=\"4294967295\"\n"
              "    usesTermPosition=\"0\"\n"
              "    numBits=\"1\"\n"
              "    isImplicit=\"0\"\n"
              "    getInst=\"single\"\n"
              "    getTerm=\"\"\n"
              "    getNet=\"\"/>\n"
              "</instTerm>\n");
}

TEST_F(DesignDescription, DoesNotChangeTheDesign) {
    makeLeaf();
    makeMiddle();
    oaDesign& edited = design("middle", "layout", 'a');
    xmlFormat(edited);
    EXPECT_FALSE(edited.isModified());
}

TEST_F(DesignDescription, OfManyShapesIsWhole) {
    oaBlock* block = newBlock("cell");
    std::string expected;
    for (int i = 0; i < 5000; ++i) {
        expected += xmlFormat(
            static_cast<const oaShape&>(*oaRect::create(block, 1, 2, oaBox(0, 0, i + 1, i + 1))));
    }
    for (int i = 0; i < 300; ++i) {
        const std::string text(i, 'x');
        expected += xmlFormat(static_cast<const oaShape&>(
            *oaText::create(block, 2, 2, text.c_str(), oaPoint(), oacCenterCenterTextAlign, oacR0,
                            oacRomanFont, 10)));
    }
    EXPECT_EQ(between(xmlFormat(*block->getDesign()), "<shapes>\n", "</shapes>\n"), expected);
}

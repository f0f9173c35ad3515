#include <gtest/gtest.h>

#include "cli/library_access.h"
#include "support/text_file.h"
#include "workplace.h"

namespace cli::test {
namespace {

using ovalis::test::readText;

TEST(Export, SaysWhatItMade) {
    const Workplace work;
    EXPECT_EQ(work.exportIt(),
              (Outcome{0, "",
                       "made coil in the new library " + work.library() +
                           "\n"
                           "  layout: 1 rectangle, 1 polygon, 1 text, 2 ports, 1 layer\n"
                           "  pcell: S-parameters with 1 parameter\n"
                           "  symbol: 2 ports\n"}));
}

TEST(Export, WarnsOfKeysOfTheGeometryThatMeanNothing) {
    Workplace work;
    work.layout["text"] = 1;
    EXPECT_TRUE(work.exportIt().talk.starts_with(
        "ovalis: warning: " + work.path("layout.json") +
        ": /text: this key means nothing here and is ignored\nmade coil "));
}

TEST(Export, LeavesNothingForCheckToFind) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    EXPECT_EQ(ovalisProgram({"check", work.library()}), (Outcome{0, "", ""}));
}

TEST(Export, LeavesExactlyTheFilesOfACell) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    std::vector<std::string> names;
    for (const auto& [name, bytes] : work.tree())
        if (!name.ends_with("master.tag"))
            names.push_back(name);
    EXPECT_EQ(names, (std::vector<std::string>{".oalib", "coil", "coil/itemdef.skr", "coil/layout",
                                               "coil/layout/layout.oa", "coil/symbol",
                                               "coil/symbol/symbol.oa", "lib.defs", "tech.db"}));
}

TEST(Export, WritesTheItemDefinitionOfAnSParameterCell) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string script = readText(work.library() + "/coil/itemdef.skr");
    EXPECT_TRUE(script.starts_with("create_item(\" coil\",\"coil\",\"X\",16,-1,NULL,"));
    EXPECT_TRUE(script.ends_with(
        ",create_parm(\"N\",\"Turns\",537004032,\"StdFormSet\",-1,prm(\"StdForm\",\"2\"))\n);\n"));
}

TEST(Export, WritesTheMacroOfAScriptedCell) {
    Workplace work;
    work.component["kind"] = "script_macro";
    work.component["macro_body"] = "{ draw(N); }";
    work.component["options"]["item_prefix"] = "L";
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string script = readText(work.library() + "/coil/itemdef.skr");
    EXPECT_TRUE(script.starts_with("create_item(\" coil\",\"coil\",\"L\",ITEM_NOT_ALL_PARM,"));
    EXPECT_TRUE(script.ends_with(");\n\ndefun coilArtwork(N)\n{ draw(N); }"));
}

/// The exported cell opened again, for looking at it object by object.
class ReadBack {
public:
    ReadBack(const std::string& library, const std::string& view)
        : lib_(ovalis::openLib(library, false, "lib")),
          design_(ovalis::openDesign(*lib_, "coil", view, false)) {}

    oa::oaDesign& design() { return *design_; }
    oa::oaBlock& block() { return *design_->getTopBlock(); }

    std::size_t shapes(oa::oaTypeEnum type) {
        std::size_t count = 0;
        oa::oaIter<oa::oaShape> shapes(block().getShapes());
        while (const oa::oaShape* shape = shapes.getNext())
            count += shape->getType() == type ? 1 : 0;
        return count;
    }

private:
    ovalis::LibPtr lib_;
    OpenDesign design_;
};

TEST(Export, DrawsRectanglesPolygonsTextsAndPins) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    ReadBack layout(work.library(), "layout");
    EXPECT_EQ(layout.shapes(oa::oacRectType), 1u);
    EXPECT_EQ(layout.shapes(oa::oacPolygonType), 1u);
    EXPECT_EQ(layout.shapes(oa::oacTextType), 1u);
    EXPECT_EQ(layout.shapes(oa::oacDotType), 1u);
    EXPECT_EQ(layout.shapes(oa::oacLineType), 1u);
    EXPECT_EQ(layout.block().getPins().getCount(), 2u);
    EXPECT_EQ(layout.block().getNets().getCount(), 2u);
    EXPECT_EQ(layout.block().getDBUPerUU(), 1000u);
}

TEST(Export, MakesAPcellMasterWithTheParameters) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    ReadBack layout(work.library(), "layout");
    ASSERT_TRUE(layout.design().isSuperMaster());
    oa::oaString evaluator;
    layout.design().getPcellEvaluatorName(evaluator);
    EXPECT_EQ(ovalis::fromOa(evaluator), "PSNPcell");
    oa::oaParamArray parameters;
    layout.design().getParams(parameters, true);
    ASSERT_EQ(parameters.getNumElements(), 1u);
    EXPECT_EQ(parameters[0].getIntVal(), 2);
}

TEST(Export, KeepsTheMacroNameInTheMaster) {
    Workplace work;
    work.component["kind"] = "script_macro";
    work.component["macro_body"] = "{ }";
    ASSERT_EQ(work.exportIt().status, 0);
    ReadBack layout(work.library(), "layout");
    oa::oaPcellDef* definition = layout.design().getPcellDef();
    ASSERT_NE(definition, nullptr);
    oa::oaString macro;
    ASSERT_TRUE(definition->getDataValue(oa::oaString("SKRMacroName"), macro));
    EXPECT_EQ(ovalis::fromOa(macro), "coilArtwork");
}

TEST(Export, DrawsTheSymbol) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    ReadBack symbol(work.library(), "symbol");
    EXPECT_EQ(symbol.shapes(oa::oacRectType), 1u);
    EXPECT_EQ(symbol.shapes(oa::oacTextType), 4u);
    EXPECT_EQ(symbol.block().getPins().getCount(), 2u);
}

TEST(Export, LeavesOutWhatIsNotToBeDrawn) {
    Workplace work;
    work.component["layers"][0]["draw"] = false;
    ASSERT_EQ(work.exportIt().status, 0);
    ReadBack layout(work.library(), "layout");
    EXPECT_EQ(layout.shapes(oa::oacRectType), 0u);
    EXPECT_EQ(layout.shapes(oa::oacPolygonType), 0u);
}

TEST(Export, CountsFiguresThatEncloseNothing) {
    Workplace work;
    work.layout["layers"][0]["polygons"].push_back({{0, 0}, {5, 5}, {9, 9}});
    work.layout["layers"][0]["lines"] = {{{3, 3}, {3, 3}}};
    const Outcome exported = work.exportIt();
    EXPECT_EQ(exported.status, 0);
    EXPECT_NE(exported.talk.find("  left out: 2 figures without area, length or text\n"),
              std::string::npos);
}

TEST(Export, TakesPortsWithOutlinesThatNeedCleaning) {
    Workplace work;
    work.component["ports"][0]["outline"] = {{0, 0}, {4, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}};
    work.component["ports"][1]["outline"] = {{0, 0}, {4, 0}, {9, 0}};
    ASSERT_EQ(work.exportIt().status, 0);
    ReadBack layout(work.library(), "layout");
    EXPECT_EQ(layout.shapes(oa::oacPolygonType), 2u);
    EXPECT_EQ(layout.shapes(oa::oacLineType), 1u);
}

TEST(Export, LeavesAnExistingCellAlone) {
    Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const Tree before = work.tree();
    work.layout["layers"][0]["polygons"].erase(0);
    EXPECT_EQ(work.exportIt(),
              (Outcome{2, "",
                       "ovalis: " + work.library() +
                           ": the cell coil exists already, --replace would replace it\n"}));
    EXPECT_EQ(work.tree(), before);
}

TEST(Export, ReplacesTheWholeCellWhenTold) {
    Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    work.component["symbol"]["kind"] = "none";
    work.layout["layers"][0]["polygons"].erase(0);
    const Outcome replaced = work.exportIt({"--replace"});
    EXPECT_EQ(replaced.talk, "replaced coil in the library " + work.library() +
                                 "\n"
                                 "  layout: 1 polygon, 1 text, 2 ports, 1 layer\n"
                                 "  pcell: S-parameters with 1 parameter\n");
    EXPECT_EQ(replaced.status, 0);
    EXPECT_FALSE(std::filesystem::exists(work.library() + "/coil/symbol"));
    ReadBack layout(work.library(), "layout");
    EXPECT_EQ(layout.shapes(oa::oacRectType), 0u);
}

TEST(Export, AddsACellToALibraryThatExists) {
    Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    work.component["name"] = "second";
    EXPECT_EQ(work.exportIt().status, 0);
    EXPECT_EQ(ovalisHere({"list", work.library()}).out, "coil    layout  maskLayout\n"
                                                        "coil    symbol  schematicSymbol\n"
                                                        "second  layout  maskLayout\n"
                                                        "second  symbol  schematicSymbol\n");
}

TEST(Export, NamesTheLibraryAsTold) {
    const Workplace work;
    ASSERT_EQ(work.exportIt({"--name", "em_parts"}).status, 0);
    EXPECT_EQ(withoutCarriageReturns(readText(work.library() + "/lib.defs")),
              "INCLUDE $MOLTRAX_DIR/oalibs/vex.defs\nDEFINE em_parts .\n");
}

TEST(Export, CompletesTheDefinitionsOfALibraryMadeElsewhere) {
    const Workplace work;
    ovalis::createLib(work.library(), "lib").reset();
    ASSERT_EQ(work.exportIt().status, 0);
    EXPECT_EQ(readText(work.library() + "/lib.defs"),
              ovalis::test::asTextFile("INCLUDE $MOLTRAX_DIR/oalibs/vex.defs\nDEFINE lib .\n"));
}

TEST(Export, TakesADirectoryWithASeparatorAtItsEnd) {
    const Workplace work;
    EXPECT_EQ(ovalisHere({"export", work.componentFile(), "--lib", work.library() + "/"}).status,
              0);
    EXPECT_EQ(ovalisHere({"check", work.library() + "/"}), (Outcome{0, "", ""}));
}

TEST(Export, KeepsNamesOutsideOfAscii) {
    Workplace work;
    work.component["ports"][0]["name"] = "Eingang_\xC3\xA4";
    ASSERT_EQ(
        ovalisProgram({"export", work.componentFile(), "--lib", work.path("bibliothek_\xC3\xA4")})
            .status,
        0);
    const Outcome drawn =
        ovalisProgram({"draw", work.path("bibliothek_\xC3\xA4"), "coil", "layout"});
    EXPECT_NE(drawn.out.find(">Eingang_\xC3\xA4</text>"), std::string::npos);
}

} // namespace
} // namespace cli::test

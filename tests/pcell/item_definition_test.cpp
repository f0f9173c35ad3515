#include <ovalis/pcell.h>

#include <gtest/gtest.h>

using namespace ovalis;

namespace {

// The two lines of the parameters below.
const std::string widthLine =
    R"(create_parm("W","Width",536938496,"StdFormSet",-1,prm("StdForm","0.5")))";
const std::string countLine = R"(create_parm("N","",537004032,"StdFormSet",-1,prm("StdForm","3")))";

struct TwoParams {
    TwoParams() { width.setDescription("Width"); }

    RealParam width{"W", 0.5};
    IntParam count{"N", 3};
    std::vector<Param*> list{&width, &count};
};

} // namespace

TEST(ScriptMacroItem, WithoutParametersIsOneLine) {
    EXPECT_EQ(
        createSKRPItemDef("res", {}, CellOptions()),
        R"(create_item(" res","res","X",ITEM_NOT_ALL_PARM,-1,NULL,"Component Parameters",NULL,)"
        R"("  ","resNetList", standard_symbol, "SYM_0PORT", macro_artwork, "resArtwork", )"
        "ITEM_PRIMITIVE_EX);\n");
}

TEST(ScriptMacroItem, ListsOneParameterBehindAComma) {
    RealParam resistance("R", 50.0);
    EXPECT_EQ(
        createSKRPItemDef("res", {&resistance}, CellOptions()),
        R"(create_item(" res","res","X",ITEM_NOT_ALL_PARM,-1,NULL,"Component Parameters",NULL,)"
        R"("  ","resNetList", standard_symbol, "SYM_0PORT", macro_artwork, "resArtwork", )"
        R"(ITEM_PRIMITIVE_EX,create_parm("R","",536938496,"StdFormSet",-1,prm("StdForm","50")))"
        "\n);\n");
}

TEST(ScriptMacroItem, ListsTwoParametersInTheirOrder) {
    TwoParams params;
    EXPECT_EQ(
        createSKRPItemDef("line", params.list, CellOptions()),
        R"(create_item(" line","line","X",ITEM_NOT_ALL_PARM,-1,NULL,"Component Parameters",NULL,)"
        R"("  ","lineNetList", standard_symbol, "SYM_0PORT", macro_artwork, "lineArtwork", )"
        "ITEM_PRIMITIVE_EX," +
            widthLine + "\n," + countLine + "\n);\n");
}

TEST(PsnItem, WithoutParametersIsOneLine) {
    EXPECT_EQ(createPSNPItemDef("div", {}, CellOptions()),
              R"(create_item(" div","div","X",16,-1,NULL,"Component Parameters",NULL,)"
              R"("%43?global %;%d:%t %# %44?0%:%31?%C%:_net%c%;%;%e %b%r%8?%29?%:%30?%p %:)"
              R"(%k%?[%1i]%;=%p %;%;%;%e%e","div",)"
              R"("%t%b%r%38?%:\n%30?%s%:%k%?[%1i]%;=%s%;%;%e%e%;","",0,NULL,0);)"
              "\n");
}

TEST(PsnItem, ListsTwoParametersInTheirOrder) {
    TwoParams params;
    EXPECT_EQ(createPSNPItemDef("div", params.list, CellOptions()),
              R"(create_item(" div","div","X",16,-1,NULL,"Component Parameters",NULL,)"
              R"("%43?global %;%d:%t %# %44?0%:%31?%C%:_net%c%;%;%e %b%r%8?%29?%:%30?%p %:)"
              R"(%k%?[%1i]%;=%p %;%;%;%e%e","div",)"
              R"("%t%b%r%38?%:\n%30?%s%:%k%?[%1i]%;=%s%;%;%e%e%;","",0,NULL,0,)" +
                  widthLine + "\n," + countLine + "\n);\n");
}

TEST(ItemPrefix, StandsAsGivenInBothForms) {
    CellOptions options;
    EXPECT_EQ(options.itemPrefix, "X");
    options.itemPrefix = "IND";
    EXPECT_EQ(createSKRPItemDef("l", {}, options).find(R"(create_item(" l","l","IND",ITEM)"), 0U);
    EXPECT_EQ(createPSNPItemDef("l", {}, options).find(R"(create_item(" l","l","IND",16,)"), 0U);
}

TEST(ItemPrefix, MayBeEmpty) {
    CellOptions options;
    options.itemPrefix = "";
    EXPECT_EQ(createSKRPItemDef("l", {}, options).find(R"(create_item(" l","l","",ITEM)"), 0U);
    EXPECT_EQ(createPSNPItemDef("l", {}, options).find(R"(create_item(" l","l","",16,)"), 0U);
}

TEST(ItemNames, AreInsertedAsTheyAre) {
    const CellOptions options{"Ä"};
    EXPECT_EQ(createSKRPItemDef("spule\"1", {}, options),
              R"(create_item(" spule"1","spule"1","Ä",ITEM_NOT_ALL_PARM,-1,NULL,)"
              R"("Component Parameters",NULL,"  ","spule"1NetList", standard_symbol, "SYM_0PORT", )"
              R"(macro_artwork, "spule"1Artwork", ITEM_PRIMITIVE_EX);)"
              "\n");
}

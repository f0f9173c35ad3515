#include <ovalis/pcell.h>

#include "support/files.h"
#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;
using ovalis::test::readText;

namespace {

/// A parameter whose native form is of a kind that no component has.
class ForeignParam : public Param {
public:
    ForeignParam() : Param("foreign") {}

    int parmType() const override { return 0; }
    std::string parmValue() const override { return ""; }

protected:
    oa::oaParam asNativeOaParamImpl() const override {
        const oa::oaByte byte = 1;
        return oa::oaParam("foreign", "type", 1, &byte);
    }
};

class Masters : public ovalis::test::LibraryTest {
protected:
    oa::oaDMFile* itemDefinitionFile(const std::string& cell) {
        const oa::oaScalarName name(oa::oaNativeNS(), cell.c_str());
        return oa::oaDMFile::find(oa::oaCell::find(&lib(), name), "itemdef.skr");
    }

    std::string itemDefinition(const std::string& cell) {
        oa::oaString path;
        itemDefinitionFile(cell)->getPath(path);
        return readoaFile(fromOa(path));
    }

    bool hasItemDefinition(const std::string& cell) { return itemDefinitionFile(cell) != nullptr; }

    std::vector<Param*> params() { return {&resistance_, &note_, &count_, &flag_, &layer_}; }

    RealParam resistance_{"R", 50.0};
    StringParam note_{"note", "größe"};
    IntParam count_{"n", 3};
    BoolParam flag_{"flag", true};
    LayerParam layer_{"layer", 7};
};

/// Fails when a design is saved, as a plug-in does.
class FailingSave : public oa::oaObserver<oa::oaDesign> {
public:
    FailingSave() : oa::oaObserver<oa::oaDesign>(1) {}
    void onPreSave(oa::oaDesign*) override { throw oaCommon::ExceptionBase(-9, "nicht heute"); }
};

std::string evaluatorOf(const oa::oaDesign& design) {
    oa::oaString name;
    design.getPcellEvaluatorName(name);
    return fromOa(name);
}

/// Name, type and value of each default parameter.
std::vector<std::string> defaultsOf(const oa::oaDesign& design) {
    oa::oaParamArray array;
    design.getParams(array, true);
    std::vector<std::string> texts;
    for (oa::oaUInt4 i = 0; i < array.getNumElements(); ++i) {
        oa::oaString name;
        array[i].getName(name);
        std::string text = fromOa(name) + ":";
        switch (array[i].getType()) {
        case oa::oacIntParamType:
            text += "int " + std::to_string(array[i].getIntVal());
            break;
        case oa::oacDoubleParamType:
            text += "double " + std::to_string(array[i].getDoubleVal());
            break;
        default: {
            oa::oaString value;
            array[i].getStringVal(value);
            text += "text " + fromOa(value);
        }
        }
        texts.push_back(text);
    }
    return texts;
}

const std::vector<std::string> expectedDefaults = {"R:double 50.000000", "note:text größe",
                                                   "n:int 3", "flag:text 1", "layer:int 7"};

} // namespace

TEST_F(Masters, OfAScriptMacroCarryEvaluatorAndParameters) {
    oa::oaDesign& layout = design("res", "layout", 'w');
    makeSKRPcell(layout, params(), CellOptions(), "{ }");
    EXPECT_TRUE(layout.isSuperMaster());
    EXPECT_EQ(evaluatorOf(layout), "SKRPcell");
    EXPECT_EQ(defaultsOf(layout), expectedDefaults);
    EXPECT_FALSE(layout.isModified());
}

TEST_F(Masters, OfAScriptMacroAreTheSameFromDisk) {
    makeSKRPcell(design("res", "layout", 'w'), params(), CellOptions(), "{ }");
    reopen();
    oa::oaDesign& layout = design("res", "layout", 'r');
    EXPECT_TRUE(layout.isSuperMaster());
    EXPECT_EQ(evaluatorOf(layout), "SKRPcell");
    EXPECT_EQ(defaultsOf(layout), expectedDefaults);
    oa::oaString macro;
    ASSERT_NE(layout.getPcellDef(), nullptr);
    EXPECT_TRUE(layout.getPcellDef()->getDataValue("SKRMacroName", macro));
    EXPECT_EQ(macro, "resArtwork");
}

TEST_F(Masters, OfAScriptMacroWriteItemDefinitionAndMacro) {
    makeSKRPcell(design("res", "layout", 'w'), {&resistance_}, CellOptions(), "{ }");
    EXPECT_EQ(itemDefinition("res"), createSKRPItemDef("res", {&resistance_}, CellOptions()) +
                                         "\ndefun resArtwork(R)\n{ }");
}

TEST_F(Masters, OfAScriptMacroListTheNamesOfTheParameters) {
    CellOptions options;
    options.itemPrefix = "R";
    makeSKRPcell(design("größe", "layout", 'w'), params(), options, "{\n  box(1)\n}\n");
    EXPECT_EQ(itemDefinition("größe"), createSKRPItemDef("größe", params(), options) +
                                           "\ndefun größeArtwork(R,note,n,flag,layer)\n"
                                           "{\n  box(1)\n}\n");
}

TEST_F(Masters, OfAScriptMacroMayHaveNoParameters) {
    oa::oaDesign& layout = design("res", "layout", 'w');
    makeSKRPcell(layout, {}, CellOptions(), "");
    EXPECT_EQ(itemDefinition("res"),
              createSKRPItemDef("res", {}, CellOptions()) + "\ndefun resArtwork()\n");
    EXPECT_TRUE(layout.isSuperMaster());
    EXPECT_TRUE(defaultsOf(layout).empty());
}

TEST_F(Masters, OfAScriptMacroRefuseAppendAndRead) {
    EXPECT_EQ(failureOf([&] { makeSKRPcell(design("res", "layout", 'a'), {}, {}, ""); }),
              "Design is not writeable.");
    oa::oaDesign& layout = design("other", "layout", 'w');
    layout.save();
    layout.reopen('r');
    EXPECT_EQ(failureOf([&] { makeSKRPcell(layout, {}, {}, ""); }), "Design is not writeable.");
    EXPECT_FALSE(layout.isSuperMaster());
    EXPECT_FALSE(hasItemDefinition("other"));
}

TEST_F(Masters, OfThePsnKindCarryEvaluatorAndParameters) {
    makePSNPcell(design("div", "layout", 'w'), params(), CellOptions());
    EXPECT_EQ(itemDefinition("div"), createPSNPItemDef("div", params(), CellOptions()));
    reopen();
    oa::oaDesign& layout = design("div", "layout", 'r');
    EXPECT_TRUE(layout.isSuperMaster());
    EXPECT_EQ(evaluatorOf(layout), "PSNPcell");
    EXPECT_EQ(defaultsOf(layout), expectedDefaults);
    oa::oaString macro = "absent";
    EXPECT_FALSE(layout.getPcellDef()->getDataValue("SKRMacroName", macro));
    EXPECT_EQ(macro, "absent");
}

TEST_F(Masters, OfThePsnKindAcceptAppend) {
    oa::oaDesign& layout = design("div", "layout", 'a');
    makePSNPcell(layout, {}, CellOptions());
    EXPECT_TRUE(layout.isSuperMaster());
    EXPECT_TRUE(defaultsOf(layout).empty());
    EXPECT_EQ(itemDefinition("div"), createPSNPItemDef("div", {}, CellOptions()));
}

TEST_F(Masters, OfThePsnKindRefuseRead) {
    oa::oaDesign& layout = design("div", "layout", 'w');
    layout.save();
    layout.reopen('r');
    EXPECT_EQ(failureOf([&] { makePSNPcell(layout, {}, CellOptions()); }),
              "Design is not writeable.");
    EXPECT_FALSE(hasItemDefinition("div"));
}

TEST_F(Masters, ReplaceTheItemDefinitionWhenMadeAgain) {
    oa::oaDesign& layout = design("res", "layout", 'w');
    makeSKRPcell(layout, params(), CellOptions(), "a long macro body");
    makeSKRPcell(layout, {&count_}, CellOptions(), "b");
    EXPECT_EQ(itemDefinition("res"),
              createSKRPItemDef("res", {&count_}, CellOptions()) + "\ndefun resArtwork(n)\nb");
    EXPECT_EQ(defaultsOf(layout), std::vector<std::string>{"n:int 3"});
    makePSNPcell(layout, {}, CellOptions());
    makePSNPcell(layout, {&count_}, CellOptions());
    EXPECT_EQ(itemDefinition("res"), createPSNPItemDef("res", {&count_}, CellOptions()));
    EXPECT_EQ(evaluatorOf(layout), "PSNPcell");
}

TEST_F(Masters, KeepWhatWasDrawn) {
    oa::oaDesign& layout = design("res", "layout", 'w');
    oa::oaRect::create(oa::oaBlock::create(&layout), 1, 2, oa::oaBox(0, 0, 10, 20));
    makeSKRPcell(layout, {}, CellOptions(), "");
    reopen();
    EXPECT_EQ(design("res", "layout", 'r').getTopBlock()->getShapes().getCount(), 1U);
}

TEST_F(Masters, WriteTheItemDefinitionUpToTheFirstNul) {
    const std::string body("before\0after", 12);
    makeSKRPcell(design("res", "layout", 'w'), {}, CellOptions(), body);
    EXPECT_EQ(itemDefinition("res"),
              createSKRPItemDef("res", {}, CellOptions()) + "\ndefun resArtwork()\nbefore");
}

TEST_F(Masters, KeepTheItemDefinitionInTheCell) {
    makePSNPcell(design("div", "layout", 'w'), {}, CellOptions());
    EXPECT_EQ(readText(filePath("lib") / "div" / "itemdef.skr"), itemDefinition("div"));
}

TEST_F(Masters, RefuseAnInvalidDesign) {
    oa::oaDesign& layout = design("res", "layout", 'w');
    layout.purge();
    EXPECT_EQ(failureOf([&] { makeSKRPcell(layout, {}, CellOptions(), ""); }),
              "Invalid design given.");
    EXPECT_EQ(failureOf([&] { makePSNPcell(layout, {}, CellOptions()); }), "Invalid design given.");
}

TEST_F(Masters, RefuseAParameterThatTheDatabaseCannotTake) {
    oa::oaDesign& layout = design("res", "layout", 'w');
    ForeignParam foreign;
    const std::string text = "Failed to obtain the native oaParam for the Param specified";
    EXPECT_EQ(failureOf([&] { makeSKRPcell(layout, {&count_, &foreign}, {}, ""); }), text);
    EXPECT_EQ(failureOf([&] { makePSNPcell(layout, {&count_, &foreign}, {}); }), text);
    EXPECT_FALSE(layout.isSuperMaster());
    EXPECT_FALSE(hasItemDefinition("res"));
}

TEST_F(Masters, WriteNoItemDefinitionWhenTheyCannotBeSaved) {
    oa::oaDesign& layout = design("res", "layout", 'w');
    const FailingSave failing;
    const std::string told = "database: nicht heute";
    EXPECT_EQ(failureOf([&] { makeSKRPcell(layout, {}, CellOptions(), ""); }), told);
    EXPECT_EQ(failureOf([&] { makePSNPcell(layout, {}, CellOptions()); }), told);
    EXPECT_EQ(messageIdOf([&] { makePSNPcell(layout, {}, CellOptions()); }), -9);
    EXPECT_TRUE(layout.isSuperMaster()); // nothing is rolled back
    EXPECT_FALSE(hasItemDefinition("res"));
}

TEST_F(Masters, WriteIntoAFileThatCannotBeOpenedInVain) {
    oa::oaDesign& layout = design("res", "layout", 'w');
    layout.save();
    std::filesystem::create_directory(filePath("lib") / "res" / "itemdef.skr");
    EXPECT_EQ(messageIdOf([&] { makePSNPcell(layout, {}, CellOptions()); }), oa::oacFileOpenFailed);
    EXPECT_TRUE(layout.isSuperMaster());
    EXPECT_FALSE(layout.isModified());
}

TEST_F(Masters, StaySavedWhenTheItemDefinitionCannotBeWritten) {
    oa::oaDesign& layout = design("res", "layout", 'w');
    lib().releaseAccess(); // the cell cannot be looked up any more
    EXPECT_EQ(messageIdOf([&] { makePSNPcell(layout, {}, CellOptions()); }),
              oa::oacLibAccessDenied);
    lib().getAccess(oa::oacWriteLibAccess);
    EXPECT_FALSE(hasItemDefinition("res"));
    reopen();
    EXPECT_TRUE(design("res", "layout", 'r').isSuperMaster());
}

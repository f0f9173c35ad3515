#include "design_fixture.h"

#include "support/files.h"

#include <ctime>
#include <filesystem>

namespace design_test {

namespace fs = std::filesystem;
using ovalis::test::readText;

namespace {

class OpenDesignTest : public DesignTest {
protected:
    static oaDesign* openAny(const char* cell, const char* view, oaChar mode) {
        return oaDesign::open(name("lib"), name(cell), name(view), mode);
    }
    static std::string viewType(const oaDesign* design) {
        oaString type;
        design->getViewType()->getName(type);
        return text(type);
    }
    bool onDisk(const char* path) const { return fs::exists(directory.str() + "/lib/" + path); }

    static oaUInt4 shapesOf(const oaDesign* design) {
        return design->getTopBlock()->getShapes().getCount();
    }
    static void addDot(oaDesign* design) { oaDot::create(design->getTopBlock(), 1, 1, oaPoint()); }
    /// A saved and closed design with one dot.
    static void makeSaved(const char* cell = "cell") {
        addDot(makeBlock(cell)->getDesign());
        oaDesign* design = oaDesign::find(name("lib"), name(cell), name("layout"));
        design->save();
        design->close();
    }
};

} // namespace

TEST_F(OpenDesignTest, ModesAndTypesAreChecked) {
    EXPECT_EQ(messageOf([] { open("cell", 'x'); }),
              "Design 'lib/cell/layout' cannot be opened in mode 'x'; use 'r', 'a' or 'w'.");
    EXPECT_EQ(messageOf([] {
                  oaDesign::open(name("lib"), name("cell"), name("layout"),
                                 oaViewType::get(oacVerilogText), 'w');
              }),
              "View type 'verilogText' is not one of a design.");
    EXPECT_EQ(thrownBy([] { oaDesign::open(name("none"), name("c"), name("v"), 'r'); }),
              oacCannotFindLibrary);
    EXPECT_EQ(thrownBy([] { oaDesign::exists(name("none"), name("c"), name("v")); }),
              oacCannotFindLibrary);
    EXPECT_EQ(oaDesign::find(name("none"), name("c"), name("v")), nullptr);
    EXPECT_FALSE(onDisk("cell"));
}

TEST_F(OpenDesignTest, AMissingDesignIsNullForReading) {
    EXPECT_EQ(open("cell", 'r'), nullptr);
    EXPECT_EQ(openAny("cell", "layout", 'r'), nullptr);
    EXPECT_FALSE(oaDesign::exists(name("lib"), name("cell"), name("layout")));
    open("cell", 'w')->close();
    EXPECT_EQ(open("cell", 'r'), nullptr);
}

TEST_F(OpenDesignTest, EveryDesignTypeHasItsFile) {
    const std::pair<oaReservedViewTypeEnum, const char*> files[] = {
        {oacMaskLayout, "layout.oa"},
        {oacSchematic, "sch.oa"},
        {oacSchematicSymbol, "symbol.oa"},
        {oacNetlist, "netlist.oa"},
    };
    for (const auto& [type, fileName] : files) {
        const std::string view = "view_" + std::to_string(type);
        oaDesign* design = oaDesign::open(name("lib"), name("cell"), name(view.c_str()),
                                          oaViewType::get(type), 'w');
        EXPECT_EQ(design->getViewType(), oaViewType::get(type));
        design->save();
        EXPECT_TRUE(onDisk(("cell/" + view + "/" + fileName).c_str())) << fileName;
        design->close();
        EXPECT_EQ(openAny("cell", view.c_str(), 'r')->getViewType(), oaViewType::get(type));
    }
    oaDesign* hier =
        oaDesign::open(name("lib"), name("cell"), name("h"), oaViewType::get(oacHierDesign), 'w');
    hier->save();
    hier->close();
    EXPECT_NE(openAny("cell", "h", 'r'), nullptr);
}

TEST_F(OpenDesignTest, WithoutATypeTheViewTellsIt) {
    EXPECT_EQ(viewType(openAny("a", "layout", 'a')), "maskLayout");
    EXPECT_EQ(viewType(openAny("a", "schematic", 'a')), "schematic");
    EXPECT_EQ(viewType(openAny("a", "symbol", 'w')), "schematicSymbol");
    EXPECT_EQ(viewType(openAny("a", "other", 'w')), "maskLayout");
    lib->getAccess(oacWriteLibAccess);
    oaView::get(lib, name("special"), oaViewType::get(oacNetlist));
    oaCellView::get(lib, name("b"), name("made"), oaViewType::get(oacSchematic));
    lib->releaseAccess();
    EXPECT_EQ(viewType(openAny("a", "special", 'a')), "netlist");
    EXPECT_EQ(viewType(openAny("b", "made", 'a')), "schematic");
    EXPECT_EQ(viewType(openAny("a", "made", 'a')), "schematic");
}

TEST_F(OpenDesignTest, TheTypeOfAnExistingCellViewMustFit) {
    makeSaved();
    const auto openSchematic = [] {
        oaDesign::open(name("lib"), name("cell"), name("layout"), oaViewType::get(oacSchematic),
                       'r');
    };
    EXPECT_EQ(messageOf(openSchematic),
              "Design 'lib/cell/layout' has view type 'maskLayout', not 'schematic'.");
    open("cell", 'a');
    EXPECT_EQ(thrownBy(openSchematic), oacMismatchViewTypeForOpen);
    lib->getAccess(oacWriteLibAccess);
    oaCellView::get(lib, name("cell"), name("code"), oaViewType::get(oacVerilogText));
    lib->releaseAccess();
    EXPECT_EQ(thrownBy([] { openAny("cell", "code", 'a'); }), oacInvalidDesignViewType);
}

TEST_F(OpenDesignTest, NamesAndPlaceAreAnswered) {
    oaDesign* design = open("cell", 'w');
    oaScalarName read;
    design->getLibName(read);
    EXPECT_TRUE(read == name("lib"));
    design->getCellName(read);
    EXPECT_TRUE(read == name("cell"));
    design->getViewName(read);
    EXPECT_TRUE(read == name("layout"));
    EXPECT_EQ(design->getLib(), lib);
    EXPECT_EQ(design->getDesign(), design);
    EXPECT_EQ(design->getDatabase(), design);
    EXPECT_TRUE(design->isDesign());
    EXPECT_FALSE(design->isBlockObject());
    EXPECT_EQ(design->getType(), oacDesignType);
    EXPECT_EQ(design->getTopBlock(), nullptr);
    oaBlock* block = oaBlock::create(design);
    EXPECT_EQ(design->getTopBlock(), block);
    EXPECT_EQ(block->getDesign(), design);
    EXPECT_EQ(block->getBlock(), block);
    EXPECT_TRUE(block->isBlockObject());
    EXPECT_TRUE(block->isVisibleToModule());
    EXPECT_EQ(messageOf([&] { oaBlock::create(design); }),
              "Design 'lib/cell/layout' already has a top block.");
    EXPECT_EQ(all(oaDesign::getOpenDesigns()), (std::vector<oaDesign*>{design}));
    EXPECT_EQ(oaDesign::find(name("lib"), name("cell"), name("layout")), design);
    EXPECT_TRUE(oaDesign::exists(name("lib"), name("cell"), name("layout")));
    design->setCellType(oacPadCellType);
    EXPECT_EQ(design->getCellType(), oacPadCellType);
}

TEST_F(OpenDesignTest, OpeningsAreCounted) {
    makeSaved();
    oaDesign* design = open("cell", 'r');
    EXPECT_EQ(design->getRefCount(), 1u);
    EXPECT_EQ(openAny("cell", "layout", 'r'), design);
    EXPECT_EQ(design->getRefCount(), 2u);
    EXPECT_EQ(oaDesign::find(name("lib"), name("cell"), name("layout")), design);
    EXPECT_EQ(design->getRefCount(), 2u);
    oaBlock* block = design->getTopBlock();
    design->close();
    EXPECT_TRUE(design->isValid());
    EXPECT_TRUE(block->isValid());
    design->close();
    EXPECT_FALSE(design->isValid());
    EXPECT_FALSE(block->isValid());
    EXPECT_EQ(thrownBy([&] { design->close(); }), oacInvalidObject);
    EXPECT_EQ(thrownBy([&] { block->getShapes(); }), oacInvalidObject);
    EXPECT_TRUE(oaDesign::getOpenDesigns().isEmpty());

    design = open("cell", 'r');
    open("cell", 'r');
    design->purge();
    EXPECT_FALSE(design->isValid());
}

TEST_F(OpenDesignTest, ModesAreRaisedAndNotLowered) {
    makeSaved();
    oaDesign* design = open("cell", 'r');
    EXPECT_EQ(design->getMode(), 'r');
    oaBlock* block = design->getTopBlock();
    open("cell", 'a');
    EXPECT_EQ(design->getMode(), 'a');
    EXPECT_TRUE(block->isValid());
    EXPECT_FALSE(design->isModified());
    addDot(design);
    EXPECT_TRUE(design->isModified());
    open("cell", 'r');
    EXPECT_EQ(design->getMode(), 'a');
    open("cell", 'w');
    EXPECT_EQ(design->getMode(), 'w');
    EXPECT_EQ(design->getTopBlock(), nullptr);
    EXPECT_FALSE(block->isValid());
    open("cell", 'a');
    EXPECT_EQ(design->getMode(), 'w');
    EXPECT_EQ(design->getRefCount(), 5u);
    design->purge();
    EXPECT_EQ(shapesOf(open("cell", 'r')), 1u);
}

TEST_F(OpenDesignTest, WritingStartsEmptyAndChangesTheFileWithSave) {
    makeSaved();
    const std::string before = readText(file("cell"));
    oaDesign* design = open("cell", 'w');
    EXPECT_EQ(design->getTopBlock(), nullptr);
    EXPECT_EQ(readText(file("cell")), before);
    oaBlock::create(design);
    design->save();
    EXPECT_NE(readText(file("cell")), before);
    EXPECT_EQ(design->getMode(), 'w');
    EXPECT_FALSE(design->isModified());
    design->close();
    EXPECT_EQ(shapesOf(open("cell", 'r')), 0u);
}

TEST_F(OpenDesignTest, ReadOnlyDesignsCannotBeSaved) {
    makeSaved();
    oaDesign* design = open("cell", 'r');
    EXPECT_EQ(messageOf([&] { design->save(); }),
              "Design 'lib/cell/layout' is open for reading and cannot be saved.");
    EXPECT_EQ(thrownBy([&] { design->setCellType(oacPadCellType); }),
              oacCannotModifyReadModeDesign);
    EXPECT_EQ(thrownBy([&] { oaIntProp::create(design, "p", 1); }), oacCannotModifyReadModeDesign);
    EXPECT_EQ(thrownBy([&] { design->getTopBlock()->setVisibleToModule(); }),
              oacCannotModifyReadModeDesign);
}

TEST_F(OpenDesignTest, ReopeningChangesTheMode) {
    makeSaved();
    oaDesign* design = open("cell", 'r');
    design->reopen('a');
    EXPECT_EQ(design->getMode(), 'a');
    addDot(design);
    design->reopen('r');
    EXPECT_EQ(design->getMode(), 'r');
    EXPECT_EQ(shapesOf(design), 1u);
    design->reopen('w');
    EXPECT_EQ(design->getTopBlock(), nullptr);
    EXPECT_EQ(design->getMode(), 'w');
    EXPECT_EQ(thrownBy([&] { design->reopen('q'); }), oacOpenUndefinedModeDesign);
    EXPECT_EQ(design->getRefCount(), 1u);
    design->revert();
    EXPECT_EQ(design->getMode(), 'w');
    EXPECT_EQ(shapesOf(design), 1u);
    EXPECT_FALSE(design->isModified());
}

TEST_F(OpenDesignTest, RevertingDropsWhatWasNotSaved) {
    makeSaved();
    oaDesign* design = open("cell", 'a');
    addDot(design);
    oaBlock* block = design->getTopBlock();
    design->revert();
    EXPECT_FALSE(block->isValid());
    EXPECT_TRUE(design->isValid());
    EXPECT_EQ(shapesOf(design), 1u);
    EXPECT_FALSE(design->isModified());
    oaDesign* unsaved = open("unsaved", 'w');
    EXPECT_EQ(messageOf([&] { unsaved->revert(); }), "There is no design 'lib/unsaved/layout'.");
    EXPECT_TRUE(unsaved->isValid());
    EXPECT_EQ(thrownBy([&] { unsaved->reopen('r'); }), oacCannotFindDesign);
    EXPECT_EQ(unsaved->getMode(), 'w');
}

TEST_F(OpenDesignTest, ADesignNeverSavedLeavesNothingBehind) {
    oaDesign* design = open("cell", 'w');
    EXPECT_TRUE(onDisk("cell/layout"));
    design->close();
    EXPECT_FALSE(onDisk("cell"));

    makeSaved("kept");
    openAny("kept", "symbol", 'w')->close();
    EXPECT_FALSE(onDisk("kept/symbol"));
    EXPECT_TRUE(onDisk("kept/layout/layout.oa"));

    lib->getAccess(oacWriteLibAccess);
    oaCellView::get(lib, name("made"), name("layout"), oaViewType::get(oacMaskLayout));
    lib->releaseAccess();
    open("made", 'w')->close();
    EXPECT_TRUE(onDisk("made/layout"));
    open("purged", 'w');
    lib->close();
    EXPECT_FALSE(onDisk("purged"));
}

TEST_F(OpenDesignTest, ClosingTheLibraryPurgesItsDesigns) {
    makeSaved();
    oaDesign* design = open("cell", 'a');
    open("cell", 'a');
    oaDesign* unsaved = open("unsaved", 'w');
    lib->close();
    EXPECT_FALSE(design->isValid());
    EXPECT_FALSE(unsaved->isValid());
    lib = oaLib::open(name("lib"), (directory.str() + "/lib").c_str());
    EXPECT_EQ(shapesOf(open("cell", 'r')), 1u);
}

TEST_F(OpenDesignTest, SavingAsLeavesTheDesignWhereItIs) {
    oaDesign* design = makeBlock()->getDesign();
    addDot(design);
    design->saveAs(name("lib"), name("copy"), name("layout"));
    EXPECT_TRUE(onDisk("copy/layout/layout.oa"));
    EXPECT_FALSE(onDisk("cell/layout/layout.oa"));
    EXPECT_TRUE(design->isModified());
    oaString cell;
    design->getCellName(oaNativeNS(), cell);
    EXPECT_EQ(text(cell), "cell");
    EXPECT_EQ(shapesOf(open("copy", 'r')), 1u);
    EXPECT_EQ(messageOf([&] { design->saveAs(name("lib"), name("copy"), name("layout")); }),
              "Design 'lib/copy/layout' is open and cannot be replaced.");
    EXPECT_EQ(thrownBy([&] { design->saveAs(name("none"), name("c"), name("layout")); }),
              oacCannotFindLibrary);
    design->saveAs(name("lib"), name("cell"), name("layout"));
    EXPECT_TRUE(onDisk("cell/layout/layout.oa"));
    EXPECT_FALSE(design->isModified());

    openAny("copy", "symbol", 'w')->save();
    oaDesign::find(name("lib"), name("copy"), name("symbol"))->close();
    EXPECT_EQ(thrownBy([&] { design->saveAs(name("lib"), name("copy"), name("symbol")); }),
              oacMismatchViewTypeForOpen);
}

TEST_F(OpenDesignTest, ADesignThatIsNotOpenCanBeDestroyed) {
    makeSaved();
    oaDesign* design = open("cell", 'r');
    const auto destroy = [] { oaDesign::destroy(name("lib"), name("cell"), name("layout")); };
    EXPECT_EQ(messageOf(destroy), "Design 'lib/cell/layout' is open and cannot be destroyed.");
    design->close();
    destroy();
    EXPECT_FALSE(onDisk("cell/layout/layout.oa"));
    EXPECT_FALSE(oaDesign::exists(name("lib"), name("cell"), name("layout")));
    EXPECT_EQ(messageOf(destroy), "There is no design 'lib/cell/layout'.");
}

TEST_F(OpenDesignTest, AccessThatTheApplicationHoldsIsRespected) {
    makeSaved();
    lib->getAccess(oacReadLibAccess);
    EXPECT_NE(open("cell", 'r'), nullptr);
    EXPECT_EQ(messageOf([] { open("cell", 'a'); }),
              "Design 'lib/cell/layout' is open for reading and needs write access.");
    EXPECT_EQ(open("cell", 'r')->getMode(), 'r');
    lib->releaseAccess();
    lib->getAccess(oacWriteLibAccess);
    EXPECT_EQ(open("cell", 'a')->getMode(), 'a');
    lib->releaseAccess();
    EXPECT_EQ(lib->getAccessLevel(), oacNoLibAccessLevel);
}

TEST_F(OpenDesignTest, AReadOnlyLibraryIsNotWritten) {
    makeSaved();
    lib->close();
    lib = oaLib::open(name("lib"), (directory.str() + "/lib").c_str(), "", oacReadOnlyLibMode);
    EXPECT_NE(open("cell", 'r'), nullptr);
    EXPECT_EQ(thrownBy([] { open("cell", 'a'); }), oacDesignCannotGetWriteAccess);
    EXPECT_EQ(
        messageOf([] { open("new", 'w'); }),
        "Design 'lib/new/layout' cannot be edited: Write access to library 'lib' is denied: it "
        "is open in mode readOnly.");
    EXPECT_FALSE(onDisk("new"));
}

TEST_F(OpenDesignTest, TimesAreKept) {
    const oaTime before = std::time(nullptr);
    oaDesign* design = open("cell", 'w');
    EXPECT_GE(design->getCreateTime(), before);
    EXPECT_GE(design->getReadInTime(), before);
    EXPECT_EQ(design->getLastSavedTime(), 0);
    design->save();
    const oaTime saved = design->getLastSavedTime();
    EXPECT_GE(saved, before);
    const oaTime created = design->getCreateTime();
    design->close();
    design = open("cell", 'r');
    EXPECT_EQ(design->getCreateTime(), created);
    EXPECT_LE(std::abs(design->getLastSavedTime() - saved), 1);
}

TEST_F(OpenDesignTest, TheTechnologyIsThatOfTheLibrary) {
    makeSaved();
    oaDesign* design = open("cell", 'r');
    EXPECT_EQ(design->getTech(), nullptr);
    oaTech* tech = oaTech::create(lib);
    EXPECT_EQ(design->getTech(), tech);
    tech->save();
    tech->close();
    oaTech* opened = design->getTech();
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(opened->getMode(), 'r');
    EXPECT_EQ(design->getTech(), opened);
    EXPECT_EQ(opened->getRefCount(), 1u);
    design->close();
    EXPECT_FALSE(opened->isValid());
}

TEST_F(OpenDesignTest, TheTechnologyMayBeThatOfAnotherLibrary) {
    makeSaved();
    const oaScalarName techName(oaNativeNS(), "techOfOthers");
    oaLib* techLib = oaLib::create(techName, (directory.str() + "/techOfOthers").c_str());
    oaTech* tech = oaTech::create(techLib);
    oaTech::attach(lib, techName);
    oaDesign* design = open("cell", 'r');
    EXPECT_EQ(design->getTech(), tech);
    tech->save();
    tech->close();
    oaTech* opened = design->getTech();
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(opened->getLib(), techLib);
    EXPECT_EQ(opened->getRefCount(), 1u);
    techLib->close();
    EXPECT_EQ(design->getTech(), nullptr);
    design->close();
}

TEST_F(OpenDesignTest, ABlockGoesWithEverythingInIt) {
    oaBlock* block = makeBlock();
    addDot(block->getDesign());
    oaNet* net = oaScalarNet::create(block);
    oaTerm* term = oaTerm::create(net, oaName(oaNativeNS(), "t"));
    oaPin* pin = oaPin::create(term);
    oaIntProp* prop = oaIntProp::create(block, "p", 1);
    oaScalarInst* inst =
        oaScalarInst::create(block, name("lib"), name("x"), name("layout"), oaTransform());
    oaShape* dot = all(block->getShapes()).front();
    block->destroy();
    for (const oaObject* gone : std::vector<oaObject*>{block, net, term, pin, prop, inst, dot})
        EXPECT_FALSE(gone->isValid());
    oaDesign* design = open("cell", 'a');
    EXPECT_EQ(design->getTopBlock(), nullptr);
    oaBlock* again = oaBlock::create(design, false);
    EXPECT_FALSE(again->isVisibleToModule());
    again->setVisibleToModule();
    EXPECT_TRUE(again->isVisibleToModule());
    EXPECT_TRUE(again->getShapes().isEmpty());
    again = reopened(again);
    EXPECT_TRUE(again->getNets().isEmpty());
}

TEST_F(OpenDesignTest, ADesignWithoutItsBlockCanBeSavedAndRead) {
    oaDesign* design = makeBlock()->getDesign();
    addDot(design);
    oaScalarInst::create(design->getTopBlock(), name("lib"), name("x"), name("layout"),
                         oaTransform());
    design->getTopBlock()->destroy();
    design->saveAs(name("lib"), name("copy"), name("layout"));
    design->save();
    design->close();
    EXPECT_EQ(open("cell", 'r')->getTopBlock(), nullptr);
    EXPECT_EQ(open("copy", 'r')->getTopBlock(), nullptr);
}

TEST_F(OpenDesignTest, AFailedSaveLeavesTheOldFileAndTheDesign) {
    makeSaved();
    oaDesign* design = open("cell", 'a');
    addDot(design);
    const std::string path = file("cell");
    fs::rename(path, path + ".kept");
    fs::create_directory(path); // nothing can be put in the place of a directory that is not empty
    ovalis::test::writeText(path + "/x", "x");
    EXPECT_EQ(thrownBy([&] { design->save(); }), oacDatabaseFileNotWritten);
    EXPECT_TRUE(design->isModified());
    EXPECT_EQ(shapesOf(design), 2u);
    fs::remove_all(path);
    fs::rename(path + ".kept", path);
    design->save();
    design->close();
    EXPECT_EQ(shapesOf(open("cell", 'r')), 2u);
}

TEST_F(OpenDesignTest, ADamagedFileIsNamedAndNothingStaysOpen) {
    makeSaved();
    std::string bytes = readText(file("cell"));
    bytes[bytes.size() / 2] ^= 1;
    ovalis::test::writeText(file("cell"), bytes);
    for (const char mode : {'r', 'a'}) {
        EXPECT_EQ(thrownBy([&] { open("cell", mode); }), oacDatabaseFileDamaged) << mode;
        const std::string message = messageOf([&] { open("cell", mode); });
        EXPECT_NE(message.find("layout.oa"), std::string::npos) << message;
        EXPECT_TRUE(oaDesign::getOpenDesigns().isEmpty());
    }
    EXPECT_FALSE(onDisk("cell/layout/layout.oa.cdslck"));
    EXPECT_TRUE(onDisk("cell/layout/layout.oa"));
    oaDesign* design = open("cell", 'w');
    oaBlock::create(design);
    design->save();
    design->close();
    EXPECT_EQ(shapesOf(open("cell", 'r')), 0u);
}

} // namespace design_test

#include "dm_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CellViewTest : public DMTest {
protected:
    std::vector<std::string> cellViewsOf(const oaLib* lib) {
        std::vector<std::string> result;
        oaIter<oaCellView> walk(lib->getCellViews());
        while (const oaCellView* cellView = walk.getNext()) {
            oaString type;
            cellView->getView()->getViewType()->getName(type);
            result.push_back(nameOf(cellView->getCell()) + "/" + nameOf(cellView->getView()) + ":" +
                             static_cast<const char*>(type));
        }
        return result;
    }

    /// A library of directories that nobody made through the interface, open for reading.
    oaLib* foreignLibrary(const std::vector<std::pair<std::string, std::string>>& files) {
        platform::createDirectory(path("lib"));
        put("lib/tech.db", "");
        for (const auto& [name, content] : files) {
            const std::string cellView = platform::parentPath("lib/" + name);
            for (const std::string& made : {platform::parentPath(cellView), cellView})
                if (!platform::exists(path(made)))
                    platform::createDirectory(path(made));
            put("lib/" + name, content);
        }
        oaLib* lib = open("lib", "lib");
        EXPECT_TRUE(lib->getAccess(oacReadLibAccess));
        return lib;
    }
};

const std::string tag = "-- Master.tag File, Rev:1.0\n";

} // namespace

TEST_F(CellViewTest, IsMadeWithWhatItNeeds) {
    oaLib* lib = createWritable("lib");
    oaCellView* cellView = make(lib, "cell", "layout", oacMaskLayout);
    EXPECT_EQ(cellView->getCell(), oaCell::find(lib, scalarName("cell")));
    EXPECT_EQ(cellView->getView()->getViewType(), oaViewType::get(oacMaskLayout));
    EXPECT_EQ(make(lib, "cell", "layout", oacMaskLayout), cellView);
    EXPECT_EQ(oaCellView::get(cellView->getCell(), cellView->getView()), cellView);
    EXPECT_EQ(oaCellView::find(cellView->getCell(), cellView->getView()), cellView);
    EXPECT_EQ(oaCellView::find(lib, scalarName("cell"), scalarName("layout")), cellView);
    EXPECT_THAT(namesOnDisk("lib/cell/layout"), ElementsAre("master.tag"));
    EXPECT_EQ(get("lib/cell/layout/master.tag"), tag + "layout.oa\n");
}

TEST_F(CellViewTest, HasAPrimaryFileByItsViewType) {
    oaLib* lib = createWritable("lib");
    const struct {
        const char* view;
        oaReservedViewTypeEnum type;
        const char* file;
    } views[] = {{"layout", oacMaskLayout, "layout.oa"},
                 {"schematic", oacSchematic, "sch.oa"},
                 {"symbol", oacSchematicSymbol, "symbol.oa"},
                 {"netlist", oacNetlist, "netlist.oa"}};
    for (const auto& [view, type, file] : views) {
        oaDMFile* primary = make(lib, "cell", view, type)->getPrimary();
        EXPECT_EQ(nameOf(primary), file);
        EXPECT_TRUE(primary->isPrimary());
        EXPECT_FALSE(primary->existsOnDisk());
        EXPECT_EQ(primary->getParent(),
                  oaCellView::find(lib, scalarName("cell"), scalarName(view)));
    }
}

TEST_F(CellViewTest, IsNotFoundWhereThereIsNone) {
    oaLib* lib = createWritable("lib");
    oaCell* cell = make(lib, "cell", "layout", oacMaskLayout)->getCell();
    EXPECT_EQ(oaCellView::find(lib, scalarName("no"), scalarName("layout")), nullptr);
    EXPECT_EQ(oaCellView::find(lib, scalarName("cell"), scalarName("no")), nullptr);
    oaView* otherType =
        oaView::find(lib, scalarName("layout"), oaViewType::get(oacSchematicSymbol));
    EXPECT_EQ(oaCellView::find(cell, otherType), nullptr);
}

TEST_F(CellViewTest, KeepsItsViewType) {
    oaLib* lib = createWritable("lib");
    make(lib, "cell", "main", oacMaskLayout);
    const Thrown thrown = thrownBy([&] { make(lib, "cell", "main", oacSchematicSymbol); });
    EXPECT_EQ(thrown.id, oacMismatchViewType);
    EXPECT_EQ(thrown.id, 3107U);
    EXPECT_EQ(thrown.text, "View 'main' already exists with view type 'maskLayout', not "
                           "'schematicSymbol'.");
}

TEST_F(CellViewTest, LiesInOneLibrary) {
    oaLib* first = createWritable("first");
    oaLib* second = createWritable("second");
    oaCell* cell = oaCell::get(first, scalarName("cell"));
    oaView* view = oaView::get(second, scalarName("view"), oaViewType::get(oacMaskLayout));
    const Thrown thrown = thrownBy([&] { oaCellView::get(cell, view); });
    EXPECT_EQ(thrown.id, oacCellViewNotInSameLib);
    EXPECT_EQ(thrown.text, "The cell and the view of a cell view lie in different libraries: "
                           "'first' and 'second'.");
    EXPECT_EQ(thrownBy([&] { oaCellView::find(cell, view); }).id, oacCellViewNotInSameLib);
}

TEST_F(CellViewTest, RemembersAViewTypeOfOnesOwn) {
    oaViewType::create("tessa.3D model");
    oaLib* lib = createWritable("lib");
    oaCellView::get(lib, scalarName("cell"), scalarName("model"),
                    oaViewType::find("tessa.3D model"));
    EXPECT_EQ(get("lib/cell/model/master.tag"), tag + "tessa#2e3D#20model.oa\n");
    lib->close();
    lib = open("lib", "lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_THAT(cellViewsOf(lib), ElementsAre("cell/model:tessa.3D model"));
}

TEST_F(CellViewTest, DefinesTheViewTypeThatItBringsAlong) {
    EXPECT_EQ(oaViewType::find("brought along"), nullptr);
    oaLib* lib = foreignLibrary({{"cell/v/master.tag", tag + "brought#20along.oa\n"}});
    EXPECT_THAT(cellViewsOf(lib), ElementsAre("cell/v:brought along"));
    EXPECT_NE(oaViewType::find("brought along"), nullptr);
}

TEST_F(CellViewTest, IsDestroyedWithItsFiles) {
    oaLib* lib = createWritable("lib");
    oaCellView* cellView = make(lib, "cell", "layout", oacMaskLayout);
    oaDMFile* primary = cellView->getPrimary();
    put("lib/cell/layout/layout.oa", "x");
    cellView->destroy();
    EXPECT_FALSE(cellView->isValid());
    EXPECT_FALSE(primary->isValid());
    EXPECT_THAT(namesOnDisk("lib/cell"), IsEmpty());
    EXPECT_EQ(oaCellView::find(lib, scalarName("cell"), scalarName("layout")), nullptr);
    EXPECT_NE(oaCell::find(lib, scalarName("cell")), nullptr);
}

TEST_F(CellViewTest, IsRecognisedByAReservedFileWithoutATag) {
    oaLib* lib = foreignLibrary({{"a/layout/layout.oa", ""},
                                 {"b/one/sch.oa", ""},
                                 {"b/two/symbol.oa", ""},
                                 {"c/none/thing.oa", ""},
                                 {"c/text/verilog.v", ""}});
    EXPECT_THAT(cellViewsOf(lib), ElementsAre("a/layout:maskLayout", "b/one:schematic",
                                              "b/two:schematicSymbol", "c/text:verilogText"));
    EXPECT_EQ(oaCellView::find(lib, scalarName("c"), scalarName("none")), nullptr);
}

TEST_F(CellViewTest, TagCountsMoreThanAFile) {
    oaLib* lib = foreignLibrary({{"a/v/layout.oa", ""},
                                 {"a/v/master.tag", tag + "symbol.oa\n"},
                                 {"b/v/master.tag", "-- Master.tag File,Rev:1.0\r\n\r\n"
                                                    "  layout.oa \r\n"},
                                 {"c/v/master.tag", tag + "sch.oa"}});
    EXPECT_THAT(cellViewsOf(lib),
                ElementsAre("a/v:schematicSymbol", "b/v:maskLayout", "c/v:schematic"));
}

TEST_F(CellViewTest, DamagedTagIsAnErrorThatNamesIt) {
    const struct {
        std::string text;
        const char* reason;
    } damaged[] = {
        {"", "it does not start with '-- Master.tag File'"},
        {"layout.oa\n", "it does not start with '-- Master.tag File'"},
        {tag, "the name of the primary file is missing"},
        {tag + "../../x.oa\n", "'../../x.oa' is not the name of a file"},
        {tag + "..\n", "'..' is not the name of a file"},
    };
    oaLib* lib = foreignLibrary({{"cell/v/master.tag", ""}});
    oaString full;
    lib->getFullPath(full);
    std::string file(full);
    for (const char* part : {"cell", "v", "master.tag"})
        file = platform::joinPath(file, part);
    for (const auto& [text, reason] : damaged) {
        put("lib/cell/v/master.tag", text);
        const Thrown thrown = thrownBy([&] { lib->getCellViews(); });
        EXPECT_EQ(thrown.id, oacLibFileDamaged);
        EXPECT_EQ(thrown.text,
                  "Library 'lib' cannot be read: file '" + file + "' is damaged: " + reason + ".");
        EXPECT_EQ(thrownBy([&] { oaCellView::find(lib, scalarName("cell"), scalarName("v")); }).id,
                  oacLibFileDamaged);
    }
}

TEST_F(CellViewTest, ThatChangedItsTypeOnDiskIsAnother) {
    oaLib* lib = createWritable("lib");
    oaCellView* before = make(lib, "cell", "main", oacMaskLayout);
    put("lib/cell/main/master.tag", tag + "symbol.oa\n");
    EXPECT_THAT(cellViewsOf(lib), ElementsAre("cell/main:schematicSymbol"));
    EXPECT_FALSE(before->isValid());
}

TEST_F(CellViewTest, IsFoundByAnotherOpening) {
    oaLib* lib = createWritable("lib");
    make(lib, "b", "symbol", oacSchematicSymbol);
    make(lib, "a", "layout", oacMaskLayout);
    make(lib, "b", "layout", oacMaskLayout);
    lib->close();
    lib = open("again", "lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_THAT(cellViewsOf(lib), ElementsAre("a/layout:maskLayout", "b/layout:maskLayout",
                                              "b/symbol:schematicSymbol"));
    EXPECT_EQ(oaCell::find(lib, scalarName("b"))->getCellViews().getCount(), 2U);
}

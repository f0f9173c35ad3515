#include "dm_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;

namespace {

using ViewTest = DMTest;

std::string typeName(const oaViewType* type) {
    oaString name;
    type->getName(name);
    return static_cast<const char*>(name);
}

} // namespace

TEST(ViewType, ReservedOnesAreThereInTheirOrder) {
    oaDMInit();
    std::vector<std::string> names;
    oaIter<oaViewType> walk(oaViewType::getViewTypes());
    while (const oaViewType* type = walk.getNext())
        names.push_back(typeName(type));
    names.resize(16);
    EXPECT_THAT(names, ElementsAre("maskLayout", "schematic", "schematicSymbol", "netlist", "wafer",
                                   "verilogAMSText", "VHDLAMSText", "verilogText", "VHDLText",
                                   "verilogAText", "oaHierDesign", "systemVerilogText",
                                   "SPECTREText", "SPICEText", "HSPICEText", "CDLText"));
    EXPECT_EQ(oaViewType::get(oacSchematicSymbol), oaViewType::find("schematicSymbol"));
    EXPECT_EQ(oaViewType::get(oacMaskLayout)->getType(), oacViewTypeType);
}

TEST(ViewType, OfOnesOwnIsMadeOnce) {
    oaDMInit();
    EXPECT_EQ(oaViewType::find("own type"), nullptr);
    oaViewType* type = oaViewType::create("own type");
    EXPECT_EQ(oaViewType::find("own type"), type);
    EXPECT_EQ(typeName(type), "own type");
    EXPECT_TRUE(oaViewType::getViewTypes().includes(type));
    for (const char* name : {"own type", "maskLayout"}) {
        const Thrown thrown = thrownBy([&] { oaViewType::create(name); });
        EXPECT_EQ(thrown.id, oacViewTypeExists);
        EXPECT_EQ(thrown.text, std::string("A view type named '") + name + "' already exists.");
    }
    EXPECT_EQ(thrownBy([] { oaViewType::create(""); }).text,
              "'' is not a legal name of a view type.");
}

TEST_F(ViewTest, IsThereForTheAsking) {
    oaLib* lib = create("lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    const oaViewType* type = oaViewType::get(oacMaskLayout);
    oaView* view = oaView::find(lib, scalarName("layout"), type);
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(lib->getViews().isEmpty());
    EXPECT_EQ(oaView::get(lib, scalarName("layout"), type), view);
    EXPECT_THAT(namesIn(lib->getViews()), ElementsAre("layout"));
    EXPECT_EQ(view->getViewType(), type);
    EXPECT_EQ(nameOf(view), "layout");
    oaScalarName name;
    view->getName(name);
    EXPECT_EQ(name, scalarName("layout"));
    EXPECT_TRUE(view->getCellViews().isEmpty());
    EXPECT_THAT(namesOnDisk("lib"), ElementsAre(".oalib", ".oalib.lck"));
}

TEST_F(ViewTest, OfAnotherTypeIsAnotherView) {
    oaLib* lib = createWritable("lib");
    oaView* layout = make(lib, "a", "main", oacMaskLayout)->getView();
    oaView* symbol = make(lib, "b", "main", oacSchematicSymbol)->getView();
    make(lib, "b", "other", oacMaskLayout);
    EXPECT_NE(layout, symbol);
    EXPECT_THAT(namesIn(lib->getViews()), ElementsAre("main", "main", "other"));
    EXPECT_EQ(lib->getViewsByName(scalarName("main")).getCount(), 2U);
    EXPECT_THAT(namesIn(lib->getViewsByName(scalarName("other"))), ElementsAre("other"));
    EXPECT_EQ(layout->getCellViews().getCount(), 1U);
}

TEST_F(ViewTest, IsListedOnceItsCellViewIs) {
    oaLib* lib = createWritable("lib");
    make(lib, "a", "layout", oacMaskLayout);
    make(lib, "b", "layout", oacMaskLayout);
    lib->close();
    lib = open("lib", "lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_THAT(namesIn(lib->getViews()), ElementsAre("layout"));
    oaIter<oaView> views(lib->getViews());
    std::vector<std::string> cells;
    oaIter<oaCellView> walk(views.getNext()->getCellViews());
    while (const oaCellView* cellView = walk.getNext())
        cells.push_back(nameOf(cellView->getCell()));
    EXPECT_THAT(cells, ElementsAre("a", "b"));
}

TEST_F(ViewTest, IsDestroyedWithItsCellViews) {
    oaLib* lib = createWritable("lib");
    oaView* view = make(lib, "a", "layout", oacMaskLayout)->getView();
    make(lib, "b", "layout", oacMaskLayout);
    make(lib, "b", "symbol", oacSchematicSymbol);
    view->destroy();
    EXPECT_FALSE(view->isValid());
    EXPECT_THAT(namesIn(lib->getViews()), ElementsAre("symbol"));
    EXPECT_THAT(namesOnDisk("lib/a"), testing::IsEmpty());
    EXPECT_THAT(namesOnDisk("lib/b"), ElementsAre("symbol"));
}

TEST_F(ViewTest, HoldsNoFiles) {
    oaLib* lib = createWritable("lib");
    oaView* view = make(lib, "a", "layout", oacMaskLayout)->getView();
    const std::string text = "View 'layout' cannot hold files.";
    EXPECT_EQ(thrownBy([&] { view->getDMFiles(); }).text, text);
    EXPECT_EQ(thrownBy([&] { oaDMFile::create(view, "file"); }).text, text);
    EXPECT_EQ(thrownBy([&] { oaDMFile::find(view, "file"); }).id, oacInvalidContainer);
}

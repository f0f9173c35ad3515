#include "tech_tests.h"

using namespace oa;
using namespace ovalis::test;

namespace {

std::string familyOf(const oaTech* tech) {
    oaString family = "untouched";
    tech->getProcessFamily(family);
    return std::string(family);
}

} // namespace

TEST(Tech, IsOpenForWritingOnceItIsMade) {
    NewLibrary library;
    EXPECT_FALSE(oaTech::exists(library.lib()));
    oaTech* tech = oaTech::create(library.lib());
    EXPECT_EQ(tech->getMode(), 'w');
    EXPECT_EQ(tech->getRefCount(), 1u);
    EXPECT_TRUE(tech->isModified());
    EXPECT_TRUE(tech->isTech());
    EXPECT_EQ(tech->getType(), oacTechType);
    EXPECT_EQ(tech->getTech(), tech);
    EXPECT_EQ(tech->getLib(), library.lib());
    EXPECT_TRUE(oaTech::exists(library.lib()));
    EXPECT_EQ(oaTech::find(library.lib()), tech);
}

TEST(Tech, TellsTheNameOfItsLibrary) {
    NewTech tech("chip");
    oaString text;
    tech->getLibName(oaNativeNS(), text);
    EXPECT_EQ(text, "chip");
    oaScalarName scalar;
    tech->getLibName(scalar);
    scalar.get(oaNativeNS(), text);
    EXPECT_EQ(text, "chip");
}

TEST(Tech, IsReachedThroughTheNameOfItsLibrary) {
    NewLibrary library("chip");
    oaTech* tech = oaTech::create(name("chip"));
    EXPECT_EQ(oaTech::find(name("chip")), tech);
    EXPECT_EQ(oaTech::open(name("chip")), tech);
    EXPECT_TRUE(oaTech::exists(name("chip")));
    EXPECT_EQ(thrown<oaTechError>(oacTechAlreadyExists, [] { oaTech::create(name("chip")); }),
              "Library 'chip' already has a technology.");
}

TEST(Tech, NeedsALibraryThatIsOpen) {
    const auto refused = [](auto call) { return thrown<oaDMError>(oacCannotFindLibrary, call); };
    const std::string expected = refused([] { oaTech::create(name("none")); });
    EXPECT_NE(expected.find("'none'"), std::string::npos);
    EXPECT_EQ(refused([] { oaTech::open(name("none")); }), expected);
    EXPECT_EQ(refused([] { oaTech::find(name("none")); }), expected);
    EXPECT_EQ(refused([] { oaTech::exists(name("none")); }), expected);
    EXPECT_EQ(refused([] { oaTech::destroy(name("none")); }), expected);
}

TEST(Tech, IsOneToALibrary) {
    NewTech tech("chip");
    const std::string expected = "Library 'chip' already has a technology.";
    EXPECT_EQ(thrown<oaTechError>(oacTechAlreadyExists, [&] { oaTech::create(tech.lib()); }),
              expected);
    tech->save();
    tech->close();
    EXPECT_EQ(thrown<oaTechError>(oacTechAlreadyExists, [&] { oaTech::create(tech.lib()); }),
              expected);
}

TEST(Tech, ThatIsMissingIsNotOpened) {
    NewLibrary library("chip");
    for (const oaChar mode : {'r', 'a', 'w'})
        EXPECT_EQ(thrown<oaTechError>(oacTechNotFound, [&] { oaTech::open(library.lib(), mode); }),
                  "Library 'chip' has no technology.");
    EXPECT_EQ(oaTech::find(library.lib()), nullptr);
    EXPECT_EQ(oaTech::getOpenTechs().getCount(), 0u);
}

TEST(Tech, HasThreeModes) {
    NewTech tech("chip");
    tech->save();
    const std::string expected =
        "The technology of library 'chip' cannot be opened in mode 'x'; use 'r', 'a' or 'w'.";
    EXPECT_EQ(thrown<oaTechError>(oacOpenUndefinedModeTech, [&] { oaTech::open(tech.lib(), 'x'); }),
              expected);
    EXPECT_EQ(thrown<oaTechError>(oacOpenUndefinedModeTech, [&] { tech->reopen('x'); }), expected);
}

TEST(Tech, CountsItsOpenings) {
    NewTech tech;
    oaTech* again = oaTech::open(tech.lib());
    EXPECT_EQ(again, static_cast<oaTech*>(tech));
    EXPECT_EQ(tech->getRefCount(), 2u);
    EXPECT_EQ(oaTech::find(tech.lib())->getRefCount(), 2u);
    tech->close();
    EXPECT_TRUE(tech->isValid());
    EXPECT_EQ(tech->getRefCount(), 1u);
    tech->close();
    EXPECT_FALSE(tech->isValid());
}

TEST(Tech, IsPurgedWhateverItsCount) {
    NewTech tech;
    oaTech::open(tech.lib());
    oaLayer* layer = oaPhysicalLayer::create(tech, "metal", 1);
    tech->purge();
    EXPECT_FALSE(tech->isValid());
    EXPECT_FALSE(layer->isValid());
    EXPECT_FALSE(oaTech::exists(tech.lib()));
}

TEST(Tech, IsPurgedWithItsLibrary) {
    NewTech tech;
    oaLayer* layer = oaPhysicalLayer::create(tech, "metal", 1);
    tech.lib()->close();
    EXPECT_FALSE(tech->isValid());
    EXPECT_FALSE(layer->isValid());
    EXPECT_EQ(oaTech::getOpenTechs().getCount(), 0u);
}

TEST(Tech, OpenForReadingCannotBeChanged) {
    NewTech tech("chip");
    oaPhysicalLayer::create(tech, "metal", 1);
    oaPurpose::create(tech, "pin", 1);
    oaIntValue::create(tech, 1);
    tech.saveAndReopen('r');
    const std::string expected =
        "The technology of library 'chip' is open for reading and cannot be changed.";
    const auto refused = [](auto call) {
        return thrown<oaTechError>(oacCannotModifyReadModeTech, call);
    };
    oaPhysicalLayer* layer = oaPhysicalLayer::find(tech, 1);
    oaPurpose* purpose = oaPurpose::find(tech, 1);
    const oaViewType* layout = oaViewType::get(oacMaskLayout);
    EXPECT_EQ(refused([&] { oaPhysicalLayer::create(tech, "cut", 2); }), expected);
    EXPECT_EQ(refused([&] { oaPhysicalLayer::create(tech, "metal", 1); }), expected);
    EXPECT_EQ(refused([&] { layer->setName("m"); }), expected);
    EXPECT_EQ(refused([&] { layer->setNumber(3); }), expected);
    EXPECT_EQ(refused([&] { layer->setMaterial(oacCutMaterial); }), expected);
    EXPECT_EQ(refused([&] { layer->destroy(); }), expected);
    EXPECT_EQ(refused([&] { oaSizedLayer::create(layer, oacGrowSizeOp, 1, "s", 9); }), expected);
    EXPECT_EQ(refused([&] { oaPurpose::create(tech, "net", 2); }), expected);
    EXPECT_EQ(refused([&] { purpose->setName("p"); }), expected);
    EXPECT_EQ(refused([&] { purpose->destroy(); }), expected);
    EXPECT_EQ(refused([&] { oaIntValue::create(tech, 2); }), expected);
    EXPECT_EQ(refused([&] { tech->setDBUPerUU(layout, 2000); }), expected);
    EXPECT_EQ(refused([&] { tech->setUserUnits(layout, oacMil); }), expected);
    EXPECT_EQ(refused([&] { tech->setProcessFamily("f"); }), expected);
    EXPECT_EQ(refused([&] { tech->setDefaultManufacturingGrid(5); }), expected);
    EXPECT_EQ(refused([&] { oaIntProp::create(tech, "p", 1); }), expected);
    EXPECT_FALSE(tech->isModified());
    EXPECT_EQ(thrown<oaTechError>(oacSaveReadOnlyTech, [&] { tech->save(); }),
              "The technology of library 'chip' is open for reading and cannot be saved.");
}

TEST(Tech, HasAProcessFamily) {
    NewTech tech;
    EXPECT_FALSE(tech->hasProcessFamily());
    EXPECT_EQ(familyOf(tech), "");
    tech->setProcessFamily("rf40");
    tech.saveAndReopen('a');
    EXPECT_TRUE(tech->hasProcessFamily(true));
    EXPECT_EQ(familyOf(tech), "rf40");
    tech->unsetProcessFamily();
    EXPECT_FALSE(tech->hasProcessFamily());
    EXPECT_EQ(familyOf(tech), "");
}

TEST(Tech, HasADefaultManufacturingGrid) {
    NewTech tech;
    EXPECT_FALSE(tech->isDefaultManufacturingGridSet());
    EXPECT_EQ(tech->getDefaultManufacturingGrid(), 0u);
    tech->setDefaultManufacturingGrid(5);
    tech.saveAndReopen('a');
    EXPECT_TRUE(tech->isDefaultManufacturingGridSet());
    EXPECT_EQ(tech->getDefaultManufacturingGrid(), 5u);
    tech->unsetDefaultManufacturingGrid();
    EXPECT_FALSE(tech->isDefaultManufacturingGridSet());
}

TEST(Tech, IsListedWhileItIsOpen) {
    NewTech first("first");
    NewTech second("second");
    EXPECT_EQ(oaTech::getOpenTechs().getCount(), 2u);
    first->close();
    oaIter<oaTech> open(oaTech::getOpenTechs());
    EXPECT_EQ(open.getNext(), static_cast<oaTech*>(second));
    EXPECT_EQ(open.getNext(), nullptr);
}

TEST(Tech, CarriesPropertiesThatSurviveASave) {
    NewTech tech;
    oaStringProp::create(tech, "vendor", "foundry");
    tech.saveAndReopen();
    oaString value;
    oaProp::find(tech, "vendor")->getValue(value);
    EXPECT_EQ(value, "foundry");
    EXPECT_EQ(oaProp::find(tech, "vendor")->getDatabase(), static_cast<oaTech*>(tech));
}

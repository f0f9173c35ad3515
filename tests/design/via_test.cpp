#include "via_fixture.h"

namespace design_test {

namespace {

oaViaParam paramsOf(const oaStdVia* via) {
    oaViaParam params;
    via->getViaParams(params);
    return params;
}

std::string defNameOf(const oaVia* via) {
    oaString result;
    via->getViaDefName(result);
    return text(result);
}

} // namespace

TEST_F(ViaTest, ViasShowTheirMaster) {
    oaStdVia* via = place(oaTransform(100, 200, oacR90));
    EXPECT_EQ(via->getType(), oacStdViaType);
    EXPECT_TRUE(via->isVia());
    EXPECT_TRUE(via->isRef());
    EXPECT_TRUE(via->isFig());
    EXPECT_FALSE(via->isInst());
    EXPECT_EQ(via->getViaDef(), def);
    EXPECT_EQ(defNameOf(via), "via");
    EXPECT_EQ(boxText(via), "86 191 114 209");
    EXPECT_EQ(boxText(block), "86 191 114 209");
    EXPECT_EQ(via->getMaster(), oaDesign::open(def));
    EXPECT_EQ(all(block->getVias()), (std::vector<oaVia*>{via}));
    EXPECT_TRUE(block->getInsts().isEmpty());
    oaCustomVia* custom = placeCustom(oaTransform(1, 1));
    EXPECT_EQ(custom->getType(), oacCustomViaType);
    EXPECT_EQ(custom->getViaDef(), customDef);
    EXPECT_EQ(custom->getMaster(), nullptr);
    EXPECT_EQ(boxText(custom), "none");
    const oaBlock* drawn = drawMaster();
    EXPECT_EQ(custom->getMaster(), drawn->getDesign());
    EXPECT_EQ(boxText(custom), "-2 -2 4 4");
    oaString master;
    custom->getCellName(oaNativeNS(), master);
    EXPECT_EQ(text(master), "drawn");
}

TEST_F(ViaTest, ViasCanBeMoved) {
    oaStdVia* via = place();
    via->setOrigin(oaPoint(10, 20));
    EXPECT_EQ(boxText(via), "1 6 19 34");
    via->setOrient(oacR90);
    EXPECT_EQ(boxText(via), "-4 11 24 29");
    oaTransform xform;
    via->getTransform(xform);
    EXPECT_EQ(xform, oaTransform(10, 20, oacR90));
    via->move(oaTransform(100, 0));
    EXPECT_EQ(boxText(via), "96 11 124 29");
    via->setTransform(oaTransform(oacMX));
    oaPoint origin;
    via->getOrigin(origin);
    EXPECT_EQ(origin, oaPoint(0, 0));
    EXPECT_EQ(via->getOrient(), oacMX);
    EXPECT_TRUE(via->overlaps(oaBox(0, 0, 1, 1)));
    EXPECT_FALSE(via->overlaps(oaBox(100, 100, 101, 101)));
}

TEST_F(ViaTest, ParametersOfAViaGoOverThoseOfItsDefinition) {
    oaViaParam given = columns(2);
    given.setCutSpacing(oaVector(6, 0));
    oaStdVia* via = place(oaTransform(), &given);
    oaViaParam params = paramsOf(via);
    EXPECT_EQ(params.getCutColumns(), 2u);
    EXPECT_EQ(params.getCutHeight(), 20u);
    EXPECT_FALSE(params.hasDefault(oacCutSpacingViaParamType));
    EXPECT_TRUE(params.hasDefault(oacCutHeightViaParamType));
    EXPECT_EQ(boxText(via), "-17 -14 17 14");

    oaViaParam changed = oneCut();
    changed.setCutHeight(40);
    changed.setCutColumns(7);
    def->setParams(changed);
    EXPECT_EQ(paramsOf(via).getCutHeight(), 40u);
    EXPECT_EQ(paramsOf(via).getCutColumns(), 2u);
    EXPECT_EQ(boxText(via), "-17 -24 17 24");

    params.setDefault(oacCutColumnsViaParamType);
    via->setViaParams(params);
    EXPECT_EQ(paramsOf(via).getCutColumns(), 7u);
    EXPECT_EQ(paramsOf(via).getCutSpacing(), oaVector(6, 0));
}

TEST_F(ViaTest, ViasFollowADefinitionThatGoesAndComes) {
    const oaStdVia* via = place();
    def->destroy();
    EXPECT_EQ(via->getViaDef(), nullptr);
    EXPECT_EQ(defNameOf(via), "via");
    EXPECT_EQ(via->getMaster(), nullptr);
    EXPECT_EQ(boxText(block), "none");
    oaCustomViaDef* other = oaCustomViaDef::create(tech, "via", name("lib"), name("cell"),
                                                   name("layout"), metal1, metal2);
    EXPECT_EQ(via->getViaDef(), nullptr);
    other->destroy();
    def = oaStdViaDef::create(tech, "via", metal1, metal2, oneCut());
    EXPECT_EQ(via->getViaDef(), def);
    EXPECT_EQ(boxText(via), "-9 -14 9 14");
}

TEST_F(ViaTest, DefinitionsMustBeThoseThatTheDesignSees) {
    oaLib* other = oaLib::create(name("other"), (directory.str() + "/other").c_str());
    oaTech* stranger = oaTech::create(other);
    oaStdViaDef* strange =
        oaStdViaDef::create(stranger, "via", oaPhysicalLayer::create(stranger, "a", 1),
                            oaPhysicalLayer::create(stranger, "b", 2), oaViaParam());
    EXPECT_EQ(messageOf([&] { oaStdVia::create(block, strange, oaTransform()); }),
              "The via definition 'via' is not the one of its name that the technology of design "
              "'lib/cell/layout' sees.");
    EXPECT_TRUE(block->getVias().isEmpty());
    EXPECT_TRUE(block->getViaHeaders().isEmpty());
    other->close();
}

TEST_F(ViaTest, TooManyCutsAreRefused) {
    oaViaParam rows;
    rows.setCutRows(1u << 20);
    oaStdVia* via = place(oaTransform(), &rows);
    rows.setCutColumns(2);
    EXPECT_EQ(thrownBy([&] { place(oaTransform(), &rows); }), oacInvalidViaParam);
    EXPECT_EQ(thrownBy([&] { via->setViaParams(rows); }), oacInvalidViaParam);
    EXPECT_EQ(paramsOf(via).getCutColumns(), 1u);
    EXPECT_EQ(block->getVias().getCount(), 1u);
}

TEST_F(ViaTest, DefinitionsOfReferredTechnologiesServe) {
    oaLib* other = oaLib::create(name("chip"), (directory.str() + "/chip").c_str());
    oaTechArray refs;
    refs.append(tech);
    oaTech::create(other)->setRefs(refs);
    oaBlock* chip = oaBlock::create(oaDesign::open(name("chip"), name("c"), name("layout"),
                                                   oaViewType::get(oacMaskLayout), 'w'));
    const oaStdVia* via = oaStdVia::create(chip, def, oaTransform());
    EXPECT_EQ(via->getViaDef(), def);
    EXPECT_EQ(boxText(chip), "-9 -14 9 14");
    other->close();
}

TEST_F(ViaTest, ViasLieOnNets) {
    oaStdVia* via = place();
    oaNet* net = oaNet::create(block, name("a"));
    via->addToNet(net);
    EXPECT_EQ(via->getNet(), net);
    EXPECT_EQ(all(net->getVias()), (std::vector<oaVia*>{via}));
    EXPECT_TRUE(net->getShapes().isEmpty());
    EXPECT_FALSE(net->isEmpty());
    oaPin* pin = oaPin::create(oaTerm::create(net, name("a")), "p");
    EXPECT_EQ(thrownBy([&] { via->addToPin(pin); }), oacCannotAddNetFigToPin);
    via->removeFromNet();
    via->addToPin(pin);
    EXPECT_EQ(all(pin->getFigs()), (std::vector<oaPinFig*>{via}));
    EXPECT_EQ(all(net->getVias()), (std::vector<oaVia*>{via}));
    EXPECT_TRUE(net->getVias(oacViaIterNetOnly).isEmpty());
    via->destroy();
    EXPECT_TRUE(pin->getFigs().isEmpty());
    EXPECT_TRUE(net->getVias().isEmpty());
}

TEST_F(ViaTest, ViasAreCopiedWithParametersAndProperties) {
    oaViaParam two = columns(2);
    oaStdVia* via = place(oaTransform(10, 0), &two);
    oaIntProp::create(via, "rank", 3);
    via->addToNet(oaNet::create(block, name("a")));
    auto* copy = static_cast<oaStdVia*>(via->copy(oaTransform(oaPoint(0, 5), oacR90)));
    oaTransform xform;
    copy->getTransform(xform);
    EXPECT_EQ(xform, oaTransform(0, 15, oacR90));
    EXPECT_EQ(paramsOf(copy).getCutColumns(), 2u);
    EXPECT_NE(oaProp::find(copy, "rank"), nullptr);
    EXPECT_FALSE(copy->hasNet());
    EXPECT_EQ(copy->getHeader(), via->getHeader());

    oaBlock* other = makeBlock("other");
    auto* away = static_cast<oaStdVia*>(copy->move(oaTransform(), other));
    EXPECT_FALSE(copy->isValid());
    EXPECT_EQ(away->getBlock(), other);
    EXPECT_EQ(away->getMaster(), via->getMaster());
    EXPECT_EQ(all(block->getVias()), (std::vector<oaVia*>{via}));
    EXPECT_EQ(placeCustom()->copy(oaTransform(), other)->getType(), oacCustomViaType);
}

TEST_F(ViaTest, ViasSurviveASave) {
    oaViaParam two = columns(2);
    two.setCutPatternVal(0, 0, false);
    place()->destroy();
    place(oaTransform(1, 2, oacMXR90), &two)->addToNet(oaNet::create(block, name("a")));
    placeCustom(oaTransform(50, 50));
    oaParamArray params;
    params.append(oaParam("size", oaInt4(3)));
    oaCustomVia::create(block, customDef, oaTransform(), &params);
    oaIntProp::create(all(block->getVias())[0], "rank", 3);
    const std::string box = boxText(block);
    reopenAll();
    const std::vector<oaVia*> vias = all(block->getVias());
    ASSERT_EQ(vias.size(), 3u);
    const auto* read = static_cast<oaStdVia*>(vias[0]);
    oaTransform xform;
    read->getTransform(xform);
    EXPECT_EQ(xform, oaTransform(1, 2, oacMXR90));
    EXPECT_EQ(read->getViaDef(), def);
    EXPECT_EQ(paramsOf(read).getCutColumns(), 2u);
    EXPECT_FALSE(paramsOf(read).getCutPatternVal(0, 0));
    EXPECT_NE(oaProp::find(read, "rank"), nullptr);
    EXPECT_EQ(nameOf(read->getNet()), "a");
    EXPECT_FALSE(read->isBound());
    EXPECT_EQ(boxText(block), box);
    oaParamArray given;
    static_cast<oaCustomVia*>(vias[2])->getParams(given);
    EXPECT_EQ(given, params);
    EXPECT_EQ(block->getViaHeaders().getCount(), 2u);
}

TEST_F(ViaTest, ViasCannotBeChangedInADesignOpenForReading) {
    place();
    placeCustom();
    reopenAll();
    auto* via = static_cast<oaStdVia*>(all(block->getVias())[0]);
    auto* custom = static_cast<oaCustomVia*>(all(block->getVias())[1]);
    const std::function<void()> changes[] = {
        [&] { place(); },
        [&] { placeCustom(); },
        [&] { via->setViaParams(columns(3)); },
        [&] { custom->setParams(oaParamArray()); },
        [&] { via->move(oaTransform(1, 1)); },
        [&] { via->setOrigin(oaPoint(1, 1)); },
        [&] { via->copy(oaTransform()); },
        [&] { via->destroy(); },
    };
    for (const std::function<void()>& change : changes)
        EXPECT_EQ(thrownBy(change), oacCannotModifyReadModeDesign);
    EXPECT_EQ(boxText(via), "-9 -14 9 14");
}

TEST_F(ViaTest, HeadersHoldTheViasOfADefinition) {
    oaViaParam two = columns(2);
    oaStdVia* a = place();
    oaStdVia* b = place(oaTransform(100, 0), &two);
    oaStdVia* c = place(oaTransform(200, 0), &two);
    const oaViaHeader* header = oaViaHeader::find(block, "via");
    EXPECT_EQ(oaViaHeader::find(block, def), header);
    EXPECT_EQ(all(block->getViaHeaders()).front(), header);
    EXPECT_EQ(header->getType(), oacStdViaHeaderType);
    EXPECT_TRUE(header->isViaHeader());
    EXPECT_TRUE(header->isSuperHeader());
    EXPECT_EQ(header->getViaDef(), def);
    EXPECT_EQ(all(header->getVias()), (std::vector<oaVia*>{a, b, c}));
    EXPECT_EQ(header->getMaster(), nullptr);
    EXPECT_EQ(all(header->getSubHeaders()),
              (std::vector<oaViaHeader*>{a->getHeader(), b->getHeader()}));
    const oaStdViaHeader* sub = b->getHeader();
    EXPECT_EQ(c->getHeader(), sub);
    EXPECT_TRUE(sub->isSubHeader());
    EXPECT_EQ(sub->getSuperHeader(), header);
    EXPECT_EQ(all(sub->getVias()), (std::vector<oaVia*>{b, c}));
    EXPECT_TRUE(sub->getSubHeaders().isEmpty());
    EXPECT_FALSE(sub->isBound());
    EXPECT_EQ(sub->getMaster(), b->getMaster());
    EXPECT_TRUE(sub->isBound());
    oaBox box;
    sub->getMasterBBox(box);
    EXPECT_EQ(spelled(box), "-14 -14 14 14");
    sub->getBBox(box);
    EXPECT_EQ(spelled(box), "86 -14 214 14");
    oaViaParam params;
    sub->getParams(params);
    EXPECT_TRUE(params.isEqual(paramsOf(b)));
    EXPECT_EQ(all(def->getUsedIn()), (std::vector<oaViaHeader*>{oaViaHeader::find(block, def)}));
    EXPECT_TRUE(customDef->getUsedIn().isEmpty());
}

TEST_F(ViaTest, HeadersGoWithTheirLastVia) {
    oaViaParam two = columns(2);
    oaStdVia* a = place();
    oaStdVia* b = place(oaTransform(), &two);
    const oaViaHeader* header = oaViaHeader::find(block, "via");
    const oaViaHeader* sub = b->getHeader();
    b->setViaParams(oaViaParam());
    EXPECT_FALSE(sub->isValid());
    EXPECT_EQ(b->getHeader(), a->getHeader());
    a->destroy();
    EXPECT_TRUE(header->isValid());
    b->destroy();
    EXPECT_FALSE(header->isValid());
    EXPECT_EQ(oaViaHeader::find(block, "via"), nullptr);
    EXPECT_TRUE(block->getViaHeaders().isEmpty());
    EXPECT_NE(place()->getHeader(), nullptr);
    EXPECT_EQ(block->getViaHeaders().getCount(), 1u);
}

TEST_F(ViaTest, HeadersOfCustomViasNameTheirMaster) {
    const oaBlock* drawn = drawMaster();
    const oaCustomVia* via = placeCustom();
    const auto* header = static_cast<oaCustomViaHeader*>(oaViaHeader::find(block, customDef));
    ASSERT_EQ(header->getType(), oacCustomViaHeaderType);
    oaScalarName cell;
    header->getCellName(cell);
    EXPECT_EQ(cell, name("drawn"));
    EXPECT_EQ(header->getMaster(), drawn->getDesign());
    EXPECT_EQ(via->getHeader()->getMaster(), drawn->getDesign());
    oaParamArray params;
    via->getHeader()->getAllParams(params);
    EXPECT_EQ(params.getNumElements(), 0u);
    customDef->destroy();
    oaString view;
    header->getViewName(oaNativeNS(), view);
    EXPECT_EQ(text(view), "");
    EXPECT_EQ(header->getMaster(), nullptr);
}

TEST_F(ViaTest, ACustomViaMayLieInItsOwnMaster) {
    oaBlock* drawn = drawMaster();
    oaCustomVia::create(drawn, customDef, oaTransform(100, 0));
    placeCustom();
    EXPECT_EQ(boxText(drawn), "-3 -3 103 3");
    EXPECT_EQ(drawn->getDesign()->getRefCount(), 1u);
    EXPECT_EQ(boxText(block), "-3 -3 103 3");
    EXPECT_EQ(drawn->getDesign()->getRefCount(), 2u);
}

TEST_F(ViaTest, OpeningTheHierarchyBindsVias) {
    drawMaster()->getDesign()->close();
    const oaStdVia* via = place();
    const oaCustomVia* custom = placeCustom();
    block->getDesign()->openHier();
    EXPECT_TRUE(via->isBound());
    EXPECT_TRUE(custom->isBound());
    EXPECT_EQ(custom->getMaster()->getRefCount(), 1u);
    oaDesign* master = custom->getMaster();
    block->getDesign()->close();
    EXPECT_FALSE(master->isValid());
}

TEST_F(ViaTest, ViasGoWithTheirBlock) {
    oaStdVia* via = place();
    block->destroy();
    EXPECT_FALSE(via->isValid());
    block = oaBlock::create(open("cell", 'a'));
    EXPECT_TRUE(block->getVias().isEmpty());
    EXPECT_TRUE(block->getViaHeaders().isEmpty());
}

} // namespace design_test

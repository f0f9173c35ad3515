#include "submaster_fixture.h"

#include <oa/oaTransform.h>

using namespace oa;
using namespace ovalis::test;

namespace {

/// Besides the pcell, the design "top" with a block to place instances in.
class InstBinding : public SubmasterFixture {
protected:
    InstBinding() : top(openCell('w', "top")), block(oaBlock::create(top)) {}

    oaScalarInst* place(const oaParamArray& params = oaParamArray(), oaInt4 x = 0) {
        return oaScalarInst::create(block, openSuperMaster(), oaTransform(x, 0), &params);
    }
    oaScalarInst* placeByName(const char* instName, const oaParamArray& params) {
        return oaScalarInst::create(block, name("lib"), name("square"), name("layout"),
                                    name(instName), oaTransform(), &params);
    }
    /// Opened for writing once, and not closed.
    oaDesign* openSuperMaster() { return superMaster = superMaster ? superMaster : openCell('a'); }
    /// Saves and closes "top", and opens it again.
    void reopenTop(oaChar mode = 'r') {
        top->save();
        top->close();
        top = openCell(mode, "top");
        block = top->getTopBlock();
        takeLines();
    }
    oaInst* inst(const char* instName) const { return oaInst::find(block, name(instName)); }

    template <class Element, class Owner>
    static std::vector<Element*> all(const oaCollection<Element, Owner>& collection) {
        std::vector<Element*> elements;
        oaIter<Element> each(collection);
        while (Element* next = each.getNext())
            elements.push_back(next);
        return elements;
    }
    static oaParamArray paramsOfInst(const oaInst* inst) {
        oaParamArray params;
        inst->getParams(params);
        return params;
    }

    oaDesign* superMaster = nullptr;
    oaDesign* top;
    oaBlock* block;
};

TEST_F(InstBinding, IsMadeWithTheInstanceOfASuperMasterThatIsOpen) {
    const oaInst* first = place(sized(30));
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 30", "onPostEval drawn"}));
    EXPECT_TRUE(first->isBound());
    EXPECT_TRUE(first->getMaster()->isSubMaster());
    EXPECT_EQ(first->getMaster()->getSuperMaster(), superMaster);
    oaBox box;
    place(sized(20), 100)->getBBox(box);
    EXPECT_EQ(box, oaBox(100, 0, 120, 20));
    block->getBBox(box);
    EXPECT_EQ(box, oaBox(0, 0, 120, 30));
}

TEST_F(InstBinding, IsMadeWhenTheMasterIsFirstNeeded) {
    const oaInst* named = placeByName("named", sized(30));
    EXPECT_FALSE(named->isBound());
    EXPECT_EQ(takeLines(), Lines());
    EXPECT_EQ(widthOf(named->getMaster()), 30);
    EXPECT_TRUE(named->isBound());
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 30", "onPostEval drawn"}));
    reopenTop();
    EXPECT_FALSE(inst("named")->isBound());
    EXPECT_EQ(takeLines(), Lines());
    EXPECT_EQ(widthOf(inst("named")->getMaster()), 30);
    EXPECT_EQ(findSuperMaster()->getMode(), 'r');
}

TEST_F(InstBinding, IsToOneSubmasterForEqualEffectiveParameters) {
    oaParamArray reordered;
    reordered.append(oaParam("label", "none"));
    reordered.append(oaParam("size", oaInt4(10)));
    const std::vector<oaInst*> equal = {place(), place(sized(10)), place(effective(10)),
                                        place(reordered)};
    for (const oaInst* each : equal)
        EXPECT_EQ(each->getMaster(), equal[0]->getMaster());
    EXPECT_EQ(submastersOf(superMaster).size(), 1u);
    for (int i = 0; i < 1000; ++i)
        place(sized(40))->getMaster();
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 10", "onPostEval drawn", "onPreEval",
                                  "onEval 40", "onPostEval drawn"}));
}

TEST_F(InstBinding, FollowsTheParameters) {
    oaInst* bound = place(sized(30));
    oaInst* unbound = placeByName("unbound", sized(30));
    reopenTop('a');
    bound = inst("I__0");
    bound->getMaster();
    takeLines();
    bound->setParams(sized(20));
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 20", "onPostEval drawn"}));
    EXPECT_EQ(widthOf(bound->getMaster()), 20);
    unbound = inst("unbound");
    EXPECT_FALSE(unbound->isBound());
    unbound->setParams(sized(15));
    EXPECT_EQ(takeLines(), Lines());
    EXPECT_EQ(widthOf(unbound->getMaster()), 15);
}

TEST_F(InstBinding, RefusesASubmaster) {
    oaDesign* submaster = openSubmaster(sized(30));
    const std::string expected = "Design 'lib/square/layout' is not a pcell super master.";
    EXPECT_EQ(refused(oacInvalidSuperMaster,
                      [&] { oaScalarInst::create(block, submaster, oaTransform()); }),
              expected);
    oaInst* placed = place();
    EXPECT_EQ(refused(oacInvalidSuperMaster, [&] { placed->setMaster(submaster); }), expected);
    EXPECT_EQ(block->getInsts().getCount(), 1u);
}

TEST_F(InstBinding, AnswersASubmasterWithoutABlockAfterAFailure) {
    evaluator->meanwhile = [](oaDesign*, oaInt4) {
        throw oaDesignError(oacPcellSubMasterNotProduced);
    };
    const oaInst* placed = place(sized(30));
    ASSERT_NE(placed->getMaster(), nullptr);
    EXPECT_TRUE(placed->getMaster()->isSubMaster());
    EXPECT_EQ(placed->getMaster()->getTopBlock(), nullptr);
    EXPECT_EQ(observer->failed, placed->getMaster());
    oaBox box;
    placed->getBBox(box);
    EXPECT_TRUE(box.isInverted());
}

TEST_F(InstBinding, OfAPcellInItselfEnds) {
    oaDesign* answered = top;
    evaluator->meanwhile = [&](oaDesign* design, oaInt4 size) {
        const oaParamArray params = sized(size);
        answered = oaScalarInst::create(design->getTopBlock(), superMaster, oaTransform(), &params)
                       ->getMaster();
    };
    openSuperMaster();
    place(sized(30));
    EXPECT_EQ(answered, nullptr);
}

TEST_F(InstBinding, KeepsTheSuperMasterOpen) {
    openSuperMaster();
    const oaInst* placed = place(sized(30));
    const oaDesign* submaster = placed->getMaster();
    superMaster->close();
    EXPECT_TRUE(superMaster->isValid());
    EXPECT_TRUE(submaster->isValid());
    EXPECT_EQ(submaster->getRefCount(), 1u);
    top->save();
    top->close();
    EXPECT_FALSE(superMaster->isValid());
    EXPECT_FALSE(submaster->isValid());
}

TEST_F(InstBinding, EndsWithTheSuperMaster) {
    place(sized(30));
    superMaster->save();
    superMaster->purge();
    superMaster = nullptr;
    EXPECT_FALSE(inst("I__0")->isBound());
    takeLines();
    EXPECT_EQ(widthOf(inst("I__0")->getMaster()), 30);
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 30", "onPostEval drawn"}));
}

TEST_F(InstBinding, ReachesAllLevelsOfAHierarchy) {
    place(sized(30));
    oaBlock* upper = oaBlock::create(openCell('w', "upper"));
    const auto placeCell = [](oaBlock* in, const char* cell, const char* instName) {
        oaScalarInst::create(in, name("lib"), name(cell), name("layout"), name(instName),
                             oaTransform());
    };
    placeCell(upper, "top", "down");
    placeCell(block, "upper", "up"); // a cycle
    upper->getDesign()->save();
    upper->getDesign()->close();
    superMaster->close();
    reopenTop('r');
    EXPECT_EQ(oaDesign::find(name("lib"), name("upper"), name("layout")), nullptr);
    top->openHier(1);
    EXPECT_TRUE(inst("I__0")->isBound());
    EXPECT_TRUE(inst("up")->isBound());
    const oaBlock* opened = inst("up")->getMaster()->getTopBlock();
    EXPECT_FALSE(oaInst::find(opened, name("down"))->isBound());
    top->openHier();
    EXPECT_TRUE(oaInst::find(opened, name("down"))->isBound());
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 30", "onPostEval drawn"}));
}

TEST_F(InstBinding, GroupsInstancesUnderHeaders) {
    const oaInst* small = place();
    const std::vector<oaInst*> large = {place(sized(30)), place(sized(30))};
    const std::vector<oaInstHeader*> headers = all(block->getInstHeaders());
    ASSERT_EQ(headers.size(), 1u);
    oaInstHeader* header = headers[0];
    EXPECT_TRUE(header->isSuperHeader());
    EXPECT_FALSE(header->isSubHeader());
    EXPECT_EQ(header->getSuperHeader(), nullptr);
    EXPECT_EQ(header->getMaster(), superMaster);
    EXPECT_EQ(header->getInsts().getCount(), 3u);
    EXPECT_EQ(oaInstHeader::find(block, superMaster), header);
    const std::vector<oaInstHeader*> subs = all(header->getSubHeaders());
    ASSERT_EQ(subs.size(), 2u);
    EXPECT_EQ(subs[0], small->getHeader());
    EXPECT_EQ(subs[1], large[0]->getHeader());
    EXPECT_EQ(subs[1], large[1]->getHeader());
    EXPECT_EQ(all(subs[1]->getInsts()), large);
    EXPECT_TRUE(subs[1]->isSubHeader());
    EXPECT_FALSE(subs[1]->isSuperHeader());
    EXPECT_TRUE(subs[1]->getSubHeaders().isEmpty());
    EXPECT_EQ(subs[1]->getSuperHeader(), header);
    EXPECT_EQ(subs[1]->getMaster(), large[0]->getMaster());
    EXPECT_TRUE(subs[1]->isBound());
    EXPECT_EQ(oaInstHeader::find(block, large[0]->getMaster()), subs[1]);
    EXPECT_EQ(subs[1]->getType(), oacInstHeaderType);
}

TEST_F(InstBinding, GivesHeadersTheirParameters) {
    const oaInstHeader* sub = place(sized(30), 50)->getHeader();
    oaParamArray params;
    sub->getParams(params);
    EXPECT_EQ(params, sized(30));
    sub->getAllParams(params);
    EXPECT_EQ(params, effective(30));
    oaParam size;
    EXPECT_TRUE(sub->findParam("size", size));
    EXPECT_EQ(size.getIntVal(), 30);
    EXPECT_FALSE(sub->findParam("height", size));
    const oaInstHeader* header = oaInstHeader::find(block, superMaster);
    header->getParams(params);
    EXPECT_EQ(params, oaParamArray());
    header->getAllParams(params);
    EXPECT_EQ(params, defaults());
    oaBox box;
    sub->getMasterBBox(box);
    EXPECT_EQ(box, oaBox(0, 0, 30, 30));
    sub->getBBox(box);
    EXPECT_EQ(box, oaBox(50, 0, 80, 30));
    header->getMasterBBox(box);
    EXPECT_TRUE(box.isInverted());
}

TEST_F(InstBinding, TakesAHeaderWithParametersForThatOfAPcell) {
    placeByName("large", sized(30));
    const oaInstHeader* header =
        oaInstHeader::find(block, name("lib"), name("square"), name("layout"));
    EXPECT_FALSE(header->isBound());
    EXPECT_TRUE(header->isSuperHeader());
    const std::vector<oaInstHeader*> subs = all(header->getSubHeaders());
    ASSERT_EQ(subs.size(), 1u);
    EXPECT_FALSE(subs[0]->isBound());
    EXPECT_EQ(takeLines(), Lines());
    EXPECT_EQ(widthOf(subs[0]->getMaster()), 30);
}

TEST_F(InstBinding, LetsASubHeaderGoWithItsLastInstance) {
    oaInst* placed = place(sized(30));
    const oaInstHeader* sub = placed->getHeader();
    EXPECT_EQ(refused(oacInvalidObjForProp,
                      [&] { oaIntProp::create(const_cast<oaInstHeader*>(sub), "note", 1); }),
              "An object of type InstHeader cannot have properties or stored values.");
    auto* note = oaIntAppDef<oaInstHeader>::get("note", 0, true);
    EXPECT_EQ(refused(oacInvalidObjForProp, [&] { note->set(const_cast<oaInstHeader*>(sub), 1); }),
              "An object of type InstHeader cannot have properties or stored values.");
    auto* mark = oaIntAppDef<oaInstHeader>::get("mark", 0, false);
    mark->set(const_cast<oaInstHeader*>(sub), 1);
    EXPECT_EQ(mark->get(sub), 1);
    placed->setParams(sized(20));
    EXPECT_FALSE(sub->isValid());
    sub = placed->getHeader();
    placed->destroy();
    EXPECT_FALSE(sub->isValid());
    EXPECT_EQ(oaInstHeader::find(block, superMaster), nullptr);
    EXPECT_TRUE(block->getInstHeaders().isEmpty());
}

TEST_F(InstBinding, FollowsTheDefinitionOfTheSuperMaster) {
    oaInst* byDefault = place();
    oaInst* given = place(sized(10));
    EXPECT_EQ(byDefault->getMaster(), given->getMaster());
    oaParamArray params;
    params.append(oaParam("size", oaInt4(25)));
    superMaster->defineSuperMaster(superMaster->getPcellDef(), params);
    EXPECT_TRUE(byDefault->isBound());
    EXPECT_EQ(widthOf(byDefault->getMaster()), 25);
    EXPECT_EQ(widthOf(given->getMaster()), 10);
}

TEST_F(InstBinding, TurnsParametersThatAreNoMoreIntoPropertiesAndBack) {
    oaParamArray both = sized(30);
    both.append(oaParam("label", "own"));
    oaInst* placed = place(both);
    oaParamArray onlySize;
    onlySize.append(oaParam("size", oaInt4(10)));
    superMaster->defineSuperMaster(superMaster->getPcellDef(), onlySize);
    EXPECT_EQ(paramsOfInst(placed), sized(30));
    oaString text;
    oaProp* label = oaProp::find(placed, "label");
    ASSERT_NE(label, nullptr);
    label->getValue(text);
    EXPECT_EQ(text, "own");
    superMaster->defineSuperMaster(superMaster->getPcellDef(), defaults());
    EXPECT_EQ(paramsOfInst(placed), both);
    EXPECT_FALSE(placed->hasProp());
    EXPECT_EQ(paramsOf(placed->getMaster(), true), both);
}

TEST_F(InstBinding, KeepsValuesOfEveryTypeWhenParametersComeAndGo) {
    const oaByte bytes[] = {0, 1, 255};
    oaParamArray values;
    values.append(oaParam("int", oaInt4(-3)));
    values.append(oaParam("float", oaFloat(0.5)));
    values.append(oaParam("double", oaDouble(2.5)));
    values.append(oaParam("string", oaString("text")));
    values.append(oaParam("app", "type", 3, bytes));
    oaParam value;
    value.setName("boolean");
    value.setBooleanVal(true);
    values.append(value);
    value.setName("time");
    value.setTimeVal(99);
    values.append(value);
    openSuperMaster()->defineSuperMaster(superMaster->getPcellDef(), values);
    oaInst* placed = place(values);
    superMaster->undefineSuperMaster();
    EXPECT_EQ(paramsOfInst(placed), oaParamArray());
    EXPECT_EQ(placed->getProps().getCount(), 7u);
    EXPECT_EQ(placed->getMaster(), superMaster);
    superMaster->defineSuperMaster(evaluator->getPcellDef(), values);
    EXPECT_FALSE(placed->hasProp());
    for (oaUInt4 i = 0; i < values.getNumElements(); ++i)
        EXPECT_NE(paramsOfInst(placed).find(values[i]), oacNullIndex) << i;
}

TEST_F(InstBinding, OfADesignThatMayNotChangeLeavesItsParameters) {
    placeByName("large", sized(30));
    reopenTop();
    inst("large")->getMaster();
    oaParamArray other;
    other.append(oaParam("label", "none"));
    openSuperMaster()->defineSuperMaster(superMaster->getPcellDef(), other);
    EXPECT_EQ(paramsOfInst(inst("large")), sized(30));
    EXPECT_FALSE(inst("large")->hasProp());
    EXPECT_TRUE(inst("large")->isBound());
    EXPECT_EQ(paramsOf(inst("large")->getMaster(), true), other);
}

TEST_F(InstBinding, MakesVectorsAndArraysOfPcells) {
    const oaParamArray params = sized(30);
    oaVectorInst* vector =
        oaVectorInst::create(block, openSuperMaster(), name("v"), 0, 2, oaTransform(5, 0), &params);
    EXPECT_EQ(widthOf(vector->getBit(1)->getMaster()), 30);
    EXPECT_EQ(vector->getBit(1)->getHeader(), vector->getHeader());
    EXPECT_EQ(paramsOfInst(vector->getBit(2)), params);
    EXPECT_EQ(vector->getHeader()->getInsts().getCount(), 1u);
    EXPECT_EQ(vector->getHeader()->getInsts(oacInstIterAll).getCount(), 4u);
    oaArrayInst* array =
        oaArrayInst::create(block, superMaster, oaTransform(), 50, 50, 2, 2, &params);
    oaBox box;
    array->getBBox(box);
    EXPECT_EQ(box, oaBox(0, 0, 80, 80));
    vector->setParams(sized(12));
    EXPECT_EQ(widthOf(vector->getBit(0)->getMaster()), 12);
}

} // namespace

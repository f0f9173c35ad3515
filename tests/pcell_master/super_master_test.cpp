#include "recording_pcell.h"

#include "support/places.h"
#include "support/run_program.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>

#include <limits>

using namespace oa;
using namespace ovalis::test;

namespace {

using Calls = std::vector<std::string>;

oaScalarName name(const char* text) {
    return oaScalarName(oaNativeNS(), text);
}

/// What `call` throws: its text, or "nothing".
template <class Call>
std::string refused(oaUInt4 id, Call call) {
    try {
        call();
    } catch (const oaDesignError& error) {
        return error.getMsgId() == id ? std::string(error.getMsg())
                                      : "message " + std::to_string(error.getMsgId());
    }
    return "nothing";
}

/// A library, and an evaluator that is known while the object lives.
class SuperMaster : public testing::Test {
protected:
    SuperMaster()
        : lib(oaLib::create(name("lib"), (directory.str() + "/lib").c_str())),
          evaluator(new RecordingPcell),
          link(oaPcellLink::create(evaluator)) {
        evaluator->takeCalls();
    }
    ~SuperMaster() override {
        lib->close();
        EXPECT_EQ(evaluator->definitions, 0);
        forgetEvaluator();
    }

    void forgetEvaluator() {
        if (link)
            link->destroy();
        link = nullptr;
    }

    oaDesign* open(oaChar mode, const char* cell = "coil") {
        return oaDesign::open(name("lib"), name(cell), name("layout"),
                              oaViewType::get(oacMaskLayout), mode);
    }

    static oaParamArray params() {
        oaParamArray params;
        params.append(oaParam("turns", oaInt4(3)));
        params.append(oaParam("width", oaDouble(2.5)));
        return params;
    }

    /// A design that was just made a super master.
    oaDesign* define(const char* cell = "coil") {
        oaDesign* design = open('w', cell);
        oaPcellDef* def = evaluator->getPcellDef();
        def->addData("note", "macro");
        design->defineSuperMaster(def, params());
        return design;
    }

    void save() {
        oaDesign* design = define();
        design->save();
        design->close();
        evaluator->takeCalls();
    }

    static std::string evaluatorOf(const oaDesign* design) {
        oaString text;
        design->getPcellEvaluatorName(text);
        return std::string(text);
    }

    static oaParamArray paramsOf(const oaDesign* design, oaBoolean includeDefaults = true) {
        oaParamArray params;
        params.append(oaParam("stale", oaInt4(1)));
        design->getParams(params, includeDefaults);
        return params;
    }

    TemporaryDirectory directory;
    oaLib* lib;
    RecordingPcell* evaluator;
    oaPcellLink* link;
};

} // namespace

TEST_F(SuperMaster, IsDefinedByADefinitionAndParameters) {
    oaDesign* design = open('w');
    EXPECT_FALSE(design->isSuperMaster());
    oaPcellDef* def = oaPcellLink::getPcellDef("recording");
    evaluator->takeCalls();
    design->defineSuperMaster(def, params());
    EXPECT_EQ(evaluator->takeCalls(), (Calls{"getName", "onBind coil"}));
    EXPECT_TRUE(design->isSuperMaster());
    EXPECT_FALSE(design->isSubMaster());
    EXPECT_TRUE(design->isModified());
    EXPECT_EQ(design->getPcellDef(), def);
    EXPECT_EQ(evaluatorOf(design), "recording");
    EXPECT_EQ(paramsOf(design), params());
    EXPECT_EQ(paramsOf(design, false), oaParamArray());
}

TEST_F(SuperMaster, FindsAParameterByName) {
    oaDesign* design = define();
    oaParam param;
    EXPECT_TRUE(design->findParam("width", param));
    EXPECT_EQ(param, oaParam("width", 2.5));
    EXPECT_FALSE(design->findParam("height", param));
    EXPECT_EQ(param, oaParam("width", 2.5));
}

TEST_F(SuperMaster, IsSavedAndOpenedInThisOrderOfCalls) {
    oaDesign* design = define();
    evaluator->takeCalls();
    design->save();
    EXPECT_EQ(evaluator->takeCalls(), (Calls{"calcDiskSize", "onWrite coil"}));
    design->close();
    EXPECT_EQ(evaluator->takeCalls(), Calls{"onUnbind coil"});
    design = open('r');
    EXPECT_EQ(evaluator->takeCalls(), (Calls{"getPcellDef", "onRead coil", "onBind coil"}));
    design->close();
    EXPECT_EQ(evaluator->takeCalls(), Calls{"onUnbind coil"});
}

TEST_F(SuperMaster, ComesBackWithItsDefinitionDataAndParameters) {
    save();
    lib->close();
    lib = oaLib::open(name("lib"), (directory.str() + "/lib").c_str());
    oaDesign* design = open('r');
    EXPECT_TRUE(design->isSuperMaster());
    EXPECT_EQ(evaluatorOf(design), "recording");
    EXPECT_EQ(design->getPcellDef()->getIPcell(), evaluator);
    EXPECT_EQ(RecordingPcell::noteOf(design->getPcellDef()), "macro");
    EXPECT_EQ(paramsOf(design), params());
}

TEST_F(SuperMaster, KeepsParametersOfEveryKind) {
    const oaByte bytes[] = {0, 255, 0, 7};
    oaParamArray all;
    all.append(oaParam("int", std::numeric_limits<oaInt4>::min()));
    all.append(oaParam("float", 0.1f));
    all.append(oaParam("double", -0.1));
    all.append(oaParam("string", "a text"));
    all.append(oaParam("empty", ""));
    all.append(oaParam("bytes", "own", 4, bytes));
    all.append(oaParam("noBytes", "own", 0, bytes));
    oaParam flag;
    flag.setName("flag");
    flag.setBooleanVal(true);
    all.append(flag);
    oaParam time;
    time.setName("time");
    time.setTimeVal(oaTime(1) << 40);
    all.append(time);
    oaDesign* design = open('w');
    design->defineSuperMaster(evaluator->getPcellDef(), all);
    design->save();
    design->close();
    EXPECT_EQ(paramsOf(open('r')), all);
}

TEST_F(SuperMaster, MayHaveNoParameters) {
    oaDesign* design = open('w');
    design->defineSuperMaster(evaluator->getPcellDef(), oaParamArray());
    design->save();
    design->close();
    design = open('r');
    EXPECT_TRUE(design->isSuperMaster());
    EXPECT_EQ(paramsOf(design), oaParamArray());
}

TEST_F(SuperMaster, KeepsTheContentOfTheDesign) {
    oaDesign* design = open('w');
    oaRect::create(oaBlock::create(design), 1, 2, oaBox(0, 0, 10, 20));
    design->defineSuperMaster(evaluator->getPcellDef(), params());
    design->save();
    design->close();
    design = open('r');
    EXPECT_TRUE(design->isSuperMaster());
    EXPECT_EQ(design->getTopBlock()->getShapes().getCount(), 1u);
}

TEST_F(SuperMaster, IsDefinedAnew) {
    oaDesign* design = define();
    evaluator->takeCalls();
    oaParamArray other;
    other.append(oaParam("length", "10u"));
    design->defineSuperMaster(oaPcellLink::getPcellDef("recording"), other);
    EXPECT_EQ(evaluator->takeCalls(),
              (Calls{"getPcellDef", "getName", "onUnbind coil", "onBind coil"}));
    EXPECT_EQ(evaluator->definitions, 1);
    design->save();
    design->close();
    EXPECT_EQ(paramsOf(open('r')), other);
}

TEST_F(SuperMaster, TakesOtherParametersWithTheSameDefinition) {
    oaDesign* design = define();
    evaluator->takeCalls();
    oaParamArray other;
    other.append(oaParam("length", "10u"));
    design->defineSuperMaster(design->getPcellDef(), other);
    EXPECT_EQ(evaluator->takeCalls(), Calls{"getName"});
    EXPECT_EQ(paramsOf(design), other);
}

TEST_F(SuperMaster, IsAnOrdinaryDesignOnceItIsUndefined) {
    oaDesign* design = define();
    evaluator->takeCalls();
    design->undefineSuperMaster();
    EXPECT_EQ(evaluator->takeCalls(), Calls{"onUnbind coil"});
    EXPECT_FALSE(design->isSuperMaster());
    EXPECT_EQ(paramsOf(design), oaParamArray());
    design->save();
    EXPECT_EQ(evaluator->takeCalls(), Calls());
    design->close();
    EXPECT_FALSE(open('r')->isSuperMaster());
}

TEST_F(SuperMaster, GivesItsDefinitionBackWhenItsContentGoes) {
    save();
    oaDesign* design = open('a');
    evaluator->takeCalls();
    design->revert();
    EXPECT_EQ(evaluator->takeCalls(),
              (Calls{"onUnbind coil", "getPcellDef", "onRead coil", "onBind coil"}));
    design->reopen('w');
    EXPECT_EQ(evaluator->takeCalls(), Calls{"onUnbind coil"});
    EXPECT_FALSE(design->isSuperMaster());
    design->purge();
    open('r');
    evaluator->takeCalls();
    lib->close();
    EXPECT_EQ(evaluator->takeCalls(), Calls{"onUnbind coil"});
    lib = oaLib::open(name("lib"), (directory.str() + "/lib").c_str());
}

TEST_F(SuperMaster, IsCopiedBySaveAs) {
    oaDesign* design = define();
    design->saveAs(name("lib"), name("copy"), name("layout"));
    oaDesign* copy = open('r', "copy");
    EXPECT_TRUE(copy->isSuperMaster());
    EXPECT_EQ(RecordingPcell::noteOf(copy->getPcellDef()), "macro");
    EXPECT_EQ(paramsOf(copy), params());
}

TEST_F(SuperMaster, OpensWithoutItsEvaluator) {
    save();
    forgetEvaluator();
    evaluator = new RecordingPcell; // for the fixture's last look
    oaDesign* design = open('r');
    EXPECT_TRUE(design->isSuperMaster());
    EXPECT_EQ(evaluatorOf(design), "recording");
    EXPECT_EQ(design->getPcellDef(), nullptr);
    EXPECT_EQ(paramsOf(design), params());
    link = oaPcellLink::create(evaluator);
}

TEST_F(SuperMaster, KeepsItsDefinitionDataWhereItsEvaluatorIsUnknown) {
    save();
    forgetEvaluator();
    evaluator = new RecordingPcell;
    oaDesign* design = open('a');
    oaRect::create(oaBlock::create(design), 1, 2, oaBox(0, 0, 10, 20));
    design->save();
    design->saveAs(name("lib"), name("copy"), name("layout"));
    design->close();
    link = oaPcellLink::create(evaluator);
    for (const char* cell : {"coil", "copy"}) {
        design = open('r', cell);
        EXPECT_EQ(RecordingPcell::noteOf(design->getPcellDef()), "macro") << cell;
        EXPECT_EQ(paramsOf(design), params()) << cell;
        EXPECT_EQ(design->getTopBlock()->getShapes().getCount(), 1u) << cell;
    }
}

TEST_F(SuperMaster, KeepsItsDefinitionDataInAProcessThatDoesNotKnowItsEvaluator) {
    std::string note("\0\xff\n of any bytes\0", 17);
    oaDesign* design = open('w');
    oaPcellDef* def = evaluator->getPcellDef();
    def->addData("note", "macro");
    evaluator->tail = note;
    evaluator->room = oaUInt4(note.size());
    design->defineSuperMaster(def, params());
    design->save();
    design->close();
    lib->close();
    const ProgramResult elsewhere =
        runProgram(builtProgram("save_without_evaluator"), {directory.str() + "/lib", "coil"});
    EXPECT_TRUE(elsewhere.output.starts_with("6 The evaluator 'recording' of pcell "
                                             "'elsewhere/coil/layout' is missing: "))
        << elsewhere.output;
    EXPECT_EQ(elsewhere.exitCode, 0);
    lib = oaLib::open(name("lib"), (directory.str() + "/lib").c_str());
    design = open('r');
    EXPECT_EQ(design->getTopBlock()->getShapes().getCount(), 1u);
    EXPECT_EQ(paramsOf(design), params());
    EXPECT_EQ(evaluator->dataRead, std::string("\x16\0\0\0", 4) + "macro" + note);
}

TEST_F(SuperMaster, OpensWithoutADefinitionWhenItsEvaluatorFails) {
    save();
    for (const char* call : {"getPcellDef", "onRead", "onBind"}) {
        evaluator->failingIn = call;
        oaDesign* design = open('a');
        EXPECT_TRUE(design->isSuperMaster()) << call;
        EXPECT_EQ(design->getPcellDef(), nullptr) << call;
        EXPECT_EQ(evaluatorOf(design), "recording") << call;
        EXPECT_EQ(evaluator->definitions, 0) << call;
        design->save();
        design->close();
    }
    evaluator->failingIn = "";
    EXPECT_EQ(RecordingPcell::noteOf(open('r')->getPcellDef()), "macro");
}

TEST_F(SuperMaster, IsNotDefinedWhenItsEvaluatorRefuses) {
    oaDesign* design = open('w');
    evaluator->failingIn = "onBind";
    EXPECT_EQ(refused(oacPcellSubMasterNotProduced,
                      [&] { design->defineSuperMaster(evaluator->getPcellDef(), params()); }),
              "The pcell submaster cannot be produced.");
    EXPECT_FALSE(design->isSuperMaster());
    EXPECT_EQ(evaluator->definitions, 0);
}

TEST_F(SuperMaster, IsPurgedThoughItsEvaluatorFails) {
    oaDesign* design = define();
    evaluator->failingIn = "onUnbind";
    design->purge();
    EXPECT_FALSE(design->isValid());
    EXPECT_EQ(evaluator->definitions, 0);
}

TEST_F(SuperMaster, IsNotSavedWhenItsDefinitionDataOutgrowsItsSize) {
    oaDesign* design = define();
    design->save();
    evaluator->tail = "!";
    EXPECT_EQ(refused(oacPcellDefinitionTooLong, [&] { design->save(); }),
              "The definition data of pcell 'lib/coil/layout' is longer than the 9 bytes that its "
              "evaluator 'recording' asked for.");
    design->purge();
    evaluator->tail = "";
    EXPECT_EQ(RecordingPcell::noteOf(open('r')->getPcellDef()), "macro");
}

TEST_F(SuperMaster, IsNotSavedWhenItsEvaluatorFails) {
    oaDesign* design = define();
    for (const char* call : {"calcDiskSize", "onWrite"}) {
        evaluator->failingIn = call;
        EXPECT_EQ(refused(oacPcellSubMasterNotProduced, [&] { design->save(); }),
                  "The pcell submaster cannot be produced.");
    }
    EXPECT_TRUE(design->isModified());
    EXPECT_EQ(evaluator->definitions, 1);
}

TEST_F(SuperMaster, NeedsADesignThatMayBeChanged) {
    save();
    oaDesign* design = open('r');
    oaPcellDef* def = evaluator->getPcellDef();
    const std::string expected =
        "Design 'lib/coil/layout' is open for reading and cannot be changed.";
    EXPECT_EQ(
        refused(oacCannotModifyReadModeDesign, [&] { design->defineSuperMaster(def, params()); }),
        expected);
    EXPECT_EQ(refused(oacCannotModifyReadModeDesign, [&] { design->undefineSuperMaster(); }),
              expected);
    evaluator->onUnbind(nullptr, def);
}

TEST_F(SuperMaster, NeedsADefinition) {
    oaDesign* design = open('w');
    EXPECT_EQ(
        refused(oacPcellInvalidPcellDef, [&] { design->defineSuperMaster(nullptr, params()); }),
        "The pcell definition given is not valid.");
    oaPcellDef ofNobody(nullptr);
    EXPECT_EQ(
        refused(oacPcellInvalidPcellDef, [&] { design->defineSuperMaster(&ofNobody, params()); }),
        "The pcell definition given is not valid.");
    EXPECT_FALSE(design->isSuperMaster());
}

TEST_F(SuperMaster, IsWhatOnlyASuperMasterAnswersAs) {
    oaDesign* design = open('w');
    const std::string expected = "Design 'lib/coil/layout' is not a pcell super master.";
    EXPECT_EQ(refused(oacInvalidSuperMaster, [&] { design->getPcellDef(); }), expected);
    EXPECT_EQ(refused(oacInvalidSuperMaster, [&] { evaluatorOf(design); }), expected);
    EXPECT_EQ(refused(oacInvalidSuperMaster, [&] { design->undefineSuperMaster(); }), expected);
    oaParam param;
    EXPECT_FALSE(design->findParam("turns", param));
    EXPECT_EQ(paramsOf(design), oaParamArray());
    EXPECT_EQ(paramsOf(design, false), oaParamArray());
    EXPECT_FALSE(design->isSubMaster());
}

TEST_F(SuperMaster, KeepsItsEvaluatorAliveWithoutItsLink) {
    oaDesign* design = define();
    const int destroyed = RecordingPcell::destroyed();
    forgetEvaluator();
    EXPECT_EQ(RecordingPcell::destroyed(), destroyed);
    design->purge();
    EXPECT_EQ(RecordingPcell::destroyed(), destroyed + 1);
    evaluator = new RecordingPcell;
    link = oaPcellLink::create(evaluator);
}

#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include <memory>

#include <gtest/gtest.h>

#include "support/library_fixture.h"

using namespace ovalis;

namespace {

/// One of each class with the name it must answer.
std::vector<std::pair<std::shared_ptr<VexPcell>, std::string>> oneOfEachClass() {
    return {{std::make_shared<VexPSNPcell>(), "PSNPcell"},
            {std::make_shared<VexLayerMappingPcell>(), "LayerMappingPcell"},
            {std::make_shared<VexReferencePcell>(), "ReferencePcell"},
            {std::make_shared<VexViaPadPcell>(), "CorvidViaPad"},
            {std::make_shared<VexNestedTechnologyPcell>(), "NestedTechnologyPcell"},
            {std::make_shared<VexSKRPcell>(), "SKRPcell"}};
}

/// A definition of the script-macro kind, with a macro name when one is given.
struct MacroDefinition {
    explicit MacroDefinition(VexSKRPcell& evaluator, const char* macro = nullptr)
        : def(evaluator.getPcellDef()) {
        if (macro != nullptr) {
            def->addData("SKRMacroName", macro);
        }
    }

    std::unique_ptr<oa::oaPcellDef> def;
};

/// Counts the evaluators that are alive.
template <class Pcell>
class Counted : public Pcell {
public:
    explicit Counted(int& alive) : alive_(alive) { ++alive_; }
    ~Counted() override { --alive_; }

private:
    int& alive_;
};

/// One of each class on the heap, where they delete themselves.
std::vector<oa::IPcell*> countedOneOfEachClass(int& alive) {
    return {new Counted<VexPSNPcell>(alive),
            new Counted<VexLayerMappingPcell>(alive),
            new Counted<VexReferencePcell>(alive),
            new Counted<VexViaPadPcell>(alive),
            new Counted<VexNestedTechnologyPcell>(alive),
            new Counted<VexSKRPcell>(alive)};
}

class Evaluators : public ovalis::test::LibraryTest {};

} // namespace

TEST(Evaluator, AnswersItsName) {
    for (const auto& [evaluator, expected] : oneOfEachClass()) {
        oa::oaString name;
        evaluator->getName(name);
        EXPECT_EQ(fromOa(name), expected);
    }
}

TEST(Evaluator, NamesTheDataItemOfTheMacro) {
    EXPECT_EQ(VexSKRPcell::dataName_SKRMacro(), "SKRMacroName");
}

TEST(Evaluator, AnswersItsInterfacesAndAddsAReference) {
    for (const auto& [evaluator, name] : oneOfEachClass()) {
        for (const oaCommon::Guid& id : {oaCommon::IID_IBase, oa::IPcell::getId()}) {
            void* found = nullptr;
            EXPECT_EQ(evaluator->queryInterface(id, &found), 0);
            EXPECT_EQ(found, static_cast<oa::IPcell*>(evaluator.get()));
        }
        EXPECT_EQ(evaluator->addRef(), 2U);
    }
}

TEST(Evaluator, AnswersNullForOtherInterfaces) {
    oaCommon::Guid other = oa::IPcell::getId();
    other.data4[7] = static_cast<unsigned char>(other.data4[7] + 1);
    for (const auto& [evaluator, name] : oneOfEachClass()) {
        void* found = evaluator.get();
        EXPECT_EQ(evaluator->queryInterface(other, &found), 2);
        EXPECT_EQ(found, nullptr);
        EXPECT_EQ(evaluator->addRef(), 0U);
    }
}

TEST(Evaluator, CountsReferencesFromZeroAndGoesWithTheLast) {
    int alive = 0;
    for (oa::IPcell* evaluator : countedOneOfEachClass(alive)) {
        const int before = alive;
        EXPECT_EQ(evaluator->addRef(), 0U);
        EXPECT_EQ(evaluator->addRef(), 1U);
        EXPECT_EQ(evaluator->getRefCount(), 1U);
        EXPECT_EQ(evaluator->release(), 1U);
        EXPECT_EQ(alive, before);
        EXPECT_EQ(evaluator->release(), 0U);
        EXPECT_EQ(alive, before - 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(Evaluator, KeepsItsCountWhileCountingIsDisabled) {
    for (const auto& [evaluator, name] : oneOfEachClass()) {
        evaluator->addRef();
        oaCommon::IBase::s_refCountDisabled = true;
        EXPECT_EQ(evaluator->addRef(), 1U);
        EXPECT_EQ(evaluator->addRef(), 1U);
        EXPECT_EQ(evaluator->release(), 1U);
        oaCommon::IBase::s_refCountDisabled = false;
        EXPECT_EQ(evaluator->addRef(), 1U);
    }
}

TEST(Evaluator, MakesANewDefinitionEachTime) {
    for (const auto& [evaluator, name] : oneOfEachClass()) {
        const std::unique_ptr<oa::oaPcellDef> first(evaluator->getPcellDef());
        const std::unique_ptr<oa::oaPcellDef> second(evaluator->getPcellDef());
        EXPECT_NE(first.get(), second.get());
        EXPECT_EQ(first->getIPcell(), evaluator.get());
    }
}

TEST(Evaluator, DeletesADefinitionThatIsHandedBack) {
    struct CountedDef : oa::oaPcellDef {
        CountedDef(oa::IPcell* evaluator, int& alive) : oaPcellDef(evaluator), alive_(alive) {
            ++alive_;
        }
        ~CountedDef() override { --alive_; }
        int& alive_;
    };
    for (const auto& [evaluator, name] : oneOfEachClass()) {
        int alive = 0;
        auto* def = new CountedDef(evaluator.get(), alive); // taken by onUnbind
        evaluator->onBind(nullptr, def);
        EXPECT_EQ(alive, 1);
        evaluator->onUnbind(nullptr, def);
        EXPECT_EQ(alive, 0);
        evaluator->onUnbind(nullptr, nullptr);
    }
}

TEST(Evaluator, HasNoDefinitionDataButTheMacroKind) {
    for (const auto& [evaluator, name] : oneOfEachClass()) {
        const std::unique_ptr<oa::oaPcellDef> def(evaluator->getPcellDef());
        EXPECT_EQ(evaluator->calcDiskSize(def.get()), name == "SKRPcell" ? 4U : 0U) << name;
    }
}

TEST(MacroName, IsSizedInWords) {
    const std::pair<const char*, oa::oaUInt4> table[] = {
        {"", 4U},  {"a", 8U},    {"abcd", 8U},        {"abcde", 12U},
        {"ä", 8U}, {"äöü", 12U}, {"resArtwork", 16U},
    };
    VexSKRPcell evaluator;
    for (const auto& [macro, size] : table) {
        EXPECT_EQ(evaluator.calcDiskSize(MacroDefinition(evaluator, macro).def.get()), size)
            << macro;
    }
    EXPECT_EQ(evaluator.calcDiskSize(MacroDefinition(evaluator).def.get()), 4U);
}

TEST_F(Evaluators, RefuseToEvaluateWithoutATopList) {
    oa::oaDesign& layout = design("cell", "layout", 'w');
    for (const auto& [evaluator, name] : oneOfEachClass()) {
        const std::unique_ptr<oa::oaPcellDef> def(evaluator->getPcellDef());
        try {
            evaluator->onEval(&layout, def.get());
            ADD_FAILURE() << name << " evaluated";
        } catch (const oa::oaDesignError& error) {
            EXPECT_EQ(error.getMsgId(), 1201U);
        }
    }
    EXPECT_EQ(layout.getTopBlock(), nullptr);
}

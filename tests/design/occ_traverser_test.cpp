// Walks through the hierarchy below a design.

#include "design_fixture.h"

#include <optional>

namespace design_test {

namespace {

using Lines = std::vector<std::string>;

std::string pathOf(const oaOccInst* inst) {
    oaString path;
    inst->getPathName(oaNativeNS(), path);
    return text(path);
}

/// Notes every call.
class Traverser : public oaOccTraverser {
public:
    using oaOccTraverser::oaOccTraverser;

    Lines lines;
    std::string refused; // what startInst keeps the walk out of
    std::string last;    // the instance at which the walk ends
    bool all = true;     // else the instances alone

protected:
    oaBoolean startOccurrence(oaOccurrence* occurrence) override {
        note("start", occurrence);
        return refused != "occurrence";
    }
    void endOccurrence(oaOccurrence* occurrence) override { note("end", occurrence); }
    void processOccurrence(oaOccurrence* occurrence) override { note("process", occurrence); }
    oaBoolean startInst(oaOccInst* inst) override {
        note("start", inst);
        return pathOf(inst) != refused;
    }
    void endInst(oaOccInst* inst) override { note("end", inst); }
    void processInst(oaOccInst* inst) override {
        lines.push_back(pathOf(inst));
        if (pathOf(inst) == last)
            abort();
    }

private:
    void note(const char* call, const oaOccurrence* occurrence) {
        const oaOccInst* inst = occurrence->getOccInst();
        if (all)
            lines.push_back(std::string(call) + " occurrence" + (inst ? " " + pathOf(inst) : ""));
    }
    void note(const char* call, const oaOccInst* inst) {
        if (all)
            lines.push_back(std::string(call) + " " + pathOf(inst));
    }
};

/// "top" holds the scalar s and the vector v[1:0] of "middle", which holds an array of "leaf".
class TraverserTest : public DesignTest {
protected:
    TraverserTest() {
        oaArrayInst::create(middle, leaf->getDesign(), name("a"), oaTransform(), 9, 9, 2, 3);
        oaScalarInst::create(top, middle->getDesign(), name("s"), oaTransform());
        oaVectorInst::create(top, middle->getDesign(), name("v"), 1, 0, oaTransform());
        traverser.emplace(top->getDesign()->getTopOccurrence());
    }

    Lines walked(oaUInt4 flags, bool withCalls = false) {
        traverser->flags() = flags;
        traverser->all = withCalls;
        traverser->lines.clear();
        traverser->traverse();
        return traverser->lines;
    }

    oaBlock* leaf = makeBlock("leaf");
    oaBlock* middle = makeBlock("middle");
    oaBlock* top = makeBlock("top");
    std::optional<Traverser> traverser;
};

} // namespace

TEST_F(TraverserTest, ProcessesTheExplicitInstancesOfOneBlock) {
    EXPECT_EQ(traverser->flags(), 0u);
    EXPECT_EQ(traverser->getTopOccurrence(), top->getDesign()->getTopOccurrence());
    EXPECT_EQ(walked(0, true),
              (Lines{"start occurrence", "process occurrence", "s", "v[1:0]", "end occurrence"}));
}

TEST_F(TraverserTest, ProcessesImplicitInstancesOnRequest) {
    EXPECT_EQ(walked(oavOccTraverseImplicit), (Lines{"s", "v[1:0]", "v[1]", "v[0]"}));
}

TEST_F(TraverserTest, GoesIntoMastersOnRequest) {
    EXPECT_EQ(walked(oavOccTraverseDesigns), (Lines{"s", "s/a", "v[1:0]"}));
    EXPECT_EQ(walked(oavOccTraverseDesigns | oavOccTraverseImplicit),
              (Lines{"s", "s/a", "v[1:0]", "v[1]", "v[1]/a", "v[0]", "v[0]/a"}));
}

TEST_F(TraverserTest, ProcessesWhatIsBelowFirstOnRequest) {
    EXPECT_EQ(walked(oavOccTraverseDesigns | oavOccTraversePostOrder),
              (Lines{"s/a", "s", "v[1:0]"}));
}

TEST_F(TraverserTest, TellsWhereItIs) {
    EXPECT_EQ(walked(oavOccTraverseDesigns, true),
              (Lines{"start occurrence", "process occurrence", "s", "start s", "start occurrence s",
                     "process occurrence s", "s/a", "start s/a", "start occurrence s/a",
                     "process occurrence s/a", "end occurrence s/a", "end s/a", "end occurrence s",
                     "end s", "v[1:0]", "start v[1:0]", "end v[1:0]", "end occurrence"}));
}

TEST_F(TraverserTest, StaysOutOfWhatIsRefused) {
    traverser->refused = "s";
    EXPECT_EQ(walked(oavOccTraverseDesigns), (Lines{"s", "v[1:0]"}));
    traverser->refused = "occurrence";
    EXPECT_EQ(walked(oavOccTraverseDesigns, true), Lines{"start occurrence"});
}

TEST_F(TraverserTest, EndsWhenItIsToldTo) {
    traverser->last = "s/a";
    const Lines expected{"start occurrence",   "process occurrence",   "s",  "start s",
                         "start occurrence s", "process occurrence s", "s/a"};
    EXPECT_EQ(walked(oavOccTraverseDesigns, true), expected);
    EXPECT_EQ(walked(oavOccTraverseDesigns, true), expected);
}

TEST_F(TraverserTest, LetsInstancesBeDestroyed) {
    struct Destroyer : oaOccTraverser {
        using oaOccTraverser::oaOccTraverser;
        void processInst(oaOccInst* inst) override { inst->getInst()->destroy(); }
    };
    Destroyer destroyer(top->getDesign()->getTopOccurrence());
    destroyer.flags() = oavOccTraverseDesigns;
    destroyer.traverse();
    EXPECT_TRUE(top->getInsts().isEmpty());
    EXPECT_EQ(middle->getInsts().getCount(), 1u);
}

TEST_F(TraverserTest, RefusesToWalkBelowNothing) {
    Traverser none(nullptr);
    EXPECT_EQ(thrownBy([&] { none.traverse(); }), oacInvalidObject);
    top->getDesign()->purge();
    EXPECT_EQ(thrownBy([&] { traverser->traverse(); }), oacInvalidObject);
}

} // namespace design_test

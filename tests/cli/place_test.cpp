#include <gtest/gtest.h>

#include "evaluation/parameters.h"
#include "pcell_place.h"

namespace cli::test {
namespace {

using ovalis::test::EnvironmentOverride;

/// An instance as it is in the library.
struct Placed {
    std::string master;
    int x = 0;
    int y = 0;
    std::string params;

    friend bool operator==(const Placed&, const Placed&) = default;
};

void PrintTo(const Placed& placed, std::ostream* stream) {
    *stream << placed.master << " at " << placed.x << ", " << placed.y << " with " << placed.params;
}

std::map<std::string, Placed> placedIn(const std::string& library) {
    const ovalis::LibPtr lib = ovalis::openLib(library, false, "lib");
    oa::oaDesign* design = ovalis::openDesign(*lib, "top", "layout", false);
    std::map<std::string, Placed> result;
    oa::oaIter<oa::oaInst> insts(design->getTopBlock()->getInsts());
    while (oa::oaInst* inst = insts.getNext()) {
        const oa::oaNativeNS names;
        oa::oaString name;
        oa::oaString masterLibrary;
        oa::oaString cell;
        inst->getName(names, name);
        inst->getLibName(names, masterLibrary);
        inst->getCellName(names, cell);
        oa::oaPoint origin;
        inst->getOrigin(origin);
        oa::oaParamArray params;
        inst->getParams(params);
        result[ovalis::fromOa(name)] = {ovalis::fromOa(masterLibrary) + "/" + ovalis::fromOa(cell),
                                        origin.x(), origin.y(), evaluation::textOf(params)};
    }
    design->close();
    return result;
}

TEST(Place, MakesTheDesignAndPutsInstancesIntoIt) {
    PcellPlace work;
    EXPECT_EQ(work.place("I1"),
              (Outcome{0, "", "placed I1 of lib/coil/layout in top/layout: no parameters\n"}));
    EXPECT_EQ(work.place("I2", {"--param", "N=3"}),
              (Outcome{0, "", "placed I2 of lib/coil/layout in top/layout: N = 3\n"}));
    EXPECT_EQ(placedIn(work.library()),
              (std::map<std::string, Placed>{{"I1", {"lib/coil", 0, -50500, "no parameters"}},
                                             {"I2", {"lib/coil", 0, -50500, "N = 3"}}}));
}

TEST(Place, TakesEveryFormOfANegativeNumber) {
    PcellPlace work;
    const auto placeAt = [&](const char* name, const char* x, const char* y) {
        return ovalisHere({"place", work.library(), "top", "layout", name, x, y, "--master",
                           work.library(), "coil", "layout"});
    };
    EXPECT_EQ(placeAt("I1", "-.5", "-.25e1").status, 0);
    EXPECT_EQ(placeAt("I2", "-0.5", "-2.5").status, 0);
    const Placed expected{"lib/coil", -500, -2500, "no parameters"};
    EXPECT_EQ(placedIn(work.library()),
              (std::map<std::string, Placed>{{"I1", expected}, {"I2", expected}}));
    EXPECT_EQ(placeAt("I3", "-inf", "0"),
              (Outcome{2, "", "ovalis: X is out of the range of coordinates\n"}));
    EXPECT_EQ(placeAt("I3", "0", "-nan"),
              (Outcome{2, "", "ovalis: Y is out of the range of coordinates\n"}));
    EXPECT_EQ(placeAt("I3", "-.5x", "0").status, 2);
}

TEST(Place, TakesAMasterOfAnotherLibraryThatIsNoPcell) {
    PcellPlace work;
    std::filesystem::copy(work.library(), work.path("other"),
                          std::filesystem::copy_options::recursive);
    EXPECT_EQ(ovalisHere({"place", work.library(), "top", "layout", "S", "1.5", "2", "--master",
                          work.path("other"), "coil", "symbol"}),
              (Outcome{0, "", "placed S of other/coil/symbol in top/layout: no parameters\n"}));
    EXPECT_EQ(placedIn(work.library()),
              (std::map<std::string, Placed>{{"S", {"other/coil", 1500, 2000, "no parameters"}}}));
}

TEST(Place, NamesWhatIsWrongAndPlacesNothing) {
    PcellPlace work;
    ASSERT_EQ(work.place("I1").status, 0);
    const auto before = placedIn(work.library());
    const std::string lib = work.library();
    const struct {
        std::vector<std::string> arguments;
        std::string talk;
    } rows[] = {
        {{"I2", "0", "0", "--master", lib, "coil", "layout", "--param", "N=x"},
         "ovalis: parameter \"N\" is of the type int, which \"x\" is not; there are N (int)\n"},
        {{"I2", "0", "0", "--master", lib, "coil", "other"},
         "ovalis: no cell view \"coil/other\"\n"},
        {{"I2", "0", "0", "--master", lib, "coil", "symbol", "--param", "N=2"},
         "ovalis: coil/symbol is no pcell, so that it takes no parameters\n"},
        {{"I2", "3000000", "0", "--master", lib, "coil", "layout"},
         "ovalis: X is out of the range of coordinates\n"},
        {{"I2", "0", "-3000000", "--master", lib, "coil", "layout"},
         "ovalis: Y is out of the range of coordinates\n"},
        {{"I2", "0", "0", "--master", lib + "/.", "top", "layout"},
         "ovalis: top/layout cannot be placed in itself\n"},
        {{"I2", "0", "0"}, "ovalis: --master is required (see ovalis --help)\n"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> arguments = {"place", lib, "top", "layout"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        EXPECT_EQ(ovalisHere(arguments), (Outcome{2, "", row.talk}));
    }
    const Outcome taken = work.place("I1");
    EXPECT_EQ(taken.status, 2);
    EXPECT_NE(taken.talk.find("I1"), std::string::npos) << taken.talk;
    EXPECT_EQ(placedIn(lib), before);
}

TEST(MakePcell, MakesALibraryWithAMasterOfThatEvaluator) {
    const EnvironmentOverride plugIns("OA_PLUGIN_PATH", pluginDirectory());
    PcellPlace work;
    EXPECT_EQ(work.makeSpiral(),
              (Outcome{0, "",
                       "made the pcell coils/spiral/layout of \"spiral\": shape = square, turns = "
                       "2, width = 10, spacing = 5, innerDiameter = 100, layer = 8, viaLayer = 7, "
                       "underpassLayer = 6\n"}));
    EXPECT_EQ(ovalisHere({"list", work.path("coils")}),
              (Outcome{0, "spiral  layout  maskLayout\n", ""}));
    EXPECT_EQ(work.makeSpiral(), (Outcome{2, "",
                                          "ovalis: " + work.path("coils") +
                                              ": the cell view \"spiral/layout\" exists\n"}));
}

TEST(MakePcell, NamesAnEvaluatorThatIsNotThereAndMakesNothing) {
    const EnvironmentOverride plugIns("OA_PLUGIN_PATH", std::nullopt);
    const Workplace work;
    const Outcome refused =
        ovalisHere({"pcell", work.path("new"), "a", "layout", "no_such_evaluator"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(refused.talk.starts_with("ovalis: no evaluator \"no_such_evaluator\": Plug-in "
                                         "'no_such_evaluator': there is no no_such_evaluator.plg"))
        << refused.talk;
    EXPECT_FALSE(std::filesystem::exists(work.path("new")));
}

TEST(MakePcell, NamesAParameterThatCannotBeReadAndMakesNothing) {
    const Workplace work;
    EXPECT_EQ(ovalisHere({"pcell", work.path("new"), "a", "layout", "PSNPcell", "--param", "n=1"}),
              (Outcome{2, "", "ovalis: \"n=1\" is no NAME:TYPE=VALUE\n"}));
    EXPECT_FALSE(std::filesystem::exists(work.path("new")));
}

TEST(MakePcell, RefusesAPathWithBlanks) {
    const Workplace work;
    const std::string path = work.path("my lib");
    EXPECT_EQ(ovalisHere({"pcell", path, "a", "layout", "PSNPcell"}),
              (Outcome{2, "",
                       "ovalis: " + path +
                           ": Specified OpenAccess library path is not compatible with VEX: do "
                           "not use whitespaces.\n"}));
}

} // namespace
} // namespace cli::test

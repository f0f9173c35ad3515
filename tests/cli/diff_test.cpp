#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ovalis/library.h>

#include "workplace.h"

namespace cli::test {
namespace {

using ::testing::HasSubstr;

const std::string usage = "ovalis: diff takes two libraries or two designs: DIR1 [CELL1 VIEW1] "
                          "DIR2 [CELL2 VIEW2]\n";

/// An exported library and a copy of it.
class Diff : public ::testing::Test {
protected:
    Diff() {
        EXPECT_EQ(work.exportIt().status, 0);
        EXPECT_EQ(ovalisHere({"copy", work.library(), copy}).status, 0);
    }

    /// Moves the first polygon of the copy's layout.
    void movePolygon() const {
        const ovalis::LibPtr lib = ovalis::openLib(copy, true, "changed");
        oa::oaDesign* const design = ovalis::openDesign(*lib, "coil", "layout", true);
        oa::oaIter<oa::oaShape> shapes(design->getTopBlock()->getShapes());
        while (oa::oaShape* shape = shapes.getNext())
            if (shape->getType() == oa::oacPolygonType) {
                shape->move(oa::oaTransform(5, -2));
                break;
            }
        design->save();
        design->close();
    }

    Workplace work;
    std::string copy = work.path("copy");
};

TEST_F(Diff, OfACopyIsNothingAndChangesNothing) {
    const Tree before = treeOf(work.path(""));
    EXPECT_EQ(ovalisProgram({"diff", work.library(), copy}), (Outcome{0, "", ""}));
    EXPECT_EQ(ovalisHere({"diff", work.library(), work.library()}), (Outcome{0, "", ""}));
    EXPECT_EQ(ovalisHere({"diff", work.library(), copy, "--json"}), (Outcome{0, "[]\n", ""}));
    EXPECT_EQ(treeOf(work.path("")), before);
}

TEST_F(Diff, OfACopyOfTheSameNameIsNothing) {
    std::filesystem::create_directory(work.path("archive"));
    const std::string archived = work.path("archive/lib");
    ASSERT_EQ(ovalisHere({"copy", work.library(), archived}).status, 0);
    EXPECT_EQ(ovalisHere({"diff", work.library(), archived}), (Outcome{0, "", ""}));
    EXPECT_EQ(ovalisHere({"diff", archived, work.library()}), (Outcome{0, "", ""}));
    EXPECT_EQ(ovalisHere({"diff", work.library(), "coil", "layout", archived, "coil", "layout"}),
              (Outcome{0, "", ""}));
}

TEST_F(Diff, OfAMovedPolygonIsOneLine) {
    movePolygon();
    const std::string line =
        "coil/layout: polygon on M1/drawing (0, 30)-(90, 60) moved by (5, -2)\n";
    EXPECT_EQ(ovalisProgram({"diff", work.library(), copy}), (Outcome{1, line, ""}));
    EXPECT_EQ(ovalisHere({"diff", work.library(), copy, "-q"}), (Outcome{1, "", ""}));
    EXPECT_EQ(ovalisHere({"diff", work.library(), copy, "--quiet"}), (Outcome{1, "", ""}));
    EXPECT_EQ(ovalisHere({"diff", work.library(), "coil", "layout", copy, "coil", "layout"}),
              (Outcome{1, line, ""}));
    const auto json =
        nlohmann::json::parse(ovalisHere({"diff", work.library(), copy, "--json"}).out);
    EXPECT_EQ(json, nlohmann::json::parse(R"json([{"place": "coil/layout",
        "object": "polygon on M1/drawing (0, 30)-(90, 60)",
        "change": "moved", "is": "(5, -2)"}])json"));
}

TEST_F(Diff, OfAnotherItemDefinitionSaysFromWhereOn) {
    const std::string file = copy + "/coil/itemdef.skr";
    std::string text = ovalis::test::readText(file);
    const auto size = std::to_string(text.size());
    text.replace(text.find('\n') + 1, 1, "?");
    ovalis::test::writeText(file, text);
    EXPECT_EQ(ovalisHere({"diff", work.library(), copy}),
              (Outcome{1,
                       "coil: file \"itemdef.skr\": content was " + size + " bytes, is " + size +
                           " bytes, another from line 2 on\n",
                       ""}));
}

TEST_F(Diff, OfTwoComponentsSaysWhatTheExportMadeOtherwise) {
    Workplace other;
    other.component["parameters"][0]["value"] = 3;
    other.component["ports"][0]["name"] = "P";
    ASSERT_EQ(other.exportIt().status, 0);
    const Outcome outcome = ovalisHere({"diff", work.library(), other.library()});
    EXPECT_EQ(outcome.status, 1);
    for (const char* line : {"coil/layout: design: parameter \"N\" was int 2, is int 3\n",

                             "coil/layout: terminal \"A\" renamed to \"P\"\n",
                             "coil/layout: pin \"A\" of terminal \"A\" renamed to \"P\"\n",
                             "coil: file \"itemdef.skr\": content was "})
        EXPECT_THAT(outcome.out, HasSubstr(line));
}

TEST_F(Diff, OfDesignsOfOneLibrary) {
    EXPECT_EQ(
        ovalisHere({"diff", work.library(), "coil", "layout", work.library(), "coil", "layout"}),
        (Outcome{0, "", ""}));
    const Outcome outcome =
        ovalisHere({"diff", work.library(), "coil", "layout", work.library(), "coil", "symbol"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, HasSubstr("coil/layout: block: database units per user unit was 1000, "
                                       "is 160\n"));
    EXPECT_THAT(outcome.out,
                HasSubstr("coil/layout: design: view type was maskLayout, is schematicSymbol\n"));
}

TEST_F(Diff, ReadsApplicationValuesOfOthers) {
    const auto bytes = [](const char* text) { return reinterpret_cast<const oa::oaByte*>(text); };
    {
        const ovalis::LibPtr lib = ovalis::openLib(copy, true, "changed");
        oa::oaDesign* const design = ovalis::openDesign(*lib, "coil", "layout", true);
        oa::oaIter<oa::oaNet> nets(design->getTopBlock()->getNets());
        oa::oaNet* const net = nets.getNext();
        oa::oaIntAppDef<oa::oaNet>::get("others int")->set(net, 3);
        oa::oaFloatAppDef<oa::oaNet>::get("others float")->set(net, 0.5f);
        oa::oaDoubleAppDef<oa::oaNet>::get("others double")->set(net, 0.25);
        oa::oaBooleanAppDef<oa::oaNet>::get("others boolean")->set(net, true);
        oa::oaTimeAppDef<oa::oaNet>::get("others time")->set(net, 7);
        oa::oaStringAppDef<oa::oaNet>::get("others string")->set(net, "text");
        oa::oaDataAppDef<oa::oaNet>::get("others data", 2, bytes("\0\0"))->set(net, bytes("\1\2"));
        oa::oaVarDataAppDef<oa::oaNet>::get("others free")->set(net, 3, bytes("\1\2\3"));
        design->save();
        design->close();
    }
    const std::string start = "coil/layout: net \"net_ovalis_0\": application value \"others ";
    EXPECT_EQ(
        ovalisProgram({"diff", work.library(), copy}),
        (Outcome{1,
                 start + "boolean\" added: true\n" + start + "data\" added: bytes 0102\n" + start +
                     "double\" added: double 0.25\n" + start + "float\" added: float 0.5\n" +
                     start + "free\" added: bytes 010203\n" + start + "int\" added: int 3\n" +
                     start + "string\" added: \"text\"\n" + start + "time\" added: time 7\n",
                 ""}));
}

TEST_F(Diff, OfWhatCannotBeReadFailsAndComparesTheRest) {
    movePolygon();
    ovalis::test::writeText(copy + "/coil/symbol/symbol.oa", "damaged");
    const Outcome outcome = ovalisHere({"diff", work.library(), copy});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.out, HasSubstr("coil/layout: polygon on M1/drawing "));
    EXPECT_THAT(outcome.talk, HasSubstr("ovalis: coil/symbol: "));
    EXPECT_EQ(ovalisHere({"diff", work.library(), copy, "-q"}).status, 2);
    EXPECT_EQ(ovalisHere({"diff", work.library(), "coil", "symbol", copy, "coil", "symbol"}).status,
              2);
}

TEST_F(Diff, RefusesALibraryBesideADesign) {
    EXPECT_EQ(ovalisHere({"diff", work.library()}), (Outcome{2, "", usage}));
    EXPECT_EQ(ovalisHere({"diff", work.library(), copy, "coil"}), (Outcome{2, "", usage}));
    EXPECT_EQ(ovalisHere({"diff", work.library(), "coil", "layout", copy}),
              (Outcome{2, "", usage}));
    EXPECT_EQ(ovalisHere({"diff", work.library(), "coil", "layout", copy, "coil", "layout", "x"}),
              (Outcome{2, "", usage}));
    EXPECT_EQ(ovalisHere({"diff"}).status, 2);
}

TEST_F(Diff, NamesWhatIsMissing) {
    const std::string absent = work.path("absent");
    EXPECT_EQ(ovalisHere({"diff", work.library(), absent}),
              (Outcome{2, "", "ovalis: OA Library not found at " + absent + "\n"}));
    EXPECT_EQ(ovalisHere({"diff", absent, copy}),
              (Outcome{2, "", "ovalis: OA Library not found at " + absent + "\n"}));
    EXPECT_EQ(ovalisHere({"diff", work.library(), "coil", "layout", copy, "coil", "none"}),
              (Outcome{2, "", "ovalis: " + copy + ": no cell view \"coil/none\"\n"}));
}

TEST_F(Diff, TakesTheLibrariesOfAList) {
    const std::string list = work.path("both.defs");
    ovalis::test::writeText(list, "DEFINE first lib\nDEFINE second copy\n");
    EXPECT_EQ(ovalisHere({"diff", work.library(), copy, "--libs", list}), (Outcome{0, "", ""}));
}

} // namespace
} // namespace cli::test

#include "evaluation/source.h"

#include <gtest/gtest.h>

#include <ovalis/pcell.h>

#include "evaluation/pcell.h"
#include "evaluation/plug_in_place.h"
#include "platform/environment.h"
#include "platform/path.h"
#include "support/environment_override.h"
#include "support/files.h"
#include "support/library_fixture.h"

namespace evaluation {
namespace {

using ovalis::test::EnvironmentOverride;

/// An evaluator that the program registers itself.
class PlainPcell : public oaCommon::PlugInBase<oa::IPcell> {
public:
    void getName(oa::oaString& name) override { name = "plain_evaluator"; }
    oa::oaPcellDef* getPcellDef() override { return new oa::oaPcellDef(this); }
    void onBind(oa::oaDesign*, oa::oaPcellDef*) override {}
    void onUnbind(oa::oaDesign*, oa::oaPcellDef* def) override { delete def; }
    void onEval(oa::oaDesign*, oa::oaPcellDef*) override {}
    void onRead(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) override {}
    void onWrite(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) override {}
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef*) const override { return 0; }
};

class SourceTest : public ovalis::test::LibraryTest {};

TEST_F(SourceTest, AnEvaluatorOfTheProgramComesBeforeAPlugInOfItsName) {
    oa::oaPcellLink* const link = oa::oaPcellLink::create(new PlainPcell);
    oa::oaDesign& master = design("own", "layout", 'w');
    oa::oaParamArray params;
    oa::oaPcellDef* const def = oa::oaPcellLink::getPcellDef("plain_evaluator");
    master.defineSuperMaster(def, params);
    master.save();
    std::filesystem::create_directory(filePath("plugins"));
    ovalis::test::writeText(filePath("plugins") / "plain_evaluator.plg",
                            "<plugIn lib=\"absent\"/>");
    const EnvironmentOverride plugIns("OA_PLUGIN_PATH", pathOf("plugins"));
    {
        const Pcell pcell(lib(), "own", "layout");
        EXPECT_EQ(sourceOf(pcell, "hash", "cache"), (Source{Source::Kind::process}));
    }
    link->destroy();
}

TEST(PlugInPlace, ListedDirectoriesComeBeforeTheInstallation) {
    const ovalis::test::TemporaryDirectory first;
    const ovalis::test::TemporaryDirectory second;
    const char separator = platform::pathListSeparator();
    const EnvironmentOverride plugIns("OA_PLUGIN_PATH",
                                      separator + first.str() + separator + second.str());
    const std::vector<std::string> directories = plugInDirectories();
    ASSERT_EQ(directories.size(), 3u);
    EXPECT_EQ(directories[0], first.str());
    EXPECT_EQ(directories[1], second.str());
    EXPECT_EQ(std::filesystem::path(directories[2]).filename(), "plugins");
    EXPECT_EQ(plugInFile("coil", directories), "");
    ovalis::test::writeText(second.path() / "coil.plg", "");
    EXPECT_EQ(plugInFile("coil", directories), platform::joinPath(second.str(), "coil.plg"));
}

} // namespace
} // namespace evaluation

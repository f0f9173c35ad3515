#include <gtest/gtest.h>

#include "workplace.h"

namespace cli::test {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> componentsBelow(const fs::path& directory) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(directory))
        if (fs::exists(entry.path() / "component.json"))
            files.push_back(entry.path() / "component.json");
    return files;
}

/// Exports one component with the built program and looks at all that came of it.
void expectWholeExport(const fs::path& file) {
    SCOPED_TRACE(ovalis::test::utf8(file));
    const Workplace work;
    const auto description = nlohmann::json::parse(ovalis::test::readText(file));
    const auto layout =
        nlohmann::json::parse(ovalis::test::readText(file.parent_path() / "layout.json"));
    const std::string cell = description["name"];
    const Outcome exported =
        ovalisProgram({"export", ovalis::test::utf8(file), "--lib", work.library()});
    ASSERT_EQ(exported.status, 0) << exported.talk;
    EXPECT_EQ(exported.talk.find("warning"), std::string::npos) << exported.talk;
    EXPECT_EQ(ovalisProgram({"check", work.library()}), (Outcome{0, "", ""}));

    const bool symbol = description["symbol"]["kind"] != "none";
    EXPECT_EQ(ovalisProgram({"list", work.library()}).out,
              cell + "  layout  maskLayout\n" +
                  (symbol ? cell + "  symbol  schematicSymbol\n" : ""));

    const Outcome drawn = ovalisProgram({"draw", work.library(), cell, "layout"});
    EXPECT_EQ(drawn.status, 0) << drawn.talk;
    for (const auto& port : description["ports"])
        EXPECT_NE(drawn.out.find(">" + port["name"].get<std::string>() + "</text>"),
                  std::string::npos);

    const ovalis::LibPtr lib = ovalis::openLib(work.library(), false, "lib");
    oa::oaDesign* design = ovalis::openDesign(*lib, cell, "layout", false);
    EXPECT_EQ(design->getTopBlock()->getPins().getCount(), description["ports"].size());
    std::size_t outlines = description["ports"].size();
    for (const auto& layer : layout["layers"])
        for (const auto& declared : description["layers"])
            if (declared["name"] == layer["name"] && declared["purpose"] == layer["purpose"] &&
                declared["draw"])
                outlines +=
                    layer["polygons"].size() + layer.value("lines", nlohmann::json()).size();
    EXPECT_EQ(design->getTopBlock()->getShapes().getCount(), outlines + layout["texts"].size());
    design->close();
}

TEST(Samples, OfTheSourceTreeExport) {
    const auto files = componentsBelow(ovalis::test::sourceTree() / "examples" / "components");
    EXPECT_EQ(files.size(), 3u);
    for (const fs::path& file : files)
        expectWholeExport(file);
}

TEST(Samples, FromOutsideOfTheSourceTreeExport) {
    const auto data = ovalis::test::sharedData();
    if (!data)
        GTEST_SKIP() << "OVALIS_SHARED_DATA names no directory with more components";
    const auto files = componentsBelow(*data / "components");
    EXPECT_FALSE(files.empty());
    for (const fs::path& file : files)
        expectWholeExport(file);
}

} // namespace
} // namespace cli::test

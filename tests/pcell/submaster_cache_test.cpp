#include "pcell/submaster_cache.h"

#include <memory>

#include "cached_pcells.h"

using namespace ovalis;
using ovalis::test::CachedPcells;
using ovalis::test::drawnWidth;
using ovalis::test::paramsOf;
using ovalis::test::readText;
using ovalis::test::writeText;

namespace {

class CachedPcellsOfEachKind : public CachedPcells,
                               public ::testing::WithParamInterface<const char*> {
protected:
    CachedPcellsOfEachKind() : CachedPcells(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(, CachedPcellsOfEachKind,
                         ::testing::Values("PSNPcell", "LayerMappingPcell", "ReferencePcell",
                                           "CorvidViaPad", "NestedTechnologyPcell", "SKRPcell"),
                         [](const auto& kind) { return std::string(kind.param); });

} // namespace

TEST(CacheDirectory, LiesBesideTheList) {
    const std::pair<const char*, const char*> table[] = {
        {"/chips/lib.defs", "/chips/.vexPcells"},
        {"C:\\chips\\lib.defs", "C:\\chips\\.vexPcells"},
        {"C:\\work/größe/lib.defs", "C:\\work/größe/.vexPcells"},
        {"C:/work\\lib.defs", "C:/work\\.vexPcells"},
        {"/lib.defs", "/.vexPcells"},
        {"lib.defs", ".vexPcells"},
        {"", ".vexPcells"},
    };
    for (const auto& [list, directory] : table) {
        EXPECT_EQ(cacheDirectoryBeside(list), directory) << list;
    }
}

TEST_P(CachedPcellsOfEachKind, AreFilledFromTheirFiles) {
    put(7);
    EXPECT_EQ(drawnWidth(open(7)), 7);
    EXPECT_EQ(notes().text(), "before: 7\nafter: 7\n");
}

TEST_P(CachedPcellsOfEachKind, FailWith1201AndWriteNothingWithoutAFileOfTheirOwn) {
    put(7);
    oa::oaDesign& other = design("other", "layout", 'w');
    other.save();
    const std::unique_ptr<oa::oaPcellDef> def(oa::oaPcellLink::getPcellDef(GetParam()));
    oa::oaUInt4 failure = 0;
    try {
        def->getIPcell()->onEval(&other, def.get());
    } catch (const oa::oaDesignError& error) {
        failure = error.getMsgId();
    }
    EXPECT_EQ(failure, 1201U);
    EXPECT_EQ(other.getTopBlock(), nullptr);
    EXPECT_FALSE(other.isModified());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(cache()), {}), 1);
}

TEST_P(CachedPcellsOfEachKind, StayEmptyWithoutAFile) {
    put(8);
    EXPECT_EQ(toldOfFailure(), missing);
}

TEST_F(CachedPcells, AreSubmastersOfTheirSuperMaster) {
    put(7);
    oa::oaDesign* submaster = open(7);
    EXPECT_TRUE(submaster->isSubMaster());
    EXPECT_EQ(submaster->getSuperMaster(), &superMaster());
    oa::oaParamArray params;
    submaster->getParams(params, true);
    EXPECT_EQ(params, paramsOf(7, "poly"));
    EXPECT_EQ(calculateSubmasterIdHash(submaster),
              identifySubmaster("lib", "resistor", "layout", params).hash);
}

TEST_F(CachedPcells, AreFoundByTheirDefaultsToo) {
    put(1);
    put(2, cached(1, "metal"));
    EXPECT_EQ(drawnWidth(open(1)), 1);
}

TEST_F(CachedPcells, StayEmptyWithoutATopList) {
    put(7);
    forgetLists();
    EXPECT_EQ(toldOfFailure(), missing);
}

TEST_F(CachedPcells, StayEmptyWithoutACache) {
    std::filesystem::remove(cache());
    EXPECT_EQ(toldOfFailure(), missing);
}

TEST_F(CachedPcells, StayEmptyWhereTheFileIsADirectory) {
    std::filesystem::create_directory(cached(7));
    EXPECT_EQ(toldOfFailure(), missing);
}

TEST_F(CachedPcells, ComeFromBesideTheLastTopList) {
    std::filesystem::create_directory(filePath("other"));
    put(7);
    writeText(filePath("other") / "lib.defs", "DEFINE lib ../größe_lib\n");
    oa::oaLibDefList::openLibs((pathOf("other") + "/lib.defs").c_str());
    EXPECT_EQ(toldOfFailure(), missing);
    std::filesystem::create_directory(filePath("other") / ".vexPcells");
    put(7, filePath("other") / ".vexPcells" / cached(7).filename());
    EXPECT_EQ(drawnWidth(open(7)), 7);
}

TEST_F(CachedPcells, StayEmptyWhenTheFileIsDamaged) {
    put(7);
    const std::string whole = readText(cached(7));
    const auto isToldOnce = [](const std::string& told) {
        return told.find("before: 7\n") == 0 &&
               told.find("is not a sound database") != std::string::npos &&
               told.find("(evaluation): 7\n") == told.size() - 16;
    };
    EXPECT_PRED1(isToldOnce, toldOf(""));
    EXPECT_PRED1(isToldOnce, toldOf("not a pcell file"));
    for (std::size_t length = 1; length < whole.size(); length += 1 + length / 8) {
        EXPECT_PRED1(isToldOnce, toldOf(whole.substr(0, length))) << length;
    }
    for (std::size_t place = 0; place < whole.size(); place += 1 + whole.size() / 64) {
        std::string bytes = whole;
        bytes[place] = static_cast<char>(bytes[place] ^ 0x20);
        EXPECT_PRED1(isToldOnce, toldOf(bytes)) << place;
    }
    writeText(cached(7), whole);
    EXPECT_EQ(drawnWidth(open(7)), 7);
}

// Library definition files that people wrote for their own work.

#include "library_lists.h"
#include "support/places.h"

#include <gmock/gmock.h>

using namespace ovalis;
using ovalis::test::EnvironmentOverride;
using testing::Pair;
using testing::UnorderedElementsAre;

namespace {

class RealLibraryList : public ovalis::test::LibraryListTest {
protected:
    void SetUp() override {
        const auto data = ovalis::test::sharedData();
        if (!data || !std::filesystem::is_directory(*data / "libdefs"))
            GTEST_SKIP() << "OVALIS_SHARED_DATA names no directory with library definition files";
        std::filesystem::copy(*data / "libdefs", file("libdefs"),
                              std::filesystem::copy_options::recursive);
    }

    /// Each file with the number of its definitions.
    std::vector<std::pair<std::string, std::size_t>> counts() {
        std::vector<std::pair<std::string, std::size_t>> found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(file("libdefs")))
            if (entry.is_regular_file()) {
                const std::string name =
                    slashed(ovalis::test::utf8(entry.path().lexically_relative(file("libdefs"))));
                found.emplace_back(
                    name, getFlattenedLibraryList(path("libdefs/" + name), &messages).size());
            }
        return found;
    }

    const EnvironmentOverride work{"BAG_WORK_DIR", path("libdefs/sky130_bag3")};
};

} // namespace

TEST_F(RealLibraryList, IsFlattenedWithWhatItIncludes) {
    EXPECT_THAT(counts(),
                UnorderedElementsAre(Pair("aureo/cds.lib", 14), // 11 and the 3 of its neighbour
                                     Pair("aureo/cds.lib.core", 3), Pair("firework/cds.lib", 57),
                                     Pair("freepdk3/lib.defs", 1), // its include is a tool's
                                     Pair("shuksan/cds.lib", 2),   // so is its SOFTINCLUDE
                                     Pair("sky130_bag3/cds.lib.bag", 7),
                                     Pair("sky130_bag3/cds.lib.core", 18), // 11 and those 7
                                     Pair("wireline/cadence/cds.lib", 23),
                                     Pair("wireline/cadence/lib.defs", 6),
                                     Pair("wireline/cds.lib", 21), Pair("wireline/lib.defs", 6)));
    EXPECT_NE(messages, "");
}

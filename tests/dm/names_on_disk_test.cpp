#include "dm_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

class NamesOnDiskTest : public DMTest {
protected:
    /// Makes cells and views of these names and finds them again in another opening.
    void comeBack(const char* system, const std::vector<const char*>& names) {
        oaLib* lib = createFor(system, system);
        ASSERT_TRUE(lib->getAccess(oacWriteLibAccess));
        for (const char* name : names)
            make(lib, name, name, oacMaskLayout);
        lib->close();
        lib = open("again", system);
        ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
        EXPECT_THAT(namesIn(lib->getCells()), testing::UnorderedElementsAreArray(names));
        for (const char* name : names)
            EXPECT_NE(oaCellView::find(lib, scalarName(name), scalarName(name)), nullptr) << name;
    }
};

} // namespace

TEST_F(NamesOnDiskTest, LeadBackToTheNamesOfCellsAndViews) {
    comeBack("Unix", {"plain", "With_Case", "a b", "a.b", "100%", "a-b(1)", "..",
                      "gr\xc3\xb6\xc3\x9f"
                      "e"});
}

TEST_F(NamesOnDiskTest, LeadBackFromTheSpellingOfWindows) {
    comeBack("Windows", {"plain", "With_Case", "a b", "a.b", "100%", "a-b(1)", "..", "CON", "aux",
                         "gr\xc3\xb6\xc3\x9f"
                         "e"});
}

TEST_F(NamesOnDiskTest, AreThoseOfTheSystemTheLibraryWasMadeOn) {
    oaLib* unixLib = createFor("unix", "Unix");
    ASSERT_TRUE(unixLib->getAccess(oacWriteLibAccess));
    oaCell::get(unixLib, scalarName("Upper.x"));
    EXPECT_THAT(namesOnDisk("unix"), ElementsAre(".oalib", ".oalib.lck", "Upper#2ex"));

    oaLib* windowsLib = createFor("windows", "Windows");
    ASSERT_TRUE(windowsLib->getAccess(oacWriteLibAccess));
    oaCell::get(windowsLib, scalarName("Upper.x"));
    EXPECT_THAT(namesOnDisk("windows"), ElementsAre("%Upper#2ex", ".oalib", ".oalib.lck"));
}

TEST_F(NamesOnDiskTest, SpelledOtherwiseAreNoSecondCell) {
    oaLib* lib = createFor("lib", "Windows");
    ASSERT_TRUE(lib->getAccess(oacWriteLibAccess));
    oaCell::get(lib, scalarName("cell"));
    if (!platform::exists(path("lib/CELL")))
        platform::createDirectory(path("lib/CELL"));
    EXPECT_THAT(namesIn(lib->getCells()), ElementsAre("cell"));
}

TEST_F(NamesOnDiskTest, DifferingOnlyInCaseAreTwoCells) {
    oaLib* lib = createFor("lib", "Windows");
    ASSERT_TRUE(lib->getAccess(oacWriteLibAccess));
    EXPECT_NE(oaCell::get(lib, scalarName("cell")), oaCell::get(lib, scalarName("Cell")));
    EXPECT_THAT(namesIn(lib->getCells()), UnorderedElementsAre("cell", "Cell"));
    EXPECT_EQ(oaCell::find(lib, scalarName("CELL")), nullptr);
}

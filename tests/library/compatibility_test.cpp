#include <ovalis/library.h>

#include "support/files.h"
#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;

namespace {

constexpr char noWhitespace[] =
    "Specified OpenAccess library path is not compatible with VEX: do not use whitespaces.";

class Compatibility : public ovalis::test::FolderTest {
protected:
    Compatibility() { createVEXCompatibleLib(pathOf("lib"), "lib").reset(); }

    /// What the check says of the library, starting from an empty text.
    std::string report() {
        std::string diagnostics;
        EXPECT_TRUE(existsVEXCompatibleLib(pathOf("lib"), "lib", &diagnostics));
        return diagnostics;
    }

    void remove(const char* name) { std::filesystem::remove(filePath("lib") / name); }

    /// Edits and saves the technology; the layers get the numbers given.
    void prepareTech(bool units, bool perUnit, int pins, int artwork) {
        const LibPtr lib = openLib(pathOf("lib"), true, "lib");
        oa::oaTech* tech = oa::oaTech::open(lib.get(), 'a');
        oa::oaViewType* layout = oa::oaViewType::get(oa::oacMaskLayout);
        if (units) {
            tech->setUserUnits(layout, oa::oacMicron);
        }
        if (perUnit) {
            tech->setDBUPerUU(layout, 1000);
        }
        oa::oaPhysicalLayer::create(tech, "tessa_3dc_pins", static_cast<oa::oaLayerNum>(pins));
        oa::oaPhysicalLayer::create(tech, "tessa_3dc_artwork",
                                    static_cast<oa::oaLayerNum>(artwork));
        tech->save();
        tech->close();
    }
};

} // namespace

TEST(PathCompatibility, RefusesBlanksAndTabs) {
    for (const char* path : {"/libs/my lib", "/libs/my\tlib", " ", "\t", "lib "}) {
        std::string message = "something else";
        EXPECT_FALSE(isVEXCompatibleLibPath(path, &message)) << path;
        EXPECT_EQ(message, noWhitespace);
        EXPECT_FALSE(isVEXCompatibleLibPath(path, nullptr)) << path;
    }
}

TEST(PathCompatibility, TestsNothingElse) {
    for (const char* path :
         {"", "/libs/lib", "C:\\libs\\lib", "a\nb", "/libs/größe", "a\vb\rc", "\xC2\xA0"}) {
        std::string message = "untouched";
        EXPECT_TRUE(isVEXCompatibleLibPath(path, &message)) << path;
        EXPECT_EQ(message, "untouched");
        EXPECT_TRUE(isVEXCompatibleLibPath(path, nullptr)) << path;
    }
}

TEST_F(Compatibility, NeedsALibrary) {
    std::string diagnostics = "before\n";
    EXPECT_FALSE(existsVEXCompatibleLib(pathOf("none"), "lib", &diagnostics));
    EXPECT_EQ(diagnostics, "before\n");
    EXPECT_FALSE(existsVEXCompatibleLib(pathOf("none"), "lib", nullptr));
}

TEST_F(Compatibility, LooksNoFurtherWithoutAText) {
    const LibPtr writer = openLib(pathOf("lib"), true, "writer"); // nobody else gets access now
    EXPECT_TRUE(existsVEXCompatibleLib(pathOf("lib"), "lib", nullptr));
}

TEST_F(Compatibility, ReportsWhatANewLibraryLacks) {
    EXPECT_EQ(report(), "TechDB units per user-unit not set\n"
                        "TechDB user-units not set\n"
                        "TechDB layers for tessa not found\n");
}

TEST_F(Compatibility, IsCompleteWithUnitsAndLayers) {
    prepareTech(true, true, -777, -778);
    EXPECT_EQ(report(), "");
}

TEST_F(Compatibility, ReportsEachUnitByItself) {
    prepareTech(true, false, -777, -778);
    EXPECT_EQ(report(), "TechDB units per user-unit not set\n");
}

TEST_F(Compatibility, ReportsMissingUserUnits) {
    prepareTech(false, true, -777, -778);
    EXPECT_EQ(report(), "TechDB user-units not set\n");
}

TEST_F(Compatibility, ReportsAPinLayerOfAnotherNumber) {
    prepareTech(true, true, -776, -778);
    EXPECT_EQ(report(), "TechDB layers for tessa not found\n");
}

TEST_F(Compatibility, ReportsAnArtworkLayerOfAnotherNumber) {
    prepareTech(true, true, -777, 778);
    EXPECT_EQ(report(), "TechDB layers for tessa not found\n");
}

TEST_F(Compatibility, ReportsAMissingTechnologyAndDefinitions) {
    remove("tech.db");
    remove("lib.defs");
    EXPECT_EQ(report(), "tech.db not found\nlib.defs not found\n");
}

TEST_F(Compatibility, ReportsEverythingInOrder) {
    remove(".oalib");
    remove("lib.defs");
    EXPECT_EQ(report(), ".oalib not found\n"
                        "TechDB units per user-unit not set\n"
                        "TechDB user-units not set\n"
                        "TechDB layers for tessa not found\n"
                        "lib.defs not found\n");
}

TEST_F(Compatibility, ReportsADirectoryInPlaceOfAFileAsMissing) {
    prepareTech(true, true, -777, -778);
    remove("lib.defs");
    std::filesystem::create_directory(filePath("lib") / "lib.defs");
    EXPECT_EQ(report(), "lib.defs not found\n");
}

TEST_F(Compatibility, AddsToTheTextGiven) {
    prepareTech(true, true, -777, -778);
    remove("lib.defs");
    std::string diagnostics = "before\n";
    EXPECT_TRUE(existsVEXCompatibleLib(pathOf("lib"), "lib", &diagnostics));
    EXPECT_EQ(diagnostics, "before\nlib.defs not found\n");
}

TEST_F(Compatibility, LeavesTheLibraryClosed) {
    report();
    EXPECT_EQ(oa::oaLib::find(oa::oaScalarName(oa::oaNativeNS(), "lib")), nullptr);
    EXPECT_NO_THROW(static_cast<void>(openLib(pathOf("lib"), true, "lib")));
}

TEST_F(Compatibility, PassesOnThatAccessIsRefused) {
    remove(".oalib");
    const LibPtr writer = openLib(pathOf("lib"), true, "writer");
    std::string diagnostics;
    EXPECT_EQ(failureOf([&] { existsVEXCompatibleLib(pathOf("lib"), "lib", &diagnostics); }),
              "Could not obtain access to library at " + pathOf("lib"));
    EXPECT_EQ(diagnostics, ".oalib not found\n");
}

TEST_F(Compatibility, FailsOnADamagedTechnologyAndLeavesTheLibraryClosed) {
    ovalis::test::writeText(filePath("lib") / "tech.db", "no database");
    std::string diagnostics = "before\n";
    EXPECT_EQ(messageIdOf([&] { existsVEXCompatibleLib(pathOf("lib"), "lib", &diagnostics); }),
              oa::oacDatabaseFileDamaged);
    EXPECT_EQ(diagnostics, "before\n");
    EXPECT_EQ(oa::oaLib::find(oa::oaScalarName(oa::oaNativeNS(), "lib")), nullptr);
}

TEST_F(Compatibility, FailsOnALibraryThatIsOpenUnderTheName) {
    const LibPtr open = openLib(pathOf("lib"), false, "lib");
    std::string diagnostics;
    EXPECT_GT(messageIdOf([&] { existsVEXCompatibleLib(pathOf("lib"), "lib", &diagnostics); }), 0);
}

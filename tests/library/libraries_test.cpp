#include <ovalis/library.h>

#include <functional>

#include "support/files.h"
#include "support/library_fixture.h"
#include "support/text_file.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;
using ovalis::test::readText;
using ovalis::test::writeText;

namespace {

class Libraries : public ovalis::test::FolderTest {
protected:
    std::filesystem::path fileIn(const std::string& lib, const std::string& name) const {
        return filePath(lib) / name;
    }

    bool exists(const std::string& lib, const std::string& name) const {
        return std::filesystem::exists(fileIn(lib, name));
    }
};

/// Does something as soon as a library has been created or opened.
class Interference : public oa::oaVersionedObserver<oa::oaLib> {
public:
    explicit Interference(std::function<void()> action)
        : oaVersionedObserver(1), action_(std::move(action)) {}

    void onPostCreate(oa::oaLib*) override { action_(); }
    void onPostOpen(oa::oaLib*) override { action_(); }

private:
    std::function<void()> action_;
};

oa::oaLib* openedUnder(const char* name) {
    return oa::oaLib::find(oa::oaScalarName(oa::oaNativeNS(), name));
}

} // namespace

TEST_F(Libraries, AreCreatedWithMarkerAndTechnology) {
    const LibPtr lib = createLib(pathOf("a"), "lib_a");
    EXPECT_EQ(ovalis::test::nameOf(lib.get()), "lib_a");
    EXPECT_EQ(openedUnder("lib_a"), lib.get());
    EXPECT_EQ(lib->getMode(), oa::oacSharedLibMode);
    EXPECT_EQ(lib->getAccessLevel(), oa::oacNoLibAccessLevel);
    oa::oaString system;
    lib->getDMSystemName(system);
    EXPECT_EQ(system, "oaDMFileSys");
    EXPECT_TRUE(exists("a", ".oalib"));
    EXPECT_TRUE(exists("a", "tech.db"));
    EXPECT_FALSE(exists("a", "lib.defs"));
}

TEST_F(Libraries, HaveATechnologyThatIsEmptyAndSaved) {
    LibPtr lib = createLib(pathOf("a"), "lib_a");
    lib.reset();
    lib = openLib(pathOf("a"), false, "lib_a");
    oa::oaTech* tech = oa::oaTech::open(lib.get(), 'r');
    EXPECT_EQ(tech->getLayers().getCount(), 0U);
    EXPECT_FALSE(tech->isDBUPerUUSet(oa::oaViewType::get(oa::oacMaskLayout)));
    tech->close();
}

TEST_F(Libraries, AreNotCreatedOverSomethingElse) {
    std::filesystem::create_directory(filePath("a"));
    writeText(fileIn("a", "notes.txt"), "mine");
    EXPECT_EQ(messageIdOf([&] { static_cast<void>(createLib(pathOf("a"), "lib_a")); }),
              oa::oacLibCouldNotCreate);
    EXPECT_EQ(messageIdOf([&] { static_cast<void>(createVEXCompatibleLib(pathOf("a"), "lib_a")); }),
              oa::oacLibCouldNotCreate);
    EXPECT_FALSE(exists("a", "lib.defs"));
    EXPECT_EQ(openedUnder("lib_a"), nullptr);
}

TEST_F(Libraries, ForTheCircuitDesignEnvironmentHaveDefinitions) {
    const LibPtr lib = createVEXCompatibleLib(pathOf("lib1"), "lib1");
    EXPECT_EQ(readText(fileIn("lib1", "lib.defs")),
              ovalis::test::asTextFile("INCLUDE $MOLTRAX_DIR/oalibs/vex.defs\nDEFINE lib1 .\n"));
    EXPECT_TRUE(exists("lib1", ".oalib"));
    EXPECT_TRUE(exists("lib1", "tech.db"));
    EXPECT_EQ(lib->getAccessLevel(), oa::oacNoLibAccessLevel);
}

TEST_F(Libraries, ForTheCircuitDesignEnvironmentReplaceDefinitionsThatAreThere) {
    const Interference writing([&] {
        writeText(fileIn("lib1", "lib.defs"), "DEFINE somebody_elses_library elsewhere\n");
    });
    createVEXCompatibleLib(pathOf("lib1"), "lib1").reset();
    EXPECT_EQ(readText(fileIn("lib1", "lib.defs")),
              ovalis::test::asTextFile("INCLUDE $MOLTRAX_DIR/oalibs/vex.defs\nDEFINE lib1 .\n"));
}

TEST_F(Libraries, ForTheCircuitDesignEnvironmentDoWithoutDefinitionsThatCannotBeWritten) {
    const Interference standingInTheWay(
        [&] { std::filesystem::create_directory(fileIn("lib1", "lib.defs")); });
    const LibPtr lib = createVEXCompatibleLib(pathOf("lib1"), "lib1");
    EXPECT_EQ(openedUnder("lib1"), lib.get());
    EXPECT_NE(lib.get(), nullptr);
    EXPECT_TRUE(std::filesystem::is_directory(fileIn("lib1", "lib.defs")));
}

TEST_F(Libraries, FailWithTheTextAndNumberOfAPlugIn) {
    createLib(pathOf("a"), "lib_a").reset();
    const Interference failing([] { throw oaCommon::ExceptionBase(-5, "größer als erlaubt"); });
    EXPECT_EQ(messageIdOf([&] { static_cast<void>(openLib(pathOf("a"), false, "lib_a")); }), -5);
    oa::oaLib* stillOpen = openedUnder("lib_a"); // nothing is rolled back
    ASSERT_NE(stillOpen, nullptr);
    stillOpen->close();
    EXPECT_EQ(failureOf([&] { static_cast<void>(createLib(pathOf("b"), "lib_b")); }),
              "database: größer als erlaubt");
    openedUnder("lib_b")->close();
}

TEST_F(Libraries, AreOpenedWithTheAccessAskedFor) {
    createLib(pathOf("a"), "lib_a").reset();
    LibPtr lib = openLib(pathOf("a"), false, "lib_b");
    EXPECT_EQ(lib->getAccessLevel(), oa::oacReadLibAccessLevel);
    EXPECT_EQ(ovalis::test::nameOf(lib.get()), "lib_b");
    lib.reset();
    lib = openLib(pathOf("a"), true, "lib_a");
    EXPECT_EQ(lib->getAccessLevel(), oa::oacWriteLibAccessLevel);
    EXPECT_EQ(lib->getMode(), oa::oacSharedLibMode);
}

TEST_F(Libraries, ThatAreMissingAreNamed) {
    EXPECT_EQ(failureOf([&] { static_cast<void>(openLib(pathOf("none"), false, "lib")); }),
              "OA Library not found at " + pathOf("none"));
}

TEST_F(Libraries, AreClosedAgainWhenAccessIsRefused) {
    createLib(pathOf("a"), "lib_a").reset();
    const LibPtr writer = openLib(pathOf("a"), true, "writer");
    for (const bool write : {false, true}) {
        EXPECT_EQ(failureOf([&] { static_cast<void>(openLib(pathOf("a"), write, "other")); }),
                  "Could not obtain access to library at " + pathOf("a"));
        EXPECT_EQ(openedUnder("other"), nullptr);
    }
}

TEST_F(Libraries, ThatAreMarkedReadOnlyGiveNoWriteAccess) {
    createLib(pathOf("a"), "lib_a").reset();
    std::string marker = readText(fileIn("a", ".oalib"));
    marker.replace(marker.find("libReadOnly=\"No\""), 16, "libReadOnly=\"Yes\"");
    writeText(fileIn("a", ".oalib"), marker);
    EXPECT_EQ(failureOf([&] { static_cast<void>(openLib(pathOf("a"), true, "lib_a")); }),
              "Could not obtain access to library at " + pathOf("a"));
}

TEST_F(Libraries, CannotShareAName) {
    const LibPtr lib = createLib(pathOf("a"), "lib_a");
    EXPECT_EQ(messageIdOf([&] { static_cast<void>(createLib(pathOf("b"), "lib_a")); }),
              oa::oacLibNameExists);
}

TEST_F(Libraries, ExistWhenTheDatabaseSeesThem) {
    EXPECT_FALSE(existsLib(pathOf("a")));
    EXPECT_FALSE(existsLibWithOaLib(pathOf("a")));
    createLib(pathOf("a"), "lib_a").reset();
    EXPECT_TRUE(existsLib(pathOf("a")));
    EXPECT_TRUE(existsLibWithOaLib(pathOf("a")));
}

TEST_F(Libraries, ExistWithoutTheirMarkerButNotWithIt) {
    createLib(pathOf("a"), "lib_a").reset();
    std::filesystem::remove(fileIn("a", ".oalib"));
    EXPECT_TRUE(existsLib(pathOf("a")));
    EXPECT_FALSE(existsLibWithOaLib(pathOf("a")));
}

TEST_F(Libraries, DoNotExistAsPlainDirectories) {
    std::filesystem::create_directory(filePath("a"));
    EXPECT_FALSE(existsLib(pathOf("a")));
    EXPECT_FALSE(existsLibWithOaLib(pathOf("a")));
}

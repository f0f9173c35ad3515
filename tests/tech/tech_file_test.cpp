#include "tech_tests.h"

#include "support/files.h"

#include <cstring>
#include <filesystem>

using namespace oa;
using namespace ovalis::test;

namespace {

/// A library with a saved technology of one layer, which is closed.
class SavedTech : public NewTech {
public:
    SavedTech() : NewTech("chip") {
        oaPhysicalLayer::create(*this, "metal", 1);
        oaPurpose::create(*this, "pin", 2);
        oaStringValue::create(*this, "text");
        (*this)->setProcessFamily("rf40");
        (*this)->save();
        (*this)->close();
    }

    oaTech* open(oaChar mode) { return oaTech::open(lib(), mode); }

    /// The text of the refusal to open the file with that content.
    std::string refusal(const std::string& content) {
        writeText(techFile(), content);
        try {
            open('r')->close();
        } catch (const oaError& error) {
            return std::string(error.getMsg());
        }
        return "nothing";
    }
};

std::vector<std::string> layersOf(const oaTech* tech) {
    return namesOf(tech->getLayers());
}

using Names = std::vector<std::string>;

std::uint32_t numberAt(const std::string& file, std::size_t offset) {
    std::uint32_t number = 0;
    std::memcpy(&number, file.data() + offset, sizeof(number));
    return number;
}

/// The kinds of the sections of a database file.
std::vector<std::uint32_t> sectionsOf(const std::string& file) {
    std::vector<std::uint32_t> kinds;
    for (std::uint32_t i = 0; i < numberAt(file, 24); ++i)
        kinds.push_back(numberAt(file, 48 + 48 * i));
    return kinds;
}

// Every byte of a small database file is the business of the tests of the storage room.
constexpr std::size_t kStep = 5;

} // namespace

TEST(TechFile, AppearsWithTheFirstSave) {
    NewTech tech;
    EXPECT_FALSE(std::filesystem::exists(tech.techFile()));
    tech->save();
    EXPECT_TRUE(std::filesystem::exists(tech.techFile()));
    EXPECT_FALSE(tech->isModified());
    EXPECT_EQ(tech->getMode(), 'w');
}

TEST(TechFile, HasSectionsOnlyForWhatTheTechnologyUses) {
    NewTech tech;
    oaPhysicalLayer::create(tech, "metal", 1);
    tech->setGateGrounded(true);
    tech->unsetGateGrounded();
    tech->save();
    // The number of sections stands at byte 24, and each begins with its kind.
    EXPECT_EQ(sectionsOf(readText(tech.techFile())),
              (std::vector<std::uint32_t>{0x1001, 0x1002, 8, 11, 14}));
    NewTech plain("plain");
    oaPhysicalLayer::create(plain, "metal", 1);
    plain->save();
    EXPECT_EQ(sectionsOf(readText(plain.techFile())),
              (std::vector<std::uint32_t>{0x1001, 0x1002, 8, 11}));
}

TEST(TechFile, HoldsWhatWasSavedLast) {
    SavedTech saved;
    oaTech* tech = saved.open('a');
    oaPhysicalLayer::create(tech, "cut", 2);
    EXPECT_TRUE(tech->isModified());
    tech->purge();
    EXPECT_EQ(layersOf(saved.open('r')), Names{"metal"});
}

TEST(TechFile, IsEmptiedInMemoryOnlyByModeW) {
    SavedTech saved;
    oaTech* tech = saved.open('w');
    EXPECT_EQ(layersOf(tech), Names());
    EXPECT_TRUE(tech->isModified());
    tech->purge();
    tech = saved.open('r');
    EXPECT_EQ(layersOf(tech), Names{"metal"});
}

TEST(TechFile, CannotStopModeWByBeingDamaged) {
    SavedTech saved;
    writeText(saved.techFile(), "not a database");
    oaTech* tech = saved.open('w');
    tech->save();
    tech->close();
    EXPECT_EQ(layersOf(saved.open('r')), Names());
}

TEST(TechFile, IsReadAgainByRevert) {
    SavedTech saved;
    oaTech* tech = saved.open('a');
    oaLayer* metal = oaLayer::find(tech, 1);
    oaPhysicalLayer::create(tech, "cut", 2);
    tech->revert();
    EXPECT_TRUE(tech->isValid());
    EXPECT_FALSE(metal->isValid());
    EXPECT_EQ(layersOf(tech), Names{"metal"});
    EXPECT_FALSE(tech->isModified());
    EXPECT_EQ(tech->getMode(), 'a');
}

TEST(TechFile, CannotBeRevertedToBeforeItIsThere) {
    NewTech tech("chip");
    EXPECT_EQ(thrown<oaTechError>(oacTechNotFound, [&] { tech->revert(); }),
              "Library 'chip' has no technology.");
    EXPECT_TRUE(tech->isValid());
}

TEST(TechFile, IsEditedAfterReopening) {
    SavedTech saved;
    oaTech* tech = saved.open('r');
    oaLayer* metal = oaLayer::find(tech, 1);
    tech->reopen('a');
    EXPECT_EQ(tech->getMode(), 'a');
    EXPECT_TRUE(metal->isValid());
    metal->setName("metal1");
    tech->save();
    tech->reopen('r');
    EXPECT_EQ(tech->getMode(), 'r');
    EXPECT_TRUE(metal->isValid());
    EXPECT_EQ(layersOf(tech), Names{"metal1"});
    tech->reopen('w');
    EXPECT_EQ(layersOf(tech), Names());
}

TEST(TechFile, IsReadAgainByReopeningForReadingAfterChanges) {
    SavedTech saved;
    oaTech* tech = saved.open('a');
    oaPhysicalLayer::create(tech, "cut", 2);
    tech->reopen('r');
    EXPECT_EQ(layersOf(tech), Names{"metal"});
    EXPECT_FALSE(tech->isModified());
}

TEST(TechFile, IsEditedInItsLatestStateByReopening) {
    SavedTech saved;
    NewTech other("other");
    oaPhysicalLayer::create(other, "foreign", 5);
    other->save();
    oaTech* tech = saved.open('r');
    writeText(saved.techFile(), readText(other.techFile()));
    EXPECT_EQ(layersOf(tech), Names{"metal"});
    tech->reopen('a');
    EXPECT_EQ(layersOf(tech), Names{"foreign"});
}

TEST(TechFile, IsOpenedForWritingOnTopOfReading) {
    SavedTech saved;
    oaTech* tech = saved.open('r');
    EXPECT_EQ(saved.open('a'), tech);
    EXPECT_EQ(tech->getMode(), 'a');
    EXPECT_EQ(saved.open('r')->getMode(), 'a');
    EXPECT_EQ(layersOf(tech), Names{"metal"});
    EXPECT_EQ(saved.open('w')->getMode(), 'w');
    EXPECT_EQ(layersOf(tech), Names());
    EXPECT_EQ(saved.open('a')->getMode(), 'w');
    EXPECT_EQ(tech->getRefCount(), 5u);
}

TEST(TechFile, IsCopiedIntoAnotherLibraryBySaveAs) {
    SavedTech saved;
    NewLibrary other("other");
    oaTech* tech = saved.open('r');
    tech->saveAs(name("other"));
    EXPECT_EQ(tech->getLib(), saved.lib());
    EXPECT_EQ(layersOf(oaTech::open(other.lib())), Names{"metal"});
    EXPECT_EQ(thrown<oaTechError>(oacTechAlreadyExists, [&] { tech->saveAs(name("other")); }),
              "Library 'other' already has a technology.");
}

TEST(TechFile, IsRemovedByDestroy) {
    SavedTech saved;
    oaTech::destroy(saved.lib());
    EXPECT_FALSE(std::filesystem::exists(saved.techFile()));
    EXPECT_FALSE(oaTech::exists(saved.lib()));
    EXPECT_EQ(thrown<oaTechError>(oacTechNotFound, [&] { oaTech::destroy(saved.lib()); }),
              "Library 'chip' has no technology.");
}

TEST(TechFile, IsNotRemovedWhileItIsOpen) {
    SavedTech saved;
    saved.open('r');
    EXPECT_EQ(thrown<oaTechError>(oacCannotDestroyOpenTech, [&] { oaTech::destroy(name("chip")); }),
              "The technology of library 'chip' is open and cannot be destroyed.");
    EXPECT_TRUE(std::filesystem::exists(saved.techFile()));
}

TEST(TechFile, OfNoBytesIsNoTechnology) {
    SavedTech saved;
    writeText(saved.techFile(), "");
    EXPECT_FALSE(oaTech::exists(saved.lib()));
}

TEST(TechFile, ThatIsForeignIsRefusedByName) {
    SavedTech saved;
    const std::string text = saved.refusal(std::string(1000, 'x'));
    EXPECT_NE(text.find("tech.db"), std::string::npos) << text;
    EXPECT_NE(text.find("is not a database file"), std::string::npos) << text;
    EXPECT_EQ(oaTech::find(saved.lib()), nullptr);
}

TEST(TechFile, WithAByteChangedIsRefused) {
    SavedTech saved;
    const std::string sound = readText(saved.techFile());
    for (std::size_t at = 0; at < sound.size(); at += kStep) {
        std::string damaged = sound;
        damaged[at] = char(damaged[at] ^ 0x5A);
        const std::string text = saved.refusal(damaged);
        ASSERT_NE(text.find("tech.db"), std::string::npos) << "byte " << at << ": " << text;
    }
    EXPECT_EQ(saved.refusal(sound), "nothing");
}

TEST(TechFile, CutAnywhereIsRefused) {
    SavedTech saved;
    const std::string sound = readText(saved.techFile());
    for (std::size_t length = 1; length < sound.size(); length += kStep) {
        const std::string text = saved.refusal(sound.substr(0, length));
        ASSERT_NE(text.find("tech.db"), std::string::npos) << "length " << length << ": " << text;
    }
}

#include "sample_database.h"

#include "oa/oaException.h"
#include "oa/oaProps.h"
#include "support/files.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace sample;
using namespace ovalis::test;

class DatabaseFile : public testing::Test {
protected:
    std::string path() const { return directory.str() + "/sample.oa"; }

    std::string errorOnLoading() const {
        SampleDatabase database;
        try {
            load(path(), database);
        } catch (const oaError& error) {
            return static_cast<const char*>(error.getMsg());
        }
        return "no error";
    }

    TemporaryDirectory directory;
};

TEST_F(DatabaseFile, GivesBackEverythingThatWasSaved) {
    SampleDatabase original;
    fill(original);
    save(path(), original);

    SampleDatabase database;
    load(path(), database);
    ASSERT_EQ(database.nodes.slots(), 2u);
    EXPECT_EQ(database.nameOf(0), "root");
    EXPECT_EQ(database.nameOf(1), "child");
    EXPECT_EQ(database.nodes[1].parent, 0u);
    EXPECT_EQ(database.points.get(database.nodes[0].outline)[2], oaPoint(10, 20));
    EXPECT_EQ(database.points.get(database.nodes[1].outline)[0], oaPoint(-5, 7));
    EXPECT_EQ(database.nodes[1].favourite, (ObjectRef{kFirstVariableTable + 1, 2}));
    ASSERT_EQ(database.leaves(1).slots(), 5u);
    EXPECT_EQ(database.leaves(1)[4].high, 14u);
    oaString value;
    database.properties.find({kNodeTable, 1}, "note")->getValue(value);
    EXPECT_STREQ(value, "some text");
}

TEST_F(DatabaseFile, OfAnEmptyDatabaseIsReadAsEmpty) {
    save(path(), SampleDatabase());
    SampleDatabase database;
    load(path(), database);
    EXPECT_EQ(database.nodes.slots(), 0u);
    EXPECT_EQ(database.strings.count(), 1u);
}

TEST_F(DatabaseFile, HoldsTablesOfManySlabs) {
    SampleDatabase original;
    for (std::uint32_t i = 0; i < 300'000; ++i)
        original.leaves(0).add({i, i});
    save(path(), original);

    SampleDatabase database;
    load(path(), database);
    ASSERT_EQ(database.leaves(0).slots(), 300'000u);
    for (std::uint32_t i = 0; i < 300'000; ++i)
        ASSERT_EQ(database.leaves(0)[i].low, i);
}

TEST_F(DatabaseFile, IsTheSameWhetherObjectsWereDestroyedOrNeverMade) {
    SampleDatabase direct;
    direct.addNode("kept", kNone, {{1, 2}});
    direct.addNode("also kept", 0);
    direct.nodes[0].favourite = {kNodeTable, 1};
    save(directory.str() + "/direct.oa", direct);

    SampleDatabase roundabout;
    const auto kept = roundabout.addNode("kept", kNone, {{1, 2}});
    const auto dropped = roundabout.addNode("dropped", kNone, {{3, 4}, {5, 6}});
    const auto also = roundabout.addNode("also kept", kept);
    roundabout.nodes[kept].favourite = {kNodeTable, also};
    roundabout.nodes.destroy(dropped);
    save(path(), roundabout);

    EXPECT_EQ(readText(path()), readText(directory.str() + "/direct.oa"));
}

TEST_F(DatabaseFile, LeavesTransientValuesOut) {
    SampleDatabase database;
    database.table(kTransientAppValueTable);
    save(directory.str() + "/without.oa", database);
    static_cast<Table<AppValueRecord>*>(database.table(kTransientAppValueTable))
        ->add({kDatabaseItself, 0, 0, 7});
    save(path(), database);
    EXPECT_EQ(readText(path()), readText(directory.str() + "/without.oa"));
}

TEST_F(DatabaseFile, IsRefusedWhateverByteIsFlipped) {
    SampleDatabase original;
    fill(original);
    save(path(), original);
    const std::string sound = readText(path());
    for (std::size_t i = 0; i < sound.size(); ++i) {
        for (const int mask : {0x01, 0x80, 0xFF}) {
            std::string bytes = sound;
            bytes[i] = static_cast<char>(bytes[i] ^ mask);
            writeText(path(), bytes);
            const std::string error = errorOnLoading();
            ASSERT_EQ(error.rfind("File '" + path() + "' ", 0), 0u) << i << ": " << error;
        }
    }
}

TEST_F(DatabaseFile, IsRefusedWhereverItIsCut) {
    SampleDatabase original;
    fill(original);
    save(path(), original);
    const std::string sound = readText(path());
    for (std::size_t length = 0; length < sound.size(); ++length) {
        writeText(path(), sound.substr(0, length));
        const std::string error = errorOnLoading();
        ASSERT_EQ(error.rfind("File '" + path() + "' ", 0), 0u) << length << ": " << error;
    }
}

TEST_F(DatabaseFile, IsRefusedWithBytesBehindItsEnd) {
    save(path(), SampleDatabase());
    const std::string sound = readText(path());
    writeText(path(), sound + '\0');
    EXPECT_EQ(errorOnLoading(), "File '" + path() + "' is not a sound database: it is " +
                                    std::to_string(sound.size() + 1) + " bytes long instead of " +
                                    std::to_string(sound.size()) + ".");
}

TEST_F(DatabaseFile, OfAnotherKindIsRefused) {
    writeDatabaseFile(path(), DatabaseFileKind::Technology, SampleDatabase());
    EXPECT_EQ(errorOnLoading(), "File '" + path() +
                                    "' is not a sound database: it holds another kind of "
                                    "database.");
}

TEST_F(DatabaseFile, WithAPropertyBelowItselfIsRefused) {
    SampleDatabase database;
    auto& props = static_cast<Table<PropRecord>&>(*database.table(kPropTable));
    props.add({kDatabaseItself, 0, PropKind::Hier, {}});
    props.add({{kPropTable, 2}, 0, PropKind::Hier, {}});
    props.add({{kPropTable, 1}, 0, PropKind::Hier, {}});
    save(path(), database);
    EXPECT_EQ(errorOnLoading(), "File '" + path() +
                                    "' is not a sound database: it has a property that is below "
                                    "itself.");
}

TEST_F(DatabaseFile, WithARecordThatNamesNothingIsRefused) {
    SampleDatabase database;
    database.nodes.add({0, 7, {}, kDatabaseItself});
    save(path(), database);
    EXPECT_EQ(errorOnLoading(), "File '" + path() +
                                    "' is not a sound database: it has an entry in table 8 that "
                                    "names something the file does not hold.");
}

TEST_F(DatabaseFile, ThatIsForeignIsRefused) {
    writeText(path(), std::string(200, 'x'));
    EXPECT_EQ(errorOnLoading(),
              "File '" + path() + "' is not a sound database: it is not a database file.");
}

TEST_F(DatabaseFile, ThatIsMissingIsRefused) {
    EXPECT_EQ(errorOnLoading().rfind("File '" + path() + "' cannot be read: ", 0), 0u);
}

TEST_F(DatabaseFile, ThatCannotBeWrittenIsReportedByName) {
    const std::string missing = directory.str() + "/missing/sample.oa";
    try {
        save(missing, SampleDatabase());
        FAIL() << "no error";
    } catch (const oaError& error) {
        EXPECT_EQ(error.getMsgId(), oaUInt4(oacDatabaseFileNotWritten));
        EXPECT_EQ(
            std::string(error.getMsg()).rfind("File '" + missing + "' cannot be written: ", 0), 0u);
    }
}

TEST_F(DatabaseFile, LeavesNothingElseInItsDirectory) {
    SampleDatabase database;
    fill(database);
    save(path(), database);
    save(path(), database);
    std::size_t entries = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(directory.path()))
        ++entries;
    EXPECT_EQ(entries, 1u);
}

} // namespace

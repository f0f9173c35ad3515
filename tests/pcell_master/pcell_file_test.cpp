#include "submaster_fixture.h"

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace oa;
using namespace ovalis::test;

namespace {

std::string bytesOf(const std::string& path) {
    std::ifstream input(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(input), {}};
}

void putBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

/// A pcell file in a folder of its own, and ordinary designs to fill it from and to read it into.
class PcellFileTest : public SubmasterFixture {
protected:
    PcellFileTest() { std::filesystem::create_directory(directory.str() + "/cache"); }

    /// An ordinary design with one square of that size.
    static oaDesign* drawn(oaInt4 size, const char* cell = "drawn") {
        oaDesign* design = openCell('w', cell);
        oaRect::create(oaBlock::create(design), 1, 2, oaBox(0, 0, size, size));
        return design;
    }

    /// Writes squares of these sizes; answers where each begins.
    std::vector<oaUInt8> write(const std::vector<oaInt4>& sizes, const char* mode = "w") {
        PcellFile file(path.c_str());
        file.open(mode);
        std::vector<oaUInt8> offsets;
        for (const oaInt4 size : sizes)
            offsets.push_back(file.append(drawn(size)));
        file.close();
        return offsets;
    }

    void read(oaDesign* design, oaUInt8 offset = 0) {
        PcellFile file(path.c_str());
        file.open("r");
        file.read(design, offset);
        file.close();
    }

    /// What reading into a design says, after which the design must be what it was.
    std::string damage(oaUInt8 offset = 0) {
        if (!kept)
            kept = drawn(77, "kept");
        const std::string said = refused(oacDatabaseFileDamaged, [&] { read(kept, offset); });
        EXPECT_EQ(widthOf(kept), 77);
        return said;
    }
    std::string unsound(const std::string& why) const {
        return "File '" + path + "' is not a sound database: it " + why + ".";
    }

    std::vector<std::string> filesInTheCache() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(directory.str() + "/cache"))
            names.push_back(entry.path().filename().string());
        return names;
    }

    const std::string path = directory.str() + "/cache/entry";
    oaDesign* kept = nullptr;
};

TEST_F(PcellFileTest, HoldsSeveralSubmastersEachAtItsOffset) {
    const std::vector<oaUInt8> offsets = write({10, 20, 30});
    ASSERT_EQ(offsets.size(), 3u);
    EXPECT_EQ(offsets[0], 0u);
    PcellFile file(path.c_str());
    file.open("r");
    oaDesign* design = openCell('w', "other");
    for (const int i : {2, 0, 1, 1}) {
        file.read(design, offsets[i]);
        EXPECT_EQ(widthOf(design), 10 * (i + 1));
    }
    file.read(design);
    EXPECT_EQ(widthOf(design), 10);
}

TEST_F(PcellFileTest, IsAppendedToWithoutATouchOfWhatItHolds) {
    const std::vector<oaUInt8> first = write({10}, "a");
    const std::string before = bytesOf(path);
    const std::vector<oaUInt8> second = write({20}, "a");
    EXPECT_EQ(bytesOf(path).substr(0, before.size()), before);
    oaDesign* design = openCell('w', "other");
    read(design, first.at(0));
    EXPECT_EQ(widthOf(design), 10);
    read(design, second.at(0));
    EXPECT_EQ(widthOf(design), 20);
}

TEST_F(PcellFileTest, MayHoldNothing) {
    write({});
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(damage(), unsound("is shorter than the header of a database file"));
    EXPECT_EQ(write({5}, "a"), std::vector<oaUInt8>{0});
}

TEST_F(PcellFileTest, GivesASubmasterItsContentAndNothingElse) {
    write({70});
    oaDesign* submaster = openSubmaster(sized(30));
    oaDesign* superMaster = submaster->getSuperMaster();
    oaBlock* block = submaster->getTopBlock();
    read(submaster);
    EXPECT_FALSE(block->isValid());
    EXPECT_EQ(widthOf(submaster), 70);
    EXPECT_TRUE(submaster->isSubMaster());
    EXPECT_EQ(submaster->getSuperMaster(), superMaster);
    EXPECT_EQ(submastersOf(superMaster), std::vector<oaDesign*>{submaster});
    EXPECT_EQ(paramsOf(submaster, true), effective(30));
    EXPECT_EQ(paramsOf(submaster, false), sized(30));
    EXPECT_FALSE(submaster->isModified());
    oaString cell;
    submaster->getCellName(oaNativeNS(), cell);
    EXPECT_EQ(cell, "square");
}

TEST_F(PcellFileTest, FillsASubmasterWhileItIsEvaluated) {
    write({70});
    evaluator->meanwhile = [&](oaDesign* design, oaInt4) { read(design); };
    EXPECT_EQ(widthOf(openSubmaster(sized(30))), 70);
    std::filesystem::remove(path);
    EXPECT_EQ(openSubmaster(sized(31)), nullptr);
    const std::string told = lines.back();
    EXPECT_EQ(told.substr(0, told.find("cannot")), "onError 2 File '" + path + "' ");
}

TEST_F(PcellFileTest, LeavesASuperMasterOne) {
    write({70});
    oaDesign* superMaster = openCell('a');
    oaPcellDef* def = superMaster->getPcellDef();
    read(superMaster);
    EXPECT_EQ(widthOf(superMaster), 70);
    EXPECT_TRUE(superMaster->isSuperMaster());
    EXPECT_EQ(superMaster->getPcellDef(), def);
    EXPECT_EQ(paramsOf(superMaster, true), defaults());
    superMaster->save();
    superMaster->close();
    EXPECT_EQ(paramsOf(openCell('r'), true), defaults());
    EXPECT_EQ(widthOf(findSuperMaster()), 70);
}

TEST_F(PcellFileTest, TakesOfASuperMasterItsBlockOnly) {
    oaDesign* superMaster = openCell('a');
    oaRect::create(oaBlock::create(superMaster), 1, 2, oaBox(0, 0, 40, 40));
    PcellFile file(path.c_str());
    file.open("w");
    file.append(superMaster);
    file.close();
    EXPECT_EQ(bytesOf(path).find("square"), std::string::npos); // its evaluator
    oaDesign* design = openCell('w', "other");
    read(design);
    EXPECT_EQ(widthOf(design), 40);
    EXPECT_FALSE(design->isSuperMaster());
}

TEST_F(PcellFileTest, KeepsWhatTheObjectsOfABlockCarry) {
    oaDesign* design = drawn(10);
    oaNet* net = oaScalarNet::create(design->getTopBlock(), name("signal"));
    oaIter<oaShape> shapes(design->getTopBlock()->getShapes());
    oaShape* shape = shapes.getNext();
    shape->addToNet(net);
    oaStringProp::create(shape, "layer", "top");
    oaIntProp::create(design, "turns", 3);
    PcellFile file(path.c_str());
    file.open("w");
    file.append(design);
    file.close();
    oaDesign* submaster = openSubmaster(sized(30));
    read(submaster);
    oaNet* found = oaNet::find(submaster->getTopBlock(), name("signal"));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->getShapes(oacShapeIterNetOnly).getCount(), 1u);
    EXPECT_NE(oaProp::find(submaster, "turns"), nullptr);
}

TEST_F(PcellFileTest, DoesNotChangeADesignThatIsOpenForReading) {
    write({70});
    openCell('w', "other")->save();
    openCell('r', "other")->reopen('r');
    EXPECT_EQ(refused(oacCannotModifyReadModeDesign, [&] { read(openCell('r', "other")); }),
              "Design 'lib/other/layout' is open for reading and cannot be changed.");
}

TEST_F(PcellFileTest, IsReplacedWhenItIsClosedAndNotBefore) {
    write({10});
    {
        PcellFile file(path.c_str());
        file.open("w");
        file.append(drawn(20));
        oaDesign* design = openCell('w', "other");
        read(design);
        EXPECT_EQ(widthOf(design), 10);
    }
    EXPECT_EQ(filesInTheCache(), std::vector<std::string>{"entry"}); // nothing of the attempt
    oaDesign* design = openCell('w', "other");
    read(design);
    EXPECT_EQ(widthOf(design), 10);
    write({20});
    read(design);
    EXPECT_EQ(widthOf(design), 20);
}

TEST_F(PcellFileTest, KnowsWhetherItIsThere) {
    PcellFile file(path.c_str());
    EXPECT_FALSE(file.exists());
    write({10});
    EXPECT_TRUE(file.exists());
    EXPECT_FALSE(PcellFile((directory.str() + "/cache").c_str()).exists());
}

TEST_F(PcellFileTest, IsUsedInTheModeThatItIsOpenIn) {
    write({10});
    PcellFile file(path.c_str());
    const std::string closed = "File '" + path + "' is not open.";
    oaDesign* design = drawn(20);
    file.close();
    EXPECT_EQ(refused(oacFileNotOpen, [&] { file.read(design); }), closed);
    EXPECT_EQ(refused(oacFileNotOpen, [&] { file.append(design); }), closed);
    file.open("r");
    EXPECT_EQ(refused(oacFileNotOpen, [&] { file.append(design); }), closed);
    file.open("a");
    EXPECT_EQ(refused(oacFileNotOpen, [&] { file.read(design); }), closed);
    for (const char* mode : {"", "x", "rw", "R"})
        EXPECT_NE(refused(oacInvalidFileAccessMode, [&] { file.open(mode); }), "nothing") << mode;
    EXPECT_NE(refused(oacInvalidFileAccessMode, [&] { file.open(nullptr); }), "nothing");
    file.close();
    read(design);
    EXPECT_EQ(widthOf(design), 10);
}

TEST_F(PcellFileTest, IsRefusedWhereThereIsNoneToRead) {
    PcellFile missing(path.c_str());
    EXPECT_NE(refused(oacDatabaseFileNotRead, [&] { missing.open("r"); }).find(path),
              std::string::npos);
    std::filesystem::create_directory(path);
    EXPECT_NE(refused(oacDatabaseFileNotRead, [&] { missing.open("r"); }).find(path),
              std::string::npos);
    for (const char* mode : {"w", "a"})
        EXPECT_NE(refused(oacDatabaseFileNotWritten,
                          [&] {
                              missing.open(mode);
                              missing.close();
                          }),
                  "nothing");
    const std::string nowhere = directory.str() + "/nowhere/entry";
    EXPECT_NE(refused(oacDatabaseFileNotWritten, [&] { PcellFile(nowhere.c_str()).open("w"); })
                  .find(nowhere),
              std::string::npos);
}

TEST_F(PcellFileTest, IsReadFromWhereASubmasterBeginsOnly) {
    write({10, 20});
    const oaUInt8 size = bytesOf(path).size();
    EXPECT_EQ(damage(16), unsound("is not a database file"));
    EXPECT_EQ(damage(size), unsound("is shorter than the header of a database file"));
    EXPECT_EQ(damage(size + 100), unsound("is shorter than the header of a database file"));
    EXPECT_EQ(damage(~oaUInt8(0)), unsound("is shorter than the header of a database file"));
}

TEST_F(PcellFileTest, HoldsSubmastersOnly) {
    drawn(10, "design")->save();
    std::filesystem::copy(directory.str() + "/lib/design/layout/layout.oa", path);
    EXPECT_EQ(damage(), unsound("holds another kind of database"));
    const std::string before = bytesOf(path);
    EXPECT_EQ(refused(oacDatabaseFileDamaged, [&] { write({1}, "a"); }),
              unsound("is not a row of whole databases"));
    EXPECT_EQ(bytesOf(path), before);
    putBytes(path, "a text of 50 characters that is no database at all");
    EXPECT_EQ(damage(), unsound("is not a database file"));
}

TEST_F(PcellFileTest, IsNotReadWhenItEndsTooEarly) {
    write({10});
    const std::string whole = bytesOf(path);
    for (std::size_t size = 0; size < whole.size(); size += 7) {
        putBytes(path, whole.substr(0, size));
        EXPECT_NE(damage(), "nothing") << size;
        const std::string appended = refused(oacDatabaseFileDamaged, [&] { write({1}, "a"); });
        EXPECT_EQ(appended == "nothing", size == 0) << size;
    }
    putBytes(path, whole.substr(0, whole.size() - 1));
    EXPECT_EQ(damage(), unsound("is " + std::to_string(whole.size() - 1) +
                                " bytes long instead of " + std::to_string(whole.size())));
}

TEST_F(PcellFileTest, IsNotReadWhenOneByteOfItIsAnother) {
    write({10});
    const std::string whole = bytesOf(path);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::string changed = whole;
        changed[i] = char(changed[i] ^ 0x20);
        putBytes(path, changed);
        EXPECT_NE(damage(), "nothing") << i;
    }
}

TEST_F(PcellFileTest, IsNotReadWithBytesBehindItsSubmasters) {
    write({10});
    const std::string whole = bytesOf(path);
    putBytes(path, whole + std::string(32, '\0'));
    EXPECT_EQ(damage(), unsound("has bytes behind its last database"));
    putBytes(path, whole + "x");
    EXPECT_NE(damage(), "nothing");
    EXPECT_EQ(refused(oacDatabaseFileDamaged, [&] { write({1}, "a"); }),
              unsound("is not a row of whole databases"));
}

TEST_F(PcellFileTest, DamagedBehindASubmasterStillGivesThat) {
    const std::vector<oaUInt8> offsets = write({10, 20});
    std::string bytes = bytesOf(path);
    bytes.back() = char(bytes.back() + 1);
    putBytes(path, bytes);
    oaDesign* design = openCell('w', "other");
    read(design, offsets[0]);
    EXPECT_EQ(widthOf(design), 10);
    EXPECT_EQ(damage(offsets[1]), unsound("has a damaged section"));
}

/// Notes what it is told.
class FileObserver : public oaPcellFileObserver {
public:
    FileObserver() : oaPcellFileObserver(1) {}

    void onRead(oaDesign* design, PcellFile* file, oaUInt8 offset) override {
        calls.push_back("onRead " + std::to_string(offset) + " " + shapesIn(design));
        last = file;
    }
    void onPreAppend(oaDesign* design, PcellFile* file) override {
        calls.push_back("onPreAppend " + shapesIn(design));
        last = file;
    }
    void onPostAppend(oaDesign* design, PcellFile* file) override {
        calls.push_back("onPostAppend " + shapesIn(design));
        last = file;
    }

    Lines calls;
    PcellFile* last = nullptr;

private:
    static std::string shapesIn(const oaDesign* design) {
        const oaBlock* block = design->getTopBlock();
        return std::to_string(block ? block->getShapes().getCount() : 0);
    }
};

TEST_F(PcellFileTest, IsObserved) {
    FileObserver told;
    PcellFile file(path.c_str());
    file.open("w");
    file.append(drawn(10));
    const oaUInt8 second = file.append(drawn(20));
    file.close();
    EXPECT_EQ(told.calls,
              (Lines{"onPreAppend 1", "onPostAppend 1", "onPreAppend 1", "onPostAppend 1"}));
    EXPECT_EQ(told.last, &file);
    told.calls.clear();
    read(openCell('w', "other"), second);
    EXPECT_EQ(told.calls, Lines{"onRead " + std::to_string(second) + " 1"});
    told.calls.clear();
    putBytes(path, "");
    damage();
    EXPECT_EQ(told.calls, Lines());
}

} // namespace

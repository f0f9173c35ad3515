#include <ovalis/dm_files.h>
#include <ovalis/library.h>
#include <ovalis/pcell.h>
#include <ovalis/ports.h>

#include "support/files.h"
#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;
using ovalis::test::writeText;

namespace {

/// What the calls of the database below answer in place of nothing, when a test sets it.
oa::oaView* viewToAnswer = nullptr;
oa::oaDesign* designToAnswer = nullptr;
const char* listPathToAnswer = "";
bool findingFilesFails = false;

} // namespace

// In place of the database's own functions of these names.
namespace OpenAccess_4 {

oaCell* oaCell::get(const oaLib*, const oaScalarName&) {
    return nullptr;
}

oaView* oaView::get(const oaLib*, const oaScalarName&, const oaViewType*) {
    return viewToAnswer;
}

oaCellView* oaCellView::get(const oaCell*, const oaView*) {
    return nullptr;
}

oaDMFile* oaDMFile::create(const oaDMContainer*, const oaString&) {
    return nullptr;
}

oaDMFile* oaDMFile::find(const oaDMContainer* parent, const oaString& name) {
    if (findingFilesFails)
        throw oaDMError(oacInvalidDMName, static_cast<const oaChar*>(name), "file");
    oaIter<oaDMFile> files(parent->getDMFiles());
    while (oaDMFile* file = files.getNext()) {
        oaString found;
        file->getName(found);
        if (found == name)
            return file;
    }
    return nullptr;
}

oaViewType* oaViewType::create(const oaString&) {
    return nullptr;
}

oaBlock* oaBlock::create(const oaDesign*, oaBoolean) {
    return nullptr;
}

oaDesign* oaDesign::open(const oaScalarName&, const oaScalarName&, const oaScalarName&, oaChar) {
    return designToAnswer;
}

void oaLibDefList::getFullPath(oaString& path) const {
    path = listPathToAnswer;
}

oaUInt8 oaFile::getSize() const {
    return 0xFFFFFFFF80000001U;
}

} // namespace OpenAccess_4

// In place of the library's own table.
LayerPurposePairs ovalis::vexDefaultLayerPurposePairs() {
    return {{"cond:drawing", {1, 4294967295}}};
}

namespace {

class Absence : public ovalis::test::LibraryTest {
protected:
    /// A cell that was made by somebody else.
    oa::oaCell& cell() {
        std::filesystem::create_directory(filePath("lib") / "divider");
        return *oa::oaCell::find(&lib(), oa::oaScalarName(oa::oaNativeNS(), "divider"));
    }

    oa::oaView* anyView() {
        return oa::oaView::find(&lib(), oa::oaScalarName(oa::oaNativeNS(), "layout"),
                                oa::oaViewType::get(oa::oacMaskLayout));
    }

    ~Absence() override {
        viewToAnswer = nullptr;
        designToAnswer = nullptr;
        findingFilesFails = false;
    }
};

} // namespace

TEST_F(Absence, OfACellIsNamed) {
    EXPECT_EQ(failureOf([&] { createCell(lib(), "größe"); }), "Could not create cell größe");
    EXPECT_EQ(failureOf([&] { createCellView(lib(), "größe", "layout", oa::oacMaskLayout); }),
              "Could not create cell größe");
    EXPECT_EQ(failureOf([&] { createCellView(lib(), "größe", "layout", "maskLayout"); }),
              "Could not create cell größe");
}

TEST_F(Absence, OfAViewTypeIsNamed) {
    EXPECT_EQ(failureOf([&] { createCellView(cell(), "model", "größe"); }),
              "Could not create custom view type größe");
}

TEST_F(Absence, OfAViewIsNamed) {
    EXPECT_EQ(failureOf([&] { createCellView(cell(), "größe", oa::oacMaskLayout); }),
              "Could not create view größe");
    EXPECT_EQ(failureOf([&] { createCellView(cell(), "größe", "maskLayout"); }),
              "Could not create view größe");
}

TEST_F(Absence, OfACellViewIsNamed) {
    viewToAnswer = anyView();
    EXPECT_EQ(failureOf([&] { createCellView(cell(), "größe", oa::oacMaskLayout); }),
              "Could not create cell view größe in cell");
    EXPECT_EQ(failureOf([&] { createCellView(cell(), "größe", "maskLayout"); }),
              "Could not create cell view größe in cell");
}

TEST_F(Absence, OfAFileIsAFailure) {
    EXPECT_EQ(failureOf([&] { addDMFile(lib(), "größe"); }), "Can not add file to container.");
    EXPECT_EQ(failureOf([&] { addDMFile(cell(), "größe"); }), "Can not add file to container.");
}

TEST_F(Absence, OfAnAnswerWhetherAFileExistsGivesAccessBack) {
    lib().releaseAccess();
    findingFilesFails = true;
    EXPECT_EQ(failureOf([&] { existsFileInOpenLib("lib", "größe"); }),
              "database: 'größe' is not a legal name of a file.");
    EXPECT_EQ(lib().getAccessLevel(), oa::oacNoLibAccessLevel);
}

TEST_F(Absence, OfADesignIsAFailure) {
    EXPECT_EQ(failureOf([&] { openDesign(lib(), "divider", "layout", true); }),
              "Could not create or open design");
}

TEST_F(Absence, OfAValidDesignIsAFailure) {
    designToAnswer = &design("divider", "layout", 'w');
    designToAnswer->purge();
    EXPECT_EQ(failureOf([&] { openDesign(lib(), "divider", "layout", true); }),
              "Could not create or open design");
}

TEST_F(Absence, OfASourceLetsTheCopyBeAskedOfTheAbsentDesign) {
    designToAnswer = &design("divider", "layout", 'w');
    designToAnswer->purge();
    closeLibrary();
    EXPECT_EQ(messageIdOf([&] { copyDesign(pathOf("lib"), "divider", "layout", "copy"); }),
              oa::oacInvalidObject);
    EXPECT_EQ(oa::oaLib::find(oa::oaScalarName(oa::oaNativeNS(), "LogicalName")), nullptr);
}

TEST_F(Absence, OfATopBlockIsAFailureToAddPortsAlone) {
    oa::oaDesign& layout = design("divider", "layout", 'w');
    EXPECT_EQ(failureOf([&] { addPorts(layout, {}, false); }),
              "Can not create top level block in design.");
    EXPECT_EQ(failureOf([&] { removePorts(layout); }), "nothing thrown");
}

TEST_F(Absence, OfTheDeviceLayerIsAFailureBeforeAnythingIsDrawn) {
    oa::oaDesign& symbol = design("divider", "symbol", 'w', oa::oacSchematicSymbol);
    const std::string text = "Can not find layer/purpose pair for layer name";
    EXPECT_EQ(failureOf([&] { vexSymbolSnPDifferential(symbol, 1); }), text);
    EXPECT_EQ(failureOf([&] { vexSymbolSnPDifferentialForks(symbol, 1); }), text);
    EXPECT_EQ(symbol.getTopBlock(), nullptr);
}

TEST_F(Absence, OfRoomForAFileIsAFailure) {
    ovalis::test::writeText(filePath("file"), "small");
    EXPECT_EQ(failureOf([&] { readoaFile(pathOf("file")); }),
              "File " + pathOf("file") + " too big to handle");
}

TEST_F(Absence, OfASeparatorInTheTopListLeadsToTheCurrentDirectory) {
    oa::oaDesign& content = design("content", "layout", 'w');
    oa::oaDesign& layout = design("divider", "layout", 'w');
    writeText(filePath("lib.defs"), "");
    oa::oaLibDefList::openLibs(pathOf("lib.defs").c_str());
    std::filesystem::create_directories(filePath("work") / ".vexPcells");
    oa::PcellFile file(
        (pathOf("work") + "/.vexPcells/" + calculateSubmasterIdHash(&layout)).c_str());
    file.open("w");
    file.append(&content);
    file.close();
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(filePath("work"));
    listPathToAnswer = "lib.defs";
    EXPECT_NO_THROW(VexPSNPcell().onEval(&layout, nullptr));
    listPathToAnswer = "elsewhere/lib.defs";
    EXPECT_THROW(VexPSNPcell().onEval(&layout, nullptr), oa::oaDesignError);
    std::filesystem::current_path(before);
    oa::oaLibDefList::getTopList()->destroy();
}

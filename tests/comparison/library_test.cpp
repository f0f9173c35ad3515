#include "comparison/libraries.h"

#include <gmock/gmock.h>

#include <ovalis/dm_files.h>

#include "log.h"
#include "support/files.h"
#include "support/library_fixture.h"

namespace comparison::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr oa::oaPurposeNum drawing = oa::oavPurposeNumberDrawing;

/// A library, and a copy of it that a test changes.
class LibrariesTest : public ovalis::test::LibraryTest {
protected:
    LibrariesTest() {
        draw("coil", "layout", 0);
        draw("pad", "layout", 0);
        ovalis::test::writeText(filePath("lib") / "coil" / "itemdef.skr", "one\ntwo\n");
        ovalis::test::writeText(filePath("lib") / "notes.txt", "notes\n");
        addProp(oa::oaDMData::open(&lib(), 'w'), 1);
        addProp(oa::oaDMData::open(oa::oaCell::find(&lib(), scalar("coil")), 'w'), 1);
    }

    static oa::oaScalarName scalar(const char* name) { return {oa::oaNativeNS(), name}; }

    static void addProp(oa::oaDMData* data, oa::oaInt4 value) {
        oa::oaIntProp::create(data, "N", value);
        data->save();
        data->close();
    }

    void draw(const char* cell, const char* view, oa::oaCoord x) {
        oa::oaDesign& made = design(cell, view, 'w');
        oa::oaRect::create(oa::oaBlock::create(&made), 1, drawing, oa::oaBox(x, 0, x + 9, 9));
        made.save();
        made.close();
    }

    oa::oaLib& copied() {
        if (!copy_)
            copy_ = ovalis::copyLib(pathOf("lib"), pathOf("copy"), "copy");
        return *copy_;
    }
    oa::oaDesign& copiedDesign(const char* cell, const char* view, char mode) {
        return *oa::oaDesign::open(scalar("copy"), scalar(cell), scalar(view),
                                   oa::oaViewType::get(oa::oacMaskLayout), mode);
    }
    oa::oaCell* copiedCell(const char* cell) { return oa::oaCell::find(&copied(), scalar(cell)); }

    Lines differences() {
        Log log;
        compareLibraries(lib(), copied(), {"lib", "copy"}, log);
        return log.lines;
    }

private:
    ovalis::LibPtr copy_;
};

TEST_F(LibrariesTest, ACopyDiffersInNothing) {
    EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(LibrariesTest, AMovedShapeIsOneLine) {
    copied();
    oa::oaDesign& changed = copiedDesign("coil", "layout", 'a');
    oa::oaIter<oa::oaShape> shapes(changed.getTopBlock()->getShapes());
    shapes.getNext()->move(oa::oaTransform(5, 0));
    changed.save();
    changed.close();
    EXPECT_THAT(differences(),
                ElementsAre("coil/layout: rectangle on 1/drawing (0, 0)-(9, 9) moved by (5, 0)"));
}

TEST_F(LibrariesTest, CellsAndViewsComeAndGo) {
    copied();
    copiedCell("pad")->destroy();
    copiedDesign("via", "layout", 'w').save();
    copiedDesign("coil", "other", 'w').save();
    EXPECT_THAT(differences(),
                ElementsAre("coil: view \"other\" added", "library: cell \"pad\" removed",
                            "library: cell \"via\" added"));
}

TEST_F(LibrariesTest, FilesComeGoAndChange) {
    copied();
    ovalis::test::writeText(filePath("copy") / "coil" / "itemdef.skr", "one\nother\n");
    ovalis::test::writeText(filePath("copy") / "coil" / "layout" / "coil.s2p", "data");
    std::filesystem::remove(filePath("copy") / "notes.txt");
    EXPECT_THAT(differences(),
                ElementsAre("library: file \"notes.txt\" removed",
                            "coil: file \"itemdef.skr\": content was 8 bytes, is 10 bytes, another "
                            "from line 2 on",
                            "coil/layout: file \"coil.s2p\" added"));
}

TEST_F(LibrariesTest, FilesThatAreNoTextsSayWhichByte) {
    ovalis::test::writeText(filePath("lib") / "data.bin", std::string(100000, '\0') + "a");
    copied();
    ovalis::test::writeText(filePath("copy") / "data.bin", std::string(100000, '\0') + "b");
    EXPECT_THAT(differences(), ElementsAre("library: file \"data.bin\": content was 100001 bytes, "
                                           "is 100001 bytes, another from byte 100001 on"));
}

TEST_F(LibrariesTest, DataOfEveryKindDiffer) {
    copied();
    oa::oaDMData* const data = oa::oaDMData::open(&copied(), 'a');
    oa::oaProp::find(data, "N")->destroy();
    addProp(data, 2);
    oa::oaDMData::destroy(copiedCell("coil"));
    oa::oaView* const view =
        oa::oaView::find(&copied(), scalar("layout"), oa::oaViewType::get(oa::oacMaskLayout));
    addProp(oa::oaDMData::open(view, 'w'), 3);
    addProp(oa::oaDMData::open(oa::oaCellView::find(copiedCell("coil"), view), 'w'), 4);
    EXPECT_THAT(differences(),
                ElementsAre("library: library: property \"N\" was int 1, is int 2",
                            "library: view \"layout\" of the type \"maskLayout\": property \"N\" "
                            "added: int 3",
                            "coil: cell: property \"N\" removed: int 1",
                            "coil/layout: view: property \"N\" added: int 4"));
}

TEST_F(LibrariesTest, TechnologiesDiffer) {
    copied();
    oa::oaTech* const tech = oa::oaTech::open(&copied(), 'a');
    oa::oaPhysicalLayer::create(tech, "M1", 1);
    tech->save();
    tech->close();
    EXPECT_THAT(differences(), ElementsAre("technology: layer \"M1\" added"));
}

TEST_F(LibrariesTest, AttributesDifferButNotWhetherTheLibraryMayBeWritten) {
    oa::oaDMAttrArray attributes;
    copied().getAttributes(attributes);
    attributes.append(oa::oaDMAttr("owner", "somebody"));
    for (oa::oaUInt4 at = 0; at < attributes.getNumElements(); ++at)
        if (attributes[at].getName() == "libReadOnly")
            attributes[at].setValue("Yes");
    copied().setAttributes(attributes);
    EXPECT_THAT(differences(),
                ElementsAre("library: library: attribute \"owner\" added: \"somebody\""));
}

TEST_F(LibrariesTest, AViewOfAnotherTypeDiffers) {
    copied();
    oa::oaCellView::get(&lib(), scalar("pad"), scalar("text"),
                        oa::oaViewType::get(oa::oacVerilogText));
    oa::oaCellView::get(&copied(), scalar("pad"), scalar("text"),
                        oa::oaViewType::get(oa::oacSPICEText));
    EXPECT_THAT(differences(),
                ElementsAre("pad/text: view: view type was verilogText, is SPICEText"));
}

TEST_F(LibrariesTest, WhatCannotBeReadIsToldAndTheRestIsCompared) {
    copied();
    ovalis::test::writeText(filePath("copy") / "coil" / "layout" / "layout.oa", "damaged");
    copiedDesign("via", "layout", 'w').save();
    const Lines lines = differences();
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_THAT(lines[0], HasSubstr("coil/layout cannot be read: "));
    EXPECT_THAT(lines[1], HasSubstr("coil/layout: file \"layout.oa\": content was "));
    EXPECT_EQ(lines[2], "library: cell \"via\" added");
}

} // namespace
} // namespace comparison::test

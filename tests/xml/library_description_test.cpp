// The descriptions of libraries, cells, cell views, files and technologies.

#include <map>
#include <sstream>

#include "support/files.h"
#include "support/places.h"
#include "xml/described_library.h"

using namespace ovalis;
using namespace oa;

namespace {

class LibraryDescription : public test::DescribedLibrary {
protected:
    const oaCell& cell(const char* text) { return *oaCell::find(&lib(), name(text)); }

    const oaCellView& cellView(const char* cellName, const char* viewName) {
        return *oaCellView::find(&lib(), name(cellName), name(viewName));
    }

    /// The bytes of every file of the library, by path. Locks that are held cannot be read
    /// everywhere.
    std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(filePath("lib"))) {
            if (entry.is_regular_file() && entry.path().extension() != ".lck") {
                found[test::utf8(entry.path())] = test::readText(entry.path());
            }
        }
        return found;
    }
};

std::string expectedText(const char* name) {
    return test::readText(test::sourceTree() / "tests" / "xml" / "data" / name);
}

} // namespace

TEST_F(LibraryDescription, HoldsEverything) {
    makeAll();
    EXPECT_EQ(portable(xmlFormat(lib())), expectedText("library.txt"));
}

TEST_F(LibraryDescription, IsTheSameInPieces) {
    makeAll();
    std::ostringstream stream;
    xmlWrite(lib(), stream);
    EXPECT_EQ(stream.str(), xmlFormat(lib()));
    stream.str("");
    xmlWrite(cell("leaf"), stream);
    EXPECT_EQ(stream.str(), xmlFormat(cell("leaf")));
    stream.str("");
    xmlWrite(cellView("leaf", "layout"), stream);
    EXPECT_EQ(stream.str(), xmlFormat(cellView("leaf", "layout")));
}

TEST_F(LibraryDescription, ContainsThoseOfItsParts) {
    makeAll();
    const std::string text = xmlFormat(lib());
    EXPECT_NE(text.find(xmlFormat(cell("leaf"))), std::string::npos);
    EXPECT_NE(text.find(xmlFormat(cellView("top", "layout"))), std::string::npos);
    oaDesign& leaf = design("leaf", "layout", 'r');
    EXPECT_NE(text.find(xmlFormat(leaf)), std::string::npos);
    leaf.close();
}

TEST_F(LibraryDescription, OfAnEmptyLibraryIsItsName) {
    oaLib* bare = oaLib::create(name("bare"), pathOf("bare").c_str());
    bare->getAccess(oacReadLibAccess);
    EXPECT_EQ(xmlFormat(*bare), "<lib name=\"bare\">\n</lib>\n");
    bare->close();
}

TEST_F(LibraryDescription, LeavesOutDesignsThatAreMissing) {
    makeNotes();
    EXPECT_EQ(portable(xmlFormat(cell("notes"))),
              "<cell name=\"notes\"\n"
              "      hasProp=\"0\"\n"
              "      hasAppDef=\"0\">\n"
              "<dmContainer>\n"
              "\t<dmFile name=\"remarks.txt\" path=\"DIR/notes/remarks.txt\"/>\n"
              "</dmContainer>\n"
              "<cellView viewName=\"plan\"\n"
              "      viewType=\"textPlan\"\n"
              "      hasProp=\"0\"\n"
              "      hasAppDef=\"0\">\n"
              "<dmContainer>\n"
              "\t<dmFile name=\"plan.txt\" path=\"DIR/notes/plan/plan.txt\"/>\n"
              "\t<dmFile name=\"textPlan.oa\" path=\"DIR/notes/plan/textPlan.oa\"/>\n"
              "</dmContainer>\n"
              "</cellView>\n"
              "</cell>\n");
}

TEST_F(LibraryDescription, OfFilesIsTheirNamesAndPaths) {
    makeNotes();
    EXPECT_EQ(portable(xmlFormat(static_cast<const oaDMContainer&>(cell("notes")))),
              "<dmContainer>\n"
              "\t<dmFile name=\"remarks.txt\" path=\"DIR/notes/remarks.txt\"/>\n"
              "</dmContainer>\n");
}

TEST_F(LibraryDescription, ChangesNothingOnDisk) {
    makeAll();
    const auto before = files();
    xmlFormat(lib());
    EXPECT_EQ(files(), before);
}

TEST_F(LibraryDescription, LeavesDesignsAloneThatAreEdited) {
    makeLeaf();
    const auto before = files();
    for (const char mode : {'a', 'w'}) {
        oaDesign& edited = design("leaf", "layout", mode);
        if (edited.getTopBlock() == nullptr) {
            oaBlock::create(&edited);
        }
        oaRect::create(edited.getTopBlock(), 77, 1, oaBox(0, 0, 1, 1));
        const std::string text = xmlFormat(cell("leaf"));
        EXPECT_NE(text.find("layerNum=\"77\""), std::string::npos);
        EXPECT_TRUE(edited.isValid());
        EXPECT_TRUE(edited.isModified());
        EXPECT_EQ(edited.getMode(), mode);
        EXPECT_EQ(edited.getRefCount(), 1U);
        edited.close();
        const std::string file = test::utf8(filePath("lib")) + "/leaf/layout/layout.oa";
        EXPECT_EQ(files().at(file), before.at(file));
    }
}

TEST_F(LibraryDescription, LeavesATechnologyAloneThatIsEdited) {
    makeTech();
    const auto before = files();
    oaTech* tech = oaTech::open(&lib(), 'a');
    const oaUInt4 openings = tech->getRefCount();
    oaPhysicalLayer::create(tech, "new", 77);
    EXPECT_NE(xmlFormat(lib()).find("number=\"77\""), std::string::npos);
    EXPECT_TRUE(tech->isModified());
    EXPECT_EQ(tech->getRefCount(), openings);
    tech->close();
    const std::string file = test::utf8(filePath("lib")) + "/tech.db";
    EXPECT_EQ(files().at(file), before.at(file));
}

TEST_F(LibraryDescription, ClosesWhatItOpens) {
    makeAll();
    xmlFormat(lib());
    EXPECT_TRUE(oaDesign::getOpenDesigns().isEmpty());
    EXPECT_TRUE(oaTech::getOpenTechs().isEmpty());
}

TEST_F(LibraryDescription, OfATechnologyHasItsLayers) {
    makeTech();
    oaTech* tech = oaTech::open(&lib(), 'r');
    const std::string text = xmlFormat(*tech);
    EXPECT_NE(xmlFormat(lib()).find(text), std::string::npos);
    EXPECT_EQ(text.substr(0, text.find("<appDefs>")),
              "<tech \n"
              "      hasProp=\"1\"\n"
              "      hasAppDef=\"0\"\n"
              "      layers=\"4\"\n"
              "      purposes=\"" +
                  std::to_string(tech->getPurposes().getCount()) +
                  "\"\n"
                  "      values=\"1\"\n"
                  "      DBUperUU=\"2000\"\n"
                  "      UserUnits=\"micron\">\n");
    tech->close();
}

TEST_F(LibraryDescription, OfAnAttachedLibraryHasTheOtherTechnology) {
    makeTech();
    oaLib* attached = oaLib::create(name("attached"), pathOf("attached").c_str());
    oaTech::attach(attached, name("lib"));
    attached->getAccess(oacReadLibAccess);
    oaTech* tech = oaTech::open(&lib(), 'r');
    EXPECT_EQ(xmlFormat(*attached), "<lib name=\"attached\">\n" + xmlFormat(*tech) + "</lib>\n");
    tech->close();
    attached->close();
}

TEST_F(LibraryDescription, OfALibraryWithoutAccessIsAFailure) {
    lib().releaseAccess();
    EXPECT_EQ(test::messageIdOf([&] { xmlFormat(lib()); }), oacLibAccessDenied);
}

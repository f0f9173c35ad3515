#include <gtest/gtest.h>

#include <ovalis/dm_files.h>

#include "workplace.h"

namespace cli::test {
namespace {

/// A component with two ports and a Touchstone file.
class TouchstoneExport : public testing::Test {
protected:
    TouchstoneExport() {
        work.component["touchstone"] = {{"file", "coil 1.s2p"}, {"ports", 2}};
        put("! Port[1] = in\n! Port[2] = out\n# GHz S RI R 60\n1 0 0 0 0 0 0 0 0\n");
    }

    void put(const std::string& text) const {
        ovalis::test::writeText(work.path("coil 1.s2p"), text);
    }
    ovalis::LibPtr library() const { return ovalis::openLib(work.library(), false, "lib"); }

    /// A parameter of the super master, as text.
    static std::string parameter(oa::oaDesign& design, const char* name) {
        oa::oaParamArray params;
        design.getParams(params);
        for (oa::oaUInt4 i = 0; i < params.getNumElements(); ++i) {
            oa::oaString text;
            params[i].getName(text);
            if (text == name) {
                params[i].getStringVal(text);
                return ovalis::fromOa(text);
            }
        }
        return "no such parameter";
    }
    static std::string propertyOfTerm(oa::oaDesign& design, const char* term, const char* name) {
        const oa::oaScalarName termName(oa::oaNativeNS(), term);
        const oa::oaTerm* found = oa::oaTerm::find(design.getTopBlock(), termName);
        const oa::oaProp* property = oa::oaProp::find(found, name);
        oa::oaString text;
        if (property != nullptr)
            property->getValue(text);
        return ovalis::fromOa(text);
    }

    Workplace work;
};

} // namespace

TEST_F(TouchstoneExport, StoresTheFileInTheCell) {
    const Outcome outcome = work.exportIt();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.talk.find("  touchstone: coil/coil 1.s2p, 2 ports\n"
                                "    port 1 \"in\" -> A (60 Ohm)\n"
                                "    port 2 \"out\" -> B (60 Ohm)\n"),
              std::string::npos)
        << outcome.talk;
    EXPECT_EQ(work.tree()["coil/coil 1.s2p"], ovalis::test::readText(work.path("coil 1.s2p")));
    const ovalis::LibPtr lib = library();
    bool isManaged = false;
    for (const ovalis::TStringPair& file : ovalis::getDMFileNames(*lib, "coil"))
        isManaged = isManaged || file.get<0>() == "coil 1.s2p";
    EXPECT_TRUE(isManaged);
}

TEST_F(TouchstoneExport, RefersToItFromTheLibraryOn) {
    work.exportIt();
    EXPECT_NE(work.tree()["coil/itemdef.skr"].find("coil/coil 1.s2p"), std::string::npos);
    const ovalis::LibPtr lib = library();
    oa::oaDesign* design = ovalis::openDesign(*lib, "coil", "layout", false);
    EXPECT_EQ(parameter(*design, "File"), "coil/coil 1.s2p");
    design->close();
}

TEST_F(TouchstoneExport, RefersToItByTheParameterThatNamesIt) {
    work.component["parameters"].push_back(
        {{"kind", "string"}, {"name", "Data"}, {"value", "old/coil 1.s2p"}});
    work.exportIt();
    const ovalis::LibPtr lib = library();
    oa::oaDesign* design = ovalis::openDesign(*lib, "coil", "layout", false);
    EXPECT_EQ(parameter(*design, "Data"), "coil/coil 1.s2p");
    EXPECT_EQ(parameter(*design, "File"), "no such parameter");
    design->close();
}

TEST_F(TouchstoneExport, WritesWhatTheFileSaysIntoThePorts) {
    work.exportIt();
    const ovalis::LibPtr lib = library();
    oa::oaDesign* design = ovalis::openDesign(*lib, "coil", "layout", false);
    EXPECT_EQ(propertyOfTerm(*design, "B", "touchstone_port"), "2");
    EXPECT_EQ(propertyOfTerm(*design, "B", "touchstone_name"), "out");
    EXPECT_EQ(propertyOfTerm(*design, "B", "reference_impedance"), "60 Ohm");
    design->close();
}

TEST_F(TouchstoneExport, IsRefusedWhenThePortsDoNotMatch) {
    put("#\n1 0 0\n");
    EXPECT_EQ(work.exportIt(),
              (Outcome{2, "",
                       "ovalis: " + work.path("coil 1.s2p") +
                           ":2: expected 4 pairs for 2 ports, as the name of the file says, found "
                           "1\n"}));
    EXPECT_FALSE(std::filesystem::exists(work.library()));
}

TEST_F(TouchstoneExport, ReplacesTheFileWithTheCell) {
    work.exportIt();
    put("# R 75\n1 0 0 0 0 0 0 0 0\n");
    EXPECT_EQ(work.exportIt({"--replace"}).status, 0);
    EXPECT_EQ(work.tree()["coil/coil 1.s2p"], "# R 75\n1 0 0 0 0 0 0 0 0\n");
}

} // namespace cli::test

#include <gtest/gtest.h>

#include <ovalis/xml.h>

#include "cli/description_stream.h"
#include "workplace.h"

namespace cli::test {
namespace {

/// A library with an exported component.
class Describe : public ::testing::Test {
protected:
    Describe() { EXPECT_EQ(work_.exportIt().status, 0); }

    /// The description by the library itself.
    std::string expected() const {
        const ovalis::LibPtr lib = ovalis::openLib(work_.library(), false, "lib");
        lib->getAccess(oa::oacReadLibAccess);
        return ovalis::xmlFormat(*lib);
    }

    Workplace work_;
};

} // namespace

TEST_F(Describe, WritesTheLibrary) {
    const Outcome outcome = ovalisHere({"describe", work_.library()});
    EXPECT_EQ(outcome, (Outcome{0, expected(), ""}));
    EXPECT_TRUE(outcome.out.starts_with("<lib name=\"lib\">\n<tech \n"));
}

TEST_F(Describe, WritesACellOrACellViewOfIt) {
    const std::string all = expected();
    const Outcome cell = ovalisHere({"describe", work_.library(), "coil"});
    EXPECT_EQ(cell.status, 0);
    EXPECT_TRUE(cell.out.starts_with("<cell name=\"coil\"\n"));
    EXPECT_NE(all.find(cell.out), std::string::npos);
    const Outcome view = ovalisHere({"describe", work_.library(), "coil", "symbol"});
    EXPECT_EQ(view.status, 0);
    EXPECT_TRUE(view.out.starts_with("<cellView viewName=\"symbol\"\n"));
    EXPECT_NE(cell.out.find(view.out), std::string::npos);
}

TEST_F(Describe, WritesAFile) {
    const std::string file = work_.path("größe.txt");
    EXPECT_EQ(ovalisHere({"describe", work_.library(), "-o", file}),
              (Outcome{0, "", "wrote " + file + "\n"}));
    EXPECT_EQ(
        ovalis::test::readText(std::filesystem::path(std::u8string(file.begin(), file.end()))),
        expected());
}

TEST_F(Describe, ChangesNothing) {
    const Tree before = work_.tree();
    ovalisHere({"describe", work_.library()});
    EXPECT_EQ(work_.tree(), before);
}

TEST_F(Describe, RefusesWhatIsMissing) {
    EXPECT_EQ(ovalisHere({"describe", work_.library(), "none"}),
              (Outcome{2, "", "ovalis: " + work_.library() + ": no cell \"none\"\n"}));
    EXPECT_EQ(ovalisHere({"describe", work_.library(), "coil", "none"}),
              (Outcome{2, "", "ovalis: " + work_.library() + ": no cell view \"coil/none\"\n"}));
    EXPECT_EQ(ovalisHere({"describe", work_.path("none")}).status, 2);
}

TEST(DescriptionStream, CountsCellsHoweverTheTextIsCut) {
    const std::string text = "<cell>\n</cell>\n</cell>\n</cells>\n\n</cell>\nx</cell>\n";
    for (std::size_t size = 1; size <= text.size(); ++size) {
        std::ostringstream out;
        DescriptionStream stream(out);
        for (std::size_t at = 0; at < text.size(); at += size)
            stream << text.substr(at, size);
        EXPECT_EQ(stream.cells(), 3u);
        EXPECT_EQ(out.str(), text);
    }
}

} // namespace cli::test

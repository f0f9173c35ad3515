#include "component/touchstone.h"

#include <filesystem>

#include <gmock/gmock.h>

#include "component/json_node.h"
#include "support/files.h"
#include "support/places.h"
#include "support/temporary_directory.h"

namespace component::test {
namespace {

using testing::Each;
using testing::ElementsAre;

class TouchstoneFile : public testing::Test {
protected:
    Touchstone read(const std::string& name, const std::string& text) const {
        ovalis::test::writeText(path(name), text);
        return readTouchstone(path(name));
    }
    /// What is wrong, behind the file's name.
    std::string complaint(const std::string& name, const std::string& text) const {
        try {
            read(name, text);
        } catch (const InputError& error) {
            const std::string found = error.what();
            return found.starts_with(path(name)) ? found.substr(path(name).size() + 1) : found;
        }
        return "";
    }
    std::string path(const std::string& name) const { return directory_.str() + "/" + name; }

private:
    ovalis::test::TemporaryDirectory directory_;
};

/// A row of `count` numbers, of which the first is a frequency.
std::string row(double frequency, std::size_t count) {
    std::string text = std::to_string(frequency);
    for (std::size_t i = 1; i < count; ++i)
        text += " 0.1";
    return text + "\n";
}

} // namespace

TEST_F(TouchstoneFile, OfOnePortIsRead) {
    const Touchstone file =
        read("a.s1p", "! made by hand\n# GHz S MA R 75\n1 0.9 -10\n2 .8 -2e1\n");
    EXPECT_EQ(file.version, 1);
    EXPECT_EQ(file.ports, 1u);
    EXPECT_THAT(file.impedances, ElementsAre(75));
    EXPECT_THAT(file.portNames, ElementsAre(""));
}

TEST_F(TouchstoneFile, HasTheUsualImpedanceWhenItSaysNothing) {
    EXPECT_THAT(read("a.s2p", "#\n" + row(1, 9)).impedances, ElementsAre(50, 50));
}

TEST_F(TouchstoneFile, MayHaveItsOptionsInAnyOrderAndSpelling) {
    EXPECT_THAT(read("A.S1P", "# r 5e1 ri s hz ! why not\r\n1 +0.9E0 -1\r\n").impedances,
                ElementsAre(50));
    EXPECT_THAT(read("a.s1p", "# R 60\n# R 70\n1 0 0\n").impedances, ElementsAre(60));
    EXPECT_THAT(read("a.s2p", "# HZ S RI R 50 75\n" + row(1, 9)).impedances, ElementsAre(50, 75));
}

TEST_F(TouchstoneFile, MayBreakItsRowsWhereItLikes) {
    const std::string fourPairs = " 1 0 1 0 1 0 1 0\n";
    const std::string record = "1" + fourPairs + fourPairs + fourPairs + fourPairs;
    EXPECT_EQ(read("a.s4p", "#\n" + record + "2" + record.substr(1)).ports, 4u);
    EXPECT_EQ(read("a.s4p", "#\n" + row(1, 33) + row(2, 33)).ports, 4u);
    EXPECT_EQ(read("a.s4p", "#\n1\n" + fourPairs + fourPairs + fourPairs + fourPairs).ports, 4u);
}

TEST_F(TouchstoneFile, MayEndWithNoise) {
    EXPECT_EQ(read("a.s2p", "#\n" + row(1, 9) + row(2, 9) + row(1, 5) + row(2, 5)).ports, 2u);
    EXPECT_EQ(complaint("a.s1p", "#\n" + row(1, 3) + row(1, 5)),
              "3: expected frequencies that increase");
}

TEST_F(TouchstoneFile, WithoutTheUsualEndingTellsItsPortsByItsData) {
    EXPECT_EQ(read("a.dat", "#\n" + row(1, 19)).ports, 3u);
    EXPECT_EQ(read("a", "\xef\xbb\xbf#\n" + row(1, 3)).ports, 1u);
}

TEST_F(TouchstoneFile, MustHoldWhatItsNameSays) {
    EXPECT_EQ(complaint("a.s2p", "#\n" + row(1, 3) + row(2, 3) + row(3, 3)),
              "2: expected 4 pairs for 2 ports, as the name of the file says, found 1");
    EXPECT_EQ(complaint("a.s1p", "#\n" + row(1, 9)),
              "2: expected 1 pairs for 1 port, as the name of the file says, found 4");
    EXPECT_EQ(complaint("a.s7p", "#\n" + row(1, 9) + row(2, 9)),
              "2: expected 49 pairs for 7 ports, as the name of the file says, found 4");
    EXPECT_EQ(complaint("a.s2p", "#\n" + row(1, 9) + row(2, 7)),
              "3: expected 4 pairs for 2 ports, as the name of the file says, found 3");
    EXPECT_EQ(complaint("a.dat", "#\n" + row(1, 7)),
              "2: expected the pairs of a whole matrix, found 3");
    EXPECT_EQ(complaint("a.dat", "#\n" + row(1, 9) + row(2, 3)),
              "3: expected 4 pairs for 2 ports, found 1");
}

TEST_F(TouchstoneFile, IsRefusedWithTheLineThatIsWrong) {
    EXPECT_EQ(complaint("a.s1p", ""), "0: there is no option line, which starts with #");
    EXPECT_EQ(complaint("a.s1p", "#\n! nothing\n"), "2: there are no data");
    EXPECT_EQ(complaint("a.s1p", "1 0 0\n"),
              "1: expected the option line, which starts with #, in front of the data");
    EXPECT_EQ(complaint("a.s1p", "#\n1 0 O\n"), "2: expected a number, found \"O\"");
    EXPECT_EQ(complaint("a.s1p", "#\n1 0\n"), "2: expected a frequency and pairs of numbers");
    EXPECT_EQ(complaint("a.s1p", "# R\n"), "1: expected the reference impedance behind R");
    EXPECT_EQ(complaint("a.s1p", "# R 0\n"),
              "1: expected a reference impedance above 0, found \"0\"");
    EXPECT_EQ(complaint("a.s1p", "# R 50 60 70\n1 0 0\n"),
              "2: expected 1 or 1 reference impedances, found 3");
    EXPECT_EQ(complaint("a.s1p", "[Number of Ports] 1\n"),
              "1: expected [Version] in front of other keywords");
    EXPECT_THROW(readTouchstone(path("missing.s1p")), InputError);
    EXPECT_THROW(readTouchstone(path("")), InputError);
}

TEST_F(TouchstoneFile, MayHaveOnlyOptionsThatMeanSomething) {
    for (const std::string word : {"XHZ", "QQ", "S11", "50", "inf", "GHzS"})
        EXPECT_EQ(complaint("a.s1p", "! made by hand\n# " + word + " S RI R 50\n1 0 0\n"),
                  "2: expected a unit of frequency, a kind of parameters, a format or R, found \"" +
                      word + "\"");
    EXPECT_EQ(complaint("a.s1p", "# S R 50 ohm\n1 0 0\n"),
              "1: expected a unit of frequency, a kind of parameters, a format or R, found "
              "\"ohm\"");
    for (const char* options : {"Hz S DB", "kHz Y MA", "MHz Z RI", "GHz G ma", "ghz h ri"})
        EXPECT_EQ(read("a.s1p", std::string("# ") + options + "\n1 0 0\n").ports, 1u);
}

TEST_F(TouchstoneFile, HoldsNoNumbersWithoutAValue) {
    for (const std::string word : {"nan", "inf", "-inf", "infinity", "NaN", "1e999"}) {
        EXPECT_EQ(complaint("a.s1p", "#\n1 0 0\n2 0 " + word + "\n"),
                  "3: expected a number, found \"" + word + "\"");
        EXPECT_EQ(complaint("a.s1p", "#\n" + word + " 0 0\n"),
                  "2: expected a number, found \"" + word + "\"");
        EXPECT_EQ(complaint("a.s1p", "# R " + word + "\n1 0 0\n"),
                  "1: expected the reference impedance behind R");
        EXPECT_EQ(complaint("a.ts", "[Version] 2.0\n#\n[Number of Ports] 1\n[Reference] " + word +
                                        "\n[Network Data]\n1 0 0\n"),
                  "4: expected a reference impedance above 0, found \"" + word + "\"");
    }
}

TEST_F(TouchstoneFile, HasANumberOfPortsInAnEndingOfThatKind) {
    for (const std::string ending :
         {".sp", ".s0p", ".s-1p", ".S+1P", ".s99999999999p", ".s10001p", ".s1,5p"})
        EXPECT_EQ(complaint("a" + ending, "#\n1 0 0\n"),
                  " expected a number of ports from 1 to 10000 in the ending of the name, found "
                  "\"" +
                      ending + "\"");
    for (const char* name : {"a.snp", "a.step", "a.s", "a.p", "a.sap1", "sp", "a.s01p"})
        EXPECT_EQ(read(name, "#\n1 0 0\n").ports, 1u);
}

TEST_F(TouchstoneFile, NamesItsPortsInComments) {
    EXPECT_THAT(
        read("a.s3p", "! Port[1] = in:1\n!Port[2]=out\n! PORT 3 : \"with blank\"\n#\n" + row(1, 19))
            .portNames,
        ElementsAre("in:1", "out", "with blank"));
    EXPECT_THAT(read("a.s2p", "! port(2) = b\n! Port #1: a\n#\n" + row(1, 9)).portNames,
                ElementsAre("a", "b"));
    EXPECT_THAT(read("a.s2p", "! Port[1] = a\n#\n" + row(1, 9) + "! Port[1] = again\n").portNames,
                ElementsAre("a", ""));
}

TEST_F(TouchstoneFile, HasNoNamesInOtherComments) {
    EXPECT_THAT(read("a.s2p", "! Port 1: 50 Ohm\n! Port[2] = 50+0j\n! Port Impedance 50 0 50 0\n"
                              "! Ports = 2\n! Port 3 = c\n! Port[1 = a\n! Portal 1 = x\n"
                              "! Port[1] =\n#\n" +
                                  row(1, 9))
                    .portNames,
                Each(""));
}

TEST_F(TouchstoneFile, OfVersion2IsRead) {
    const Touchstone file = read("a.ts", "! four ports\n[Version] 2.0\n# GHz S RI R 50\n"
                                         "[Number of Ports] 2\n[Two-Port Data Order] 12_21\n"
                                         "[Number of Frequencies] 2\n[Reference] 50\n 75.5\n"
                                         "[Begin Information]\n# [Number of Ports] 9\n"
                                         "[End Information]\n[Matrix Format] Lower\n"
                                         "[Network Data]\n1 0 0 0 0 0 0\n2 0 0\n0 0 0 0\n"
                                         "[Noise Data]\n1 2 3 4 5\n[End]\nthat is all\n");
    EXPECT_EQ(file.version, 2);
    EXPECT_EQ(file.ports, 2u);
    EXPECT_THAT(file.impedances, ElementsAre(50, 75.5));
}

TEST_F(TouchstoneFile, OfVersion2MustHoldWhatItsKeywordsSay) {
    const std::string head = "[Version] 2.0\n#\n[Number of Ports] 2\n";
    EXPECT_EQ(complaint("a.s3p", head + "[Network Data]\n" + row(1, 9)),
              "5: the name says 3 ports, [Number of Ports] says 2");
    EXPECT_EQ(complaint("a.ts", head + "[Network Data]\n" + row(1, 8)),
              "5: expected 9 numbers for 2 ports, found 8");
    EXPECT_EQ(complaint("a.ts", head + "[Number of Frequencies] 2\n[Network Data]\n" + row(1, 9)),
              "6: expected 2 times 9 numbers for 2 ports, found 9");
    EXPECT_EQ(complaint("a.ts", head + "[Reference] 50 60 70\n[Network Data]\n" + row(1, 9)),
              "6: expected 1 or 2 reference impedances, found 3");
    EXPECT_EQ(complaint("a.ts", head + row(1, 9)),
              "4: expected [Network Data] in front of the data");
    EXPECT_EQ(complaint("a.ts", "[Version] 2.0\n#\n[Network Data]\n" + row(1, 9)),
              "4: there is no [Number of Ports]");
    EXPECT_EQ(complaint("a.ts", "[Version] 2.0\n#\n[Number of Ports] two\n"),
              "3: expected a number behind [Number of Ports]");
    EXPECT_EQ(complaint("a.ts", "[Version] 3.0\n"), "1: expected version 2.0 or 2.1");
    EXPECT_EQ(complaint("a.ts", "[Version 2.0\n"), "1: expected ] behind a keyword");
    EXPECT_EQ(complaint("a.ts", head + "[Begin Information]\n"), "4: expected [End Information]");
}

TEST_F(TouchstoneFile, ThatInstrumentsAndSolversWroteIsRead) {
    const auto data = ovalis::test::sharedData();
    if (!data)
        GTEST_SKIP() << "OVALIS_SHARED_DATA names no directory with Touchstone files";
    std::vector<std::string> found;
    for (const char* name : {"inductor_2n0_measured.s2p", "spiral_39n.s1p",
                             "vna_4port_measured.s4p", "wilkinson_100g.s3p"}) {
        const Touchstone file = readTouchstone(ovalis::test::utf8(*data / "touchstone" / name));
        EXPECT_THAT(file.impedances, Each(50)) << name;
        EXPECT_THAT(file.portNames, Each("")) << name;
        found.push_back(std::to_string(file.ports) + " " + name);
    }
    EXPECT_THAT(found, ElementsAre("2 inductor_2n0_measured.s2p", "1 spiral_39n.s1p",
                                   "4 vna_4port_measured.s4p", "3 wilkinson_100g.s3p"));
}

} // namespace component::test

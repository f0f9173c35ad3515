#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include <gtest/gtest.h>

#include "pcell/submaster_identity.h"
#include "support/library_fixture.h"

using namespace ovalis;
using namespace std::string_literals;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;

namespace {

class SubmasterHash : public ovalis::test::LibraryTest {
protected:
    /// A super master of the library "lib" with these defaults.
    oa::oaDesign& superMaster(const std::string& cell, const std::vector<oa::oaParam>& params) {
        oa::oaDesign& made = design(cell, "layout", 'w');
        made.defineSuperMaster(oa::oaPcellLink::getPcellDef("PSNPcell"),
                               {params.data(), static_cast<oa::oaUInt4>(params.size())});
        return made;
    }

    static std::string bytesOf(const oa::oaDesign& design) {
        ByteBuffer bytes;
        appendIdentity(bytes, design);
        return std::string(bytes.view());
    }
};

} // namespace

TEST_F(SubmasterHash, IsTakenOfTheNamesAndTheParameters) {
    oa::oaDesign& master = superMaster("resistor", {{"w", 2.5}, {"n", 3}});
    EXPECT_EQ(bytesOf(master), "lib\0resistor\0layout\0\2\0\0\0n\0\0\3\0\0\0"
                               "w\0\4\0\0\0\0\0\0\4\x40"s);
    EXPECT_EQ(calculateSubmasterIdHash(&master),
              "422bb399f2628e55d1e7ce8b8d8288f125952dc180a1e1e287fb2879366918b9");
}

TEST_F(SubmasterHash, WithoutParametersIsTakenOfTheNamesAndFourZeroBytes) {
    oa::oaDesign& master = superMaster("empty", {});
    EXPECT_EQ(bytesOf(master), "lib\0empty\0layout\0\0\0\0\0"s);
    EXPECT_EQ(calculateSubmasterIdHash(&master),
              "384b6ce08aee8487007406ba9ad3ef4d96d4f5afaa0a4774c2171b374ee3d69e");
}

TEST_F(SubmasterHash, OfADesignThatIsNoPcellIsTakenOfTheNamesAndFourZeroBytes) {
    oa::oaDesign& plain = design("empty", "layout", 'w');
    EXPECT_EQ(bytesOf(plain), "lib\0empty\0layout\0\0\0\0\0"s);
    EXPECT_EQ(calculateSubmasterIdHash(&plain),
              "384b6ce08aee8487007406ba9ad3ef4d96d4f5afaa0a4774c2171b374ee3d69e");
}

TEST_F(SubmasterHash, TakesNamesInTheirNativeSpelling) {
    oa::oaDesign& master = superMaster("größe<3>", {{"Länge", oa::oaString("µm")}});
    EXPECT_EQ(bytesOf(master), "lib\0größe<3>\0layout\0\1\0\0\0Länge\0\2µm\0"s);
    EXPECT_EQ(calculateSubmasterIdHash(&master),
              "49ab6aa36318086bf4748ddaa1f952a834e66deea7cf52e3c6cd06f4b6119685");
}

TEST_F(SubmasterHash, DoesNotDependOnTheOrderOfTheParameters) {
    const std::string first = calculateSubmasterIdHash(&superMaster("cell", {{"a", 1}, {"b", 2}}));
    EXPECT_EQ(calculateSubmasterIdHash(&superMaster("cell", {{"b", 2}, {"a", 1}})), first);
    EXPECT_NE(calculateSubmasterIdHash(&superMaster("cell", {{"b", 1}, {"a", 2}})), first);
}

TEST_F(SubmasterHash, DependsOnEachNameTypeAndValue) {
    const std::string hash = calculateSubmasterIdHash(&superMaster("cell", {{"a", 1}}));
    EXPECT_NE(calculateSubmasterIdHash(&superMaster("cell", {{"a", 2}})), hash);
    EXPECT_NE(calculateSubmasterIdHash(&superMaster("cell", {{"b", 1}})), hash);
    EXPECT_NE(calculateSubmasterIdHash(&superMaster("cell", {{"a", oa::oaFloat(1)}})), hash);
    EXPECT_NE(calculateSubmasterIdHash(&superMaster("cellar", {{"a", 1}})), hash);
}

TEST_F(SubmasterHash, HasSixtyFourHexadecimalDigits) {
    for (int i = 0; i < 100; ++i) {
        const std::string hash = calculateSubmasterIdHash(&superMaster("cell", {{"i", i}}));
        EXPECT_EQ(hash.size(), 64U);
        EXPECT_EQ(hash.find_first_not_of("0123456789abcdef"), std::string::npos) << hash;
    }
}

TEST_F(SubmasterHash, NeedsADesign) {
    oa::oaDesign& gone = design("gone", "layout", 'w');
    gone.purge();
    EXPECT_EQ(failureOf([] { calculateSubmasterIdHash(nullptr); }), "Invalid design given.");
    EXPECT_EQ(failureOf([&] { calculateSubmasterIdHash(&gone); }), "Invalid design given.");
}

TEST_F(SubmasterHash, IsKnownWithoutTheSubmaster) {
    oa::oaDesign& master = superMaster("resistor", {{"w", 2.5}, {"n", 3}});
    oa::oaParamArray params;
    params.append(oa::oaParam("n", 3));
    params.append(oa::oaParam("w", 2.5));
    const SubmasterIdentity identity = identifySubmaster("lib", "resistor", "layout", params);
    EXPECT_EQ(identity.bytes, bytesOf(master));
    EXPECT_EQ(identity.hash, calculateSubmasterIdHash(&master));
}

// What docs/submaster-cache.md shows is what the code makes.

#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include <regex>
#include <sstream>

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/places.h"

using namespace ovalis;

namespace {

std::string page() {
    return ovalis::test::readText(ovalis::test::sourceTree() / "docs" / "submaster-cache.md");
}

/// The bytes of the table in the page, each row at the offset that it names.
std::string bytesOfThePage() {
    const std::regex row(R"(^\| (\d+) \| `([0-9A-F ]+)` \| .+ \|\r?$)");
    std::istringstream lines(page());
    std::string bytes;
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
        if (!std::regex_match(line, match, row)) {
            continue;
        }
        EXPECT_EQ(match[1].str(), std::to_string(bytes.size()));
        std::istringstream pairs(match[2].str());
        for (std::string pair; pairs >> pair;) {
            bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
        }
    }
    return bytes;
}

SubmasterIdentity identityOfTheExample() {
    oa::oaParam dummies;
    dummies.setName("dummies");
    dummies.setBooleanVal(true);
    oa::oaParamArray params;
    for (const oa::oaParam& param :
         {oa::oaParam("width", 2.5), oa::oaParam("w", 7),
          oa::oaParam("model", oa::oaString("poly")), oa::oaParam("fit", 0.5F), dummies}) {
        params.append(param);
    }
    return identifySubmaster("analog", "resistor", "layout", params);
}

bool isOnThePage(const std::string& text) {
    return page().find(text) != std::string::npos;
}

} // namespace

TEST(IdentityPage, ShowsTheBytesOfItsExample) {
    EXPECT_EQ(bytesOfThePage(), identityOfTheExample().bytes);
}

TEST(IdentityPage, NamesTheFileOfItsExample) {
    const SubmasterIdentity identity = identityOfTheExample();
    EXPECT_TRUE(isOnThePage("\n" + identity.hash + "\n")) << identity.hash;
    EXPECT_TRUE(isOnThePage(".vexPcells/" + identity.hash + "\n"));
    EXPECT_TRUE(
        isOnThePage("Together they are " + std::to_string(identity.bytes.size()) + " bytes"));
}

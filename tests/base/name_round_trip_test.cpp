#include "names.h"

#include <gtest/gtest.h>

using namespace oa;
using namespace ovalis::test;

namespace {

/// The names of every form that the texts spell natively.
std::vector<oaName> namesOf(const std::vector<std::string>& texts) {
    std::vector<oaName> names;
    for (const std::string& text : texts)
        names.push_back(oaName(oaNativeNS(), text.c_str()));
    return names;
}

/// The same, as if there were scalar names only.
std::vector<oaScalarName> scalarNamesOf(const std::vector<std::string>& texts) {
    std::vector<oaScalarName> names;
    for (const std::string& text : texts)
        names.push_back(oaScalarName(oaNativeNS(), text.c_str()));
    return names;
}

void expectScalarsComeBack(const oaNameSpace& ns) {
    for (const oaScalarName& name : scalarNamesOf(nastyTexts())) {
        const std::string text = spelled(name, ns);
        ASSERT_EQ(spelled(oaScalarName(ns, text.c_str())), spelled(name)) << text;
    }
}

bool hasStep(const oaName& name) {
    if (name.getVector())
        return name.getVector()->getStep() != 1;
    for (oaUInt4 i = 0; name.getBundle() && i < name.getBundle()->getNumMembers(); ++i) {
        if (hasStep((*name.getBundle())[i]))
            return true;
    }
    return false;
}

void expectNamesComeBack(const oaNameSpace& ns, bool hasSteps) {
    for (const oaName& name : namesOf(nastyTexts())) {
        if (hasStep(name) && !hasSteps)
            continue;
        const std::string text = spelled(name, ns);
        ASSERT_EQ(ns.getType(text.c_str()), name.getType()) << text;
        ASSERT_TRUE(oaName(ns, text.c_str()) == name) << spelled(name) << " as " << text;
    }
}

/// What reading a member gives is what the writing of it is read as, too.
void expectMembersComeBack(const oaNameSpace& ns) {
    for (const std::string& text : nastyTexts()) {
        oaString internal;
        oaBoolean caseSensitive = 0;
        oaNativeNS().getInternalMember(text.c_str(), internal, caseSensitive, oaUInt4(text.size()));
        oaString written;
        oaUInt4 loc = 0;
        ns.getMember(internal, caseSensitive, written, loc);
        ASSERT_EQ(loc, written.getLength());
        oaString again;
        ns.getInternalMember(written, again, caseSensitive, loc);
        ASSERT_EQ(again, internal) << text << " as " << std::string(written);
    }
}

} // namespace

TEST(EveryName, ComesBackFromItsNativeSpelling) {
    expectNamesComeBack(oaNativeNS(), true);
    expectScalarsComeBack(oaNativeNS());
    expectMembersComeBack(oaNativeNS());
}

TEST(EveryName, ComesBackFromTheSpellingOfCircuitDescriptions) {
    expectNamesComeBack(oaCdbaNS(), true);
    expectScalarsComeBack(oaCdbaNS());
    expectMembersComeBack(oaCdbaNS());
}

TEST(EveryName, ComesBackFromTheNamesOfFiles) {
    expectScalarsComeBack(oaUnixNS());
    expectMembersComeBack(oaUnixNS());
    expectScalarsComeBack(oaWinNS());
    expectMembersComeBack(oaWinNS());
}

TEST(EveryName, ComesBackFromVerilog) {
    expectNamesComeBack(oaVerilogNS(), false);
    expectScalarsComeBack(oaVerilogNS());
    expectMembersComeBack(oaVerilogNS());
}

TEST(EveryName, ComesBackFromVhdl) {
    expectNamesComeBack(oaVhdlNS(), false);
    expectScalarsComeBack(oaVhdlNS());
    expectMembersComeBack(oaVhdlNS());
}

TEST(EveryText, IsANativeNameThatIsSpelledSo) {
    for (const std::string& text : nastyTexts()) {
        ASSERT_EQ(spelled(oaName(oaNativeNS(), text.c_str())), text);
        ASSERT_EQ(spelled(oaScalarName(oaNativeNS(), text.c_str())), text);
    }
}

TEST(EveryText, IsSpelledAnewAsTheSameNameOrRefused) {
    const oaCdbaNS cdba;
    const oaVerilogNS verilog;
    const oaVhdlNS vhdl;
    for (const oaNameSpace* ns :
         std::initializer_list<const oaNameSpace*>{&cdba, &verilog, &vhdl}) {
        int readable = 0;
        for (const std::string& text : nastyTexts()) {
            oaName name;
            if (refusal([&] { name.init(*ns, text.c_str()); }) != 0)
                continue;
            ++readable;
            ASSERT_TRUE(oaName(*ns, spelled(name, *ns).c_str()) == name) << text;
        }
        EXPECT_GT(readable, 100);
    }
}

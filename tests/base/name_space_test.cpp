#include <oa/oaBase.h>

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <random>
#include <string>

using namespace oa;

namespace {

std::string spelled(const oaNameSpace& ns, const std::string& nativeText) {
    oaString text;
    oaScalarName(oaNativeNS(), nativeText.c_str()).get(ns, text);
    return std::string(text);
}

std::string read(const oaNameSpace& ns, const std::string& text) {
    oaString nativeText;
    oaScalarName(ns, text.c_str()).get(nativeText);
    return std::string(nativeText);
}

oaUInt4 refusal(const oaNameSpace& ns, const char* text) {
    try {
        oaScalarName(ns, text);
    } catch (const oaError& error) {
        return error.getMsgId();
    }
    return 0;
}

std::string lowered(std::string text) {
    for (char& c : text)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
    return text;
}

// What Windows takes as one component of a path and gives back unchanged.
bool isLegalOnWindows(const std::string& text) {
    if (text.empty() || text.back() == '.' || text.back() == ' ')
        return false;
    for (const char c : text) {
        if (c < 0x20 || c == 0x7f || std::strchr("<>:\"/\\|?*", c))
            return false;
    }
    const std::string stem = lowered(text.substr(0, text.find('.')));
    for (const char* device : {"con", "prn", "aux", "nul"}) {
        if (stem == device)
            return false;
    }
    return !(stem.size() == 4 && (stem.starts_with("com") || stem.starts_with("lpt")) &&
             stem[3] >= '0' && stem[3] <= '9');
}

// Names that differ in nothing but what a file system may lose.
std::vector<std::string> nastyNames() {
    std::vector<std::string> names = {
        "con",     "Con",  "CON",  "prn", "aux",   "nul",  "NUL",      "com1",  "COM1",  "lpt1",
        "com0",    "com9", "lpt9", "com", "com10", "con1", "%con",     "%%con", "#63on", "con.",
        "con.txt", "aux ", "..",   "...", "a...",  "a  ",  "\xC3\xA9", "conin$"};
    const std::string alphabet = "aAbzZ09_#%. -/\\:*\"<>|$~\x01\x7f\xff";
    for (const char first : alphabet) {
        names.push_back({first});
        for (const char second : alphabet) {
            names.push_back({first, second});
            for (const char third : alphabet)
                names.push_back({first, second, third});
        }
    }
    return names;
}

std::vector<std::string> randomNames() {
    std::mt19937 random(20240229);
    std::vector<std::string> names;
    for (int i = 0; i < 5000; ++i) {
        std::string name(1 + random() % 20, 'x');
        for (char& c : name)
            c = static_cast<char>(1 + random() % 255);
        names.push_back(name);
    }
    return names;
}

void expectReversible(const oaNameSpace& ns, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        const std::string text = spelled(ns, name);
        EXPECT_EQ(read(ns, text), name) << text;
        EXPECT_EQ(ns.getType(text.c_str()), oacScalarNameType) << text;
    }
}

void expectLegalAndApart(const oaNameSpace& ns, const std::vector<std::string>& names,
                         bool ignoreCase) {
    std::map<std::string, std::string> nameOfFile;
    for (const std::string& name : names) {
        const std::string text = spelled(ns, name);
        const auto [entry, isNew] = nameOfFile.emplace(ignoreCase ? lowered(text) : text, name);
        EXPECT_TRUE(isNew || entry->second == name) << name << " and " << entry->second;
        EXPECT_TRUE(!ignoreCase || isLegalOnWindows(text)) << text;
    }
}

// Built with the static objects of this program: name spaces need nothing before.
const oaUnixNS unixNSBeforeMain;
const oaScalarName nameBeforeMain(unixNSBeforeMain, "early#2dbird");

/// A name space in which "_" stands for a blank.
class BlankNS : public oaCdbaNS {
public:
    void getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive, oaUInt4 len,
                           oaUInt4) const override {
        if (!in || !*in)
            throw oaError(41);
        oaUInt4 loc = 0;
        for (oaUInt4 i = 0; i < len; ++i)
            writeChar(in[i] == '_' ? ' ' : in[i], out, loc);
        caseSensitive = 1;
    }
    void getMember(const oaChar* in, oaBoolean, oaString& out, oaUInt4& loc,
                   oaUInt4) const override {
        while (*in) {
            const bool isCode = *in == '#';
            const oaByte c = isCode ? decodeChar(in + 1) : static_cast<oaByte>(*in);
            if (isInternalNormalChar(c))
                writeChar(static_cast<oaChar>(c), out, loc);
            else if (c == ' ')
                writeChar('_', out, loc);
            else
                encodeChar(c, out, loc);
            in += isCode ? 3 : 1;
        }
    }
    static oaByte decoded(const char* digits) { return decodeChar(digits); }
};

} // namespace

TEST(NameSpace, WorksBeforeMain) {
    EXPECT_EQ(spelled(unixNSBeforeMain, "a.b"), "a#2eb");
    oaString text;
    nameBeforeMain.get(text);
    EXPECT_EQ(text, "early-bird");
}

TEST(NameSpace, RefusesATextThatIsNone) {
    for (const char* text : {static_cast<const char*>(nullptr), ""}) {
        EXPECT_EQ(refusal(oaNativeNS(), text), 41u);
        EXPECT_EQ(refusal(oaUnixNS(), text), 41u);
        EXPECT_EQ(refusal(oaWinNS(), text), 41u);
        EXPECT_EQ(refusal(oaCdbaNS(), text), 41u);
        EXPECT_EQ(oaNativeNS().getType(text), oacEmptyNameType);
        EXPECT_EQ(oaUnixNS().getType(text), oacEmptyNameType);
        EXPECT_EQ(oaWinNS().getType(text), oacEmptyNameType);
        EXPECT_EQ(oaCdbaNS().getType(text), oacEmptyNameType);
    }
    oaString out;
    oaBoolean caseSensitive = 0;
    EXPECT_THROW(oaNativeNS().getInternalMember("abc", out, caseSensitive, 0), oaError);
}

TEST(NameSpace, ReadsAsManyCharactersAsItIsTold) {
    oaString out("before");
    oaBoolean caseSensitive = 0;
    oaNativeNS().getInternalMember("abcdef", out, caseSensitive, 3);
    EXPECT_EQ(out, "abc");
    EXPECT_EQ(caseSensitive, 1);
    oaUnixNS().getInternalMember("a#2edef", out, caseSensitive, 4);
    EXPECT_EQ(out, "a.");
    oaCdbaNS().getInternalMember("a#2edef", out, caseSensitive, 4);
    EXPECT_EQ(out, "a.");
    oaWinNS().getInternalMember("%adef", out, caseSensitive, 2);
    EXPECT_EQ(out, "A");
}

TEST(NameSpace, WritesFromAPositionOn) {
    oaString out("lib/");
    oaUInt4 loc = 4;
    oaUnixNS().getMember("top-cell with a name that needs more room", true, out, loc);
    EXPECT_EQ(out, "lib/top#2dcell#20with#20a#20name#20that#20needs#20more#20room");
    EXPECT_EQ(loc, out.getLength());
}

TEST(NameSpace, IsEqualComparesNamesOfEachForm) {
    const oaNativeNS ns;
    const oaScalarName a(ns, "a");
    const oaScalarName b(ns, "b");
    EXPECT_TRUE(ns.isEqual(a, a));
    EXPECT_FALSE(ns.isEqual(a, b));
    EXPECT_TRUE(ns.isEqual(oaName(a), oaName(a)));
    EXPECT_FALSE(ns.isEqual(oaName(a), oaName()));
    EXPECT_TRUE(ns.isEqual(oaSimpleName(), oaSimpleName()));
    EXPECT_FALSE(ns.isEqual(oaSimpleName(a), oaSimpleName(b)));
    EXPECT_TRUE(ns.isEqual(oaNameMem("a", true), oaNameMem("a", true)));
}

TEST(NameSpace, SimpleNameIsWrittenAsItsScalarName) {
    oaString out;
    oaUInt4 loc = 0;
    oaUnixNS().getSimpleName(oaScalarName(oaNativeNS(), "a.b"), out, loc);
    EXPECT_EQ(out, "a#2eb");
    EXPECT_EQ(loc, 5u);
}

TEST(NameSpace, IsDerivedWithItsHelpers) {
    const BlankNS ns;
    EXPECT_EQ(read(ns, "a_b"), "a b");
    EXPECT_EQ(spelled(ns, "a b+c"), "a_b#2bc");
    EXPECT_EQ(BlankNS::decoded("aF"), 0xaf);
    EXPECT_EQ(BlankNS::decoded("09"), 0x09);
    EXPECT_EQ(refusal(ns, ""), 41u);
}

TEST(NativeNS, SpellsEveryTextAsItIs) {
    for (const char* text : {"a", "A b", "a<3>", "a#20", "a/b", "\xC3\xA9", "."}) {
        EXPECT_EQ(read(oaNativeNS(), text), text);
        EXPECT_EQ(spelled(oaNativeNS(), text), text);
        EXPECT_EQ(oaNativeNS().getType(text), oacScalarNameType);
    }
}

TEST(UnixNS, WritesEverythingButLettersDigitsAndUnderscoreInHexadecimal) {
    EXPECT_EQ(spelled(oaUnixNS(), "Cell_1"), "Cell_1");
    EXPECT_EQ(spelled(oaUnixNS(), "a.b-c d"), "a#2eb#2dc#20d");
    EXPECT_EQ(spelled(oaUnixNS(), "#"), "#23");
    EXPECT_EQ(spelled(oaUnixNS(), "\xC3\xA9"), "#c3#a9");
}

TEST(UnixNS, ReadsNoTextThatItWouldNotWrite) {
    for (const char* text : {".", ".vexPcells", "a.b", "a b", "a#2D", "a#61", "a#", "#2", "#00",
                             "a#00b", "a-b", "a/b", "%a", "\xC3\xA9"}) {
        EXPECT_EQ(refusal(oaUnixNS(), text), oaUInt4(oacScalarNameInvalid)) << text;
        EXPECT_EQ(oaUnixNS().getType(text), oacEmptyNameType) << text;
    }
}

TEST(UnixNS, IsReversible) {
    expectReversible(oaUnixNS(), nastyNames());
    expectReversible(oaUnixNS(), randomNames());
}

TEST(UnixNS, KeepsNamesApart) {
    expectLegalAndApart(oaUnixNS(), nastyNames(), false);
}

TEST(WinNS, MarksUpperCaseLettersAndDevices) {
    EXPECT_EQ(spelled(oaWinNS(), "cell_1"), "cell_1");
    EXPECT_EQ(spelled(oaWinNS(), "TopCell"), "%Top%Cell");
    EXPECT_EQ(spelled(oaWinNS(), "con"), "%%con");
    EXPECT_EQ(spelled(oaWinNS(), "lpt1"), "%%lpt1");
    EXPECT_EQ(spelled(oaWinNS(), "Con"), "%Con");
    EXPECT_EQ(spelled(oaWinNS(), "con1"), "con1");
    EXPECT_EQ(spelled(oaWinNS(), "a%b. "), "a#25b#2e#20");
}

TEST(WinNS, TakesTheCaseOfALetterFromItsMark) {
    EXPECT_EQ(read(oaWinNS(), "TOP"), "top");
    EXPECT_EQ(read(oaWinNS(), "%tOP"), "Top");
    EXPECT_EQ(read(oaWinNS(), "%%CON"), "con");
    EXPECT_EQ(read(oaWinNS(), "A#2DB"), "a-b");
}

TEST(WinNS, ReadsNoTextThatItWouldNotWrite) {
    for (const char* text : {".", "a.b", "con", "CON", "com1", "%", "a%", "%%a", "%%%con", "%1",
                             "a#41", "#00", "a b", "%#61", "\xC3\xA9"}) {
        EXPECT_EQ(refusal(oaWinNS(), text), oaUInt4(oacScalarNameInvalid)) << text;
        EXPECT_EQ(oaWinNS().getType(text), oacEmptyNameType) << text;
    }
}

TEST(WinNS, IsReversible) {
    expectReversible(oaWinNS(), nastyNames());
    expectReversible(oaWinNS(), randomNames());
}

TEST(WinNS, GivesLegalFileNamesThatDifferInMoreThanCase) {
    expectLegalAndApart(oaWinNS(), nastyNames(), true);
    expectLegalAndApart(oaWinNS(), randomNames(), true);
}

TEST(CdbaNS, KeepsPrintableCharacters) {
    EXPECT_EQ(spelled(oaCdbaNS(), "Net_1!$%&*+-.:;=?@[]^{|}~'\""), "Net_1!$%&*+-.:;=?@[]^{|}~'\"");
    EXPECT_EQ(spelled(oaCdbaNS(), "a b"), "a#20b");
    EXPECT_EQ(spelled(oaCdbaNS(), "<>`(),\\#"), "#3c#3e#60#28#29#2c#5c#23");
    EXPECT_EQ(spelled(oaCdbaNS(), "a\\/b"), "a#2fb");
    EXPECT_EQ(spelled(oaCdbaNS(), "\xC3\xA9\x7f"), "#c3#a9#7f");
}

TEST(CdbaNS, ReadsWhatIsWrittenInFullOrAsItIs) {
    EXPECT_EQ(read(oaCdbaNS(), "a#20b"), "a b");
    EXPECT_EQ(read(oaCdbaNS(), "a b"), "a b");
    EXPECT_EQ(read(oaCdbaNS(), "a#2Fb"), "a\\/b");
    EXPECT_EQ(read(oaCdbaNS(), "a#zz"), "a#zz");
    EXPECT_EQ(read(oaCdbaNS(), "a#00"), "a#00");
    EXPECT_EQ(read(oaCdbaNS(), "a#"), "a#");
}

TEST(CdbaNS, KnowsTheFormOfAName) {
    EXPECT_EQ(oaCdbaNS().getType("a"), oacScalarNameType);
    EXPECT_EQ(oaCdbaNS().getType("a<3>"), oacVectorBitNameType);
    EXPECT_EQ(oaCdbaNS().getType("a<7:0>"), oacVectorNameType);
    EXPECT_EQ(oaCdbaNS().getType("a,b"), oacBundleNameType);
    EXPECT_EQ(oaCdbaNS().getType("<*2>a"), oacBundleNameType);
    EXPECT_EQ(oaCdbaNS().getType("a:b<3>"), oacVectorBitNameType);
    EXPECT_EQ(oaCdbaNS().getType("a<3>/b"), oacScalarNameType);
    for (const char* text : {"a<3>", "a<7:0>", "a,b", "<*2>a", "a\\b", "a<1:0>/b"})
        EXPECT_EQ(refusal(oaCdbaNS(), text), oaUInt4(oacScalarNameInvalid)) << text;
    for (const char* text : {"/", "/a", "a/", "a//b"})
        EXPECT_EQ(refusal(oaCdbaNS(), text), oaUInt4(oacHierNameInvalid)) << text;
}

TEST(CdbaNS, IsReversible) {
    expectReversible(oaCdbaNS(), nastyNames());
    expectReversible(oaCdbaNS(), randomNames());
}

#include <ovalis/name_space.h>

#include <chrono>
#include <random>
#include <set>

#include "support/files.h"
#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;

namespace {

const NetNameNamespaceWithUTF8 netNames;
const oa::oaNativeNS native;
const oa::oaCdbaNS cdba;
const oa::oaUnixNS unixNames;
const oa::oaWinNS windowsNames;

std::string toNative(const char* name, const oa::oaNameSpace& ns) {
    return fromOa(toNativeName(name, ns));
}

std::string fromNative(const char* name, const oa::oaNameSpace& ns) {
    return fromOa(fromNativeName(name, ns));
}

std::string internalOf(const std::string& text) {
    oa::oaString out("before");
    int flag = 0;
    netNames.getInternalMember(text.c_str(), out, flag, unsigned(text.size()), 0);
    EXPECT_EQ(flag, 1);
    return fromOa(out);
}

std::string textOf(const std::string& internal) {
    oa::oaString out;
    unsigned int length = 0;
    netNames.getMember(internal.c_str(), 1, out, length, 0);
    EXPECT_EQ(length, out.getLength());
    return fromOa(out);
}

/// All texts of one to three characters that mean something, and random ones.
std::vector<std::string> texts() {
    const std::string alphabet = "aF0_#234/\\[]{},<>:` ()\x01\x7f\xc3\xa9";
    std::vector<std::string> all;
    for (const char first : alphabet) {
        all.push_back({first});
        for (const char second : alphabet) {
            all.push_back({first, second});
            for (const char third : alphabet) {
                all.push_back({first, second, third});
            }
        }
    }
    std::mt19937 random(7);
    for (int i = 0; i < 5000; ++i) {
        std::string any(1 + random() % 20, 'x');
        for (char& c : any) {
            c = i % 2 ? static_cast<char>(1 + random() % 255)
                      : alphabet[random() % alphabet.size()];
        }
        all.push_back(any);
    }
    return all;
}

int idOfRefusal(const char* text, unsigned int length) {
    oa::oaString out;
    int flag = 0;
    try {
        netNames.getInternalMember(text, out, flag, length, 0);
    } catch (const oa::oaError& error) {
        return static_cast<int>(error.getMsgId());
    }
    return 0;
}

class FileSystemNameSpace : public ovalis::test::FolderTest {
protected:
    oa::oaLib* libraryWith(const std::vector<std::pair<const char*, const char*>>& attributes) {
        oa::oaDMAttrArray array;
        for (const auto& [name, value] : attributes) {
            array.append(oa::oaDMAttr(name, value));
        }
        return oa::oaLib::create(oa::oaScalarName(native, "lib"), pathOf("lib").c_str(),
                                 oa::oacSharedLibMode, "oaDMFileSys", &array);
    }
};

class NetNames : public ovalis::test::LibraryTest {
protected:
    void makeNets(const std::vector<std::string>& names) {
        oa::oaDesign& layout = design("cell", "layout", 'w');
        oa::oaBlock* block = oa::oaBlock::create(&layout);
        for (const std::string& name : names) {
            oa::oaNet::create(block, oa::oaScalarName(netNames, name.c_str()));
        }
        layout.save();
        layout.close();
        reopen();
    }
};

std::string nameOfNet(const oa::oaNet* net, const oa::oaNameSpace& ns) {
    oa::oaString name;
    net->getName(ns, name);
    return fromOa(name);
}

} // namespace

TEST(NativeNames, AreReadFromEveryNameSpace) {
    EXPECT_EQ(toNative("top#2dcell", unixNames), "top-cell");
    EXPECT_EQ(toNative("%top", windowsNames), "Top");
    EXPECT_EQ(toNative("a#20b", cdba), "a b");
    EXPECT_EQ(toNative("a b", native), "a b");
    EXPECT_EQ(toNative("\xC3\xA9#20b", netNames), "\xC3\xA9 b");
}

TEST(NativeNames, AreWrittenInEveryNameSpace) {
    EXPECT_EQ(fromNative("top-cell", unixNames), "top#2dcell");
    EXPECT_EQ(fromNative("Top", windowsNames), "%Top");
    EXPECT_EQ(fromNative("con", windowsNames), "%%con");
    EXPECT_EQ(fromNative("a b", cdba), "a#20b");
    EXPECT_EQ(fromNative("a b", native), "a b");
    EXPECT_EQ(fromNative("\xC3\xA9 b", netNames), "\xC3\xA9#20b");
}

TEST(NativeNames, AreRefusedAsTheDatabaseDoes) {
    EXPECT_EQ(messageIdOf([] { toNativeName("", unixNames); }), 41);
    EXPECT_EQ(messageIdOf([] { toNativeName(nullptr, netNames); }), 41);
    EXPECT_EQ(messageIdOf([] { fromNativeName("", unixNames); }), 41);
    EXPECT_EQ(messageIdOf([] { fromNativeName(nullptr, netNames); }), 41);
    EXPECT_EQ(failureOf([] { toNativeName("a.b", unixNames); }),
              "database: 'a.b' is not a scalar name of this name space.");
}

TEST_F(FileSystemNameSpace, IsThatOfTheSystemOfTheLibrary) {
    oa::oaLib* lib = libraryWith({{"origFileSystem", "Windows"}});
    const oa::oaNameSpace* windows = getFileSystemNameSpace(*lib, nullptr);
    EXPECT_NE(dynamic_cast<const oa::oaWinNS*>(windows), nullptr);
    EXPECT_EQ(getFileSystemNameSpace(*lib, &native), windows);
    EXPECT_EQ(lib->getAccessLevel(), oa::oacNoLibAccessLevel);
    lib->close();
}

TEST_F(FileSystemNameSpace, MayBeThatOfUnix) {
    oa::oaLib* lib = libraryWith({{"other", "Windows"}, {"origFileSystem", "Unix"}});
    EXPECT_NE(dynamic_cast<const oa::oaUnixNS*>(getFileSystemNameSpace(*lib, nullptr)), nullptr);
    lib->close();
}

TEST_F(FileSystemNameSpace, IsTheFallbackWhenTheLibraryDoesNotSay) {
    libraryWith({})->close();
    for (const char* attributes : {"", "libReadOnly=\"No\"", "origFileSystem=\"VMS\"",
                                   "origFileSystem=\"windows\"", "origFileSystem=\"\""}) {
        ovalis::test::writeText(filePath("lib") / ".oalib",
                                "<Library DMSystem=\"oaDMFileSys\"><oaDMFileSys " +
                                    std::string(attributes) + "/></Library>");
        oa::oaLib* lib = oa::oaLib::open(oa::oaScalarName(native, "lib"), pathOf("lib").c_str());
        EXPECT_EQ(getFileSystemNameSpace(*lib, &native), &native) << attributes;
        EXPECT_EQ(getFileSystemNameSpace(*lib, nullptr), nullptr) << attributes;
        lib->close();
    }
}

TEST_F(FileSystemNameSpace, IsTheFallbackWhileSomebodyElseWrites) {
    oa::oaLib* lib = libraryWith({{"origFileSystem", "Windows"}});
    oa::oaLib* writer = oa::oaLib::open(oa::oaScalarName(native, "writer"), pathOf("lib").c_str());
    ASSERT_TRUE(writer->getAccess(oa::oacWriteLibAccess));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(getFileSystemNameSpace(*lib, &native), &native);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    writer->releaseAccess();
    EXPECT_NE(getFileSystemNameSpace(*lib, &native), &native);
    writer->close();
    lib->close();
}

TEST_F(FileSystemNameSpace, FailsAsTheDatabaseDoes) {
    oa::oaLib* lib = libraryWith({});
    lib->close();
    EXPECT_NE(messageIdOf([&] { getFileSystemNameSpace(*lib, &native); }), -1);
}

TEST(NetNameSpace, KeepsUtf8) {
    EXPECT_EQ(internalOf("\xC3\xA9"), "\xC3\xA9");
    EXPECT_EQ(textOf("\xC3\xA9"), "\xC3\xA9");
    EXPECT_EQ(internalOf("\x80\xFF"), "\x80\xFF");
}

TEST(NetNameSpace, WritesABlankAsACode) {
    EXPECT_EQ(internalOf("a b"), "a#20b");
    EXPECT_EQ(textOf("a b"), "a#20b");
    EXPECT_EQ(fromNative("a b", netNames), "a#20b");
}

TEST(NetNameSpace, KeepsEveryPrintableCharacterButThoseWithAMeaning) {
    const std::string kept = "azAZ09_!\"#$%&'*+-.:;=?@[]^{|}~";
    EXPECT_EQ(internalOf(kept), kept);
    EXPECT_EQ(textOf(kept), kept);
    EXPECT_EQ(internalOf("<>`(),/\\"), "#3c#3e#60#28#29#2c#2f#5c");
    EXPECT_EQ(textOf("<>`(),/\\"), "#3c#3e#60#28#29#2c#2f#5c");
    EXPECT_EQ(internalOf("\x01\x1f\x7f"), "#01#1f#7f");
}

TEST(NetNameSpace, TakesEveryCodeForItsByte) {
    EXPECT_EQ(internalOf("#41#42c"), "ABc");
    EXPECT_EQ(internalOf("#c3#A9"), "\xC3\xA9");
    EXPECT_EQ(internalOf("a#20#2Fb"), "a#20#2fb");
    EXPECT_EQ(internalOf("a#2320b"), "a#2320b");
    EXPECT_EQ(internalOf("#23x"), "#x");
    EXPECT_EQ(internalOf("a#"), "a#");
    EXPECT_EQ(internalOf("a#4"), "a#4");
    EXPECT_EQ(internalOf("a#xy"), "a#xy");
    EXPECT_EQ(internalOf("a#00"), "a#00");
}

TEST(NetNameSpace, RefusesATextThatIsNone) {
    EXPECT_EQ(idOfRefusal(nullptr, 3), 41);
    EXPECT_EQ(idOfRefusal("", 3), 41);
    EXPECT_EQ(idOfRefusal("abc", 0), 41);
    EXPECT_EQ(idOfRefusal("abc", 3), 0);
}

TEST(NetNameSpace, ReadsAndWritesWhereItIsTold) {
    oa::oaString out("before");
    int flag = 0;
    netNames.getInternalMember("ab#20cd", out, flag, 5, 0);
    EXPECT_EQ(out, "ab#20");
    netNames.getInternalMember("ab#20cd", out, flag, 4, 0);
    EXPECT_EQ(out, "ab#2");
    netNames.getInternalMember("ab", out, flag, 100, 0);
    EXPECT_EQ(out, "ab");
    oa::oaString text("net:");
    unsigned int end = 4;
    netNames.getMember("a b", 1, text, end, 0);
    EXPECT_EQ(text, "net:a#20b");
    EXPECT_EQ(end, 9U);
}

TEST(NetNameSpace, WritesWhatIsReadAsTheSameName) {
    for (const std::string& text : texts()) {
        const std::string internal = internalOf(text);
        const std::string written = textOf(internal);
        ASSERT_EQ(written, internal) << text;
        ASSERT_EQ(internalOf(written), internal) << text;
    }
}

TEST(NetNameSpace, WritesEveryNameOfTheDatabaseApart) {
    std::set<std::string> names;
    std::set<std::string> spellings;
    for (const std::string& text : texts()) {
        const std::string spelling = fromNative(text.c_str(), netNames);
        ASSERT_EQ(toNative(spelling.c_str(), netNames), text) << spelling;
        names.insert(text);
        spellings.insert(spelling);
    }
    EXPECT_EQ(names.size(), spellings.size());
}

TEST(NetNameSpace, AgreesWithTheOthersOnBitsBundlesAndHierarchies) {
    EXPECT_EQ(toNative("top/\xC3\xA9", netNames), "top/\xC3\xA9");
    for (const char* text : {"\xC3\xA9<3>", "a#20b<3:0>", "a,<*2>b<0>", "top/i<2>/\xC3\xA9"}) {
        const oa::oaName name(netNames, text);
        oa::oaString written;
        name.get(netNames, written);
        EXPECT_EQ(fromOa(written), text);
        name.get(cdba, written);
        EXPECT_EQ(oa::oaName(cdba, written), name) << text;
    }
}

TEST(NetNameSpace, IsCopiedAndMoved) {
    NetNameNamespaceWithUTF8 first;
    NetNameNamespaceWithUTF8 second(first);
    NetNameNamespaceWithUTF8 third(std::move(first));
    second = third;
    third = NetNameNamespaceWithUTF8();
    EXPECT_EQ(fromNative("\xC3\xA9 b", second), "\xC3\xA9#20b");
    const std::unique_ptr<oa::oaNameSpace> base = std::make_unique<NetNameNamespaceWithUTF8>(third);
    EXPECT_EQ(fromNative("\xC3\xA9 b", *base), "\xC3\xA9#20b");
}

TEST_F(NetNames, ComeBackFromDisk) {
    const std::vector<std::string> names = {"n\xC3\xA4ss", "a#20b", "a#2fb", "a/b", "S#281#2c1#29",
                                            "a[3]",        "{x}",   "#2320", "%",   "~"};
    makeNets(names);
    oa::oaDesign& layout = design("cell", "layout", 'r');
    std::vector<std::string> found;
    oa::oaIter<oa::oaNet> nets(layout.getTopBlock()->getNets());
    while (const oa::oaNet* net = nets.getNext()) {
        found.push_back(nameOfNet(net, netNames));
        EXPECT_EQ(oa::oaNet::find(layout.getTopBlock(), oa::oaName(netNames, found.back().c_str())),
                  net);
        EXPECT_EQ(oa::oaNet::find(layout.getTopBlock(),
                                  oa::oaName(native, nameOfNet(net, native).c_str())),
                  net);
    }
    EXPECT_EQ(found, names);
    layout.close();
}

TEST_F(NetNames, AreThoseOfTheOtherNameSpaces) {
    makeNets({"n\xC3\xA4ss b", "a[3]"});
    oa::oaDesign& layout = design("cell", "layout", 'r');
    oa::oaBlock* block = layout.getTopBlock();
    const oa::oaNet* net = oa::oaNet::find(block, oa::oaName(native, "n\xC3\xA4ss b"));
    ASSERT_NE(net, nullptr);
    EXPECT_EQ(oa::oaNet::find(block, oa::oaName(cdba, "n#c3#a4ss#20b")), net);
    EXPECT_EQ(nameOfNet(net, netNames), "n\xC3\xA4ss#20b");
    EXPECT_EQ(nameOfNet(net, cdba), "n#c3#a4ss#20b");
    EXPECT_EQ(oa::oaNet::find(block, oa::oaName(cdba, "a<3>")), nullptr);
    EXPECT_EQ(nameOfNet(oa::oaNet::find(block, oa::oaName(cdba, "a[3]")), native), "a\\[3]");
    layout.close();
}

#include "lib_def_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

class LibDefMembersTest : public LibDefTest {
protected:
    oaLibDefList* edit(const std::string& text) {
        put("lib.defs", text);
        return oaLibDefList::get(path("lib.defs").c_str(), 'a');
    }
    std::string saved(oaLibDefList* list) {
        list->save();
        return get("lib.defs");
    }
    static oaLibDef* find(const oaLibDefList* list, const char* name) {
        return oaLibDef::find(list, scalarName(name));
    }
    static std::string writePathOf(const oaLibDef* def) {
        oaString path;
        def->getLibWritePath(path);
        return static_cast<const char*>(path);
    }
    static std::vector<std::pair<std::string, std::string>> attributesOf(const oaLibDef* def) {
        oaDMAttrArray attributes;
        def->getLibAttributes(attributes);
        std::vector<std::pair<std::string, std::string>> pairs;
        for (oaUInt4 i = 0; i < attributes.getNumElements(); ++i)
            pairs.emplace_back(static_cast<const char*>(attributes[i].getName()),
                               static_cast<const char*>(attributes[i].getValue()));
        return pairs;
    }
};

constexpr const char* written = "# libraries of the group\n"
                                "\n"
                                "DEFINE a $NOBODY/a   # the first\n"
                                "ASSIGN a DISPLAY Invisible\n"
                                "-- more\n"
                                "include ./more.defs\n"
                                "DEFINE b b";

} // namespace

TEST_F(LibDefMembersTest, AnswerWhatIsAssigned) {
    const oaLibDefList* list = read("DEFINE a a\n"
                                    "ASSIGN a writePath /w\n"
                                    "ASSIGN a libMode readOnly\n"
                                    "ASSIGN a DISPLAY Invisible\n"
                                    "ASSIGN a colour \"light red\"\n"
                                    "ASSIGN a DISPLAY Visible\n"
                                    "DEFINE b b\n");
    const oaLibDef* a = find(list, "a");
    EXPECT_EQ(a->getType(), oacLibDefType);
    EXPECT_EQ(writePathOf(a), "/w");
    EXPECT_EQ(a->getLibMode(), oacReadOnlyLibMode);
    EXPECT_THAT(attributesOf(a),
                ElementsAre(Pair("DISPLAY", "Visible"), Pair("colour", "light red")));
    const oaLibDef* b = find(list, "b");
    EXPECT_EQ(writePathOf(b), "");
    EXPECT_EQ(b->getLibMode(), oacSharedLibMode);
    EXPECT_THAT(attributesOf(b), IsEmpty());
}

TEST_F(LibDefMembersTest, AreSavedAsAPersonWroteThem) {
    oaLibDefList* list = edit(written);
    EXPECT_EQ(saved(list), written);
    oaLibDef::create(list, scalarName("c"), "./c");
    EXPECT_EQ(saved(list), std::string(written) + "\nDEFINE c ./c\n");
}

TEST_F(LibDefMembersTest, AreSavedWithTheLineEndsOfTheFile) {
    oaLibDefList* list = edit("DEFINE a a\r\nDEFINE b b");
    oaLibDef::create(list, scalarName("c"), "c");
    EXPECT_EQ(saved(list), "DEFINE a a\r\nDEFINE b b\r\nDEFINE c c\r\n");
}

TEST_F(LibDefMembersTest, AreCreatedWithAllThatIsGiven) {
    oaLibDefList* list = edit("DEFINE z z\n");
    oaDMAttrArray attributes;
    attributes.append(oaDMAttr("colour", "light red"));
    oaLibDef* made = oaLibDef::create(list, scalarName("a b"), "#dir/lib", "--w",
                                      oacReadOnlyLibMode, &attributes, find(list, "z"));
    EXPECT_EQ(find(list, "a b"), made);
    EXPECT_EQ(made->getLibMode(), oacReadOnlyLibMode);
    EXPECT_EQ(writePathOf(made), "--w");
    const std::string text = saved(list);
    EXPECT_EQ(text, "DEFINE \"a b\" \"#dir/lib\"\n"
                    "ASSIGN \"a b\" writePath \"--w\"\n"
                    "ASSIGN \"a b\" libMode readOnly\n"
                    "ASSIGN \"a b\" colour \"light red\"\n"
                    "DEFINE z z\n");
    list->destroy();
    const oaLibDefList* again = read(text);
    EXPECT_THAT(membersOf(again), ElementsAre("a b=#dir/lib", "z=z"));
    EXPECT_THAT(attributesOf(find(again, "a b")), ElementsAre(Pair("colour", "light red")));
}

TEST_F(LibDefMembersTest, AreChangedWithinTheirLines) {
    const EnvironmentOverride set("OVALIS_TEST_DIR", "/here");
    oaLibDefList* list = edit("DEFINE\ta  \"old place\" # the first\r\n"
                              "assign a  TMP  /w -- fast\r\nASSIGN a libMode  readOnly\r\n"
                              "DEFINE b b\r\nASSIGN a DISPLAY Visible");
    oaLibDef* a = find(list, "a");
    a->setLibPath("$OVALIS_TEST_DIR/new");
    a->setLibWritePath("/with blanks");
    a->setLibMode(oacSharedLibMode);
    a->addLibAttribute("DISPLAY", "Invisible");
    a->addLibAttribute("colour", "red");
    EXPECT_THAT(membersOf(list), ElementsAre("a=/here/new", "b=b"));
    EXPECT_EQ(writePathOf(a), "/with blanks");
    EXPECT_EQ(a->getLibMode(), oacSharedLibMode);
    EXPECT_THAT(attributesOf(a), ElementsAre(Pair("DISPLAY", "Invisible"), Pair("colour", "red")));
    EXPECT_EQ(saved(list), "DEFINE\ta  $OVALIS_TEST_DIR/new # the first\r\n"
                           "assign a  TMP  \"/with blanks\" -- fast\r\n"
                           "ASSIGN a libMode  shared\r\n"
                           "DEFINE b b\r\nASSIGN a DISPLAY Invisible\r\nASSIGN a colour red\r\n");
}

TEST_F(LibDefMembersTest, AreChangedWithLinesOfTheirOwnWhereTheyHaveNone) {
    oaLibDefList* list = edit("DEFINE a a\nASSIGN a x 1\nUNASSIGN a x\nDEFINE b b\n");
    oaLibDef* a = find(list, "a");
    a->setLibMode(oacSharedLibMode);
    a->setLibMode(oacNonSharedLibMode);
    a->setLibWritePath("w");
    a->addLibAttribute("x", "2");
    EXPECT_EQ(a->getLibMode(), oacNonSharedLibMode);
    EXPECT_EQ(saved(list), "DEFINE a a\nASSIGN a x 1\nUNASSIGN a x\nASSIGN a libMode nonShared\n"
                           "ASSIGN a writePath w\nASSIGN a x 2\nDEFINE b b\n");
}

TEST_F(LibDefMembersTest, LoseWhatIsTakenBack) {
    oaLibDefList* list = edit("DEFINE a a\nASSIGN a TMP w\nASSIGN a x 1\nASSIGN a x 2\n"
                              "# done\nASSIGN a y 3\n");
    oaLibDef* a = find(list, "a");
    a->setLibWritePath("");
    a->removeLibAttribute("x");
    a->removeLibAttribute("never");
    EXPECT_EQ(writePathOf(a), "");
    EXPECT_THAT(attributesOf(a), ElementsAre(Pair("y", "3")));
    EXPECT_EQ(saved(list), "DEFINE a a\n# done\nASSIGN a y 3\n");
}

TEST_F(LibDefMembersTest, AreNotChangedToWhatAFileCannotHold) {
    oaLibDefList* list = edit("DEFINE a a\n");
    oaLibDef* a = find(list, "a");
    EXPECT_EQ(thrownBy([&] { a->setLibPath(""); }).id, oacInvalidLibDefText);
    EXPECT_EQ(thrownBy([&] { a->setLibWritePath("a\"b"); }).id, oacInvalidLibDefText);
    EXPECT_EQ(thrownBy([&] { a->addLibAttribute("x\n", "1"); }).id, oacInvalidLibDefText);
    EXPECT_EQ(thrownBy([&] { a->addLibAttribute("libMode", "private"); }).id, oacInvalidLibDefText);
    EXPECT_EQ(saved(list), "DEFINE a a\n");
}

TEST_F(LibDefMembersTest, KeepVariablesWhenTheyAreCreated) {
    const EnvironmentOverride set("OVALIS_TEST_DIR", "/here");
    oaLibDefList* list = edit("");
    oaLibDef::create(list, scalarName("a"), "$OVALIS_TEST_DIR/a");
    EXPECT_THAT(membersOf(list), ElementsAre("a=/here/a"));
    EXPECT_EQ(saved(list), "DEFINE a $OVALIS_TEST_DIR/a\n");
}

TEST_F(LibDefMembersTest, AreOnePerNameAndFile) {
    oaLibDefList* list = edit("DEFINE a a\nINCLUDE ./x.defs\n");
    const Thrown twice = thrownBy([&] { oaLibDef::create(list, scalarName("a"), "b"); });
    EXPECT_EQ(twice.id, oacLibDefExists);
    EXPECT_EQ(withSlashes(twice.text),
              "Library definition list '" + path("lib.defs") + "' already defines library 'a'.");
    const Thrown again = thrownBy([&] { oaLibDefListRef::create(list, path("x.defs").c_str()); });
    EXPECT_EQ(again.id, oacLibDefListRefExists);
    EXPECT_EQ(withSlashes(again.text), "Library definition list '" + path("lib.defs") +
                                           "' already includes '" + path("x.defs") + "'.");
}

TEST_F(LibDefMembersTest, RefuseWhatAFileCannotHold) {
    oaLibDefList* list = edit("");
    for (const char* bad : {"a\"b", "a\nb", "\x01", ""})
        EXPECT_EQ(thrownBy([&] { oaLibDef::create(list, scalarName("a"), bad); }).id,
                  oacInvalidLibDefText)
            << bad;
    EXPECT_EQ(thrownBy([&] { oaLibDef::create(list, scalarName("a"), "a\"b"); }).text,
              "'a\"b' cannot be written into a library definition file.");
    EXPECT_THAT(membersOf(list), IsEmpty());
}

TEST_F(LibDefMembersTest, RefuseTheMembersOfOtherLists) {
    put("other.defs", "DEFINE x x\n");
    const oaLibDefList* other = oaLibDefList::get(path("other.defs").c_str(), 'r');
    oaLibDefList* list = edit("DEFINE a a\n");
    const Thrown thrown = thrownBy([&] { find(list, "a")->moveAfter(find(other, "x")); });
    EXPECT_EQ(thrown.id, oacLibDefListMemNotInList);
    EXPECT_EQ(withSlashes(thrown.text),
              "The member does not belong to library definition list '" + path("lib.defs") + "'.");
    EXPECT_EQ(thrownBy([&] { oaLibDefListRef::create(list, "y.defs", find(other, "x")); }).id,
              oacLibDefListMemNotInList);
}

TEST_F(LibDefMembersTest, ReferencesAreMadeAndFound) {
    oaLibDefList* list = edit("DEFINE a a\n");
    oaLibDefListRef* made = oaLibDefListRef::create(list, "x y.defs", find(list, "a"));
    EXPECT_EQ(made->getType(), oacLibDefListRefType);
    EXPECT_EQ(oaLibDefListRef::find(list, "x y.defs"), made);
    EXPECT_EQ(oaLibDefListRef::find(list, "z.defs"), nullptr);
    EXPECT_THAT(membersOf(list), ElementsAre("include x y.defs", "a=a"));
    EXPECT_EQ(saved(list), "INCLUDE \"x y.defs\"\nDEFINE a a\n");
}

TEST_F(LibDefMembersTest, AreDestroyedWithWhatIsAssignedToThem) {
    oaLibDefList* list = edit(written);
    oaLibDef* a = find(list, "a");
    a->destroy();
    EXPECT_FALSE(a->isValid());
    EXPECT_EQ(find(list, "a"), nullptr);
    EXPECT_EQ(saved(list), "# libraries of the group\n\n-- more\ninclude ./more.defs\nDEFINE b b");
}

TEST_F(LibDefMembersTest, AreMovedWithWhatIsAssignedToThem) {
    oaLibDefList* list = edit("# head\nDEFINE a a\nASSIGN a x 1\nDEFINE b b\nDEFINE c c");
    find(list, "a")->moveAfter(find(list, "b"));
    EXPECT_THAT(membersOf(list), ElementsAre("b=b", "a=a", "c=c"));
    find(list, "c")->moveToFirst();
    EXPECT_THAT(membersOf(list), ElementsAre("c=c", "b=b", "a=a"));
    find(list, "c")->moveToLast();
    find(list, "c")->moveToLast();
    find(list, "b")->moveAfter(find(list, "b"));
    EXPECT_THAT(membersOf(list), ElementsAre("b=b", "a=a", "c=c"));
    EXPECT_EQ(saved(list), "# head\nDEFINE b b\nDEFINE a a\nASSIGN a x 1\nDEFINE c c\n");
}

TEST_F(LibDefMembersTest, StayBehindTheByteOrderMark) {
    oaLibDefList* list = edit("\xef\xbb\xbf"
                              "DEFINE a a\nDEFINE b b\n");
    find(list, "b")->moveToFirst();
    EXPECT_EQ(saved(list), "\xef\xbb\xbf"
                           "DEFINE b b\nDEFINE a a\n");
}

TEST_F(LibDefMembersTest, OfOneNameAreAllKeptAndTheLastIsFound) {
    oaLibDefList* list = edit("DEFINE a one\nDEFINE a two\n");
    EXPECT_THAT(membersOf(list), ElementsAre("a=one", "a=two"));
    find(list, "a")->destroy();
    EXPECT_EQ(saved(list), "DEFINE a one\n");
    find(list, "a")->destroy();
    EXPECT_EQ(find(list, "a"), nullptr);
}

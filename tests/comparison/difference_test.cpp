#include "comparison/difference.h"

#include <gtest/gtest.h>

#include "comparison/fields.h"
#include "log.h"

namespace comparison {
namespace {

using Kind = Difference::Kind;

TEST(Difference, IsOneLine) {
    EXPECT_EQ(textOf({Kind::added, "coil", "view \"a\"", "", "", ""}), "coil: view \"a\" added");
    EXPECT_EQ(textOf({Kind::removed, "coil", "view \"a\"", "", "", ""}),
              "coil: view \"a\" removed");
    EXPECT_EQ(textOf({Kind::added, "p", "o", "parameter \"N\"", "", "int 3"}),
              "p: o: parameter \"N\" added: int 3");
    EXPECT_EQ(textOf({Kind::removed, "p", "o", "parameter \"N\"", "int 3", ""}),
              "p: o: parameter \"N\" removed: int 3");
    EXPECT_EQ(textOf({Kind::changed, "p", "o", "width", "1", "2"}), "p: o: width was 1, is 2");
    EXPECT_EQ(textOf({Kind::moved, "p", "o", "", "", "(1, 0)"}), "p: o moved by (1, 0)");
    EXPECT_EQ(textOf({Kind::renamed, "p", "o", "", "", "\"b\""}), "p: o renamed to \"b\"");
}

TEST(Difference, CutsLongTextsDownToWhereTheyDiffer) {
    const std::string same(1000, 'x');
    EXPECT_EQ(textOf({Kind::changed, "p", "o", "text", same + "a" + same, same + "b" + same}),
              "p: o: text was ..." + std::string(20, 'x') + "a" + std::string(99, 'x') +
                  "..., is ..." + std::string(20, 'x') + "b" + std::string(99, 'x') + "...");
    EXPECT_EQ(textOf({Kind::added, "p", "o", "a", "", same}),
              "p: o: a added: " + std::string(120, 'x') + "...");
}

TEST(Difference, CutsBetweenCharactersOfSeveralBytes) {
    std::string text = "x";
    while (text.size() < 300)
        text += "\xC3\xA4";
    const std::string line = textOf({Kind::added, "p", "o", "a", "", text});
    EXPECT_EQ(line.substr(line.size() - 5), "\xC3\xA4...");
    EXPECT_EQ(line.size(), std::string("p: o: a added: ").size() + 119 + 3);
}

TEST(Fields, AreComparedByTheirNames) {
    Fields was;
    was.set("same", "1");
    was.set("only", "1");
    was.set("empty", "");
    was.add("property \"x\"", "1");
    was.add("property \"y\"", "1");
    Fields is;
    is.set("same", "1");
    is.set("other", "2");
    is.add("property \"y\"", "2");
    is.add("property \"z\"", "3");
    test::Log log;
    compareFields(Place("p", log), "o", was, is);
    EXPECT_EQ(log.lines,
              (test::Lines{"p: o: only was 1, is none", "p: o: other was none, is 2",
                           "p: o: property \"x\" removed: 1", "p: o: property \"y\" was 1, is 2",
                           "p: o: property \"z\" added: 3"}));
}

TEST(Fields, OfOneNameHaveNoOrder) {
    Fields was;
    was.add("member", "b");
    was.add("member", "a");
    Fields is;
    is.add("member", "a");
    is.add("member", "b");
    EXPECT_EQ(textOf(was), textOf(is));
}

} // namespace
} // namespace comparison

#include <oa/oaDesignDB.h>

#include <gtest/gtest.h>

using namespace oa;

namespace {

std::string valueOf(oaPcellDef& def, const oaString& name) {
    oaString value = "untouched";
    return def.getDataValue(name, value) ? std::string(value) : "no " + std::string(value);
}

} // namespace

TEST(PcellDef, KeepsTexts) {
    oaPcellDef def(nullptr);
    EXPECT_TRUE(def.addData("macro", "first"));
    EXPECT_TRUE(def.addData("empty", ""));
    EXPECT_EQ(valueOf(def, "macro"), "first");
    EXPECT_EQ(valueOf(def, "empty"), "");
    EXPECT_EQ(valueOf(def, "other"), "no untouched");
}

TEST(PcellDef, KeepsOneTextUnderAName) {
    oaPcellDef def(nullptr);
    EXPECT_TRUE(def.addData("macro", "first"));
    EXPECT_FALSE(def.addData("macro", "second"));
    EXPECT_EQ(valueOf(def, "macro"), "first");
    EXPECT_TRUE(def.setDataValue("macro", "second"));
    EXPECT_EQ(valueOf(def, "macro"), "second");
    EXPECT_FALSE(def.setDataValue("other", "third"));
    EXPECT_EQ(valueOf(def, "other"), "no untouched");
}

TEST(PcellDef, ForgetsWhatIsRemoved) {
    oaPcellDef def(nullptr);
    def.addData("macro", "first");
    EXPECT_TRUE(def.removeData("macro"));
    EXPECT_FALSE(def.removeData("macro"));
    EXPECT_EQ(valueOf(def, "macro"), "no untouched");
}

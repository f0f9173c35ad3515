#include "dm/src/primary_files.h"

#include <gtest/gtest.h>
#include <string>

using namespace OpenAccess_4::impl;

TEST(PrimaryFile, NameLeadsBackToTheViewType) {
    for (const std::string type : {"maskLayout",
                                   "schematic",
                                   "schematicSymbol",
                                   "netlist",
                                   "wafer",
                                   "oaHierDesign",
                                   "VHDLText",
                                   "SPICEText",
                                   "own",
                                   "Own Type",
                                   "a.b",
                                   "a#20b",
                                   "#",
                                   "layout",
                                   "sch",
                                   "symbol",
                                   "con",
                                   "COM1",
                                   "com1",
                                   "gr\xc3\xb6\xc3\x9f"
                                   "e",
                                   "x.oa",
                                   ".",
                                   "..",
                                   "a/b\\c"}) {
        const std::string file = primaryFileName(type);
        EXPECT_EQ(viewTypeOfPrimary(file), type) << file;
        EXPECT_TRUE(isManagedFileName(file)) << file;
    }
}

TEST(PrimaryFile, OfOnesOwnViewTypeIsNamedByIt) {
    EXPECT_EQ(primaryFileName("own"), "own.oa");
    EXPECT_EQ(primaryFileName("a b"), "a#20b.oa");
    EXPECT_EQ(primaryFileName("layout"), "#6cayout.oa") << "layout.oa is that of maskLayout";
    EXPECT_EQ(primaryFileName("aux"), "#61ux.oa") << "aux is a device on Windows";
}

TEST(PrimaryFile, OfNobodyNamesTheViewTypeItself) {
    EXPECT_EQ(viewTypeOfPrimary("text.txt"), "text.txt");
    EXPECT_EQ(viewTypeOfPrimary(".oa"), ".oa");
    EXPECT_EQ(viewTypeOfPrimary("#00a#2Eb#2.oa"), "#00a#2Eb#2") << "no codes";
}

TEST(ManagedFile, NamesAreOnesThatBothSystemsCanHave) {
    for (const char* name : {"a", "itemdef.skr", ".hidden", "a b",
                             "gr\xc3\xb6\xc3\x9f"
                             "e"})
        EXPECT_TRUE(isManagedFileName(name)) << name;
    for (const char* name : {"", ".", "..", "a/b", "a\\b", "a:b", "a*", "a?", "\n", "a.", "a ",
                             "aux", "Con.txt", "lpt1.a.b"})
        EXPECT_FALSE(isManagedFileName(name)) << name;
}

TEST(ManagedFile, BooksOfTheLibraryAreNone) {
    for (const char* name : {".oalib", ".oalib.lck", "master.tag", "layout.oa.cdslck"})
        EXPECT_TRUE(isBookkeepingFile(name)) << name;
    for (const char* name : {"tech.db", "layout.oa", "lib.defs", "oalib"})
        EXPECT_FALSE(isBookkeepingFile(name)) << name;
}

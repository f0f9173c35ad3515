#include "lib_def_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class LibDefListTest : public LibDefTest {};

} // namespace

TEST_F(LibDefListTest, OpensWhatItDefinesAndIncludes) {
    makeLibrary("one");
    platform::createDirectory(path("below"));
    makeLibrary("below/two");
    put("below/more.defs", "DEFINE two ./two\n");
    oaLibDefList* list = open("DEFINE one one\nINCLUDE below/more.defs\n");
    EXPECT_THAT(membersOf(list), ElementsAre("one=one", "include more.defs"));
    EXPECT_THAT(openLibraries(), ElementsAre("one=one", withSystemSeparators("two=below/two")));
    EXPECT_THAT(warnings.texts, IsEmpty());
}

// Tries the corpus of library lists again, as an ordinary test of every build.

#include "library_list.h"
#include "replay.h"

namespace {

TEST(LibraryListCorpus, IsFlattenedAsItIsWritten) {
    fuzz::replay("library_list", fuzz::tryLibraryList, 3);
}

} // namespace

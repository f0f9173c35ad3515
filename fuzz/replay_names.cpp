// Tries the corpus of the names again, as an ordinary test of every build.

#include "names.h"
#include "replay.h"

namespace {

TEST(NamesCorpus, ComesBackFromEveryNameSpace) {
    fuzz::replay("names", fuzz::tryNames, 12);
}

} // namespace

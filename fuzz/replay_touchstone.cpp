// Tries the corpus of Touchstone files again, as an ordinary test of every build.

#include "replay.h"
#include "touchstone.h"

namespace {

TEST(TouchstoneCorpus, IsReadOrRefusedWithoutHarm) {
    fuzz::replay("touchstone", fuzz::tryTouchstone, 4);
}

} // namespace

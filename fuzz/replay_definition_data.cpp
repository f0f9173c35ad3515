// Tries the corpus of the definition data again, as an ordinary test of every build.

#include "definition_data.h"
#include "replay.h"

namespace {

TEST(DefinitionDataCorpus, IsReadAsItSaysOrRefused) {
    fuzz::replay("definition_data", fuzz::tryDefinitionData, 7);
}

} // namespace

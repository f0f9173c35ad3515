// Tries every file of the corpora again, as an ordinary test of every build.

#include "replay.h"

#include "database_file.h"
#include "library_definitions.h"
#include "pcell_file.h"

namespace {

TEST(DatabaseFileCorpus, IsReadOrRefusedWithoutHarm) {
    fuzz::replay("database_file", fuzz::tryDatabaseFile, 5);
}

TEST(PcellFileCorpus, IsReadOrRefusedWithoutHarm) {
    fuzz::replay("pcell_file", fuzz::tryPcellFile, 4);
}

TEST(LibraryDefinitionsCorpus, IsReadAndSavedAsItIsWritten) {
    fuzz::replay("library_definitions", fuzz::tryLibraryDefinitions, 5);
}

} // namespace

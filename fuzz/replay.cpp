// Tries every file of the corpora again, as an ordinary test of every build.

#include "replay.h"

#include "database_file.h"
#include "library_definitions.h"
#include "library_files.h"
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

TEST(LibraryMarkerCorpus, IsReadOrRefusedWithoutHarm) {
    fuzz::replay("library_marker", fuzz::tryLibraryMarker, 5);
}

TEST(MasterTagCorpus, IsReadOrRefusedWithoutHarm) {
    fuzz::replay("master_tag", fuzz::tryMasterTag, 4);
}

TEST(LibraryDataCorpus, IsReadOrRefusedWithoutHarm) {
    fuzz::replay("library_data", fuzz::tryLibraryData, 3);
}

} // namespace

// Saves a growing database over and over until it is killed.
//
// usage: save_forever FILE READY
// READY is made just before the first save.

#include "sample_database.h"

#include "platform/file.h"

int main(int, char** arguments) {
    const std::string path = arguments[1];
    sample::SampleDatabase database;
    sample::load(path, database);
    platform::File(arguments[2], platform::OpenMode::write).close();
    for (;;) {
        // Every generation has one leaf more, in each of two tables.
        for (const std::uint32_t which : {0u, 1u})
            database.leaves(which).add({0, 1});
        sample::save(path, database);
    }
}

#include "database_file.h"

#include "reseal.h"
#include "trial.h"

#include "support/temporary_directory.h"

namespace fuzz {

namespace {

/// Lives as long as the process: fuzzers start from the same state for every input.
struct Place {
    ovalis::test::TemporaryDirectory directory;
    Trial trial{directory.str() + "/lib"};
};

} // namespace

bool tryDatabaseFile(std::span<const std::byte> input) {
    static Place place;
    const bool accepted = place.trial.run(input);
    place.trial.run(withChecksums(input));
    place.trial.run(laidOut(input));
    return accepted;
}

} // namespace fuzz

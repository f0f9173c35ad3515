// Tries every file of the corpus of requests again, as an ordinary test of every build.

#include "broker_request.h"
#include "replay.h"

namespace {

TEST(BrokerRequestCorpus, IsReadOrRefusedWithoutHarm) {
    fuzz::replay("broker_request", fuzz::tryBrokerRequests, 5);
}

} // namespace

// Tries the corpora of the client of brokers again, as an ordinary test of every build.

#include "broker_client.h"
#include "replay.h"

namespace {

TEST(BrokerConfigCorpus, IsReadOrRefusedWithoutHarm) {
    fuzz::replay("broker_config", fuzz::tryBrokerConfig, 3);
}

TEST(BrokerAnswersCorpus, AreTakenForWhatTheyAre) {
    fuzz::replay("broker_answers", fuzz::tryBrokerAnswers, 3);
}

} // namespace

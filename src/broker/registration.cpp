#include "broker/registration.h"

#include "broker/error_report.h"
#include "broker/log.h"
#include "broker/observers.h"

namespace pcellBrokerClient {

namespace {

void logFailure(const std::string& context) noexcept {
    logMade([&] {
        return "registerPcellEvaluators: " + context + currentMessage().value_or("unknown error");
    });
}

/// What brokered evaluation keeps for the process.
class Registration : public LibDefListObserver {
public:
    explicit Registration(const std::shared_ptr<Brokers>& shared)
        : LibDefListObserver(shared), libObserver_(shared) {
        std::string typeName;
        try {
            brokers()->config = readBrokerConfig(brokers()->connections);
        } catch (const EmptyConfiguration&) {
            logFailure(typeName + ": "); // of an item, though there is none yet
        }
        for (const std::string& item : brokers()->config.items) {
            typeName = itemTypeName(item);
            try {
                registerItem(item);
            } catch (...) {
                logFailure(typeName + ": ");
            }
        }
    }

private:
    // Held here as well until the database holds it, which it does not when the name is taken.
    void registerItem(const std::string& item) {
        const oaCommon::SPtr<oa::IPcell> evaluator(new BrokeredPcell(parseItem(item), brokers()));
        oa::oaPcellLink::create(evaluator.getRef());
    }

    LibObserver libObserver_;
};

Registration* registration = nullptr; // never destroyed: the evaluators live as long

} // namespace

} // namespace pcellBrokerClient

namespace ovalis {

void registerPcellEvaluators() {
    using namespace pcellBrokerClient;
    if (registration != nullptr) {
        return;
    }
    try {
        registration = new Registration(std::make_shared<Brokers>());
    } catch (...) {
        logFailure("");
    }
}

} // namespace ovalis

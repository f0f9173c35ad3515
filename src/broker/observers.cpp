#include "broker/observers.h"

namespace pcellBrokerClient {

LibObserver::LibObserver(std::shared_ptr<Brokers> brokers)
    : oa::oaVersionedObserver<oa::oaLib>(0, true), brokers_(std::move(brokers)) {}

void LibObserver::onPostCreate(oa::oaLib*) {
    requireSetUp(brokers_->connections);
}

void LibObserver::onPostOpen(oa::oaLib*) {
    requireSetUp(brokers_->connections);
}

void LibObserver::onPreClose(oa::oaLib*) {
    requireSetUp(brokers_->connections);
}

LibDefListObserver::LibDefListObserver(std::shared_ptr<Brokers> brokers)
    : oa::oaVersionedObserver<oa::oaLibDefList>(0, true), brokers_(std::move(brokers)) {}

void LibDefListObserver::onPostOpenLibs(oa::oaLibDefList*) {
    requireSetUp(brokers_->connections);
}

} // namespace pcellBrokerClient

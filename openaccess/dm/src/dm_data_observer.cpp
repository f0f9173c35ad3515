#include "oa/oaDMDataObserver.h"

#include "base/src/observer_list.h"

namespace OpenAccess_4 {

using DMDataObserver = oaVersionedObserver<oaDMData, 0>;

namespace {

impl::ObserverList<DMDataObserver>& observers() {
    return impl::ObserverList<DMDataObserver>::instance();
}

} // namespace

DMDataObserver::oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn)
    : oaBaseObserver(priorityIn, enabledIn) {
    observers().add(*this);
}

DMDataObserver::~oaVersionedObserver() {
    observers().remove(*this);
}

void DMDataObserver::onFirstOpen(oaDMData*) {}
void DMDataObserver::onPurge(oaDMData*) {}
void DMDataObserver::onPreReopen(oaDMData*, oaChar) {}
void DMDataObserver::onPostReopen(oaDMData*, oaChar) {}
void DMDataObserver::onTruncate(oaDMData*) {}
void DMDataObserver::onPreSave(oaDMData*) {}
void DMDataObserver::onPostSave(oaDMData*, oaBoolean) {}

oaBoolean DMDataObserver::hasObservers() {
    return !observers().isEmpty();
}

void DMDataObserver::notifyFirstOpenObservers(oaDMData* dmData) {
    observers().notify([&](DMDataObserver& each) { each.onFirstOpen(dmData); });
}

void DMDataObserver::notifyPurgeObservers(oaDMData* dmData) {
    observers().notify([&](DMDataObserver& each) { each.onPurge(dmData); });
}

void DMDataObserver::notifyPreReopenObservers(oaDMData* dmData, oaChar newMode) {
    observers().notify([&](DMDataObserver& each) { each.onPreReopen(dmData, newMode); });
}

void DMDataObserver::notifyPostReopenObservers(oaDMData* dmData, oaChar oldMode) {
    observers().notify([&](DMDataObserver& each) { each.onPostReopen(dmData, oldMode); });
}

void DMDataObserver::notifyTruncateObservers(oaDMData* dmData) {
    observers().notify([&](DMDataObserver& each) { each.onTruncate(dmData); });
}

void DMDataObserver::notifyPreSaveObservers(oaDMData* dmData) {
    observers().notify([&](DMDataObserver& each) { each.onPreSave(dmData); });
}

void DMDataObserver::notifyPostSaveObservers(oaDMData* dmData, oaBoolean succeeded) {
    observers().notify([&](DMDataObserver& each) { each.onPostSave(dmData, succeeded); });
}

} // namespace OpenAccess_4

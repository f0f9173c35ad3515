#include "base/src/observer_list.h"
#include "oa/oaAppDefObserver.h"
#include "oa/oaGroupDefObserver.h"

namespace OpenAccess_4 {

using AppDefObserver = oaVersionedObserver<oaAppDef, 0>;
using GroupDefObserver = oaVersionedObserver<oaGroupDef, 0>;

namespace {

template <class Observer>
impl::ObserverList<Observer>& observers() {
    return impl::ObserverList<Observer>::instance();
}

} // namespace

AppDefObserver::oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn)
    : oaBaseObserver(priorityIn, enabledIn) {
    observers<AppDefObserver>().add(*this);
}

AppDefObserver::~oaVersionedObserver() {
    observers<AppDefObserver>().remove(*this);
}

void AppDefObserver::onPreModify(oaObject*, oaAppDef*) {}
void AppDefObserver::onPostModify(oaObject*, oaAppDef*) {}
void AppDefObserver::onConflict(const oaString&, oaType) {}

oaBoolean AppDefObserver::hasObservers() {
    return !observers<AppDefObserver>().isEmpty();
}

void AppDefObserver::notifyPreModifyObservers(oaObject* object, oaAppDef* appDef) {
    observers<AppDefObserver>().notify(
        [&](AppDefObserver& each) { each.onPreModify(object, appDef); });
}

void AppDefObserver::notifyPostModifyObservers(oaObject* object, oaAppDef* appDef) {
    observers<AppDefObserver>().notify(
        [&](AppDefObserver& each) { each.onPostModify(object, appDef); });
}

void AppDefObserver::notifyOnConflictObservers(const oaString& name, oaType type) {
    observers<AppDefObserver>().notify([&](AppDefObserver& each) { each.onConflict(name, type); });
}

GroupDefObserver::oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn)
    : oaBaseObserver(priorityIn, enabledIn) {
    observers<GroupDefObserver>().add(*this);
}

GroupDefObserver::~oaVersionedObserver() {
    observers<GroupDefObserver>().remove(*this);
}

void GroupDefObserver::onPostCreate(oaGroupDef*) {}
void GroupDefObserver::onPreDestroy(oaGroupDef*) {}
void GroupDefObserver::onConflict(const oaString&, oaType) {}

oaBoolean GroupDefObserver::hasObservers() {
    return !observers<GroupDefObserver>().isEmpty();
}

void GroupDefObserver::notifyPostCreateObservers(oaGroupDef* def) {
    observers<GroupDefObserver>().notify([&](GroupDefObserver& each) { each.onPostCreate(def); });
}

void GroupDefObserver::notifyPreDestroyObservers(oaGroupDef* def) {
    observers<GroupDefObserver>().notify([&](GroupDefObserver& each) { each.onPreDestroy(def); });
}

void GroupDefObserver::notifyOnConflictObservers(const oaString& name, oaType type) {
    observers<GroupDefObserver>().notify(
        [&](GroupDefObserver& each) { each.onConflict(name, type); });
}

} // namespace OpenAccess_4

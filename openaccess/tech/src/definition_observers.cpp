#include "base/src/observer_list.h"
#include "oa/oaDerivedLayerDefObserver.h"
#include "oa/oaDerivedLayerParamDefObserver.h"

namespace OpenAccess_4 {

using LayerDefObserver = oaVersionedObserver<oaDerivedLayerDef, 0>;
using ParamDefObserver = oaVersionedObserver<oaDerivedLayerParamDef, 0>;

namespace {

template <class Observer>
impl::ObserverList<Observer>& observers() {
    return impl::ObserverList<Observer>::instance();
}

} // namespace

LayerDefObserver::oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn)
    : oaBaseObserver(priorityIn, enabledIn) {
    observers<LayerDefObserver>().add(*this);
}

LayerDefObserver::~oaVersionedObserver() {
    observers<LayerDefObserver>().remove(*this);
}

void LayerDefObserver::onPostCreate(oaDerivedLayerDef*) {}
void LayerDefObserver::onPreDestroy(oaDerivedLayerDef*) {}
void LayerDefObserver::onConflict(const oaString&) {}

oaBoolean LayerDefObserver::hasObservers() {
    return !observers<LayerDefObserver>().isEmpty();
}

void LayerDefObserver::notifyPostCreateObservers(oaDerivedLayerDef* def) {
    observers<LayerDefObserver>().notify([&](LayerDefObserver& each) { each.onPostCreate(def); });
}

void LayerDefObserver::notifyPreDestroyObservers(oaDerivedLayerDef* def) {
    observers<LayerDefObserver>().notify([&](LayerDefObserver& each) { each.onPreDestroy(def); });
}

void LayerDefObserver::notifyOnConflictObservers(const oaString& name) {
    observers<LayerDefObserver>().notify([&](LayerDefObserver& each) { each.onConflict(name); });
}

ParamDefObserver::oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn)
    : oaBaseObserver(priorityIn, enabledIn) {
    observers<ParamDefObserver>().add(*this);
}

ParamDefObserver::~oaVersionedObserver() {
    observers<ParamDefObserver>().remove(*this);
}

void ParamDefObserver::onPostCreate(oaDerivedLayerParamDef*) {}
void ParamDefObserver::onPreDestroy(oaDerivedLayerParamDef*) {}
void ParamDefObserver::onConflict(const oaString&, oaType) {}

oaBoolean ParamDefObserver::hasObservers() {
    return !observers<ParamDefObserver>().isEmpty();
}

void ParamDefObserver::notifyPostCreateObservers(oaDerivedLayerParamDef* def) {
    observers<ParamDefObserver>().notify([&](ParamDefObserver& each) { each.onPostCreate(def); });
}

void ParamDefObserver::notifyPreDestroyObservers(oaDerivedLayerParamDef* def) {
    observers<ParamDefObserver>().notify([&](ParamDefObserver& each) { each.onPreDestroy(def); });
}

void ParamDefObserver::notifyOnConflictObservers(const oaString& name, oaType valueType) {
    observers<ParamDefObserver>().notify(
        [&](ParamDefObserver& each) { each.onConflict(name, valueType); });
}

} // namespace OpenAccess_4

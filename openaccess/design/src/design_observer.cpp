#include "oa/oaDesignObserver.h"

#include "base/src/observer_list.h"
#include "oa/oaDesign.h"
#include "oa/oaScalarName.h"

namespace OpenAccess_4 {

using DesignObserver = oaVersionedObserver<oaDesign, 0>;

namespace {

impl::ObserverList<DesignObserver>& observers() {
    return impl::ObserverList<DesignObserver>::instance();
}

} // namespace

DesignObserver::oaVersionedObserver(oaUInt4 priority, oaBoolean enabled)
    : oaBaseObserver(priority, enabled) {
    observers().add(*this);
}

DesignObserver::~oaVersionedObserver() {
    observers().remove(*this);
}

void DesignObserver::onFirstOpen(oaDesign*) {}
void DesignObserver::onPurge(oaDesign*) {}
void DesignObserver::onPreReopen(oaDesign*, oaChar) {}
void DesignObserver::onPostReopen(oaDesign*, oaChar) {}
void DesignObserver::onTruncate(oaDesign*) {}
void DesignObserver::onPreSave(oaDesign*) {}
void DesignObserver::onPostSave(oaDesign*, oaBoolean) {}
void DesignObserver::onPreSaveAs(oaDesign*, const oaScalarName&, const oaScalarName&,
                                 const oaScalarName&) {}
void DesignObserver::onPostSaveAs(oaDesign*, const oaScalarName&, const oaScalarName&,
                                  const oaScalarName&, oaBoolean) {}
void DesignObserver::onPreModify(oaDesign*, oaDesignModTypeEnum) {}
void DesignObserver::onPostModify(oaDesign*, oaDesignModTypeEnum) {}

oaBoolean DesignObserver::hasObservers() {
    return !observers().isEmpty();
}

void DesignObserver::notifyFirstOpenObservers(oaDesign* design) {
    observers().notify([&](DesignObserver& each) { each.onFirstOpen(design); });
}

void DesignObserver::notifyPurgeObservers(oaDesign* design) {
    observers().notify([&](DesignObserver& each) { each.onPurge(design); });
}

void DesignObserver::notifyPreReopenObservers(oaDesign* design, oaChar newMode) {
    observers().notify([&](DesignObserver& each) { each.onPreReopen(design, newMode); });
}

void DesignObserver::notifyPostReopenObservers(oaDesign* design, oaChar oldMode) {
    observers().notify([&](DesignObserver& each) { each.onPostReopen(design, oldMode); });
}

void DesignObserver::notifyTruncateObservers(oaDesign* design) {
    observers().notify([&](DesignObserver& each) { each.onTruncate(design); });
}

void DesignObserver::notifyPreSaveObservers(oaDesign* design) {
    observers().notify([&](DesignObserver& each) { each.onPreSave(design); });
}

void DesignObserver::notifyPostSaveObservers(oaDesign* design, oaBoolean succeeded) {
    observers().notify([&](DesignObserver& each) { each.onPostSave(design, succeeded); });
}

void DesignObserver::notifyPreSaveAsObservers(oaDesign* design, const oaScalarName& libName,
                                              const oaScalarName& cellName,
                                              const oaScalarName& viewName) {
    observers().notify(
        [&](DesignObserver& each) { each.onPreSaveAs(design, libName, cellName, viewName); });
}

void DesignObserver::notifyPostSaveAsObservers(oaDesign* design, const oaScalarName& libName,
                                               const oaScalarName& cellName,
                                               const oaScalarName& viewName, oaBoolean succeeded) {
    observers().notify([&](DesignObserver& each) {
        each.onPostSaveAs(design, libName, cellName, viewName, succeeded);
    });
}

void DesignObserver::notifyPreModifyObservers(oaDesign* design, oaDesignModTypeEnum modType) {
    observers().notify([&](DesignObserver& each) { each.onPreModify(design, modType); });
}

void DesignObserver::notifyPostModifyObservers(oaDesign* design, oaDesignModTypeEnum modType) {
    observers().notify([&](DesignObserver& each) { each.onPostModify(design, modType); });
}

} // namespace OpenAccess_4

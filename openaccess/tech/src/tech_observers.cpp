#include "base/src/observer_list.h"
#include "oa/oaTechObserver.h"

namespace OpenAccess_4 {

using TechObserver = oaVersionedObserver<oaTech, 2>;

namespace {

template <class Observer>
impl::ObserverList<Observer>& observers() {
    return impl::ObserverList<Observer>::instance();
}

} // namespace

TechObserver::oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn)
    : oaBaseObserver(priorityIn, enabledIn) {
    observers<TechObserver>().add(*this);
}

TechObserver::~oaVersionedObserver() {
    observers<TechObserver>().remove(*this);
}

void TechObserver::onCreate(oaTech*) {}
void TechObserver::onFirstOpen(oaTech*) {}
void TechObserver::onPurge(oaTech*) {}
void TechObserver::onPreReopen(oaTech*, oaChar) {}
void TechObserver::onPostReopen(oaTech*, oaChar) {}
void TechObserver::onTruncate(oaTech*) {}
void TechObserver::onPreSave(oaTech*) {}
void TechObserver::onPostSave(oaTech*, oaBoolean) {}
void TechObserver::onPreSaveAs(oaTech*) {}
void TechObserver::onPostSaveAs(oaTech*, oaBoolean) {}
void TechObserver::onPreModify(oaTech*, oaTechModTypeEnum) {}
void TechObserver::onPostModify(oaTech*, oaTechModTypeEnum) {}
void TechObserver::onPreAttach(oaLib*, const oaScalarName&) {}
void TechObserver::onPostAttach(oaLib*, const oaScalarName&) {}
void TechObserver::onPreDetach(oaLib*) {}
void TechObserver::onPostDetach(oaLib*) {}
void TechObserver::onUnboundRef(oaTech*, oaTechHeader*) {}
void TechObserver::onPreOpenRefs(oaTech*) {}
void TechObserver::onPostOpenRefs(oaTech*) {}
void TechObserver::onConflict(oaTech*, oaTechConflictTypeEnum, oaObjectArray) {}
void TechObserver::onClearanceMeasureConflict(oaTechArray) {}
void TechObserver::onDefaultManufacturingGridConflict(oaTechArray) {}
void TechObserver::onGateGroundedConflict(oaTechArray) {}
void TechObserver::onDBUPerUUConflict(oaTechArray, oaViewType*) {}
void TechObserver::onUserUnitsConflict(oaTechArray, oaViewType*) {}
void TechObserver::onProcessFamilyConflict(const oaTechArray&) {}
void TechObserver::onExcludedLayerConflict(oaTech*, const oaPhysicalLayer*, const oaLayer*) {}

oaBoolean TechObserver::hasObservers() {
    return !observers<TechObserver>().isEmpty();
}

void TechObserver::notifyCreateObservers(oaTech* tech) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onCreate(tech); });
}

void TechObserver::notifyFirstOpenObservers(oaTech* tech) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onFirstOpen(tech); });
}

void TechObserver::notifyPurgeObservers(oaTech* tech) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPurge(tech); });
}

void TechObserver::notifyPreReopenObservers(oaTech* tech, oaChar newMode) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPreReopen(tech, newMode); });
}

void TechObserver::notifyPostReopenObservers(oaTech* tech, oaChar oldMode) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPostReopen(tech, oldMode); });
}

void TechObserver::notifyTruncateObservers(oaTech* tech) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onTruncate(tech); });
}

void TechObserver::notifyPreSaveObservers(oaTech* tech) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPreSave(tech); });
}

void TechObserver::notifyPostSaveObservers(oaTech* tech, oaBoolean succeeded) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPostSave(tech, succeeded); });
}

void TechObserver::notifyPreSaveAsObservers(oaTech* tech) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPreSaveAs(tech); });
}

void TechObserver::notifyPostSaveAsObservers(oaTech* tech, oaBoolean succeeded) {
    observers<TechObserver>().notify(
        [&](TechObserver& each) { each.onPostSaveAs(tech, succeeded); });
}

void TechObserver::notifyPreModifyObservers(oaTech* tech, oaTechModTypeEnum modType) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPreModify(tech, modType); });
}

void TechObserver::notifyPostModifyObservers(oaTech* tech, oaTechModTypeEnum modType) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPostModify(tech, modType); });
}

void TechObserver::notifyPreAttachObservers(oaLib* lib, const oaScalarName& attachLibName) {
    observers<TechObserver>().notify(
        [&](TechObserver& each) { each.onPreAttach(lib, attachLibName); });
}

void TechObserver::notifyPostAttachObservers(oaLib* lib, const oaScalarName& attachLibName) {
    observers<TechObserver>().notify(
        [&](TechObserver& each) { each.onPostAttach(lib, attachLibName); });
}

void TechObserver::notifyPreDetachObservers(oaLib* lib) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPreDetach(lib); });
}

void TechObserver::notifyPostDetachObservers(oaLib* lib) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPostDetach(lib); });
}

void TechObserver::notifyUnboundRefObservers(oaTech* tech, oaTechHeader* header) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onUnboundRef(tech, header); });
}

void TechObserver::notifyPreOpenRefsObservers(oaTech* tech) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPreOpenRefs(tech); });
}

void TechObserver::notifyPostOpenRefsObservers(oaTech* tech) {
    observers<TechObserver>().notify([&](TechObserver& each) { each.onPostOpenRefs(tech); });
}

void TechObserver::notifyConflictObservers(oaTech* mostDerivedTech,
                                           oaTechConflictTypeEnum conflictType,
                                           const oaObjectArray& conflictingObjs) {
    observers<TechObserver>().notify([&](TechObserver& each) {
        each.onConflict(mostDerivedTech, conflictType, conflictingObjs);
    });
}

void TechObserver::notifyClearanceMeasureConflictObservers(const oaTechArray& conflictingTechs) {
    observers<TechObserver>().notify(
        [&](TechObserver& each) { each.onClearanceMeasureConflict(conflictingTechs); });
}

void TechObserver::notifyDefaultManufacturingGridConflictObservers(
    const oaTechArray& conflictingTechs) {
    observers<TechObserver>().notify(
        [&](TechObserver& each) { each.onDefaultManufacturingGridConflict(conflictingTechs); });
}

void TechObserver::notifyGateGroundedConflictObservers(const oaTechArray& conflictingTechs) {
    observers<TechObserver>().notify(
        [&](TechObserver& each) { each.onGateGroundedConflict(conflictingTechs); });
}

void TechObserver::notifyDBUPerUUConflictObservers(const oaTechArray& conflictingTechs,
                                                   oaViewType* viewType) {
    observers<TechObserver>().notify(
        [&](TechObserver& each) { each.onDBUPerUUConflict(conflictingTechs, viewType); });
}

void TechObserver::notifyUserUnitsConflictObservers(const oaTechArray& conflictingTechs,
                                                    oaViewType* viewType) {
    observers<TechObserver>().notify(
        [&](TechObserver& each) { each.onUserUnitsConflict(conflictingTechs, viewType); });
}

void TechObserver::notifyProcessFamilyConflictObservers(const oaTechArray& conflictingTechs) {
    observers<TechObserver>().notify(
        [&](TechObserver& each) { each.onProcessFamilyConflict(conflictingTechs); });
}

void TechObserver::notifyExcludedLayerConflictObservers(oaTech* mostDerivedTech,
                                                        const oaPhysicalLayer* excludingLayer,
                                                        const oaLayer* excludedLayer) {
    observers<TechObserver>().notify([&](TechObserver& each) {
        each.onExcludedLayerConflict(mostDerivedTech, excludingLayer, excludedLayer);
    });
}

} // namespace OpenAccess_4

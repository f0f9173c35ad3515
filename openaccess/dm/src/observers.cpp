#include "base/src/observer_list.h"
#include "oa/oaLibDefListObserver.h"
#include "oa/oaLibObserver.h"
#include "oa/oaViewTypeObserver.h"

namespace OpenAccess_4 {

using LibObserver = oaVersionedObserver<oaLib, 0>;
using ViewTypeObserver = oaVersionedObserver<oaViewType, 0>;
using LibDefListObserver = oaVersionedObserver<oaLibDefList, 1>;

namespace {

template <class Observer>
impl::ObserverList<Observer>& observers() {
    return impl::ObserverList<Observer>::instance();
}

} // namespace

LibObserver::oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn)
    : oaBaseObserver(priorityIn, enabledIn) {
    observers<LibObserver>().add(*this);
}

LibObserver::~oaVersionedObserver() {
    observers<LibObserver>().remove(*this);
}

void LibObserver::onPostCreate(oaLib*) {}
void LibObserver::onPostOpen(oaLib*) {}
void LibObserver::onPreClose(oaLib*) {}
void LibObserver::onPreModify(oaLib*, oaDMLibModTypeEnum) {}
void LibObserver::onPostModify(oaLib*, oaDMLibModTypeEnum) {}

oaBoolean LibObserver::hasObservers() {
    return !observers<LibObserver>().isEmpty();
}

void LibObserver::notifyPostCreateObservers(oaLib* lib) {
    observers<LibObserver>().notify([&](LibObserver& each) { each.onPostCreate(lib); });
}

void LibObserver::notifyPostOpenObservers(oaLib* lib) {
    observers<LibObserver>().notify([&](LibObserver& each) { each.onPostOpen(lib); });
}

void LibObserver::notifyPreCloseObservers(oaLib* lib) {
    observers<LibObserver>().notify([&](LibObserver& each) { each.onPreClose(lib); });
}

void LibObserver::notifyPreModifyObservers(oaLib* lib, oaDMLibModTypeEnum modType) {
    observers<LibObserver>().notify([&](LibObserver& each) { each.onPreModify(lib, modType); });
}

void LibObserver::notifyPostModifyObservers(oaLib* lib, oaDMLibModTypeEnum modType) {
    observers<LibObserver>().notify([&](LibObserver& each) { each.onPostModify(lib, modType); });
}

ViewTypeObserver::oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn)
    : oaBaseObserver(priorityIn, enabledIn) {
    observers<ViewTypeObserver>().add(*this);
}

ViewTypeObserver::~oaVersionedObserver() {
    observers<ViewTypeObserver>().remove(*this);
}

void ViewTypeObserver::onPostCreate(oaViewType*) {}

oaBoolean ViewTypeObserver::hasObservers() {
    return !observers<ViewTypeObserver>().isEmpty();
}

void ViewTypeObserver::notifyPostCreateObservers(oaViewType* viewType) {
    observers<ViewTypeObserver>().notify(
        [&](ViewTypeObserver& each) { each.onPostCreate(viewType); });
}

LibDefListObserver::oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn)
    : oaBaseObserver(priorityIn, enabledIn) {
    observers<LibDefListObserver>().add(*this);
}

LibDefListObserver::~oaVersionedObserver() {
    observers<LibDefListObserver>().remove(*this);
}

oaBoolean LibDefListObserver::onPreOpenLibs(oaLibDefList*) {
    return true;
}
void LibDefListObserver::onPostOpenLibs(oaLibDefList*) {}
oaBoolean LibDefListObserver::onLoadWarnings(oaLibDefList*, const oaString&,
                                             oaLibDefListWarningTypeEnum) {
    return true;
}
void LibDefListObserver::onPreSave(oaLibDefList*) {}
void LibDefListObserver::onPostSave(oaLibDefList*, oaBoolean) {}
void LibDefListObserver::onPreSaveAs(oaLibDefList*, const oaString&) {}
void LibDefListObserver::onPostSaveAs(oaLibDefList*, const oaString&, oaBoolean) {}

oaBoolean LibDefListObserver::hasObservers() {
    return !observers<LibDefListObserver>().isEmpty();
}

oaBoolean LibDefListObserver::notifyPreOpenLibsObservers(oaLibDefList* defList) {
    return observers<LibDefListObserver>().ask(
        [&](LibDefListObserver& each) { return bool(each.onPreOpenLibs(defList)); });
}

void LibDefListObserver::notifyPostOpenLibsObservers(oaLibDefList* defList) {
    observers<LibDefListObserver>().notify(
        [&](LibDefListObserver& each) { each.onPostOpenLibs(defList); });
}

oaBoolean LibDefListObserver::notifyLoadWarningsObservers(oaLibDefList* defList,
                                                          const oaString& msg,
                                                          oaLibDefListWarningTypeEnum type) {
    bool handled = true;
    observers<LibDefListObserver>().notify([&](LibDefListObserver& each) {
        handled = each.onLoadWarnings(defList, msg, type) && handled;
    });
    return handled;
}

void LibDefListObserver::notifyPreSaveObservers(oaLibDefList* defList) {
    observers<LibDefListObserver>().notify(
        [&](LibDefListObserver& each) { each.onPreSave(defList); });
}

void LibDefListObserver::notifyPostSaveObservers(oaLibDefList* defList, oaBoolean succeeded) {
    observers<LibDefListObserver>().notify(
        [&](LibDefListObserver& each) { each.onPostSave(defList, succeeded); });
}

void LibDefListObserver::notifyPreSaveAsObservers(oaLibDefList* defList, const oaString& path) {
    observers<LibDefListObserver>().notify(
        [&](LibDefListObserver& each) { each.onPreSaveAs(defList, path); });
}

void LibDefListObserver::notifyPostSaveAsObservers(oaLibDefList* defList, const oaString& path,
                                                   oaBoolean succeeded) {
    observers<LibDefListObserver>().notify(
        [&](LibDefListObserver& each) { each.onPostSaveAs(defList, path, succeeded); });
}

} // namespace OpenAccess_4

#include "design/src/pcell_observers.h"

#include "base/src/observer_list.h"
#include "oa/oaCommonIException.h"
#include "oa/oaException.h"

#include <exception>

namespace OpenAccess_4 {

namespace impl {

namespace {

ObserverList<oaPcellObserver>& pcellObservers() {
    return ObserverList<oaPcellObserver>::instance();
}

ObserverList<oaPcellFileObserver>& pcellFileObservers() {
    return ObserverList<oaPcellFileObserver>::instance();
}

} // namespace

void notifyPreEval(oaDesign* design, oaPcellDef* def) {
    pcellObservers().notify([&](oaPcellObserver& each) { each.onPreEval(design, def); });
}

void notifyPostEval(oaDesign* design, oaPcellDef* def) {
    pcellObservers().notify([&](oaPcellObserver& each) { each.onPostEval(design, def); });
}

namespace {

constexpr const oaChar* noMessage = "The evaluator failed without a message.";

} // namespace

oaString textOfFailure() {
    try {
        throw;
    } catch (const oaException& failure) {
        return failure.getMsg();
    } catch (const oaCommon::IException& failure) {
        const char* const message = failure.getMsg(); // a foreign one may have none
        return message != nullptr ? message : noMessage;
    } catch (const std::exception& failure) {
        return failure.what();
    } catch (...) {
        return noMessage;
    }
}

void tellPcellError(oaDesign* design, const oaString& msg, oaPcellErrorTypeEnum kind) noexcept {
    try {
        oaPcellObserver::notifyErrorObservers(design, msg, kind);
    } catch (...) {
    }
}

void notifyPcellFileRead(oaDesign* design, PcellFile* file, oaUInt8 offset) {
    pcellFileObservers().notify(
        [&](oaPcellFileObserver& each) { each.onRead(design, file, offset); });
}

void notifyPcellFilePreAppend(oaDesign* design, PcellFile* file) {
    pcellFileObservers().notify([&](oaPcellFileObserver& each) { each.onPreAppend(design, file); });
}

void notifyPcellFilePostAppend(oaDesign* design, PcellFile* file) {
    pcellFileObservers().notify(
        [&](oaPcellFileObserver& each) { each.onPostAppend(design, file); });
}

} // namespace impl

using namespace impl;

oaPcellObserver::oaPcellObserver(oaUInt4 priority, oaBoolean enabled)
    : oaBaseObserver(priority, enabled) {
    pcellObservers().add(*this);
}

oaPcellObserver::~oaPcellObserver() {
    pcellObservers().remove(*this);
}

void oaPcellObserver::onError(oaDesign*, const oaString&, oaPcellErrorTypeEnum) {}
void oaPcellObserver::onPreEval(oaDesign*, oaPcellDef*) {}
void oaPcellObserver::onPostEval(oaDesign*, oaPcellDef*) {}

void oaPcellObserver::notifyErrorObservers(oaDesign* design, const oaString& msg,
                                           oaPcellErrorTypeEnum errorType) {
    pcellObservers().notify([&](oaPcellObserver& each) { each.onError(design, msg, errorType); });
}

oaPcellFileObserver::oaPcellFileObserver(oaUInt4 priority, oaBoolean enabled)
    : oaBaseObserver(priority, enabled) {
    pcellFileObservers().add(*this);
}

oaPcellFileObserver::~oaPcellFileObserver() {
    pcellFileObservers().remove(*this);
}

void oaPcellFileObserver::onRead(oaDesign*, PcellFile*, oaUInt8) {}
void oaPcellFileObserver::onPreAppend(oaDesign*, PcellFile*) {}
void oaPcellFileObserver::onPostAppend(oaDesign*, PcellFile*) {}

} // namespace OpenAccess_4

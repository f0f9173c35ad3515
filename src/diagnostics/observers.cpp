#include "diagnostics/observers.h"

#include "core/names.h"

namespace ovalis {

namespace {

constexpr oa::oaUInt4 priority = 10;

/// Adds what `makeMessage` tells, a key and a line, while the origin is active. Nothing is thrown
/// into the database: a message that cannot be made is lost.
template <class MakeMessage>
void record(msgCollector& collector, msgCollector::OriginType origin,
            MakeMessage makeMessage) noexcept {
    try {
        if (collector.isCollectorActive(origin)) {
            const TStringPair message = makeMessage();
            collector.addMessage(origin, message.get<0>(), message.get<1>());
        }
    } catch (...) {
    }
}

std::string pathOf(const oa::oaDesign& design) {
    oa::oaString lib;
    oa::oaString cell;
    oa::oaString view;
    design.getLibName(nativeNameSpace, lib);
    design.getCellName(nativeNameSpace, cell);
    design.getViewName(nativeNameSpace, view);
    return fromOa(lib) + '/' + fromOa(cell) + '/' + fromOa(view);
}

/// The number of a database's enumerator, which may be one of an application's own.
template <class Enum>
std::string numberOf(Enum value) {
    return std::to_string(static_cast<int>(value));
}

} // namespace

msgPcellObserver::msgPcellObserver(msgCollector& collector)
    : oa::oaPcellObserver(priority, true), collector_(collector) {}

void msgPcellObserver::onError(oa::oaDesign* design, const oa::oaString& msg,
                               oa::oaPcellErrorTypeEnum errorType) {
    record(collector_, msgCollector::Pcell, [&] {
        return TStringPair(pathOf(*design), "Error[" + numberOf(errorType) + "]: " + fromOa(msg));
    });
}

msgLibDefListObserver::msgLibDefListObserver(msgCollector& collector)
    : oa::oaVersionedObserver<oa::oaLibDefList, 1>(priority, true), collector_(collector) {}

oa::oaBoolean msgLibDefListObserver::onLoadWarnings(oa::oaLibDefList*, const oa::oaString& msg,
                                                    oa::oaLibDefListWarningTypeEnum type) {
    record(collector_, msgCollector::LibDefs, [&] {
        // The line end belongs to the key, which programs look up.
        return TStringPair("onLoadWarning[" + numberOf(type) + "]\n", fromOa(msg));
    });
    return true; // go on loading
}

template <class Observer>
void MessageObservers::add(msgCollector::OriginType origin, msgCollector& collector) {
    if (collector.isCollectorActive(origin)) {
        all_.push_back(std::make_unique<Observer>(collector));
    }
}

MessageObservers::MessageObservers(msgCollector& collector) {
    add<msgPcellObserver>(msgCollector::Pcell, collector);
    add<msgLibDefListObserver>(msgCollector::LibDefs, collector);
}

} // namespace ovalis

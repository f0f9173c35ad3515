#pragma once

#include <memory>
#include <vector>

#include <ovalis/diagnostics.h>

namespace ovalis {

/// The observers that a collector owns: one for each origin that is active when they are made.
class MessageObservers {
public:
    explicit MessageObservers(msgCollector& collector);

private:
    template <class Observer>
    void add(msgCollector::OriginType origin, msgCollector& collector);

    std::vector<std::unique_ptr<oa::oaBaseObserver>> all_;
};

/// Records pcells that could not be evaluated.
class msgPcellObserver : public oa::oaPcellObserver {
public:
    explicit msgPcellObserver(msgCollector& collector);

    void onError(oa::oaDesign* design, const oa::oaString& msg,
                 oa::oaPcellErrorTypeEnum errorType) override;

private:
    msgCollector& collector_;
};

/// Records what is wrong in library definition files.
class msgLibDefListObserver : public oa::oaVersionedObserver<oa::oaLibDefList, 1> {
public:
    explicit msgLibDefListObserver(msgCollector& collector);

    oa::oaBoolean onLoadWarnings(oa::oaLibDefList* list, const oa::oaString& msg,
                                 oa::oaLibDefListWarningTypeEnum type) override;

private:
    msgCollector& collector_;
};

} // namespace ovalis

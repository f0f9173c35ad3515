#include "oa/oaObserver.h"

namespace OpenAccess_4 {

oaBaseObserver::oaBaseObserver(oaUInt4 priority, oaBoolean enabled)
    : priority_(priority), enabled_(enabled) {}

oaBaseObserver::~oaBaseObserver() = default;

void oaBaseObserver::enable(oaBoolean enabled) {
    enabled_ = enabled;
}

} // namespace OpenAccess_4

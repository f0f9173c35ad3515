#include "cli/collected_errors.h"

namespace cli {

CollectedErrors::CollectedErrors(Console& console) : console_(console) {}

CollectedErrors::~CollectedErrors() {
    // A collector with an active error channel writes its report itself.
    if (console_.errorsAreTold || !collector_.containsErrors() ||
        collector_.isCollectorActive(ovalis::msgCollector::ErrChannel))
        return;
    try {
        console_.talk << collector_.getMessageLog("all-wh");
    } catch (...) { // a report that cannot be written has no other place to go
    }
}

} // namespace cli

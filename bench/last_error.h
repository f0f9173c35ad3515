#pragma once

#include "oa/oaDesignDB.h"

#include <string>

namespace bench {

/// The last of what observers of pcell errors were told.
class LastError : public OpenAccess_4::oaPcellObserver {
public:
    LastError() : OpenAccess_4::oaPcellObserver(0) {}
    void onError(OpenAccess_4::oaDesign*, const OpenAccess_4::oaString& msg,
                 OpenAccess_4::oaPcellErrorTypeEnum) override {
        message = static_cast<const char*>(msg);
    }

    std::string message;
};

} // namespace bench

#include <ovalis/pcell.h>

#include <stdexcept>

#include "core/boundary.h"
#include "pcell/submaster_identity.h"

namespace ovalis {

std::string calculateSubmasterIdHash(oa::oaDesign* design) {
    return atBoundary([&] {
        initOa();
        if (design == nullptr || !design->isValid()) {
            throw std::runtime_error("Invalid design given.");
        }
        return submasterIdHash(*design);
    });
}

SubmasterIdentity identifySubmaster(const std::string& libName, const std::string& cellName,
                                    const std::string& viewName, const oa::oaParamArray& params) {
    return atBoundary([&] {
        initOa();
        return submasterIdentity(toOa(libName), toOa(cellName), toOa(viewName), params);
    });
}

} // namespace ovalis

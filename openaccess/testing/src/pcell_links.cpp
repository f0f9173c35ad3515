#include "oatest/pcell_links.h"

#include "design/src/pcell_links.h"

namespace oatest {

std::vector<std::string> pcellLinkNames() {
    std::vector<std::string> names;
    for (const auto& name : OpenAccess_4::impl::PcellLinks::instance().names())
        names.emplace_back(name);
    return names;
}

} // namespace oatest

#include "oaDMInit.h"

#include "base/src/build_names.h"

namespace OpenAccess_4 {

void oaDMInit(oaUInt4 apiMajorRev, oaUInt4 apiMinorRev, oaUInt4 dataModelRev) {
    impl::checkRevisions(apiMajorRev, apiMinorRev, dataModelRev);
}

} // namespace OpenAccess_4

#include "pcell/submaster_cache.h"

#include "pcell/submaster_identity.h"

namespace ovalis {

std::string cachedSubmasterPath(const oa::oaDesign& submaster) {
    const oa::oaLibDefList* list = oa::oaLibDefList::getTopList();
    if (list == nullptr) {
        return {};
    }
    oa::oaString listPath;
    list->getFullPath(listPath);
    const oa::oaChar* const text = listPath;
    return cacheDirectoryBeside(text) + "/" + submasterIdHash(submaster);
}

bool readCachedSubmaster(oa::oaDesign& submaster) {
    const oa::oaString path = cachedSubmasterPath(submaster).c_str();
    if (path.isEmpty() || !oa::oaFile(path).exists()) {
        return false;
    }
    oa::PcellFile file(path);
    file.open("r");
    file.read(&submaster, 0);
    file.close();
    return true;
}

} // namespace ovalis

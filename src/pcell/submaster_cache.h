#pragma once

#include <string>

#include <oa/oaDesignDB.h>

namespace ovalis {

/// The directory of the evaluated submasters that belong to a top library definition list: beside
/// its file. A path without separator stands for a file in the current directory.
inline std::string cacheDirectoryBeside(const std::string& listPath) {
    // Without a separator the sum is 0, and nothing is left of the path.
    return listPath.substr(0, listPath.find_last_of("/\\") + 1) + ".vexPcells";
}

/// Where the cache has the content of a submaster, whether or not there is such a file; empty when
/// there is no top library definition list.
std::string cachedSubmasterPath(const oa::oaDesign& submaster);

/// Fills a submaster from its file in the cache. Without such a file nothing happens, and the
/// answer is false. What the database throws over a file that it cannot read passes through.
bool readCachedSubmaster(oa::oaDesign& submaster);

} // namespace ovalis

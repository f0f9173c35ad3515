#pragma once

#include <string>

#include <oa/oaDesignDB.h>

namespace ovalis {

/// The directory of the evaluated submasters that belong to a top library definition list: beside
/// its file. A path without separator stands for a file in the current directory.
std::string cacheDirectoryBeside(const std::string& listPath);

/// Where the cache has the content of a submaster, whether or not there is such a file; empty when
/// there is no top library definition list.
std::string cachedSubmasterPath(const oa::oaDesign& submaster);

/// Fills a submaster from its file in the cache. Without such a file nothing happens, and the
/// answer is false. What the database throws over a file that it cannot read passes through.
bool readCachedSubmaster(oa::oaDesign& submaster);

} // namespace ovalis

#pragma once

#include "oa/oaArray.h"

namespace OpenAccess_4 {

class oaTech;
class oaTechHeader;

/// A row of open technologies.
class oaTechArray : public oaArray<oaTech*> {
public:
    explicit oaTechArray(oaUInt4 size = 0) : oaArray(size) {}
};

/// A row of references.
class oaTechHeaderArray : public oaArray<oaTechHeader*> {
public:
    explicit oaTechHeaderArray(oaUInt4 size = 0) : oaArray(size) {}
};

} // namespace OpenAccess_4

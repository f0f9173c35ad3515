#pragma once

#include "oaArray.h"
#include "oaBaseEnums.h"
#include "oaType.h"

namespace OpenAccess_4 {

/// A row of kinds of objects.
class oaTypeArray : public oaArray<oaType> {
public:
    explicit oaTypeArray(oaUInt4 size = 0) : oaArray(size) {}
};

/// A row of kinds of databases.
class oaDBTypeArray : public oaArray<oaDBTypeEnum> {
public:
    explicit oaDBTypeArray(oaUInt4 size = 0) : oaArray(size) {}
};

} // namespace OpenAccess_4

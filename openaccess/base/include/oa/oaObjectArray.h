#pragma once

#include "oaArray.h"

namespace OpenAccess_4 {

class oaObject;

/// A row of objects of any kind.
class oaObjectArray : public oaArray<oaObject*> {
public:
    explicit oaObjectArray(oaUInt4 size = 0) : oaArray(size) {}
};

} // namespace OpenAccess_4

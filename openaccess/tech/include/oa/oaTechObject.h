#pragma once

#include "oa/oaObject.h"

namespace OpenAccess_4 {

class oaTech;

/// Base of everything that a technology holds.
class OA_API oaTechObject : public oaObject {
public:
    /// The technology that holds the object.
    oaTech* getTech() const;

    oaBoolean isLayer() const;
    oaBoolean isSiteDef() const;
    oaBoolean isViaDef() const;

    OA_HANDLE(oaTechObject);
};

} // namespace OpenAccess_4

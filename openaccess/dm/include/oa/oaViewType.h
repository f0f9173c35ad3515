#pragma once

#include "oaDMEnums.h"
#include "oaSession.h"
#include "oaString.h"

namespace OpenAccess_4 {

/// What kind of content the cell views of a view have. View types belong to the session and stay.
class OA_API oaViewType : public oaSessionObject {
public:
    /// Defines a view type. @throws oaDMError  oacViewTypeExists, oacInvalidDMName
    static oaViewType* create(const oaString& name);

    /// The view type of that name, reserved or not; null when there is none.
    static oaViewType* find(const oaString& name);

    static oaViewType* get(oaReservedViewType type);

    /// The reserved view types in the order of their enumeration, then the others.
    static oaCollection<oaViewType, oaSession> getViewTypes();

    void getName(oaString& name) const;

    OA_HANDLE(oaViewType);
};

} // namespace OpenAccess_4

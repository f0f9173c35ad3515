#pragma once

#include "oa/oaObject.h"

namespace OpenAccess_4 {

/// The process as the database sees it: what is defined once for all open databases.
class OA_API oaSession : public oaObject {
public:
    static oaSession* get();

    oaCollection<oaAppDef, oaSession> getAppDefs() const;

    OA_HANDLE(oaSession);
};

/// Base of what belongs to the session and not to a database.
class OA_API oaSessionObject : public oaObject {
public:
    oaSession* getSession() const;

    OA_HANDLE(oaSessionObject);
};

} // namespace OpenAccess_4

#pragma once

#include "oa/oaObject.h"

namespace OpenAccess_4 {

class oaDerivedLayerDef;
class oaDerivedLayerParamDef;
class oaGroupDef;
class oaSession;

/// Base of what belongs to the session and not to a database.
class OA_API oaSessionObject : public oaObject {
public:
    oaSession* getSession() const;

    OA_HANDLE(oaSessionObject);
};

/// The process as the database sees it: what is defined once for all open databases.
class OA_API oaSession : public oaSessionObject {
public:
    static oaSession* get();

    oaCollection<oaAppDef, oaSession> getAppDefs() const;
    oaCollection<oaDerivedLayerDef, oaSession> getDerivedLayerDefs() const;
    oaCollection<oaDerivedLayerParamDef, oaSession> getDerivedLayerParamDefs() const;
    oaCollection<oaGroupDef, oaSession> getGroupDefs() const;

    OA_HANDLE(oaSession);
};

} // namespace OpenAccess_4

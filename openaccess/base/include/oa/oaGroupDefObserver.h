#pragma once

#include "oa/oaGroupDef.h"
#include "oa/oaObserver.h"

namespace OpenAccess_4 {

/// Is told when group definitions come and go, and when a database disagrees with the session about
/// one.
template <>
class OA_API oaVersionedObserver<oaGroupDef, 0> : public oaBaseObserver {
public:
    explicit oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn = true);
    ~oaVersionedObserver() override;

    virtual void onPostCreate(oaGroupDef* def);
    virtual void onPreDestroy(oaGroupDef* def);

    /// A database was read whose groups follow a definition of that name that has other rules than
    /// the session's; `type` is the type of the database's one. Its groups stay what they are.
    virtual void onConflict(const oaString& name, oaType type);

    static oaBoolean hasObservers();
    static void notifyPostCreateObservers(oaGroupDef* def);
    static void notifyPreDestroyObservers(oaGroupDef* def);
    static void notifyOnConflictObservers(const oaString& name, oaType type);
};

} // namespace OpenAccess_4

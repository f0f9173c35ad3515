#pragma once

#include "oa/oaAppDef.h"
#include "oa/oaObserver.h"

namespace OpenAccess_4 {

/// Is told when application-defined values change, and when a database disagrees with the session
/// about one.
template <>
class OA_API oaVersionedObserver<oaAppDef, 0> : public oaBaseObserver {
public:
    explicit oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn = true);
    ~oaVersionedObserver() override;

    /// The value of an object is about to be set or taken away.
    virtual void onPreModify(oaObject* object, oaAppDef* appDef);
    virtual void onPostModify(oaObject* object, oaAppDef* appDef);

    /// A database was read that keeps the value `name` of some class of objects as `type` (the type
    /// of its definition), which the session does not: it has another kind of value under that
    /// name, or one that does not persist. The values in the database stay what they are.
    virtual void onConflict(const oaString& name, oaType type);

    static oaBoolean hasObservers();
    static void notifyPreModifyObservers(oaObject* object, oaAppDef* appDef);
    static void notifyPostModifyObservers(oaObject* object, oaAppDef* appDef);
    static void notifyOnConflictObservers(const oaString& name, oaType type);
};

} // namespace OpenAccess_4

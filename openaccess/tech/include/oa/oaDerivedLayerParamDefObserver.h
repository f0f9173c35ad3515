#pragma once

#include "oa/oaDerivedLayerParamDef.h"
#include "oa/oaObserver.h"

namespace OpenAccess_4 {

/// Is told when definitions of parameters of derived layers come and go, and when a technology
/// disagrees with the session about one.
template <>
class OA_API oaVersionedObserver<oaDerivedLayerParamDef, 0> : public oaBaseObserver {
public:
    explicit oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn = true);
    ~oaVersionedObserver() override;

    virtual void onPostCreate(oaDerivedLayerParamDef* def);
    virtual void onPreDestroy(oaDerivedLayerParamDef* def);

    /// A technology was read whose parameters of that name have values of `valueType`, and the
    /// session's of another one. Its parameters stay what they are.
    virtual void onConflict(const oaString& name, oaType valueType);

    static oaBoolean hasObservers();
    static void notifyPostCreateObservers(oaDerivedLayerParamDef* def);
    static void notifyPreDestroyObservers(oaDerivedLayerParamDef* def);
    static void notifyOnConflictObservers(const oaString& name, oaType valueType);
};

} // namespace OpenAccess_4

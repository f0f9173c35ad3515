#pragma once

#include "oa/oaDerivedLayerDef.h"
#include "oa/oaObserver.h"

namespace OpenAccess_4 {

/// Is told when derived layer definitions come and go, and when a technology disagrees with the
/// session about one.
template <>
class OA_API oaVersionedObserver<oaDerivedLayerDef, 0> : public oaBaseObserver {
public:
    explicit oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn = true);
    ~oaVersionedObserver() override;

    virtual void onPostCreate(oaDerivedLayerDef* def);
    virtual void onPreDestroy(oaDerivedLayerDef* def);

    /// A technology was read whose layers follow from another number of layers by the definition of
    /// that name than the session's takes. Its layers stay what they are.
    virtual void onConflict(const oaString& name);

    static oaBoolean hasObservers();
    static void notifyPostCreateObservers(oaDerivedLayerDef* def);
    static void notifyPreDestroyObservers(oaDerivedLayerDef* def);
    static void notifyOnConflictObservers(const oaString& name);
};

} // namespace OpenAccess_4

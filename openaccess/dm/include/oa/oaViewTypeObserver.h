#pragma once

#include "oaObserver.h"
#include "oaViewType.h"

namespace OpenAccess_4 {

/// Is told when a view type comes to be: made by a call or met in a library. The reserved ones
/// always are there.
template <>
class OA_API oaVersionedObserver<oaViewType, 0> : public oaBaseObserver {
public:
    explicit oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn = true);
    ~oaVersionedObserver() override;

    virtual void onPostCreate(oaViewType* viewType);

    static oaBoolean hasObservers();
    static void notifyPostCreateObservers(oaViewType* viewType);
};

} // namespace OpenAccess_4

#pragma once

#include "oaLib.h"
#include "oaObserver.h"

namespace OpenAccess_4 {

/// Is told when libraries are made, opened, changed and closed, by whatever call.
template <>
class OA_API oaVersionedObserver<oaLib, 0> : public oaBaseObserver {
public:
    explicit oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn = true);
    ~oaVersionedObserver() override;

    virtual void onPostCreate(oaLib* lib);
    virtual void onPostOpen(oaLib* lib);
    /// While the library and everything in it is valid.
    virtual void onPreClose(oaLib* lib);
    virtual void onPreModify(oaLib* lib, oaDMLibModTypeEnum modType);
    virtual void onPostModify(oaLib* lib, oaDMLibModTypeEnum modType);

    static oaBoolean hasObservers();
    static void notifyPostCreateObservers(oaLib* lib);
    static void notifyPostOpenObservers(oaLib* lib);
    static void notifyPreCloseObservers(oaLib* lib);
    static void notifyPreModifyObservers(oaLib* lib, oaDMLibModTypeEnum modType);
    static void notifyPostModifyObservers(oaLib* lib, oaDMLibModTypeEnum modType);
};

} // namespace OpenAccess_4

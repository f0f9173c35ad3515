#pragma once

#include "oaDMData.h"
#include "oaObserver.h"

namespace OpenAccess_4 {

/// Is told what happens to the data of libraries, cells, views and cell views.
template <>
class OA_API oaVersionedObserver<oaDMData, 0> : public oaBaseObserver {
public:
    explicit oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn = true);
    ~oaVersionedObserver() override;

    /// Data that were not open are open now.
    virtual void onFirstOpen(oaDMData* dmData);
    /// While the data are still valid.
    virtual void onPurge(oaDMData* dmData);
    virtual void onPreReopen(oaDMData* dmData, oaChar newMode);
    virtual void onPostReopen(oaDMData* dmData, oaChar oldMode);
    /// Mode 'w' has emptied the data.
    virtual void onTruncate(oaDMData* dmData);
    virtual void onPreSave(oaDMData* dmData);
    virtual void onPostSave(oaDMData* dmData, oaBoolean succeeded);

    static oaBoolean hasObservers();
    static void notifyFirstOpenObservers(oaDMData* dmData);
    static void notifyPurgeObservers(oaDMData* dmData);
    static void notifyPreReopenObservers(oaDMData* dmData, oaChar newMode);
    static void notifyPostReopenObservers(oaDMData* dmData, oaChar oldMode);
    static void notifyTruncateObservers(oaDMData* dmData);
    static void notifyPreSaveObservers(oaDMData* dmData);
    static void notifyPostSaveObservers(oaDMData* dmData, oaBoolean succeeded);
};

} // namespace OpenAccess_4

#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaObserver.h"

namespace OpenAccess_4 {

class oaDesign;
class oaScalarName;

/// Is told what happens to designs as a whole.
template <>
class OA_API oaVersionedObserver<oaDesign, 0> : public oaBaseObserver {
public:
    explicit oaVersionedObserver(oaUInt4 priority, oaBoolean enabled = true);
    ~oaVersionedObserver() override;

    /// The design was opened, not being open before. Submasters are made, not opened.
    virtual void onFirstOpen(oaDesign* design);
    /// The design, or submaster, is about to leave the memory.
    virtual void onPurge(oaDesign* design);
    /// The mode is about to change, by reopen() or by opening once more for editing.
    virtual void onPreReopen(oaDesign* design, oaChar newMode);
    virtual void onPostReopen(oaDesign* design, oaChar oldMode);
    /// The design had a content and was emptied by mode 'w'.
    virtual void onTruncate(oaDesign* design);
    virtual void onPreSave(oaDesign* design);
    virtual void onPostSave(oaDesign* design, oaBoolean succeeded);
    virtual void onPreSaveAs(oaDesign* design, const oaScalarName& libName,
                             const oaScalarName& cellName, const oaScalarName& viewName);
    virtual void onPostSaveAs(oaDesign* design, const oaScalarName& libName,
                              const oaScalarName& cellName, const oaScalarName& viewName,
                              oaBoolean succeeded);
    virtual void onPreModify(oaDesign* design, oaDesignModTypeEnum modType);
    virtual void onPostModify(oaDesign* design, oaDesignModTypeEnum modType);

    static oaBoolean hasObservers();
    static void notifyFirstOpenObservers(oaDesign* design);
    static void notifyPurgeObservers(oaDesign* design);
    static void notifyPreReopenObservers(oaDesign* design, oaChar newMode);
    static void notifyPostReopenObservers(oaDesign* design, oaChar oldMode);
    static void notifyTruncateObservers(oaDesign* design);
    static void notifyPreSaveObservers(oaDesign* design);
    static void notifyPostSaveObservers(oaDesign* design, oaBoolean succeeded);
    static void notifyPreSaveAsObservers(oaDesign* design, const oaScalarName& libName,
                                         const oaScalarName& cellName,
                                         const oaScalarName& viewName);
    static void notifyPostSaveAsObservers(oaDesign* design, const oaScalarName& libName,
                                          const oaScalarName& cellName,
                                          const oaScalarName& viewName, oaBoolean succeeded);
    static void notifyPreModifyObservers(oaDesign* design, oaDesignModTypeEnum modType);
    static void notifyPostModifyObservers(oaDesign* design, oaDesignModTypeEnum modType);
};

} // namespace OpenAccess_4

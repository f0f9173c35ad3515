#pragma once

#include "oa/oaLayer.h"
#include "oa/oaObjectArray.h"
#include "oa/oaObserver.h"
#include "oa/oaPhysicalLayer.h"
#include "oa/oaTech.h"
#include "oa/oaTechArray.h"

namespace OpenAccess_4 {

/// Is told what happens to technologies as a whole, and which conflicts there are between a
/// technology and those that it refers to.
///
/// Conflicts are told of when a technology is opened or read again, when its references are set,
/// when validate() looks for them, and when a change makes one. A conflict is told of with the
/// technology nearest to those in conflict that sees all of them, and not again with one that
/// refers to that.
template <>
class OA_API oaVersionedObserver<oaTech, 2> : public oaBaseObserver {
public:
    explicit oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn = true);
    ~oaVersionedObserver() override;

    /// A technology was made; it is empty.
    virtual void onCreate(oaTech* tech);
    /// The technology was opened, not being open before, and those that it refers to with it.
    virtual void onFirstOpen(oaTech* tech);
    /// The technology is about to leave the memory.
    virtual void onPurge(oaTech* tech);
    /// The mode is about to change, by reopen() or by opening once more for editing.
    virtual void onPreReopen(oaTech* tech, oaChar newMode);
    virtual void onPostReopen(oaTech* tech, oaChar oldMode);
    /// The technology had a content and was emptied by mode 'w'.
    virtual void onTruncate(oaTech* tech);
    virtual void onPreSave(oaTech* tech);
    virtual void onPostSave(oaTech* tech, oaBoolean succeeded);
    virtual void onPreSaveAs(oaTech* tech);
    virtual void onPostSaveAs(oaTech* tech, oaBoolean succeeded);
    /// A setting of the technology is about to change. Its layers and other objects are none.
    virtual void onPreModify(oaTech* tech, oaTechModTypeEnum modType);
    virtual void onPostModify(oaTech* tech, oaTechModTypeEnum modType);
    /// The library is about to take the technology of another one for its own.
    virtual void onPreAttach(oaLib* lib, const oaScalarName& attachLibName);
    virtual void onPostAttach(oaLib* lib, const oaScalarName& attachLibName);
    virtual void onPreDetach(oaLib* lib);
    virtual void onPostDetach(oaLib* lib);
    /// The technology was read, and one that it refers to cannot be opened: its library is not
    /// open, or holds none that can be read.
    virtual void onUnboundRef(oaTech* tech, oaTechHeader* header);
    /// The technologies that one refers to are about to be opened. Not told of one that refers to
    /// none.
    virtual void onPreOpenRefs(oaTech* tech);
    virtual void onPostOpenRefs(oaTech* tech);
    /// Technologies that `mostDerivedTech` sees over its references, itself included, hold objects
    /// that cannot stand side by side.
    virtual void onConflict(oaTech* mostDerivedTech, oaTechConflictTypeEnum conflictType,
                            oaObjectArray conflictingObjs);
    /// The technologies, which one of them sees over its references, say otherwise each.
    virtual void onClearanceMeasureConflict(oaTechArray conflictingTechs);
    virtual void onDefaultManufacturingGridConflict(oaTechArray conflictingTechs);
    virtual void onGateGroundedConflict(oaTechArray conflictingTechs);
    virtual void onDBUPerUUConflict(oaTechArray conflictingTechs, oaViewType* viewType);
    virtual void onUserUnitsConflict(oaTechArray conflictingTechs, oaViewType* viewType);
    virtual void onProcessFamilyConflict(const oaTechArray& conflictingTechs);
    /// `mostDerivedTech` sees a layer and another one that must not be with it.
    virtual void onExcludedLayerConflict(oaTech* mostDerivedTech,
                                         const oaPhysicalLayer* excludingLayer,
                                         const oaLayer* excludedLayer);

    static oaBoolean hasObservers();
    static void notifyCreateObservers(oaTech* tech);
    static void notifyFirstOpenObservers(oaTech* tech);
    static void notifyPurgeObservers(oaTech* tech);
    static void notifyPreReopenObservers(oaTech* tech, oaChar newMode);
    static void notifyPostReopenObservers(oaTech* tech, oaChar oldMode);
    static void notifyTruncateObservers(oaTech* tech);
    static void notifyPreSaveObservers(oaTech* tech);
    static void notifyPostSaveObservers(oaTech* tech, oaBoolean succeeded);
    static void notifyPreSaveAsObservers(oaTech* tech);
    static void notifyPostSaveAsObservers(oaTech* tech, oaBoolean succeeded);
    static void notifyPreModifyObservers(oaTech* tech, oaTechModTypeEnum modType);
    static void notifyPostModifyObservers(oaTech* tech, oaTechModTypeEnum modType);
    static void notifyPreAttachObservers(oaLib* lib, const oaScalarName& attachLibName);
    static void notifyPostAttachObservers(oaLib* lib, const oaScalarName& attachLibName);
    static void notifyPreDetachObservers(oaLib* lib);
    static void notifyPostDetachObservers(oaLib* lib);
    static void notifyUnboundRefObservers(oaTech* tech, oaTechHeader* header);
    static void notifyPreOpenRefsObservers(oaTech* tech);
    static void notifyPostOpenRefsObservers(oaTech* tech);
    static void notifyConflictObservers(oaTech* mostDerivedTech,
                                        oaTechConflictTypeEnum conflictType,
                                        const oaObjectArray& conflictingObjs);
    static void notifyClearanceMeasureConflictObservers(const oaTechArray& conflictingTechs);
    static void
    notifyDefaultManufacturingGridConflictObservers(const oaTechArray& conflictingTechs);
    static void notifyGateGroundedConflictObservers(const oaTechArray& conflictingTechs);
    static void notifyDBUPerUUConflictObservers(const oaTechArray& conflictingTechs,
                                                oaViewType* viewType);
    static void notifyUserUnitsConflictObservers(const oaTechArray& conflictingTechs,
                                                 oaViewType* viewType);
    static void notifyProcessFamilyConflictObservers(const oaTechArray& conflictingTechs);
    static void notifyExcludedLayerConflictObservers(oaTech* mostDerivedTech,
                                                     const oaPhysicalLayer* excludingLayer,
                                                     const oaLayer* excludedLayer);
};

} // namespace OpenAccess_4

#pragma once

#include <memory>
#include <vector>

#include <ovalis/diagnostics.h>

namespace ovalis {

/// The observers that a collector owns: one for each origin that is active when they are made.
class MessageObservers {
public:
    explicit MessageObservers(msgCollector& collector);

private:
    template <class Observer>
    void add(msgCollector::OriginType origin, msgCollector& collector);

    std::vector<std::unique_ptr<oa::oaBaseObserver>> all_;
};

/// Records pcells that could not be evaluated.
class msgPcellObserver : public oa::oaPcellObserver {
public:
    explicit msgPcellObserver(msgCollector& collector);

    void onError(oa::oaDesign* design, const oa::oaString& msg,
                 oa::oaPcellErrorTypeEnum errorType) override;

private:
    msgCollector& collector_;
};

/// Records what is wrong in library definition files.
class msgLibDefListObserver : public oa::oaVersionedObserver<oa::oaLibDefList, 1> {
public:
    explicit msgLibDefListObserver(msgCollector& collector);

    oa::oaBoolean onLoadWarnings(oa::oaLibDefList* list, const oa::oaString& msg,
                                 oa::oaLibDefListWarningTypeEnum type) override;

private:
    msgCollector& collector_;
};

/// Records group definitions that a database has otherwise than the session.
class msgGroupDefObserver : public oa::oaVersionedObserver<oa::oaGroupDef, 0> {
public:
    explicit msgGroupDefObserver(msgCollector& collector);

    void onConflict(const oa::oaString& name, oa::oaType type) override;

private:
    msgCollector& collector_;
};

/// Records application-defined values that a database has otherwise than the session.
class msgAppDefObserver : public oa::oaVersionedObserver<oa::oaAppDef, 0> {
public:
    explicit msgAppDefObserver(msgCollector& collector);

    void onConflict(const oa::oaString& name, oa::oaType type) override;

private:
    msgCollector& collector_;
};

/// Records derived layer definitions that a technology has otherwise than the session.
class msgDerivedLayerDefObserver : public oa::oaVersionedObserver<oa::oaDerivedLayerDef, 0> {
public:
    explicit msgDerivedLayerDefObserver(msgCollector& collector);

    void onConflict(const oa::oaString& name) override;

private:
    msgCollector& collector_;
};

/// Records parameters of derived layers that a technology has otherwise than the session.
class msgDerivedLayerParamDefObserver
    : public oa::oaVersionedObserver<oa::oaDerivedLayerParamDef, 0> {
public:
    explicit msgDerivedLayerParamDefObserver(msgCollector& collector);

    void onConflict(const oa::oaString& name, oa::oaType valueType) override;

private:
    msgCollector& collector_;
};

/// Records technologies that contradict one another.
class msgTechObserver : public oa::oaVersionedObserver<oa::oaTech, 2> {
public:
    explicit msgTechObserver(msgCollector& collector);

    void onConflict(oa::oaTech* mostDerivedTech, oa::oaTechConflictTypeEnum conflictType,
                    oa::oaObjectArray conflictingObjs) override;
    void onProcessFamilyConflict(const oa::oaTechArray& conflictingTechs) override;
    void onExcludedLayerConflict(oa::oaTech* mostDerivedTech,
                                 const oa::oaPhysicalLayer* excludingLayer,
                                 const oa::oaLayer* excludedLayer) override;

private:
    msgCollector& collector_;
};

} // namespace ovalis

#pragma once

#include <oa/oaCommonPlugInBase.h>
#include <oa/oaCommonPlugInBase.inl>
#include <oa/oaDesignDB.h>
#include <oa/oaDesignInterfaces.h>

namespace spiral {

/// The evaluator "spiral": draws a spiral inductor from the parameters of its submaster.
///
/// - Everything it needs is in the parameters, so that it stores nothing with a super master.
/// - Parameters that make no spiral are refused with an `oaCommon::IException` before anything is
///   drawn; the submaster has no contents then.
class SpiralPcell : public oaCommon::PlugInBase<oa::IPcell> {
public:
    oa::oaPcellDef* getPcellDef() override;
    void getName(oa::oaString& name) override;
    void onBind(oa::oaDesign* design, oa::oaPcellDef* def) override;
    void onUnbind(oa::oaDesign* design, oa::oaPcellDef* def) override;
    void onEval(oa::oaDesign* design, oa::oaPcellDef* def) override;
    void onRead(oa::oaDesign* design, oa::oaMapFileWindow& window, oa::oaUInt4& loc,
                oa::oaPcellDef* def) override;
    void onWrite(oa::oaDesign* design, oa::oaMapFileWindow& window, oa::oaUInt4& loc,
                 oa::oaPcellDef* def) override;
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef* def) const override;
};

} // namespace spiral

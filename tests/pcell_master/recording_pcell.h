#pragma once

#include <oa/oaDesignDB.h>

#include <string>
#include <vector>

namespace ovalis::test {

/// An evaluator without definition data that notes the calls it gets.
class RecordingPcell : public oaCommon::PlugInBase<oa::IPcell> {
public:
    explicit RecordingPcell(std::string name = "recording") : name_(std::move(name)) {}
    ~RecordingPcell() override { ++destroyed(); }

    oa::oaPcellDef* getPcellDef() override {
        note("getPcellDef");
        return new oa::oaPcellDef(this); // deleted by onUnbind()
    }
    void getName(oa::oaString& name) override {
        note("getName");
        name = name_.c_str();
    }
    void onBind(oa::oaDesign*, oa::oaPcellDef*) override { note("onBind"); }
    void onUnbind(oa::oaDesign*, oa::oaPcellDef* def) override {
        note("onUnbind");
        delete def;
    }
    void onEval(oa::oaDesign*, oa::oaPcellDef*) override { note("onEval"); }
    void onRead(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) override {
        note("onRead");
    }
    void onWrite(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) override {
        note("onWrite");
    }
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef*) const override {
        note("calcDiskSize");
        return 0;
    }

    /// The calls since the last time this was asked.
    std::vector<std::string> takeCalls() { return std::exchange(calls_, {}); }

    /// How many evaluators of this class are gone.
    static int& destroyed() {
        static int count = 0;
        return count;
    }

protected:
    void note(const std::string& call) const { calls_.push_back(call); }

private:
    std::string name_;
    mutable std::vector<std::string> calls_;
};

} // namespace ovalis::test

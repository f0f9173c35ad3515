#pragma once

#include <oa/oaDesignDB.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace ovalis::test {

/// An evaluator that notes the calls it gets. Its definition data is the text "note": its length,
/// then its bytes.
class RecordingPcell : public oaCommon::PlugInBase<oa::IPcell> {
public:
    explicit RecordingPcell(std::string name = "recording") : name_(std::move(name)) {}
    ~RecordingPcell() override { ++destroyed(); }

    oa::oaPcellDef* getPcellDef() override {
        call("getPcellDef");
        ++definitions;
        return new oa::oaPcellDef(this); // deleted by onUnbind()
    }
    void getName(oa::oaString& name) override {
        call("getName");
        name = name_.c_str();
    }
    void onBind(oa::oaDesign* design, oa::oaPcellDef*) override { call("onBind", design); }
    void onUnbind(oa::oaDesign* design, oa::oaPcellDef* def) override {
        delete def;
        --definitions;
        call("onUnbind", design);
    }
    void onEval(oa::oaDesign* design, oa::oaPcellDef*) override { call("onEval", design); }
    void onRead(oa::oaDesign* design, oa::oaMapFileWindow& window, oa::oaUInt4& loc,
                oa::oaPcellDef* def) override {
        oa::oaUInt4 length = 0;
        window.data().readUInt4(loc, length);
        std::string text(length, '\0');
        window.data().readBytes(loc, length, reinterpret_cast<oa::oaByte*>(text.data()));
        def->addData("note", text.c_str());
        dataRead.resize(window.getSize());
        oa::oaUInt4 start = 0;
        window.data().readBytes(start, window.getSize(),
                                reinterpret_cast<oa::oaByte*>(dataRead.data()));
        call("onRead", design);
    }
    void onWrite(oa::oaDesign* design, oa::oaMapFileWindow& window, oa::oaUInt4& loc,
                 oa::oaPcellDef* def) override {
        call("onWrite", design);
        const std::string text = noteOf(def) + tail;
        window.data().writeUInt4(loc, oa::oaUInt4(text.size()));
        window.data().writeBytes(loc, oa::oaUInt4(text.size()),
                                 reinterpret_cast<const oa::oaByte*>(text.data()));
    }
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef* def) const override {
        call("calcDiskSize");
        return oa::oaUInt4(4 + noteOf(def).size()) + room;
    }

    static std::string noteOf(oa::oaPcellDef* def) {
        oa::oaString text;
        def->getDataValue("note", text);
        return std::string(text);
    }

    /// The calls since the last time this was asked.
    std::vector<std::string> takeCalls() { return std::exchange(calls_, {}); }

    /// How many evaluators of this class are gone.
    static int& destroyed() {
        static int count = 0;
        return count;
    }

    int definitions = 0;   // that were handed out and not handed back
    std::string failingIn; // the call that throws
    std::string tail;      // what onWrite writes behind the note
    oa::oaUInt4 room = 0;  // that is announced for it
    std::string dataRead;  // the definition data that came last

private:
    void call(const std::string& name) const {
        calls_.push_back(name);
        if (name == failingIn)
            throw oa::oaDesignError(oa::oacPcellSubMasterNotProduced);
    }
    void call(const std::string& name, oa::oaDesign* design) const {
        oa::oaString cell("-");
        if (design)
            design->getCellName(oa::oaNativeNS(), cell);
        calls_.push_back(name + " " + std::string(cell));
        if (name == failingIn)
            throw oa::oaDesignError(oa::oacPcellSubMasterNotProduced);
    }

    std::string name_;
    mutable std::vector<std::string> calls_;
};

} // namespace ovalis::test

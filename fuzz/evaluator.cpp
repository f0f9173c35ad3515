#include "evaluator.h"

#include "oa/oaDesignDB.h"

#include <vector>

namespace oa = OpenAccess_4;

namespace fuzz {

namespace {

class NotePcell final : public oaCommon::PlugInBase<oa::IPcell> {
public:
    oa::oaPcellDef* getPcellDef() override { return new oa::oaPcellDef(this); }
    void getName(oa::oaString& name) override { name = "note"; }
    void onBind(oa::oaDesign*, oa::oaPcellDef*) override {}
    void onUnbind(oa::oaDesign*, oa::oaPcellDef* def) override { delete def; }
    void onEval(oa::oaDesign* design, oa::oaPcellDef*) override { oa::oaBlock::create(design); }

    void onRead(oa::oaDesign*, oa::oaMapFileWindow& window, oa::oaUInt4& loc,
                oa::oaPcellDef* def) override {
        std::vector<oa::oaByte> bytes(window.getSize() - loc);
        window.data().readBytes(loc, oa::oaUInt4(bytes.size()), bytes.data());
        def->addData("note", oa::oaString(reinterpret_cast<const oa::oaChar*>(bytes.data()),
                                          oa::oaUInt4(bytes.size())));
    }
    void onWrite(oa::oaDesign*, oa::oaMapFileWindow& window, oa::oaUInt4& loc,
                 oa::oaPcellDef* def) override {
        const oa::oaString note = noteOf(def);
        window.data().writeBytes(
            loc, note.getLength(),
            reinterpret_cast<const oa::oaByte*>(static_cast<const oa::oaChar*>(note)));
    }
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef* def) const override { return noteOf(def).getLength(); }

private:
    static oa::oaString noteOf(oa::oaPcellDef* def) {
        oa::oaString note;
        def->getDataValue("note", note);
        return note;
    }
};

} // namespace

void makeEvaluator() {
    if (!oa::oaPcellLink::find("note"))
        oa::oaPcellLink::create(new NotePcell);
}

} // namespace fuzz

// The instances of a design.

#include "core/statics.h"
#include "xml/describe.h"

namespace ovalis {

namespace {

template <class Value>
void describeLine(XmlText& text, const char* prefix, const Value& value) {
    text.put(prefix);
    text.put(value);
    text.put("\n");
}

void describeBlock(XmlText& text, const oa::oaBlock* block) {
    if (block == nullptr) { // the master is missing, empty or a pcell that failed
        text.put("scalar instance block bbox = none\nscalar instance block # shapes = none\n");
        return;
    }
    oa::oaBox box;
    block->getBBox(box);
    text.put("scalar instance block bbox = ");
    describe(text, box);
    describeLine(text, "scalar instance block # shapes = ", block->getShapes().getCount());
}

void describeScalar(XmlText& text, const oa::oaInst& inst) {
    oa::oaPoint origin;
    inst.getOrigin(origin);
    text.put("type inst\n");
    describeLine(text, "scalar instance origin = ", origin);
    describeLine(text, "scalar instance orient = ", inst.getOrient().getName());
    const oa::oaDesign* master = inst.getMaster();
    describeBlock(text, master == nullptr ? nullptr : master->getTopBlock());
}

/// Describes each instance of an occurrence.
class xmlOaOccTraverser : public oa::oaOccTraverser {
public:
    xmlOaOccTraverser(oa::oaOccurrence* top, XmlText& text)
        : oa::oaOccTraverser(top), text_(text) {}

protected:
    void processInst(oa::oaOccInst* inst) override { describe(text_, *inst); }

private:
    XmlText& text_;
};

} // namespace

void describe(XmlText& text, const oa::oaOccInst& inst) {
    oa::oaString name;
    oa::oaString pathName;
    inst.getName(nativeNameSpace, name);
    inst.getPathName(nativeNameSpace, pathName);
    text.put("<processInst>\n");
    describeLine(text, "name = ", name);
    describeLine(text, "pathName = ", pathName);
    describeLine(text, "usesTermPositions = ", inst.usesTermPositions() != 0);
    describeLine(text, "type = ", inst.getType().getName());
    if (inst.getType() == oa::oacOccScalarInstType) {
        describeScalar(text, *inst.getInst());
    } else if (inst.isOccModuleInst()) {
        describeLine(text, "module inst domain ", inst.getDomain().getName());
    }
    text.put("</processInst>\n");
}

void describe(XmlText& text, const oa::oaOccurrence& occurrence) {
    text.put("<occurrence");
    text.attribute(" instances = \"", occurrence.getInsts().getCount());
    text.put(">\n");
    xmlOaOccTraverser(const_cast<oa::oaOccurrence*>(&occurrence), text).traverse();
    text.put("</occurrence>\n");
}

} // namespace ovalis

// The instances of a design.

#include "core/statics.h"
#include "xml/describe.h"

namespace ovalis {

namespace {

/// Describes each instance of an occurrence.
class xmlOaOccTraverser : public oa::oaOccTraverser {
public:
    xmlOaOccTraverser(oa::oaOccurrence* top, XmlText& text)
        : oa::oaOccTraverser(top), text_(text) {}

protected:
    void processInst(oa::oaOccInst* inst) override {
        oa::oaString name;
        oa::oaString pathName;
        inst->getName(nativeNameSpace, name);
        inst->getPathName(nativeNameSpace, pathName);
        text_.put("<processInst>\n");
        line("name = ", name);
        line("pathName = ", pathName);
        line("usesTermPositions = ", inst->usesTermPositions() != 0);
        line("type = ", inst->getType().getName());
        if (inst->getType() == oa::oacOccScalarInstType) {
            describeScalar(*inst->getInst());
        } else if (inst->isOccModuleInst()) {
            line("module inst domain ", inst->getDomain().getName());
        }
        text_.put("</processInst>\n");
    }

private:
    template <class Value>
    void line(const char* prefix, const Value& value) {
        text_.put(prefix);
        text_.put(value);
        text_.put("\n");
    }

    void describeScalar(const oa::oaInst& inst) {
        oa::oaPoint origin;
        inst.getOrigin(origin);
        text_.put("type inst\n");
        line("scalar instance origin = ", origin);
        line("scalar instance orient = ", inst.getOrient().getName());
        const oa::oaDesign* master = inst.getMaster();
        describeBlock(master == nullptr ? nullptr : master->getTopBlock());
    }

    void describeBlock(const oa::oaBlock* block) {
        if (block == nullptr) { // the master is missing, empty or a pcell that failed
            text_.put("scalar instance block bbox = none\nscalar instance block # shapes = none\n");
            return;
        }
        oa::oaBox box;
        block->getBBox(box);
        text_.put("scalar instance block bbox = ");
        describe(text_, box);
        line("scalar instance block # shapes = ", block->getShapes().getCount());
    }

    XmlText& text_;
};

} // namespace

void describe(XmlText& text, const oa::oaOccurrence& occurrence) {
    text.put("<occurrence");
    text.attribute(" instances = \"", occurrence.getInsts().getCount());
    text.put(">\n");
    xmlOaOccTraverser(const_cast<oa::oaOccurrence*>(&occurrence), text).traverse();
    text.put("</occurrence>\n");
}

} // namespace ovalis

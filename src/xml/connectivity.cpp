// Nets, terminals, pins and the connections of instances.

#include "core/statics.h"
#include "xml/describe.h"

namespace ovalis {

namespace {

/// The name of an object, empty when there is none.
template <class Object>
oa::oaString nameOf(const Object* object) {
    oa::oaString name;
    if (object != nullptr) {
        object->getName(nativeNameSpace, name);
    }
    return name;
}

void describe(XmlText& text, const oa::oaTerm& term) {
    const oa::oaTermType type = term.getTermType();
    text.put("<term ");
    text.lineAttribute("    name=\"", nameOf(&term));
    text.lineAttribute("    type=\"", type.getName());
    text.lineAttribute("    typeEnum=\"", static_cast<int>(oa::oaTermTypeEnum(type)));
    text.lineAttribute("    hasAppDef=\"", term.hasAppDef() != 0);
    text.lineAttribute("    hasAssociate=\"", term.hasAssociate() != 0);
    text.lineAttribute("    hasProp=\"", term.hasProp() != 0);
    text.lineAttribute("    numBits=\"", term.getNumBits());
    text.lineAttribute("    position=\"", term.getPosition());
    text.lineAttribute("    isImplicit=\"", term.isImplicit() != 0);
    text.lineAttribute("    isInterface=\"", term.isInterface() != 0);
    text.put(">\n</term>\n");
}

} // namespace

void describe(XmlText& text, const oa::oaNet& net) {
    text.put("<net ");
    text.lineAttribute("    name=\"", nameOf(&net));
    text.lineAttribute("    hasAppDef=\"", net.hasAppDef() != 0);
    text.lineAttribute("    hasAssociate=\"", net.hasAssociate() != 0);
    text.lineAttribute("    hasConstraintGroup=\"", net.hasConstraintGroup() != 0);
    text.lineAttribute("    hasDefaultConstraintGroup=\"", net.hasDefaultConstraintGroup() != 0);
    text.lineAttribute("    hasProp=\"", net.hasProp() != 0);
    text.put("/>\n");
}

void describe(XmlText& text, const oa::oaPin& pin) {
    oa::oaString name;
    pin.getName(name);
    const bool hasAppDef = pin.hasAppDef() != 0;
    text.put("<pin ");
    text.lineAttribute("    name=\"", name);
    text.lineAttribute("    type=\"", pin.getPinType().getName());
    text.lineAttribute("    hasAppDef=\"", hasAppDef);
    text.lineAttribute("    hasAssociate=\"", pin.hasAssociate() != 0);
    text.lineAttribute("    hasProp=\"", pin.hasProp() != 0);
    text.put(">\n");
    if (hasAppDef) {
        describeAppDefs(text, pin);
    }
    describe(text, *pin.getTerm());
    text.put("</pin>\n");
}

void describe(XmlText& text, const oa::oaInstTerm& instTerm) {
    if (!instTerm.isValid()) {
        text.put("<instTerm value=\"INVALID\"/>\n");
        return;
    }
    oa::oaString termName;
    instTerm.getTermName(nativeNameSpace, termName);
    text.put("<instTerm ");
    text.lineAttribute("    termName=\"", termName);
    text.lineAttribute("    termPosition=\"", instTerm.getTermPosition());
    text.lineAttribute("    usesTermPosition=\"", instTerm.usesTermPosition() != 0);
    text.lineAttribute("    numBits=\"", instTerm.getNumBits());
    text.lineAttribute("    isImplicit=\"", instTerm.isImplicit() != 0);
    text.lineAttribute("    getInst=\"", nameOf(instTerm.getInst()));
    text.lineAttribute("    getTerm=\"", nameOf(instTerm.getTerm()));
    text.lineAttribute("    getNet=\"", nameOf(instTerm.getNet()));
    text.put("/>\n</instTerm>\n");
}

} // namespace ovalis

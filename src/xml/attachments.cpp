// What applications attach to objects: values, properties, parameters.

#include "xml/describe.h"

namespace ovalis {

namespace {

void describe(XmlText& text, const oa::oaAppDef& def) {
    oa::oaString name;
    def.getName(name);
    text.put("<appDef ");
    text.lineAttribute("    name=\"", name);
    text.lineAttribute("    type=\"", def.getType().getName());
    text.lineAttribute("    isPersistent=\"", def.isPersistent() != 0);
    text.put("/>\n");
}

void describe(XmlText& text, const oa::oaProp& prop) {
    oa::oaString name;
    oa::oaString value;
    prop.getName(name);
    prop.getValue(value);
    text.put("<prop");
    text.lineAttribute("    name=\"", name);
    text.lineAttribute("    value=\"", value);
    text.put("/>\n");
}

oa::oaString nameOf(const oa::oaParam& param) {
    oa::oaString name;
    param.getName(name);
    return name;
}

void describeValue(XmlText& text, const oa::oaParam& param) {
    switch (param.getType()) {
    case oa::oacIntParamType:
        text.put("type=\"int\" value=\"");
        text.put(param.getIntVal());
        break;
    case oa::oacFloatParamType:
        text.put("type=\"float\" value=\"");
        text.put(param.getFloatVal());
        break;
    case oa::oacDoubleParamType:
        text.put("type=\"double\" value=\"");
        text.put(param.getDoubleVal());
        break;
    case oa::oacStringParamType:
        text.put("type=\"string\" value=\"");
        text.put(param.getStringVal());
        break;
    case oa::oacBooleanParamType:
        text.put("type=\"bool\" value=\"");
        text.put(param.getBooleanVal() != 0);
        break;
    case oa::oacTimeParamType:
        text.put("type=\"time\" value=\"");
        text.put(param.getTimeVal());
        break;
    default:
        text.put("type=\"other\" value=\"unknown");
    }
}

} // namespace

void describeAppDefs(XmlText& text, const oa::oaObject& object) {
    text.put("<appDefs>\n");
    oa::oaIter<oa::oaAppDef> defs(object.getAppDefs());
    while (const oa::oaAppDef* def = defs.getNext()) {
        describe(text, *def);
    }
    text.put("</appDefs>\n");
}

void describeProps(XmlText& text, const oa::oaObject& object) {
    text.put("<props>\n");
    oa::oaIter<oa::oaProp> props(object.getProps());
    while (const oa::oaProp* prop = props.getNext()) {
        describe(text, *prop);
    }
    text.put("</props>\n");
}

void describe(XmlText& text, const oa::oaParam& param) {
    text.put("<oaParam name = \"");
    text.put(nameOf(param));
    text.put("\" ");
    describeValue(text, param);
    text.put("\"/>\n");
}

} // namespace ovalis

// Technologies and their layers.

#include "xml/describe.h"

namespace ovalis {

namespace {

const char* typeOf(const oa::oaLayer& layer) {
    switch (layer.getType()) {
    case oa::oacPhysicalLayerType:
        return "    type=\"physical\"\n";
    case oa::oacDerivedLayerType:
        return "    type=\"derived\"\n";
    case oa::oacSizedLayerType:
        return "    type=\"sized\"\n";
    default:
        return "    type=\"unknown\"\n";
    }
}

void describe(XmlText& text, const oa::oaLayer& layer) {
    oa::oaString name;
    layer.getName(name);
    text.put("<layer");
    text.lineAttribute("    name=\"", name);
    text.lineAttribute("    number=\"", layer.getNumber());
    text.put("\n");
    text.put(typeOf(layer));
    text.attribute("    hasAppDef=\"", layer.hasAppDef() != 0);
    text.put("/>\n");
}

} // namespace

void describe(XmlText& text, const oa::oaTech& tech) {
    const oa::oaViewType* maskLayout = oa::oaViewType::get(oa::oacMaskLayout);
    text.put("<tech ");
    text.lineAttribute("      hasProp=\"", tech.hasProp() != 0);
    text.lineAttribute("      hasAppDef=\"", tech.hasAppDef() != 0);
    text.lineAttribute("      layers=\"", tech.getLayers().getCount());
    text.lineAttribute("      purposes=\"", tech.getPurposes().getCount());
    text.lineAttribute("      values=\"", tech.getValues().getCount());
    text.lineAttribute("      DBUperUU=\"", tech.getDBUPerUU(maskLayout));
    text.lineAttribute("      UserUnits=\"", tech.getUserUnits(maskLayout).getName());
    text.put(">\n");
    describeAppDefs(text, tech);
    describeProps(text, tech);
    text.put("<layers>\n");
    oa::oaIter<oa::oaLayer> layers(tech.getLayers());
    while (const oa::oaLayer* layer = layers.getNext()) {
        describe(text, *layer);
    }
    text.put("</layers>\n</tech>\n");
}

} // namespace ovalis

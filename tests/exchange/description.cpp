#include "description.h"

#include <ovalis/library.h>

#include "support/files.h"

#include <algorithm>
#include <sstream>
#include <vector>

namespace {

template <class Object>
std::string nameOf(const Object& object) {
    oa::oaString name;
    object.getName(oa::oaNativeNS(), name);
    return std::string(name);
}

std::string plainName(const auto& object) {
    oa::oaString name;
    object.getName(name);
    return std::string(name);
}

std::string box(const oa::oaFig* fig) {
    oa::oaBox extent;
    fig->getBBox(extent);
    std::ostringstream text;
    text << extent.left() << ' ' << extent.bottom() << ' ' << extent.right() << ' ' << extent.top();
    return text.str();
}

std::string points(const oa::oaPointArray& outline) {
    std::ostringstream text;
    for (oa::oaUInt4 i = 0; i < outline.getNumElements(); ++i)
        text << ' ' << outline[i].x() << ',' << outline[i].y();
    return text.str();
}

std::string content(oa::oaShape* shape) {
    oa::oaPointArray outline;
    if (auto* polygon = dynamic_cast<oa::oaPolygon*>(shape))
        polygon->getPoints(outline);
    if (auto* line = dynamic_cast<oa::oaLine*>(shape))
        line->getPoints(outline);
    if (auto* text = dynamic_cast<oa::oaText*>(shape)) {
        oa::oaString string;
        text->getText(string);
        return " '" + std::string(string) + "' " + std::string(text->getAlignment().getName()) +
               " " + std::to_string(text->getHeight());
    }
    return points(outline);
}

void describeProps(std::ostringstream& out, const oa::oaObject* object) {
    oa::oaIter<oa::oaProp> props(object->getProps());
    while (oa::oaProp* prop = props.getNext()) {
        oa::oaString value;
        prop->getValue(value);
        out << "    " << std::string(prop->getType().getName()) << ' ' << plainName(*prop) << " = "
            << std::string(value) << '\n';
    }
}

void describePins(std::ostringstream& out, const oa::oaTerm* term) {
    auto* angle = oa::oaDoubleAppDef<oa::oaPin>::get("vexPinAngle", 0.0, true);
    oa::oaIter<oa::oaPin> pins(term->getPins());
    while (oa::oaPin* pin = pins.getNext()) {
        out << "  pin " << plainName(*pin) << " angle " << angle->get(pin);
        oa::oaIter<oa::oaPinFig> figs(pin->getFigs());
        while (oa::oaPinFig* fig = figs.getNext())
            out << " on " << std::string(fig->getType().getName()) << ' ' << box(fig);
        out << '\n';
        describeProps(out, pin);
    }
}

void describeBlock(std::ostringstream& out, oa::oaBlock* block) {
    oa::oaIter<oa::oaTerm> terms(block->getTerms());
    while (oa::oaTerm* term = terms.getNext()) {
        out << " terminal " << nameOf(*term) << " at " << term->getPosition() << ' '
            << std::string(term->getTermType().getName()) << " interface " << term->isInterface()
            << " on net " << nameOf(*term->getNet()) << '\n';
        describeProps(out, term);
        describePins(out, term);
    }
    oa::oaIter<oa::oaShape> shapes(block->getShapes());
    while (oa::oaShape* shape = shapes.getNext())
        out << ' ' << std::string(shape->getType().getName()) << ' ' << shape->getLayerNum() << ':'
            << shape->getPurposeNum() << ' ' << box(shape) << content(shape) << '\n';
}

void describePcell(std::ostringstream& out, oa::oaDesign* design) {
    if (!design->isSuperMaster())
        return;
    oa::oaString text;
    design->getPcellEvaluatorName(text);
    out << " pcell " << std::string(text) << '\n';
    if (oa::oaPcellDef* def = design->getPcellDef())
        if (def->getDataValue("SKRMacroName", text))
            out << "  macro " << std::string(text) << '\n';
    oa::oaParamArray params;
    design->getParams(params);
    for (oa::oaUInt4 i = 0; i < params.getNumElements(); ++i) {
        out << "  " << std::string(params[i].getType().getName()) << ' ' << plainName(params[i])
            << " = ";
        if (params[i].getType() == oa::oacStringParamType)
            out << params[i].getStringVal();
        else if (params[i].getType() == oa::oacIntParamType)
            out << params[i].getIntVal();
        else
            out << params[i].getDoubleVal();
        out << '\n';
    }
}

void describeTech(std::ostringstream& out, oa::oaLib& lib) {
    oa::oaTech* tech = oa::oaTech::open(&lib, 'r');
    oa::oaViewType* layout = oa::oaViewType::get(oa::oacMaskLayout);
    out << "technology " << tech->getDBUPerUU(layout) << " per "
        << std::string(tech->getUserUnits(layout).getName()) << '\n';
    oa::oaIter<oa::oaLayer> layers(tech->getLayers());
    while (oa::oaLayer* layer = layers.getNext())
        out << " layer " << plainName(*layer) << ' ' << layer->getNumber() << '\n';
    tech->close();
}

} // namespace

std::string describeLibrary(const std::string& path) {
    std::ostringstream out;
    const ovalis::LibPtr lib = ovalis::openLib(path, false, "exchange");
    describeTech(out, *lib);
    auto names = ovalis::getCellViewNamesAndTypes(*lib);
    std::sort(names.begin(), names.end(), [](const auto& a, const auto& b) {
        return a.template get<0>() + a.template get<1>() <
               b.template get<0>() + b.template get<1>();
    });
    for (const auto& name : names) {
        out << "view " << name.get<0>() << ' ' << name.get<1>() << ' ' << name.get<2>() << '\n';
        oa::oaDesign* design = ovalis::openDesign(*lib, name.get<0>(), name.get<1>(), false);
        describePcell(out, design);
        describeBlock(out, design->getTopBlock());
        design->close();
        out << ovalis::test::readText(path + "/" + name.get<0>() + "/itemdef.skr");
    }
    return out.str();
}

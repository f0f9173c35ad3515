#include "via_library.h"

#include <oa/oaDesignDB.h>

#include <sstream>

namespace {

oa::oaScalarName nativeName(const char* text) {
    return oa::oaScalarName(oa::oaNativeNS(), text);
}

template <class Object>
std::string nameOf(const Object* object) {
    oa::oaString name;
    object->getName(name);
    return std::string(name);
}

std::string spelled(const oa::oaVector& vector) {
    return std::to_string(vector.x()) + "," + std::to_string(vector.y());
}

std::string spelled(const oa::oaBox& box) {
    if (box.isInverted())
        return "none";
    return std::to_string(box.left()) + " " + std::to_string(box.bottom()) + " " +
           std::to_string(box.right()) + " " + std::to_string(box.top());
}

/// The values of the parameters of a standard via, and which of them were not given.
std::string spelled(const oa::oaViaParam& params) {
    std::ostringstream out;
    out << "layer " << params.getCutLayer() << " cuts " << params.getCutColumns() << 'x'
        << params.getCutRows() << " of " << params.getCutWidth() << 'x' << params.getCutHeight()
        << " spacing " << spelled(params.getCutSpacing()) << " origin "
        << spelled(params.getOriginOffset()) << " enclosures " << spelled(params.getLayer1Enc())
        << ' ' << spelled(params.getLayer2Enc()) << ' ' << spelled(params.getImplant1Enc()) << ' '
        << spelled(params.getImplant2Enc()) << " offsets " << spelled(params.getLayer1Offset())
        << ' ' << spelled(params.getLayer2Offset()) << " pattern ";
    for (oa::oaUInt4 row = 0; row < params.getCutRows(); ++row)
        for (oa::oaUInt4 column = 0; column < params.getCutColumns(); ++column)
            out << params.getCutPatternVal(row, column);
    out << " defaults " << params.hasDefaultCutPattern();
    for (int type = 0; type <= oa::oacCutHeightViaParamType; ++type)
        out << params.hasDefault(oa::oaViaParamTypeEnum(type));
    return out.str();
}

std::string spelled(const oa::oaParam& param) {
    oa::oaString text;
    std::ostringstream out;
    param.getName(text);
    out << std::string(param.getType().getName()) << ' ' << std::string(text) << " = ";
    switch (param.getType()) {
    case oa::oacIntParamType:
        out << param.getIntVal();
        break;
    case oa::oacFloatParamType:
        out << param.getFloatVal();
        break;
    case oa::oacDoubleParamType:
        out << param.getDoubleVal();
        break;
    case oa::oacStringParamType:
        param.getStringVal(text);
        out << std::string(text);
        break;
    case oa::oacBooleanParamType:
        out << param.getBooleanVal();
        break;
    case oa::oacTimeParamType:
        out << param.getTimeVal();
        break;
    case oa::oacAppParamType: {
        std::string bytes(param.getNumBytes(), '\0');
        param.getAppVal(reinterpret_cast<oa::oaByte*>(bytes.data()));
        param.getAppType(text);
        out << std::string(text);
        for (const char byte : bytes)
            out << ' ' << int(static_cast<unsigned char>(byte));
        break;
    }
    }
    return out.str();
}

class Description {
public:
    std::string text() const { return out_.str(); }

    void add(const oa::oaViaDef* def) {
        out_ << std::string(def->getType().getName()) << ' ' << nameOf(def) << " layers "
             << def->getLayer1Num() << ' ' << def->getLayer2Num() << " resistance "
             << def->getResistancePerCut();
        if (const auto* standard = dynamic_cast<const oa::oaStdViaDef*>(def)) {
            oa::oaViaParam params;
            standard->getParams(params);
            out_ << " implants " << standard->getImplant1Num() << ' ' << standard->getImplant2Num()
                 << '\n'
                 << "  " << spelled(params);
        } else if (const auto* custom = dynamic_cast<const oa::oaCustomViaDef*>(def)) {
            addMaster(custom);
        }
        out_ << '\n';
        addProps(def);
    }

    void add(oa::oaViaHeader* header) {
        oa::oaString name;
        header->getViaDefName(name);
        out_ << std::string(header->getType().getName()) << ' ' << std::string(name) << " defined "
             << (header->getViaDef() != nullptr) << " vias " << header->getVias().getCount()
             << '\n';
        addProps(header);
        oa::oaIter<oa::oaViaHeader> subs(header->getSubHeaders());
        while (oa::oaViaHeader* sub = subs.getNext()) {
            out_ << " sub vias " << sub->getVias().getCount();
            addHeaderParams(sub);
            addProps(sub);
            addShapes(sub->getMaster());
        }
    }

    void add(const oa::oaVia* via) {
        oa::oaTransform xform;
        oa::oaBox box;
        oa::oaString name;
        via->getTransform(xform);
        via->getBBox(box);
        via->getViaDefName(name);
        out_ << std::string(via->getType().getName()) << ' ' << std::string(name) << " at "
             << xform.xOffset() << ',' << xform.yOffset() << ' '
             << std::string(xform.orient().getName()) << " box " << spelled(box);
        if (const oa::oaNet* net = via->getNet()) {
            net->getName(oa::oaNativeNS(), name);
            out_ << " net " << std::string(name);
        }
        if (const oa::oaPin* pin = via->getPin())
            out_ << " pin " << nameOf(pin);
        out_ << '\n';
        addProps(via);
    }

private:
    void addMaster(const oa::oaCustomViaDef* def) {
        const oa::oaNativeNS ns;
        oa::oaString lib;
        oa::oaString cell;
        oa::oaString view;
        def->getLibName(ns, lib);
        def->getCellName(ns, cell);
        def->getViewName(ns, view);
        out_ << " master " << std::string(lib) << '/' << std::string(cell) << '/'
             << std::string(view);
    }

    void addHeaderParams(const oa::oaViaHeader* header) {
        if (const auto* standard = dynamic_cast<const oa::oaStdViaHeader*>(header)) {
            oa::oaViaParam params;
            standard->getParams(params);
            out_ << ' ' << spelled(params);
        } else if (const auto* custom = dynamic_cast<const oa::oaCustomViaHeader*>(header)) {
            oa::oaParamArray params;
            custom->getParams(params);
            for (oa::oaUInt4 i = 0; i < params.getNumElements(); ++i)
                out_ << ", " << spelled(params[i]);
        }
        out_ << '\n';
    }

    void addShapes(const oa::oaDesign* master) {
        if (!master)
            return;
        oa::oaIter<oa::oaShape> shapes(master->getTopBlock()->getShapes());
        while (const oa::oaShape* shape = shapes.getNext()) {
            oa::oaBox box;
            shape->getBBox(box);
            out_ << "  shape " << shape->getLayerNum() << ": " << spelled(box) << '\n';
        }
    }

    void addProps(const oa::oaObject* object) {
        oa::oaIter<oa::oaProp> props(object->getProps());
        while (const oa::oaProp* prop = props.getNext()) {
            oa::oaString value;
            prop->getValue(value);
            out_ << "  property " << nameOf(prop) << " = " << std::string(value) << '\n';
        }
    }

    std::ostringstream out_;
};

} // namespace

std::string describeViaLibrary(const std::string& path) {
    oa::oaDesignInit();
    oa::oaLib* lib = oa::oaLib::open(nativeName("exchange"), path.c_str());
    Description description;
    oa::oaIter<oa::oaViaDef> defs(oa::oaTech::open(lib, 'r')->getViaDefs());
    while (const oa::oaViaDef* def = defs.getNext())
        description.add(def);
    oa::oaBlock* block =
        oa::oaDesign::open(nativeName("exchange"), nativeName("vias"), nativeName("layout"), 'r')
            ->getTopBlock();
    oa::oaIter<oa::oaViaHeader> headers(block->getViaHeaders());
    while (oa::oaViaHeader* header = headers.getNext())
        description.add(header);
    oa::oaIter<oa::oaVia> vias(block->getVias());
    while (const oa::oaVia* via = vias.getNext())
        description.add(via);
    lib->close();
    return description.text();
}

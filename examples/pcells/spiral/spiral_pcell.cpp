#include "spiral_pcell.h"

#include <stdexcept>
#include <string>

#include <oa/oaCommon.h>

#include "values.h"

namespace spiral {
namespace {

using namespace oa;

constexpr long impossibleSpiral = 1;

/// The largest spiral stays within the range of coordinates with so many units.
constexpr oaUInt4 mostPerMicron = 400000;

/// The parameter of that name, which must be of that type.
oaParam parameterOf(const oaParamArray& params, const char* name, oaParamTypeEnum type,
                    const char* typeName) {
    oaParam param;
    if (!params.find(name, param) || param.getType() != type)
        throw std::invalid_argument(std::string("a spiral needs the parameter ") + name +
                                    " of the type " + typeName);
    return param;
}

oaInt4 integer(const oaParamArray& params, const char* name) {
    return parameterOf(params, name, oacIntParamType, "int").getIntVal();
}

double real(const oaParamArray& params, const char* name) {
    return parameterOf(params, name, oacDoubleParamType, "double").getDoubleVal();
}

Values valuesOf(const oaParamArray& params) {
    Values values;
    values.shape = parameterOf(params, "shape", oacStringParamType, "string").getStringVal();
    values.turns = integer(params, "turns");
    values.width = real(params, "width");
    values.spacing = real(params, "spacing");
    values.innerDiameter = real(params, "innerDiameter");
    values.layer = integer(params, "layer");
    values.viaLayer = integer(params, "viaLayer");
    values.underpassLayer = integer(params, "underpassLayer");
    return values;
}

/// Database units in a step of the grid.
oaInt4 unitsPerStep(const oaDesign& design, oaTech* tech) {
    if (tech == nullptr)
        throw std::invalid_argument("a spiral needs a technology, for its units");
    const oaViewType* view = design.getViewType();
    const oaUserUnitsType unit = tech->getUserUnits(view);
    if (unit != oacMicron)
        throw std::invalid_argument("a spiral is measured in microns, the user unit of this "
                                    "technology is the " +
                                    std::string(unit.getName()));
    const oaUInt4 perMicron = tech->getDBUPerUU(view);
    if (perMicron % stepsPerMicron != 0 || perMicron > mostPerMicron)
        throw std::invalid_argument(
            "a spiral needs a multiple of " + std::to_string(stepsPerMicron) +
            " database units in a micron, at most " + std::to_string(mostPerMicron) +
            "; this technology has " + std::to_string(perMicron));
    return static_cast<oaInt4>(perMicron / stepsPerMicron);
}

oaPurposeNum pinPurpose(oaTech* tech) {
    const oaPurpose* pin = oaPurpose::find(tech, "pin");
    return pin == nullptr ? oaPurposeNum(oavPurposeNumberDrawing) : pin->getNumber();
}

/// Puts figures into a block, whose units are some to a step.
class Pen {
public:
    Pen(oaBlock* block, oaInt4 unitsPerStep, oaPurposeNum pinPurpose)
        : block_(block), unitsPerStep_(unitsPerStep), pinPurpose_(pinPurpose) {}

    void polygon(oaInt4 layer, const std::vector<Point>& corners) const {
        oaPointArray points(static_cast<oaUInt4>(corners.size()));
        for (const Point& corner : corners)
            points.append(oaPoint(units(corner.x), units(corner.y)));
        oaPolygon::create(block_, oaLayerNum(layer), oavPurposeNumberDrawing, points);
    }

    void rectangle(oaInt4 layer, const Box& box) const {
        oaRect::create(block_, oaLayerNum(layer), oavPurposeNumberDrawing, units(box));
    }

    /// A terminal on a net of its name, with one pin of one figure.
    void terminal(const char* name, oaInt4 layer, const Box& box, oaUInt4 accessDirection) const {
        const oaScalarName scalar(oaNativeNS(), name);
        oaNet* net = oaScalarNet::create(block_, scalar);
        oaTerm* term = oaTerm::create(net, scalar);
        oaPin* pin = oaPin::create(term, name, accessDirection);
        oaRect::create(block_, oaLayerNum(layer), pinPurpose_, units(box))->addToPin(pin);
    }

private:
    oaCoord units(std::int64_t steps) const { return oaCoord(steps * unitsPerStep_); }
    oaBox units(const Box& box) const {
        return {units(box.left), units(box.bottom), units(box.right), units(box.top)};
    }

    oaBlock* block_;
    oaInt4 unitsPerStep_;
    oaPurposeNum pinPurpose_;
};

void drawSpiral(oaDesign& design) {
    oaParamArray params;
    design.getParams(params);
    const Values values = valuesOf(params);
    const Drawing drawing = draw(dimensionsOf(values));
    oaTech* tech = design.getTech();
    const oaInt4 units = unitsPerStep(design, tech);

    const Pen pen(oaBlock::create(&design), units, pinPurpose(tech));
    pen.polygon(values.layer, drawing.trace);
    pen.rectangle(values.viaLayer, drawing.via);
    pen.rectangle(values.underpassLayer, drawing.underpass);
    pen.terminal("A", values.layer, drawing.outerPin, oacRight);
    pen.terminal("B", values.underpassLayer, drawing.innerPin, oacLeft);
}

} // namespace

oaPcellDef* SpiralPcell::getPcellDef() {
    return new oaPcellDef(this); // handed back to onUnbind
}

void SpiralPcell::getName(oaString& name) {
    name = "spiral";
}

void SpiralPcell::onBind(oaDesign*, oaPcellDef*) {}

void SpiralPcell::onUnbind(oaDesign*, oaPcellDef* def) {
    delete def;
}

void SpiralPcell::onEval(oaDesign* design, oaPcellDef*) {
    try {
        drawSpiral(*design);
    } catch (const std::invalid_argument& error) {
        // The database knows exceptions of its own and of plug-ins, and no others.
        throw oaCommon::ExceptionBase(impossibleSpiral, error.what());
    }
}

void SpiralPcell::onRead(oaDesign*, oaMapFileWindow&, oaUInt4&, oaPcellDef*) {}

void SpiralPcell::onWrite(oaDesign*, oaMapFileWindow&, oaUInt4&, oaPcellDef*) {}

oaUInt4 SpiralPcell::calcDiskSize(oaPcellDef*) const {
    return 0;
}

} // namespace spiral

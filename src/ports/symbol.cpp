#include <algorithm>

#include <ovalis/core.h>
#include <ovalis/ports.h>

#include "core/boundary.h"

namespace ovalis {

namespace {

constexpr double leftAngle = 180.0;
constexpr double rightAngle = 0.0;

/// Draws on the device layer of one symbol and collects the ports of what it draws.
class Symbol {
public:
    explicit Symbol(oa::oaDesign& design) : design_(design) {
        const LayerPurposePairs pairs = vexDefaultLayerPurposePairs();
        const auto device = pairs.find("vex_device:drawing");
        if (device == pairs.end()) {
            throw std::runtime_error("Can not find layer/purpose pair for layer name");
        }
        layer_ = device->second.first;
        purpose_ = device->second.second;
        block_ = design.getTopBlock();
        if (block_ == nullptr) {
            block_ = oa::oaBlock::create(&design);
        }
    }

    void line(const oa::oaPointArray& points) {
        oa::oaLine::create(block_, layer_, purpose_, points);
    }

    void text(const std::string& text, const oa::oaPoint& origin, oa::oaTextAlignEnum alignment,
              oa::oaDist height) {
        oa::oaText::create(block_, layer_, purpose_, toOa(text), origin, alignment, oa::oacR0,
                           oa::oacEuroStyleFont, height, false, true, true);
    }

    void body(const oa::oaBox& box) { oa::oaRect::create(block_, layer_, purpose_, box); }

    /// Numbers the port by its place among all ports, from "P1" on.
    void port(const oa::oaPointArray& outline, double angle) {
        Port& port = ports_.emplace_back();
        port.setName("P" + std::to_string(ports_.size()));
        port.setLayerNum(layer_);
        port.setPurposeNum(purpose_);
        port.setAngle(angle);
        port.setShapeOutline(outline);
    }

    void addPorts() { ovalis::addPorts(design_, ports_, false); }

private:
    oa::oaDesign& design_;
    oa::oaBlock* block_;
    oa::oaLayerNum layer_;
    oa::oaPurposeNum purpose_;
    std::vector<Port> ports_;
};

oa::oaPointArray pointArray(std::initializer_list<oa::oaPoint> points) {
    oa::oaPointArray array;
    for (const oa::oaPoint& point : points) {
        array.append(point);
    }
    return array;
}

constexpr oa::oaCoord bodyLeft = 30;
constexpr oa::oaCoord bodyRight = 130;
constexpr oa::oaCoord bodyMargin = 30;
constexpr oa::oaCoord symbolWidth = 160;
constexpr oa::oaCoord pinPitch = 40;
constexpr oa::oaCoord rowPitch = 100;

/// Draws the "+" and the "-" pin of one differential port, the first at height `top`.
void drawPinPair(Symbol& symbol, const std::string& number, bool left, oa::oaCoord top) {
    const oa::oaCoord outer = left ? 0 : symbolWidth;
    const oa::oaCoord inner = left ? bodyLeft : bodyRight;
    const oa::oaCoord inwards = left ? 1 : -1;
    for (const bool plus : {true, false}) {
        const oa::oaCoord height = plus ? top : top - pinPitch;
        symbol.line(pointArray({{outer, height}, {inner, height}}));
        symbol.port(pointArray({{outer, height}}), left ? leftAngle : rightAngle);
        symbol.text(plus ? "+" : "-", {inner + 10 * inwards, height}, oa::oacCenterCenterTextAlign,
                    25);
    }
    symbol.text(number, {inner + 18 * inwards, top - pinPitch / 2}, oa::oacCenterCenterTextAlign,
                16);
}

constexpr oa::oaCoord forkPitch = 80;
constexpr oa::oaCoord forkStep = 16;
constexpr oa::oaCoord prongSpread = 20;
constexpr oa::oaCoord prongGap = 2;
constexpr oa::oaCoord signInset = static_cast<oa::oaCoord>(prongSpread / 10.0);

/// Draws one fork from (x, y) outwards by `step`; its prong ends are the port.
void drawFork(Symbol& symbol, oa::oaCoord x, oa::oaCoord y, oa::oaCoord step) {
    const oa::oaCoord end = x + 2 * step;
    for (const oa::oaCoord up : {1, -1}) {
        const oa::oaCoord gap = y + up * prongGap;
        const oa::oaCoord prong = y + up * prongSpread;
        symbol.line(pointArray({{x, gap}, {x + step, gap}, {x + step, prong}, {end, prong}}));
    }
    symbol.text("+", {end, y + prongSpread - signInset}, oa::oacUpperCenterTextAlign, prongSpread);
    symbol.text("-", {end, y - prongSpread + signInset}, oa::oacLowerCenterTextAlign, prongSpread);
    symbol.port(pointArray({{end, y + prongSpread}, {end, y - prongSpread}}),
                step < 0 ? leftAngle : rightAngle);
}

} // namespace

bool vexSymbolSnPDifferential(oa::oaDesign& design, std::uint64_t count) {
    return atBoundary([&] {
        initOa();
        Symbol symbol(design);
        oa::oaCoord row = 0;
        oa::oaCoord lastHeight = 0;
        for (std::uint64_t number = 1; number <= count; ++number) {
            const bool left = number % 2 == 1;
            drawPinPair(symbol, std::to_string(number), left, row);
            lastHeight = row - pinPitch;
            row -= left ? 0 : rowPitch;
        }
        symbol.body({bodyLeft, lastHeight - bodyMargin, bodyRight, bodyMargin});
        symbol.addPorts();
        return true;
    });
}

bool vexSymbolSnPDifferentialForks(oa::oaDesign& design, std::uint64_t count) {
    return atBoundary([&] {
        initOa();
        Symbol symbol(design);
        const std::uint64_t left = count / 2;
        const std::uint64_t right = count - left;
        const auto height = static_cast<oa::oaCoord>(std::max(left, right) * forkPitch);
        for (std::uint64_t i = 0; i < left; ++i) {
            drawFork(symbol, 0, height - 60 - forkPitch * static_cast<oa::oaCoord>(i), -forkStep);
        }
        for (std::uint64_t i = 0; i < right; ++i) {
            drawFork(symbol, symbolWidth, height - 60 - forkPitch * static_cast<oa::oaCoord>(i),
                     forkStep);
        }
        symbol.body({0, 0, symbolWidth, height - 40});
        symbol.addPorts();
        return true;
    });
}

} // namespace ovalis

#include "oa/oaShape.h"

#include "design/src/shape_edit.h"
#include "oa/oaLPPHeader.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

std::uint32_t pairOf(const oaShape* shape) {
    return designDatabaseOf(shape).shapes.pairOf(locationOf(shape).ref);
}

} // namespace

oaLayerNum oaShape::getLayerNum() const {
    return designDatabaseOf(this).shapes.layerOf(pairOf(this));
}

oaPurposeNum oaShape::getPurposeNum() const {
    return designDatabaseOf(this).shapes.purposeOf(pairOf(this));
}

oaLPPHeader* oaShape::getHeader() const {
    return static_cast<oaLPPHeader*>(
        designDatabaseOf(this).table(kLPPHeaderTable)->handle(pairOf(this)));
}

void oaShape::setLayerNum(oaLayerNum layerNum) {
    setLPP(layerNum, getPurposeNum());
}

void oaShape::setPurposeNum(oaPurposeNum purposeNum) {
    setLPP(getLayerNum(), purposeNum);
}

void oaShape::setLPP(oaLayerNum layerNum, oaPurposeNum purposeNum) {
    ShapeTables& shapes = edited(this).shapes;
    shapes.setPair(locationOf(this).ref, shapes.pair(layerNum, purposeNum));
}

} // namespace OpenAccess_4

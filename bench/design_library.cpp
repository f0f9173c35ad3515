#include "design_library.h"

#include <algorithm>

namespace bench {

namespace {

oa::oaScalarName nameOf(const std::string& text) {
    return oa::oaScalarName(oa::oaNativeNS(), text.c_str());
}

} // namespace

DesignLibrary::DesignLibrary(const std::string& path) : path_(path) {
    oa::oaDesignInit();
    lib_ = oa::oaLib::exists(path_.c_str()) ? oa::oaLib::open(nameOf("bench"), path_.c_str())
                                            : oa::oaLib::create(nameOf("bench"), path_.c_str());
    lib_->getAccess(oa::oacWriteLibAccess);
}

DesignLibrary::~DesignLibrary() {
    lib_->close();
}

oa::oaDesign* DesignLibrary::open(const std::string& cell, char mode) {
    return oa::oaDesign::open(nameOf("bench"), nameOf(cell), nameOf("layout"),
                              oa::oaViewType::get(oa::oacMaskLayout), mode);
}

std::string DesignLibrary::fileOf(const std::string& cell) const {
    return path_ + '/' + cell + "/layout/layout.oa";
}

void drawContent(oa::oaDesign* design, std::size_t shapes) {
    oa::oaBlock* block = oa::oaBlock::create(design);
    draw(
        shapes,
        [&](std::uint32_t layer, const Box& box) {
            oa::oaRect::create(block, layer, kDrawing,
                               oa::oaBox(box.low.x, box.low.y, box.high.x, box.high.y));
        },
        [&](std::uint32_t layer, const Octagon& octagon) {
            std::array<oa::oaPoint, 8> points;
            std::transform(octagon.begin(), octagon.end(), points.begin(),
                           [](const Point& point) { return oa::oaPoint(point.x, point.y); });
            oa::oaPolygon::create(block, layer, kDrawing,
                                  oa::oaPointArray(points.data(), oa::oaUInt4(points.size())));
        });
}

BoxSum visitBoxes(const oa::oaBlock* block) {
    BoxSum sum;
    oa::oaBox box;
    oa::oaIter<oa::oaShape> shapes(block->getShapes());
    while (const oa::oaShape* shape = shapes.getNext()) {
        shape->getBBox(box);
        sum.add(box.left(), box.bottom(), box.right(), box.top());
    }
    return sum;
}

} // namespace bench

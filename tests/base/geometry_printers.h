#pragma once

#include <oa/oaBase.h>

#include <ostream>

namespace OpenAccess_4 {

inline void PrintTo(const oaPoint& point, std::ostream* out) {
    *out << "(" << point.x() << " " << point.y() << ")";
}

inline void PrintTo(const oaVector& vector, std::ostream* out) {
    *out << "<" << vector.x() << " " << vector.y() << ">";
}

inline void PrintTo(const oaBox& box, std::ostream* out) {
    *out << "(" << box.left() << " " << box.bottom() << ")-(" << box.right() << " " << box.top()
         << ")";
}

inline void PrintTo(const oaTransform& xform, std::ostream* out) {
    *out << xform.orient().getName() << "+(" << xform.xOffset() << " " << xform.yOffset() << ")";
}

inline void PrintTo(const oaPointArray& points, std::ostream* out) {
    for (oaUInt4 i = 0; i < points.getNumElements(); ++i)
        PrintTo(points[i], out);
}

} // namespace OpenAccess_4

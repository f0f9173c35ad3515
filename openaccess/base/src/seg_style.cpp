#include "oaSegStyle.h"

namespace OpenAccess_4 {

oaSegStyle::oaSegStyle(oaDist width, oaEndStyle beginStyle, oaEndStyle endStyle, oaDist beginExt,
                       oaDist endExt)
    : width_(width), begin_{beginStyle, beginExt, 0, 0, 0}, end_{endStyle, endExt, 0, 0, 0} {}

void oaSegStyle::getBeginExt(oaDist& ext, oaDist& leftDiagExt, oaDist& rightDiagExt,
                             oaDist& rightHalfWidth) const {
    ext = extension(begin_);
    leftDiagExt = begin_.leftDiagExt;
    rightDiagExt = begin_.rightDiagExt;
    rightHalfWidth = begin_.rightHalfWidth;
}

void oaSegStyle::getEndExt(oaDist& ext, oaDist& leftDiagExt, oaDist& rightDiagExt,
                           oaDist& rightHalfWidth) const {
    ext = extension(end_);
    leftDiagExt = end_.leftDiagExt;
    rightDiagExt = end_.rightDiagExt;
    rightHalfWidth = end_.rightHalfWidth;
}

void oaSegStyle::setBeginStyle(oaEndStyle style, oaDist ext) {
    begin_ = {style, ext, 0, 0, 0};
}

void oaSegStyle::setEndStyle(oaEndStyle style, oaDist ext) {
    end_ = {style, ext, 0, 0, 0};
}

void oaSegStyle::setBeginStyle(oaEndStyle style, oaDist ext, oaDist leftDiagExt,
                               oaDist rightDiagExt, oaDist rightHalfWidth) {
    begin_ = {style, ext, leftDiagExt, rightDiagExt, rightHalfWidth};
}

void oaSegStyle::setEndStyle(oaEndStyle style, oaDist ext, oaDist leftDiagExt, oaDist rightDiagExt,
                             oaDist rightHalfWidth) {
    end_ = {style, ext, leftDiagExt, rightDiagExt, rightHalfWidth};
}

bool oaSegStyle::operator==(const oaSegStyle& other) const {
    return width_ == other.width_ && isEqual(begin_, other, other.begin_) &&
           isEqual(end_, other, other.end_);
}

oaDist oaSegStyle::extension(const End& end) const {
    switch (end.style) {
    case oacTruncateEndStyle:
        return 0;
    case oacExtendEndStyle:
    case oacChamferEndStyle:
        return width_ / 2;
    default:
        return end.ext;
    }
}

bool oaSegStyle::isEqual(const End& end, const oaSegStyle& other, const End& otherEnd) const {
    return end.style == otherEnd.style && extension(end) == other.extension(otherEnd) &&
           end.leftDiagExt == otherEnd.leftDiagExt && end.rightDiagExt == otherEnd.rightDiagExt &&
           end.rightHalfWidth == otherEnd.rightHalfWidth;
}

} // namespace OpenAccess_4

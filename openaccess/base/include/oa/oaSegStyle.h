#pragma once

#include "oaBaseEnums.h"

namespace OpenAccess_4 {

/// The width of a path segment and the shapes of its two ends. A default one has the width 0 and
/// truncated ends.
///
/// The extension of an end follows from its style: none for a truncated end, half the width for
/// an extended and a chamfered one; variable and custom ends carry their own.
class OA_API oaSegStyle {
public:
    oaSegStyle() : oaSegStyle(0, oacTruncateEndStyle, oacTruncateEndStyle) {}
    oaSegStyle(oaDist width, oaEndStyle beginStyle, oaEndStyle endStyle, oaDist beginExt = 0,
               oaDist endExt = 0);

    oaDist getWidth() const { return width_; }
    void setWidth(oaDist width) { width_ = width; }

    oaEndStyle getBeginStyle() const { return begin_.style; }
    oaEndStyle getEndStyle() const { return end_.style; }
    oaDist getBeginExt() const { return extension(begin_); }
    oaDist getEndExt() const { return extension(end_); }
    /// All that a custom end has: its extensions in the middle and along both diagonals, and the
    /// part of its width that lies to the right.
    void getBeginExt(oaDist& ext, oaDist& leftDiagExt, oaDist& rightDiagExt,
                     oaDist& rightHalfWidth) const;
    void getEndExt(oaDist& ext, oaDist& leftDiagExt, oaDist& rightDiagExt,
                   oaDist& rightHalfWidth) const;

    void setBeginStyle(oaEndStyle style, oaDist ext = 0);
    void setEndStyle(oaEndStyle style, oaDist ext = 0);
    void setBeginStyle(oaEndStyle style, oaDist ext, oaDist leftDiagExt, oaDist rightDiagExt,
                       oaDist rightHalfWidth);
    void setEndStyle(oaEndStyle style, oaDist ext, oaDist leftDiagExt, oaDist rightDiagExt,
                     oaDist rightHalfWidth);

    bool operator==(const oaSegStyle& other) const;
    bool operator!=(const oaSegStyle& other) const { return !(*this == other); }

private:
    struct End {
        oaEndStyle style;
        oaDist ext;
        oaDist leftDiagExt;
        oaDist rightDiagExt;
        oaDist rightHalfWidth;
    };

    oaDist extension(const End& end) const;
    bool isEqual(const End& end, const oaSegStyle& other, const End& otherEnd) const;

    oaDist width_;
    End begin_;
    End end_;
};

} // namespace OpenAccess_4

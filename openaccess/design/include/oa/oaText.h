#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaOrient.h"
#include "oa/oaShape.h"

namespace OpenAccess_4 {

class oaPoint;

/// A text as it is written.
///
/// Its bounding box comes from a plain model of all fonts: every character is 3/5 of the height
/// wide, and each line of a text with several is one height tall. The alignment says which point of
/// that box lies on the origin, about which the orientation turns it.
class OA_API oaText : public oaShape {
public:
    static oaText* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                          const oaString& text, const oaPoint& origin, oaTextAlign alignment,
                          oaOrient orient, oaFont font, oaDist height, oaBoolean overbar = false,
                          oaBoolean visible = true, oaBoolean drafting = true);

    void getText(oaString& text) const;
    void getOrigin(oaPoint& origin) const;
    oaTextAlign getAlignment() const;
    oaOrient getOrient() const;
    oaFont getFont() const;
    oaDist getHeight() const;
    oaBoolean hasOverbar() const;
    oaBoolean isVisible() const;
    /// True when the text is turned as far as it takes to be read from below or from the right.
    oaBoolean isDrafting() const;

    void setText(const oaString& text);
    void setOrigin(const oaPoint& origin);
    void setAlignment(oaTextAlign alignment);
    void setOrient(oaOrient orient);
    void setFont(oaFont font);
    void setHeight(oaDist height);
    void setOverbar(oaBoolean overbar);
    void setVisible(oaBoolean visible);
    void setDrafting(oaBoolean drafting);

    OA_HANDLE(oaText);
};

} // namespace OpenAccess_4

#pragma once

#include "oa/oaAttrType.h"
#include "oa/oaDesignEnums.h"
#include "oa/oaOrient.h"
#include "oa/oaShape.h"

namespace OpenAccess_4 {

class oaNameSpace;
class oaPoint;
class oaProp;
class oaTextDisplay;

using oaTextDisplayCollection = oaCollection<oaTextDisplay, oaObject>;
using oaTextDisplayIter = oaIter<oaTextDisplay>;

/// A text that shows something of another object and follows it. It goes with that object. Its
/// bounding box is that of an oaText with the text that it shows.
class OA_API oaTextDisplay : public oaShape {
public:
    /// The displays of an object of a design, of all layers.
    static oaTextDisplayCollection getTextDisplays(const oaObject* object);

    /// The name, the value or name=value, as the format says.
    void getText(oaString& text) const;
    oaTextDisplayFormat getFormat() const;
    void getOrigin(oaPoint& origin) const;
    oaTextAlign getAlignment() const;
    oaOrient getOrient() const;
    oaFont getFont() const;
    oaDist getHeight() const;
    oaBoolean hasOverbar() const;
    oaBoolean isVisible() const;
    oaBoolean isDrafting() const;

    void setFormat(oaTextDisplayFormat format);
    void setOrigin(const oaPoint& origin);
    void setAlignment(oaTextAlign alignment);
    void setOrient(oaOrient orient);
    void setFont(oaFont font);
    void setHeight(oaDist height);
    void setOverbar(oaBoolean overbar);
    void setVisible(oaBoolean visible);
    void setDrafting(oaBoolean drafting);

    OA_HANDLE(oaTextDisplay);
};

/// Shows an attribute of a design, net, terminal or instance.
class OA_API oaAttrDisplay : public oaTextDisplay {
public:
    /// @throws oaDesignError  oacInvalidAttributeForObject: the object has no such attribute;
    ///                        oacNoBlockForDisplay: its design has no top block
    static oaAttrDisplay* create(oaObject* object, oaAttrType attribute, oaLayerNum layerNum,
                                 oaPurposeNum purposeNum, const oaPoint& origin,
                                 oaTextAlign alignment, oaOrient orient, oaFont font, oaDist height,
                                 oaTextDisplayFormat format = oacNameTextDisplayFormat,
                                 oaBoolean overbar = false, oaBoolean visible = true,
                                 oaBoolean drafting = true);

    oaObject* getObject() const;
    oaAttrType getAttribute() const;
    using oaTextDisplay::getText;
    /// As getText(text), with names spelled in `ns`.
    void getText(const oaNameSpace& ns, oaString& text) const;

    OA_HANDLE(oaAttrDisplay);
};

/// Shows a property of an object of a design.
class OA_API oaPropDisplay : public oaTextDisplay {
public:
    /// @throws oaDesignError  oacNoBlockForDisplay: the design of the property has no top block
    static oaPropDisplay* create(oaProp* prop, oaLayerNum layerNum, oaPurposeNum purposeNum,
                                 const oaPoint& origin, oaTextAlign alignment, oaOrient orient,
                                 oaFont font, oaDist height,
                                 oaTextDisplayFormat format = oacNameTextDisplayFormat,
                                 oaBoolean overbar = false, oaBoolean visible = true,
                                 oaBoolean drafting = true);

    oaProp* getProp() const;

    OA_HANDLE(oaPropDisplay);
};

} // namespace OpenAccess_4

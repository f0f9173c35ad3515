#pragma once

#include "oaOrient.h"
#include "oaPoint.h"

namespace OpenAccess_4 {

/// A movement of the plane: an orientation first, then an offset. A default one moves nothing.
class OA_API oaTransform {
public:
    oaTransform() = default;
    oaTransform(const oaPoint& offset, oaOrient orient = oacR0)
        : offset_(offset), orient_(orient) {}
    oaTransform(oaOffset xOffset, oaOffset yOffset, oaOrient orient = oacR0)
        : offset_(xOffset, yOffset), orient_(orient) {}
    oaTransform(oaOrient orient) : orient_(orient) {}
    /// `xform1` first, `xform2` then.
    oaTransform(const oaTransform& xform1, const oaTransform& xform2);

    const oaPoint& offset() const { return offset_; }
    oaPoint& offset() { return offset_; }
    oaOffset xOffset() const { return offset_.x(); }
    oaOffset& xOffset() { return offset_.x(); }
    oaOffset yOffset() const { return offset_.y(); }
    oaOffset& yOffset() { return offset_.y(); }
    const oaOrient& orient() const { return orient_; }
    oaOrient& orient() { return orient_; }

    void set(const oaPoint& offset, oaOrient orient = oacR0);
    void set(oaOffset xOffset, oaOffset yOffset, oaOrient orient = oacR0);
    /// Takes over the orientation, without an offset.
    void set(oaOrient orient);
    void set(const oaTransform& xform1, const oaTransform& xform2);
    /// Makes it move nothing.
    void init() { set(oacR0); }

    /// The movement back.
    void invert(oaTransform& result) const;
    void invert();
    /// This movement first, `xform` then.
    void concat(const oaTransform& xform, oaTransform& result) const;
    void concat(const oaTransform& xform);
    oaBoolean isIdentity() const { return offset_ == oaPoint() && orient_ == oacR0; }

    bool operator==(const oaTransform& other) const {
        return offset_ == other.offset_ && orient_ == other.orient_;
    }
    bool operator!=(const oaTransform& other) const { return !(*this == other); }

private:
    oaPoint offset_;
    oaOrient orient_;
};

} // namespace OpenAccess_4

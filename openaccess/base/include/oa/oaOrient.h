#pragma once

#include "oaNamedEnum.h"

namespace OpenAccess_4 {

enum oaOrientEnum {
    oacR0,
    oacR90,
    oacR180,
    oacR270,
    oacMY,
    oacMYR90,
    oacMX,
    oacMXR90,
};

OA_API const impl::EnumInfo& enumInfo(oaOrientEnum);

/// One of the eight orientations of an instance. A default one is oacR0.
///
/// R is a counter-clockwise rotation, MX and MY mirror at the x and at the y axis, MXR90 and
/// MYR90 mirror first and rotate then.
class OA_API oaOrient : public impl::NamedEnum<oaOrientEnum> {
public:
    oaOrient() : NamedEnum(oacR0) {}
    using NamedEnum::NamedEnum;

    /// The orientation of something that is turned by this one first and by `orient` then.
    oaOrient concat(const oaOrient& orient) const;
    /// The orientation that leads from this one to `orient`: concat() of it gives `orient`.
    oaOrient getRelativeOrient(const oaOrient& orient) const;
};

} // namespace OpenAccess_4

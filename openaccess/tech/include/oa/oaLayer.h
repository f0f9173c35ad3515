#pragma once

#include "oaString.h"
#include "oaTechObject.h"

namespace OpenAccess_4 {

/// A layer of a technology. Its name and its number are its own: no other layer of the technology,
/// of whatever kind, has them, nor had one that the technology refers to when it got them.
class OA_API oaLayer : public oaTechObject {
public:
    /// The layer of that name or number, or null. Those of the technologies that `tech` refers to
    /// are looked at behind its own, unless `local` is set.
    static oaLayer* find(const oaTech* tech, const oaString& name, oaBoolean local = false);
    static oaLayer* find(const oaTech* tech, oaLayerNum number, oaBoolean local = false);

    void getName(oaString& name) const;
    /// @throws oaTechError  oacLayerNameExists
    void setName(const oaString& name);

    oaLayerNum getNumber() const;
    /// Layers of the technology that are derived from this one follow, and its via definitions.
    /// Shapes of designs, and what lies in other technologies, keep their numbers.
    /// @throws oaTechError  oacLayerNumberExists
    void setNumber(oaLayerNum number);

    /// Layers that are derived from this one stay, and name a layer that is missing.
    void destroy();

    OA_HANDLE(oaLayer);
};

} // namespace OpenAccess_4

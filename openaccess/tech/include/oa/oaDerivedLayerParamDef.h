#pragma once

#include "oaSession.h"
#include "oaString.h"
#include "oaTechEnums.h"

namespace OpenAccess_4 {

class oaTech;

/// A parameter of derived layers: its name and the type of its values. It lasts for the session;
/// technologies keep name and type of those that they have parameters of.
class OA_API oaDerivedLayerParamDef : public oaSessionObject {
public:
    /// @throws oaTechError  oacDerivedLayerParamDefExists; oacInvalidDerivedLayerParam: `valueType`
    ///                      is no type of values
    static oaDerivedLayerParamDef* create(const oaString& name, oaType valueType);

    /// The definition of that name, built-in or not, or null.
    static oaDerivedLayerParamDef* find(const oaString& name);
    /// The built-in definition of that type.
    static oaDerivedLayerParamDef* get(oaDerivedLayerParamType type);

    void getName(oaString& name) const;
    oaType getValueType() const;
    oaBoolean isBuiltIn() const;

    /// Parameters of this definition stay.
    /// @throws oaTechError  oacDerivedLayerParamDefIsBuiltIn
    void destroy();
    /// Destroys the parameters of this definition that a technology holds.
    void remove(oaTech* tech);

    OA_HANDLE(oaDerivedLayerParamDef);
};

} // namespace OpenAccess_4

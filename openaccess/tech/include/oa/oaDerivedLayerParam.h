#pragma once

#include "oaArray.h"
#include "oaTechObject.h"

namespace OpenAccess_4 {

class oaDerivedLayerParamDef;
class oaValue;

/// A parameter of a derived layer: a value under a definition. It lies in the technology of its
/// value, which belongs to it.
class OA_API oaDerivedLayerParam : public oaTechObject {
public:
    /// @throws oaTechError  oacInvalidDerivedLayerParam: the value is not of the type that the
    ///                      definition names, or belongs to another parameter
    static oaDerivedLayerParam* create(const oaDerivedLayerParamDef* def, oaValue* value);

    /// The definition, which is made when the parameter comes from a file and the session does not
    /// know it.
    oaDerivedLayerParamDef* getDef() const;
    oaValue* getValue() const;
    /// The value that the parameter had is destroyed. @throws as create()
    void setValue(oaValue* value);

    /// True for a parameter of a layer.
    oaBoolean isOwned() const;

    /// Makes a parameter with an equal value that no layer owns.
    oaDerivedLayerParam* copy() const;
    /// The same in another technology.
    /// @throws oaTechError  oacInvalidDatabaseForValue: `database` is no technology
    oaDerivedLayerParam* copyTo(oaObject* database) const;

    /// Destroys the parameter and its value.
    void destroy();

    OA_HANDLE(oaDerivedLayerParam);
};

/// The parameters of a derived layer.
class oaDerivedLayerParamArray : public oaArray<oaDerivedLayerParam*> {
public:
    explicit oaDerivedLayerParamArray(oaUInt4 size = 0) : oaArray(size) {}

    /// The first one of that definition, or null.
    oaDerivedLayerParam* findParam(const oaDerivedLayerParamDef* def) const {
        for (oaUInt4 i = 0; i < getNumElements(); ++i)
            if (get(i)->getDef() == def)
                return get(i);
        return nullptr;
    }
};

} // namespace OpenAccess_4

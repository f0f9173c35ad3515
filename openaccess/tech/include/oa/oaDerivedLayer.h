#pragma once

#include "oaDerivedLayerParam.h"
#include "oaLayer.h"
#include "oaTechEnums.h"

namespace OpenAccess_4 {

class oaDerivedLayerDef;

/// A layer that follows from one or two others by an operation. It names them by their numbers.
class OA_API oaDerivedLayer : public oaLayer {
public:
    /// A layer that follows from two others by one of the built-in operations.
    /// @throws oaTechError  oacLayerNameExists, oacLayerNumberExists; oacDerivedLayerInvalid: the
    ///                      operation takes another number of layers, or a layer belongs elsewhere
    static oaDerivedLayer* create(oaLayer* layer1, oaLayer* layer2, oaLayerOp operation,
                                  const oaString& name, oaLayerNum number);
    static oaDerivedLayer* create(oaTech* tech, oaLayer* layer1, oaLayer* layer2,
                                  oaLayerOp operation, const oaString& name, oaLayerNum number);

    /// A layer that follows from others as a definition says, with parameters when there are any;
    /// see setParams().
    /// @throws as above; oacInvalidDerivedLayerParam
    static oaDerivedLayer* create(oaTech* tech, const oaLayer* layer, const oaDerivedLayerDef* def,
                                  const oaString& name, oaLayerNum number,
                                  const oaDerivedLayerParamArray* params = nullptr);
    static oaDerivedLayer* create(oaTech* tech, const oaLayer* layer1, const oaLayer* layer2,
                                  const oaDerivedLayerDef* def, const oaString& name,
                                  oaLayerNum number,
                                  const oaDerivedLayerParamArray* params = nullptr);

    /// The derived layer of that name or number; null also when that is a layer of another kind.
    static oaDerivedLayer* find(const oaTech* tech, const oaString& name, oaBoolean local = false);
    static oaDerivedLayer* find(const oaTech* tech, oaLayerNum number, oaBoolean local = false);
    /// The layer that follows from those of these numbers by that definition, with equal
    /// parameters, or null.
    static oaDerivedLayer* find(const oaTech* tech, oaLayerNum layerNum,
                                const oaDerivedLayerDef* def,
                                const oaDerivedLayerParamArray* params = nullptr,
                                oaBoolean local = false);
    static oaDerivedLayer* find(const oaTech* tech, oaLayerNum layer1Num, oaLayerNum layer2Num,
                                const oaDerivedLayerDef* def,
                                const oaDerivedLayerParamArray* params = nullptr,
                                oaBoolean local = false);
    /// The layer that follows from these two by a built-in operation, without parameters, or null.
    static oaDerivedLayer* find(const oaLayer* layer1, const oaLayer* layer2, oaLayerOp operation);

    /// The layer that it follows from; null when the technology no longer has it.
    oaLayer* getLayer1() const;
    oaLayerNum getLayer1Num() const;
    /// Null for definitions of one layer.
    oaLayer* getLayer2() const;
    oaLayerNum getLayer2Num() const;

    /// oacUserDefinedLayerOp when an application made the definition.
    oaLayerOp getOperation() const;
    /// The definition, which is made when the layer comes from a file and the session does not
    /// know it.
    oaDerivedLayerDef* getDef() const;

    void getParams(oaDerivedLayerParamArray& params) const;
    /// Makes the parameters those of this layer; the ones that it had are destroyed. A parameter
    /// that is another layer's, or lies in another technology, is copied.
    /// @throws oaTechError  oacInvalidDerivedLayerParam: one is there twice
    void setParams(const oaDerivedLayerParamArray& params);
    oaBoolean hasParams() const;

    OA_HANDLE(oaDerivedLayer);
};

} // namespace OpenAccess_4

#pragma once

#include "oaParam.h"

namespace OpenAccess_4 {

/// A row of parameters. Nothing keeps their names apart: the caller does.
class OA_API oaParamArray : public oaArray<oaParam> {
public:
    explicit oaParamArray(oaUInt4 size = 0) : oaArray(size) {}
    oaParamArray(const oaParam* params, oaUInt4 numParams) : oaArray(params, numParams) {}

    /// The index of the first equal parameter; oacNullIndex when there is none.
    oaUInt4 find(const oaParam& param) const;
    /// Copies the first parameter named `name`; false, and `param` untouched, when there is none.
    oaBoolean find(const oaString& name, oaParam& param) const;

    bool operator==(const oaParamArray& other) const;
    bool operator!=(const oaParamArray& other) const { return !(*this == other); }
};

} // namespace OpenAccess_4

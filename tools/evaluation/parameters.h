#pragma once

#include <string>
#include <vector>

#include <oa/oaDesignDB.h>

namespace evaluation {

/// The name as it is.
std::string nameOf(const oa::oaParam& param);

/// "int", "float", "string", "app", "double", "boolean" or "time".
std::string typeOf(const oa::oaParam& param);

/// The value as people read it, and as `givenParams` takes it; of an application's own value its
/// type and size.
std::string valueOf(const oa::oaParam& param);

/// "N = 3, w = 2.5"; "no parameters" when there are none.
std::string textOf(const oa::oaParamArray& params);

/// Reads NAME=VALUE texts as parameters of a pcell with these defaults. A value has the type of the
/// default; of several for one name the last counts.
/// @throws std::runtime_error  a text is no assignment, or names no parameter, or its value is of
///                             another type; the text says which parameters there are
oa::oaParamArray givenParams(const oa::oaParamArray& defaults,
                             const std::vector<std::string>& assignments);

/// Reads NAME:TYPE=VALUE texts as the parameters of a new pcell, in their order.
/// @throws std::runtime_error  a text cannot be read, or a name comes twice
oa::oaParamArray declaredParams(const std::vector<std::string>& declarations);

/// The parameters of a submaster: the defaults, with the given ones in their places.
oa::oaParamArray effectiveParams(const oa::oaParamArray& defaults, const oa::oaParamArray& given);

} // namespace evaluation

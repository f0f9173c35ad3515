#pragma once

#include "oaDMData.h"
#include "oaName.h"

namespace OpenAccess_4 {

/// The data of a library, which is named and must be open.
class OA_API oaLibDMData : public oaDMData {
public:
    /// @throws oaDMError  oacCannotFindLibrary; the others as oaDMData::open()
    static oaLibDMData* open(const oaScalarName& libName, oaChar mode);

    /// Null when they are not open. @throws oaDMError  oacCannotFindLibrary
    static oaLibDMData* find(const oaScalarName& libName);

    /// @throws oaDMError  oacCannotFindLibrary
    static oaBoolean exists(const oaScalarName& libName);

    /// @throws oaDMError  oacCannotFindLibrary; the others as oaDMData::destroy()
    static void destroy(const oaScalarName& libName);

    OA_HANDLE(oaLibDMData);
};

} // namespace OpenAccess_4

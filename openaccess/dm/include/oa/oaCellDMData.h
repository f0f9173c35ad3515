#pragma once

#include "oaDMData.h"
#include "oaName.h"

namespace OpenAccess_4 {

/// The data of a cell of an open library.
class OA_API oaCellDMData : public oaDMData {
public:
    /// Makes the cell when it is missing and the mode is not 'r'.
    /// @throws oaDMError  oacCannotFindLibrary; the others as oaDMData::open()
    static oaCellDMData* open(const oaScalarName& libName, const oaScalarName& cellName,
                              oaChar mode);

    /// Null when they are not open. @throws oaDMError  oacCannotFindLibrary
    static oaCellDMData* find(const oaScalarName& libName, const oaScalarName& cellName);

    /// False when the cell is missing as well. @throws oaDMError  oacCannotFindLibrary
    static oaBoolean exists(const oaScalarName& libName, const oaScalarName& cellName);

    /// @throws oaDMError  oacCannotFindLibrary; the others as oaDMData::destroy()
    static void destroy(const oaScalarName& libName, const oaScalarName& cellName);

    void getCellName(oaScalarName& cellName) const;
    void getCellName(const oaNameSpace& ns, oaString& cellName) const;

    OA_HANDLE(oaCellDMData);
};

} // namespace OpenAccess_4

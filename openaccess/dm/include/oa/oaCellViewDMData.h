#pragma once

#include "oaDMData.h"
#include "oaName.h"

namespace OpenAccess_4 {

class oaViewType;

/// The data of a cell view of an open library.
class OA_API oaCellViewDMData : public oaDMData {
public:
    /// Makes cell and cell view when they are missing and the mode is not 'r'.
    /// @throws oaDMError  oacCannotFindLibrary; oacMismatchViewType: the cell view has another view
    ///                    type; the others as oaDMData::open()
    static oaCellViewDMData* open(const oaScalarName& libName, const oaScalarName& cellName,
                                  const oaScalarName& viewName, const oaViewType* viewType,
                                  oaChar mode);

    /// The same of a cell view that is there.
    /// @throws oaDMError  oacDMDataNotFound: there is no such cell view; the others as above
    static oaCellViewDMData* open(const oaScalarName& libName, const oaScalarName& cellName,
                                  const oaScalarName& viewName, oaChar mode);

    /// Null when they are not open. @throws oaDMError  oacCannotFindLibrary
    static oaCellViewDMData* find(const oaScalarName& libName, const oaScalarName& cellName,
                                  const oaScalarName& viewName);

    /// False when the cell view is missing as well. @throws oaDMError  oacCannotFindLibrary
    static oaBoolean exists(const oaScalarName& libName, const oaScalarName& cellName,
                            const oaScalarName& viewName);

    /// @throws oaDMError  oacCannotFindLibrary; the others as oaDMData::destroy()
    static void destroy(const oaScalarName& libName, const oaScalarName& cellName,
                        const oaScalarName& viewName);

    void getCellName(oaScalarName& cellName) const;
    void getCellName(const oaNameSpace& ns, oaString& cellName) const;
    void getViewName(oaScalarName& viewName) const;
    void getViewName(const oaNameSpace& ns, oaString& viewName) const;
    oaViewType* getViewType() const;

    OA_HANDLE(oaCellViewDMData);
};

} // namespace OpenAccess_4

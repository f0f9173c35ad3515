#pragma once

#include "oaDMData.h"
#include "oaName.h"

namespace OpenAccess_4 {

class oaViewType;

/// The data of a view of an open library: what holds for all cell views of it.
class OA_API oaViewDMData : public oaDMData {
public:
    /// @throws oaDMError  oacCannotFindLibrary; the others as oaDMData::open()
    static oaViewDMData* open(const oaScalarName& libName, const oaScalarName& viewName,
                              const oaViewType* viewType, oaChar mode);

    /// Null when they are not open. @throws oaDMError  oacCannotFindLibrary
    static oaViewDMData* find(const oaScalarName& libName, const oaScalarName& viewName,
                              const oaViewType* viewType);

    /// @throws oaDMError  oacCannotFindLibrary
    static oaBoolean exists(const oaScalarName& libName, const oaScalarName& viewName,
                            const oaViewType* viewType);

    /// @throws oaDMError  oacCannotFindLibrary; the others as oaDMData::destroy()
    static void destroy(const oaScalarName& libName, const oaScalarName& viewName,
                        const oaViewType* viewType);

    void getViewName(oaScalarName& viewName) const;
    void getViewName(const oaNameSpace& ns, oaString& viewName) const;
    oaViewType* getViewType() const;

    OA_HANDLE(oaViewDMData);
};

} // namespace OpenAccess_4

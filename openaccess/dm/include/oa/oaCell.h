#pragma once

#include "oaDMContainer.h"
#include "oaName.h"

namespace OpenAccess_4 {

class oaCellView;

/// A cell of a library; on disk a directory in it.
class OA_API oaCell : public oaDMContainer {
public:
    /// Finds the cell or makes it. Write access is needed to make one, read access to find one.
    /// @throws oaDMError  oacLibAccessDenied, oacInvalidDMName
    static oaCell* get(const oaLib* lib, const oaScalarName& name);

    /// Null when there is none. @throws oaDMError  oacLibAccessDenied without read access
    static oaCell* find(const oaLib* lib, const oaScalarName& name);

    /// Removes the cell with everything in it. Open designs are not purged.
    /// @throws oaDMError  oacLibAccessDenied without write access
    void destroy();

    void getName(oaScalarName& name) const;
    void getName(const oaNameSpace& ns, oaString& out) const;

    /// @throws oaDMError  oacLibAccessDenied without read access
    oaCollection<oaCellView, oaCell> getCellViews() const;

    OA_HANDLE(oaCell);
};

} // namespace OpenAccess_4

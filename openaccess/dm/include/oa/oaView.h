#pragma once

#include "oaDMContainer.h"
#include "oaName.h"
#include "oaViewType.h"

namespace OpenAccess_4 {

class oaCellView;

/// A name and a view type that cell views of a library have in common. It takes no room on disk: a
/// view is there as soon as a cell view of it is, or once it was asked for with get().
class OA_API oaView : public oaDMContainer {
public:
    /// @throws oaDMError  oacLibAccessDenied without read access, oacInvalidDMName
    static oaView* get(const oaLib* lib, const oaScalarName& name, const oaViewType* viewType);

    /// Answers a view for every name and view type; never null.
    /// @throws oaDMError  oacLibAccessDenied without read access, oacInvalidDMName
    static oaView* find(const oaLib* lib, const oaScalarName& name, const oaViewType* viewType);

    /// Removes the view and all cell views of it.
    /// @throws oaDMError  oacLibAccessDenied without write access
    void destroy();

    void getName(oaScalarName& name) const;
    void getName(const oaNameSpace& ns, oaString& out) const;
    oaViewType* getViewType() const;

    /// @throws oaDMError  oacLibAccessDenied without read access
    oaCollection<oaCellView, oaView> getCellViews() const;

    OA_HANDLE(oaView);
};

} // namespace OpenAccess_4

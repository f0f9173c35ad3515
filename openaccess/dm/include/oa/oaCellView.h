#pragma once

#include "oaCell.h"
#include "oaDMFile.h"
#include "oaView.h"

namespace OpenAccess_4 {

/// One view of one cell; on disk a directory in that of the cell.
class OA_API oaCellView : public oaDMContainer {
public:
    /// Finds the cell view or makes it, with the entry of its primary file. Write access is needed
    /// to make one, read access to find one.
    /// @throws oaDMError  oacLibAccessDenied, oacCellViewNotInSameLib; oacMismatchViewType: the
    /// cell
    ///                    has the view with another view type
    static oaCellView* get(const oaCell* cell, const oaView* view);

    /// The same by names; makes the cell as well.
    static oaCellView* get(const oaLib* lib, const oaScalarName& cellName,
                           const oaScalarName& viewName, const oaViewType* viewType);

    /// Null when the cell has no such view, or has it with another view type.
    /// @throws oaDMError  oacLibAccessDenied without read access, oacCellViewNotInSameLib
    static oaCellView* find(const oaCell* cell, const oaView* view);

    /// Null when there is none, of whatever view type.
    static oaCellView* find(const oaLib* lib, const oaScalarName& cellName,
                            const oaScalarName& viewName);

    /// Removes the cell view with all its files; does not purge an open design.
    /// @throws oaDMError  oacLibAccessDenied without write access
    void destroy();

    oaCell* getCell() const;
    oaView* getView() const;

    /// The file that holds the content; it need not be on disk yet.
    oaDMFile* getPrimary() const;

    OA_HANDLE(oaCellView);
};

} // namespace OpenAccess_4

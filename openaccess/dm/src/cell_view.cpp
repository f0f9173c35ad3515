#include "oa/oaCellView.h"

#include "dm/src/library.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

Library& commonLibrary(const oaCell* cell, const oaView* view) {
    Library& library = libraryOf(cell, oacReadLibAccess);
    if (&libraryOf(view) != &library)
        throw oaDMError(oacCellViewNotInSameLib, library.name().c_str(),
                        libraryOf(view).name().c_str());
    return library;
}

} // namespace

oaCellView* oaCellView::get(const oaCell* cell, const oaView* view) {
    if (oaCellView* found = find(cell, view))
        return found;
    Library& library = libraryOf(cell, oacWriteLibAccess);
    const ViewRecord& record = recordOf<ViewRecord>(view);
    return library.getCellView(const_cast<oaCell*>(cell), record.name, record.viewType);
}

oaCellView* oaCellView::get(const oaLib* lib, const oaScalarName& cellName,
                            const oaScalarName& viewName, const oaViewType* viewType) {
    return get(oaCell::get(lib, cellName), oaView::get(lib, viewName, viewType));
}

oaCellView* oaCellView::find(const oaCell* cell, const oaView* view) {
    Library& library = commonLibrary(cell, view);
    oaCellView* found =
        library.findCellView(const_cast<oaCell*>(cell), recordOf<ViewRecord>(view).name);
    return found && library.viewOf(found) == view ? found : nullptr;
}

oaCellView* oaCellView::find(const oaLib* lib, const oaScalarName& cellName,
                             const oaScalarName& viewName) {
    Library& library = libraryOf(lib, oacReadLibAccess);
    oaCell* cell = library.findCell(nativeText(cellName, "cell"));
    return cell ? library.findCellView(cell, nativeText(viewName, "view")) : nullptr;
}

void oaCellView::destroy() {
    libraryOf(this, oacWriteLibAccess).destroy(this);
}

oaCell* oaCellView::getCell() const {
    return libraryOf(this).cellOf(this);
}

oaView* oaCellView::getView() const {
    return libraryOf(this).viewOf(this);
}

oaDMFile* oaCellView::getPrimary() const {
    return libraryOf(this).getFile(locationOf(this).ref, recordOf<CellViewRecord>(this).primary);
}

} // namespace OpenAccess_4

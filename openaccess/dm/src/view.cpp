#include "oa/oaView.h"

#include "base/src/source.h"
#include "dm/src/library.h"
#include "dm/src/name_text.h"

namespace OpenAccess_4 {

using namespace impl;

oaView* oaView::get(const oaLib* lib, const oaScalarName& name, const oaViewType* viewType) {
    slabOf(viewType);
    return libraryOf(lib, oacReadLibAccess).view(nativeText(name, "view"), viewType, true);
}

oaView* oaView::find(const oaLib* lib, const oaScalarName& name, const oaViewType* viewType) {
    slabOf(viewType);
    return libraryOf(lib, oacReadLibAccess).view(nativeText(name, "view"), viewType, false);
}

void oaView::destroy() {
    libraryOf(this, oacWriteLibAccess).destroy(this);
}

void oaView::getName(oaScalarName& name) const {
    assignName(name, recordOf<ViewRecord>(this).name);
}

void oaView::getName(const oaNameSpace& ns, oaString& out) const {
    writeName(ns, recordOf<ViewRecord>(this).name, out);
}

oaViewType* oaView::getViewType() const {
    return recordOf<ViewRecord>(this).viewType;
}

oaCollection<oaCellView, oaView> oaView::getCellViews() const {
    Library& library = libraryOf(this, oacReadLibAccess);
    return collectionOf<oaCollection<oaCellView, oaView>>(
        library.cellViewsOf(const_cast<oaView*>(this)));
}

} // namespace OpenAccess_4

#include "oa/oaCell.h"

#include "base/src/source.h"
#include "dm/src/library.h"
#include "dm/src/name_text.h"

namespace OpenAccess_4 {

using namespace impl;

oaCell* oaCell::get(const oaLib* lib, const oaScalarName& name) {
    const std::string text = nativeText(name, "cell");
    Library& library = libraryOf(lib, oacReadLibAccess);
    if (oaCell* found = library.findCell(text))
        return found;
    library.require(oacWriteLibAccess);
    return library.getCell(text);
}

oaCell* oaCell::find(const oaLib* lib, const oaScalarName& name) {
    return libraryOf(lib, oacReadLibAccess).findCell(nativeText(name, "cell"));
}

void oaCell::destroy() {
    libraryOf(this, oacWriteLibAccess).destroy(this);
}

void oaCell::getName(oaScalarName& name) const {
    assignName(name, recordOf<CellRecord>(this).name);
}

void oaCell::getName(const oaNameSpace& ns, oaString& out) const {
    writeName(ns, recordOf<CellRecord>(this).name, out);
}

oaCollection<oaCellView, oaCell> oaCell::getCellViews() const {
    Library& library = libraryOf(this, oacReadLibAccess);
    return collectionOf<oaCollection<oaCellView, oaCell>>(
        library.cellViewsOf(const_cast<oaCell*>(this)));
}

} // namespace OpenAccess_4

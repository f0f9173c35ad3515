#include "dm/src/dm_data_files.h"
#include "dm/src/dm_session.h"
#include "dm/src/library.h"
#include "dm/src/library_access.h"
#include "oa/oaCellDMData.h"
#include "oa/oaCellViewDMData.h"
#include "oa/oaLibDMData.h"
#include "oa/oaViewDMData.h"

// The four kinds of data, which callers name by names.

namespace OpenAccess_4 {

using namespace impl;

namespace {

template <class Container>
const Container* ownerOf(const oaDMData* data) {
    return static_cast<const Container*>(recordOf<DMDataRecord>(data).container);
}

oaDMContainer* findCell(const oaScalarName& libName, const oaScalarName& cellName) {
    oaLib* lib = openLibrary(libName);
    const ShortAccess access(lib, oacReadLibAccess);
    return oaCell::find(lib, cellName);
}

oaDMContainer* findView(const oaScalarName& libName, const oaScalarName& viewName,
                        const oaViewType* viewType) {
    oaLib* lib = openLibrary(libName);
    const ShortAccess access(lib, oacReadLibAccess);
    return oaView::find(lib, viewName, viewType);
}

oaDMContainer* findCellView(const oaScalarName& libName, const oaScalarName& cellName,
                            const oaScalarName& viewName) {
    oaLib* lib = openLibrary(libName);
    const ShortAccess access(lib, oacReadLibAccess);
    return oaCellView::find(lib, cellName, viewName);
}

oaDMContainer* makeCellView(const oaScalarName& libName, const oaScalarName& cellName,
                            const oaScalarName& viewName, const oaViewType* viewType) {
    oaLib* lib = openLibrary(libName);
    const ShortAccess access(lib, oacWriteLibAccess);
    return oaCellView::get(lib, cellName, viewName, viewType);
}

void requireViewType(const oaCellView* cellView, const oaViewType* viewType) {
    const ViewRecord& view = recordOf<ViewRecord>(cellView->getView());
    if (view.viewType != viewType)
        throw oaDMError(oacMismatchViewType, view.name.c_str(),
                        recordOf<ViewTypeRecord>(view.viewType).name.c_str(),
                        recordOf<ViewTypeRecord>(viewType).name.c_str());
}

/// Null when there is no container, or its data are not open.
template <class Data>
Data* openDataOf(const oaDMContainer* container) {
    return container ? static_cast<Data*>(findOpenDMData(container)) : nullptr;
}

[[noreturn]] void throwNoPlace(const oaScalarName& libName, const std::string& what) {
    throw oaDMError(oacDMDataNotFound,
                    (what + " of library '" + nativeText(libName, "library") + "'").c_str());
}

std::string cellTitle(const oaScalarName& cellName) {
    return "cell '" + nativeText(cellName, "cell") + "'";
}

std::string cellViewTitle(const oaScalarName& cellName, const oaScalarName& viewName) {
    return "cell view '" + nativeText(cellName, "cell") + "/" + nativeText(viewName, "view") + "'";
}

} // namespace

// Libraries.

oaLibDMData* oaLibDMData::open(const oaScalarName& libName, oaChar mode) {
    return static_cast<oaLibDMData*>(openDMData(openLibrary(libName), mode));
}

oaLibDMData* oaLibDMData::find(const oaScalarName& libName) {
    return openDataOf<oaLibDMData>(openLibrary(libName));
}

oaBoolean oaLibDMData::exists(const oaScalarName& libName) {
    return hasDMData(openLibrary(libName));
}

void oaLibDMData::destroy(const oaScalarName& libName) {
    destroyDMData(openLibrary(libName));
}

// Cells.

oaCellDMData* oaCellDMData::open(const oaScalarName& libName, const oaScalarName& cellName,
                                 oaChar mode) {
    oaDMContainer* cell = findCell(libName, cellName);
    if (!cell && (mode == 'a' || mode == 'w')) {
        oaLib* lib = openLibrary(libName);
        const ShortAccess access(lib, oacWriteLibAccess);
        cell = oaCell::get(lib, cellName);
    }
    if (!cell)
        throwNoPlace(libName, cellTitle(cellName));
    return static_cast<oaCellDMData*>(openDMData(cell, mode));
}

oaCellDMData* oaCellDMData::find(const oaScalarName& libName, const oaScalarName& cellName) {
    return openDataOf<oaCellDMData>(findCell(libName, cellName));
}

oaBoolean oaCellDMData::exists(const oaScalarName& libName, const oaScalarName& cellName) {
    const oaDMContainer* cell = findCell(libName, cellName);
    return cell && hasDMData(cell);
}

void oaCellDMData::destroy(const oaScalarName& libName, const oaScalarName& cellName) {
    const oaDMContainer* cell = findCell(libName, cellName);
    if (!cell)
        throwNoPlace(libName, cellTitle(cellName));
    destroyDMData(cell);
}

void oaCellDMData::getCellName(oaScalarName& cellName) const {
    ownerOf<oaCell>(this)->getName(cellName);
}

void oaCellDMData::getCellName(const oaNameSpace& ns, oaString& cellName) const {
    ownerOf<oaCell>(this)->getName(ns, cellName);
}

// Views.

oaViewDMData* oaViewDMData::open(const oaScalarName& libName, const oaScalarName& viewName,
                                 const oaViewType* viewType, oaChar mode) {
    return static_cast<oaViewDMData*>(openDMData(findView(libName, viewName, viewType), mode));
}

oaViewDMData* oaViewDMData::find(const oaScalarName& libName, const oaScalarName& viewName,
                                 const oaViewType* viewType) {
    return openDataOf<oaViewDMData>(findView(libName, viewName, viewType));
}

oaBoolean oaViewDMData::exists(const oaScalarName& libName, const oaScalarName& viewName,
                               const oaViewType* viewType) {
    return hasDMData(findView(libName, viewName, viewType));
}

void oaViewDMData::destroy(const oaScalarName& libName, const oaScalarName& viewName,
                           const oaViewType* viewType) {
    destroyDMData(findView(libName, viewName, viewType));
}

void oaViewDMData::getViewName(oaScalarName& viewName) const {
    ownerOf<oaView>(this)->getName(viewName);
}

void oaViewDMData::getViewName(const oaNameSpace& ns, oaString& viewName) const {
    ownerOf<oaView>(this)->getName(ns, viewName);
}

oaViewType* oaViewDMData::getViewType() const {
    return ownerOf<oaView>(this)->getViewType();
}

// Cell views.

oaCellViewDMData* oaCellViewDMData::open(const oaScalarName& libName, const oaScalarName& cellName,
                                         const oaScalarName& viewName, const oaViewType* viewType,
                                         oaChar mode) {
    oaDMContainer* cellView = findCellView(libName, cellName, viewName);
    if (cellView)
        requireViewType(static_cast<oaCellView*>(cellView), viewType);
    else if (mode == 'a' || mode == 'w')
        cellView = makeCellView(libName, cellName, viewName, viewType);
    if (!cellView)
        throwNoPlace(libName, cellViewTitle(cellName, viewName));
    return static_cast<oaCellViewDMData*>(openDMData(cellView, mode));
}

oaCellViewDMData* oaCellViewDMData::open(const oaScalarName& libName, const oaScalarName& cellName,
                                         const oaScalarName& viewName, oaChar mode) {
    const oaDMContainer* cellView = findCellView(libName, cellName, viewName);
    if (!cellView)
        throwNoPlace(libName, cellViewTitle(cellName, viewName));
    return static_cast<oaCellViewDMData*>(openDMData(cellView, mode));
}

oaCellViewDMData* oaCellViewDMData::find(const oaScalarName& libName, const oaScalarName& cellName,
                                         const oaScalarName& viewName) {
    return openDataOf<oaCellViewDMData>(findCellView(libName, cellName, viewName));
}

oaBoolean oaCellViewDMData::exists(const oaScalarName& libName, const oaScalarName& cellName,
                                   const oaScalarName& viewName) {
    const oaDMContainer* cellView = findCellView(libName, cellName, viewName);
    return cellView && hasDMData(cellView);
}

void oaCellViewDMData::destroy(const oaScalarName& libName, const oaScalarName& cellName,
                               const oaScalarName& viewName) {
    const oaDMContainer* cellView = findCellView(libName, cellName, viewName);
    if (!cellView)
        throwNoPlace(libName, cellViewTitle(cellName, viewName));
    destroyDMData(cellView);
}

void oaCellViewDMData::getCellName(oaScalarName& cellName) const {
    ownerOf<oaCellView>(this)->getCell()->getName(cellName);
}

void oaCellViewDMData::getCellName(const oaNameSpace& ns, oaString& cellName) const {
    ownerOf<oaCellView>(this)->getCell()->getName(ns, cellName);
}

void oaCellViewDMData::getViewName(oaScalarName& viewName) const {
    ownerOf<oaCellView>(this)->getView()->getName(viewName);
}

void oaCellViewDMData::getViewName(const oaNameSpace& ns, oaString& viewName) const {
    ownerOf<oaCellView>(this)->getView()->getName(ns, viewName);
}

oaViewType* oaCellViewDMData::getViewType() const {
    return ownerOf<oaCellView>(this)->getView()->getViewType();
}

} // namespace OpenAccess_4

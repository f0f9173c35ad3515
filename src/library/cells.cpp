#include <ovalis/library.h>

#include "core/boundary.h"
#include "core/names.h"

namespace ovalis {

namespace {

oa::oaViewType* customViewType(const std::string& name) {
    oa::oaViewType* type = oa::oaViewType::find(toOa(name));
    return type != nullptr ? type : oa::oaViewType::create(toOa(name));
}

oa::oaCellView* cellViewOfType(oa::oaCell& cell, const std::string& viewName,
                               oa::oaViewType* type) {
    oa::oaView* view = oa::oaView::get(cell.getLib(), scalarName(viewName), type);
    if (view == nullptr) {
        throw std::runtime_error("Could not create view " + viewName);
    }
    oa::oaCellView* cellView = oa::oaCellView::get(&cell, view);
    if (cellView == nullptr) {
        throw std::runtime_error("Could not create cell view " + viewName + " in cell");
    }
    return cellView;
}

} // namespace

oa::oaCell* createCell(oa::oaLib& lib, const std::string& cellName) {
    return atBoundary([&] {
        initOa();
        oa::oaCell* cell = oa::oaCell::get(&lib, scalarName(cellName));
        if (cell == nullptr) {
            throw std::runtime_error("Could not create cell " + cellName);
        }
        return cell;
    });
}

void removeCell(oa::oaLib& lib, const std::string& cellName) {
    atBoundary([&] {
        initOa();
        oa::oaCell* cell = oa::oaCell::find(&lib, scalarName(cellName));
        if (cell == nullptr) {
            throw std::runtime_error("Could not find cell " + cellName);
        }
        cell->destroy();
    });
}

oa::oaCellView* createCellView(oa::oaCell& cell, const std::string& viewName,
                               const std::string& viewTypeName) {
    return atBoundary([&] {
        initOa();
        oa::oaViewType* type = customViewType(viewTypeName);
        if (type == nullptr) {
            throw std::runtime_error("Could not create custom view type " + viewTypeName);
        }
        return cellViewOfType(cell, viewName, type);
    });
}

oa::oaCellView* createCellView(oa::oaCell& cell, const std::string& viewName,
                               oa::oaReservedViewTypeEnum viewType) {
    return atBoundary([&] {
        initOa();
        return cellViewOfType(cell, viewName, oa::oaViewType::get(viewType));
    });
}

oa::oaCellView* createCellView(oa::oaLib& lib, const std::string& cellName,
                               const std::string& viewName, const std::string& viewTypeName) {
    return createCellView(*createCell(lib, cellName), viewName, viewTypeName);
}

oa::oaCellView* createCellView(oa::oaLib& lib, const std::string& cellName,
                               const std::string& viewName, oa::oaReservedViewTypeEnum viewType) {
    return createCellView(*createCell(lib, cellName), viewName, viewType);
}

oa::oaCellView* findCellView(oa::oaCell& cell, const std::string& viewName,
                             const std::string& viewTypeName) {
    return atBoundary([&] {
        initOa();
        oa::oaViewType* type = customViewType(viewTypeName);
        oa::oaView* view = oa::oaView::get(cell.getLib(), scalarName(viewName), type);
        return oa::oaCellView::find(&cell, view);
    });
}

oa::oaCellView* findCellView(oa::oaLib& lib, const std::string& cellName,
                             const std::string& viewName, const std::string& viewTypeName) {
    return atBoundary([&] {
        initOa();
        oa::oaCell* cell = oa::oaCell::find(&lib, scalarName(cellName));
        return cell != nullptr ? findCellView(*cell, viewName, viewTypeName) : nullptr;
    });
}

oa::oaCellView* getCellView(oa::oaLib& lib, const std::string& cellName,
                            const std::string& viewName) {
    return atBoundary([&] {
        initOa();
        return oa::oaCellView::find(&lib, scalarName(cellName), scalarName(viewName));
    });
}

} // namespace ovalis

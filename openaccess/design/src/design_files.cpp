#include "design/src/design_files.h"

#include "design/src/names.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaDMException.h"
#include "oa/oaDesignException.h"
#include "storage/src/format.h"

#include "platform/file.h"
#include "platform/system_error.h"

#include <array>
#include <utility>

namespace OpenAccess_4::impl {

namespace {

constexpr std::array kDesignTypes = {oacMaskLayout, oacSchematic, oacSchematicSymbol, oacNetlist,
                                     oacHierDesign};

bool isDesignType(const oaViewType* viewType) {
    for (const oaReservedViewTypeEnum type : kDesignTypes)
        if (viewType == oaViewType::get(type))
            return true;
    return false;
}

oaString nameOf(const oaViewType* viewType) {
    oaString name;
    viewType->getName(name);
    return name;
}

oaReservedViewTypeEnum typeByName(const std::string& view) {
    if (view == "schematic")
        return oacSchematic;
    return view == "symbol" ? oacSchematicSymbol : oacMaskLayout;
}

} // namespace

DesignAccess::DesignAccess(const oaLib* lib, const DesignNames& names, oaLibAccessEnum kind) {
    try {
        access_.emplace(lib, kind);
    } catch (const oaDMError& error) {
        if (error.getMsgId() == oacLibAccessCannotUpgrade)
            throw oaDesignError(oacDesignHasReadNeedWriteAccess, names.lib.c_str(),
                                names.cell.c_str(), names.view.c_str());
        throw oaDesignError(kind == oacReadLibAccess ? oacDesignCannotGetReadAccess
                                                     : oacDesignCannotGetWriteAccess,
                            names.lib.c_str(), names.cell.c_str(), names.view.c_str(),
                            static_cast<const oaChar*>(error.getMsg()));
    }
}

oaLib* libraryOf(const DesignNames& names) {
    return openLibrary(scalarName(names.lib.c_str()));
}

void requireDesignType(const oaViewType* viewType) {
    if (!isDesignType(viewType))
        throw oaDesignError(oacInvalidDesignViewType, static_cast<const oaChar*>(nameOf(viewType)));
}

void requireSameType(const DesignNames& names, const oaViewType* actual, const oaViewType* wanted) {
    if (actual != wanted)
        throw oaDesignError(oacMismatchViewTypeForOpen, names.lib.c_str(), names.cell.c_str(),
                            names.view.c_str(), static_cast<const oaChar*>(nameOf(actual)),
                            static_cast<const oaChar*>(nameOf(wanted)));
}

oaCellView* findCellView(const oaLib* lib, const DesignNames& names) {
    return oaCellView::find(lib, scalarName(names.cell.c_str()), scalarName(names.view.c_str()));
}

const oaViewType* viewTypeFor(const oaLib* lib, const DesignNames& names,
                              const oaViewType* wanted) {
    if (wanted)
        requireDesignType(wanted);
    if (const oaCellView* cellView = findCellView(lib, names)) {
        const oaViewType* viewType = cellView->getView()->getViewType();
        if (wanted)
            requireSameType(names, viewType, wanted);
        requireDesignType(viewType);
        return viewType;
    }
    if (wanted)
        return wanted;
    oaIter<oaView> views(lib->getViewsByName(scalarName(names.view.c_str())));
    while (const oaView* view = views.getNext())
        if (isDesignType(view->getViewType()))
            return view->getViewType();
    return oaViewType::get(typeByName(names.view));
}

DesignPlace makePlace(const oaLib* lib, const DesignNames& names, const oaViewType* viewType) {
    return makeDesignPlace(lib, scalarName(names.cell.c_str()), scalarName(names.view.c_str()),
                           viewType);
}

bool hasContent(const std::string& path) {
    return platform::isFile(path) && platform::fileSize(path) > 0;
}

std::string headerOf(const std::string& path) {
    std::string header(sizeof(FileHeader), '\0');
    try {
        platform::File file(path, platform::OpenMode::read);
        header.resize(file.read(header.data(), header.size()));
    } catch (const platform::SystemFailure&) {
        header.clear(); // removed by somebody else
    }
    return header;
}

} // namespace OpenAccess_4::impl

#include "cli/export_component.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "cli/library_access.h"
#include "cli/target_library.h"
#include "cli/technology.h"
#include "cli/touchstone_file.h"
#include "platform/file.h"
#include "platform/path.h"

namespace cli {
namespace {

/// Gives a library that was made by other means the definition file that it needs to be found.
void completeDefinitions(const std::string& path, const std::string& name) {
    const std::string file = platform::joinPath(path, "lib.defs");
    if (platform::exists(file))
        return;
    // A text file with the line ends of the system, as that of a library that is made here.
    std::ofstream definitions(std::filesystem::path(std::u8string(file.begin(), file.end())));
    definitions << "INCLUDE $MOLTRAX_DIR/oalibs/vex.defs\nDEFINE " << name << " .\n";
    definitions.close();
    if (!definitions)
        throw std::runtime_error(file + ": cannot be written");
}

/// Throws when somebody has a view of the cell open for editing.
void requireNobodyEdits(oa::oaCell& cell, const std::string& cellName) {
    oa::oaIter<oa::oaCellView> views(cell.getCellViews());
    while (oa::oaCellView* view = views.getNext()) {
        oa::oaDMFile* primary = view->getPrimary();
        if (primary != nullptr && !ovalis::ScopedDMFileTryLock(*primary).hasLock())
            throw std::runtime_error("the cell " + cellName + " is locked, somebody edits it");
    }
}

/// @returns true when there is a cell to be replaced.
bool requireReplaceable(oa::oaLib& lib, const std::string& cellName, bool replace) {
    return calling([&] {
        const oa::oaScalarName name(oa::oaNativeNS(), cellName.c_str());
        oa::oaCell* cell = oa::oaCell::find(&lib, name);
        if (cell == nullptr)
            return false;
        if (!replace)
            throw std::runtime_error("the cell " + cellName +
                                     " exists already, --replace would replace it");
        requireNobodyEdits(*cell, cellName);
        return true;
    });
}

oa::oaDesign* createDesign(oa::oaLib& lib, const std::string& cell, const std::string& view,
                           oa::oaReservedViewTypeEnum type) {
    return calling([&] {
        oa::oaScalarName libName;
        lib.getName(libName);
        const oa::oaNativeNS names;
        // Written from scratch: the pcell master with a macro asks for this mode.
        return oa::oaDesign::open(libName, oa::oaScalarName(names, cell.c_str()),
                                  oa::oaScalarName(names, view.c_str()), oa::oaViewType::get(type),
                                  'w');
    });
}

void buildCell(oa::oaLib& lib, component::Component component, const component::Layout& layout,
               const Watcher& watcher, ExportReport& report) {
    {
        const OpenDesign design(createDesign(lib, component.name, "layout", oa::oacMaskLayout));
        if (!component.touchstoneFile.empty()) {
            report.touchstone = storeTouchstone(lib, component);
            referToTouchstone(component, report.touchstone);
        }
        report.artwork = drawLayout(*design, layout);
        addComponentPorts(*design, component);
        watcher(Step::layoutDrawn);
        makeMaster(*design, component);
        watcher(Step::masterMade);
    }
    if (component.symbol.kind != component::SymbolKind::none) {
        const OpenDesign symbol(
            createDesign(lib, component.name, "symbol", oa::oacSchematicSymbol));
        drawSymbol(*symbol, component);
    }
    watcher(Step::symbolDrawn);
}

/// What the library lacks besides the new cell, one line each. Somebody else may work in it by now.
std::string lacksOf(const LibraryOptions& library) {
    std::string lacks;
    try {
        ovalis::existsVEXCompatibleLib(directoryOf(library), nameOf(library), &lacks);
    } catch (const std::runtime_error& error) {
        lacks += std::string("not checked: ") + error.what() + "\n";
    }
    return lacks;
}

} // namespace

ExportReport exportComponent(const component::Component& component, const component::Layout& layout,
                             const LibraryOptions& library, bool replace, const Watcher& watcher) {
    ExportReport report;
    requireUsablePath(directoryOf(library));
    {
        TargetLibrary target(library);
        report.newLibrary = target.isNew();
        // First of all, because it may put back a cell that a killed export had moved aside.
        CellReplacement cell(target.path());
        report.replaced = requireReplaceable(*target, component.name, replace);
        watcher(Step::libraryReady);
        prepareTechnology(*target, component, layout);
        watcher(Step::technologyReady);
        buildCell(cell.workshop(), component, layout, watcher, report);
        cell.put(component.name, report.replaced, watcher);
        completeDefinitions(target.path(), nameOf(library));
        target.keep();
    }
    watcher(Step::newCellInPlace);
    report.lacks = lacksOf(library);
    return report;
}

} // namespace cli

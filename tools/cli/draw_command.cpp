#include <stdexcept>

#include "cli/collect.h"
#include "cli/commands.h"
#include "cli/library_access.h"
#include "cli/svg_file.h"
#include "drawing/svg.h"
#include "evaluation/identity.h"
#include "evaluation/open_libraries.h"

namespace cli {
namespace {

drawing::Picture pictureOf(const DrawOptions& options) {
    const CellViewOptions& asked = options.design;
    const evaluation::OpenLibraries libraries(directoryOf(asked.library), nameOf(asked.library),
                                              options.libs);
    oa::oaLib& lib = libraries.library();
    const std::string where = directoryOf(asked.library) + ": ";
    const std::string what = asked.cell + "/" + asked.view;
    if (ovalis::getCellView(lib, asked.cell, asked.view) == nullptr)
        throw std::runtime_error(where + "no cell view \"" + what + "\"");
    try {
        const OpenDesign design(ovalis::openDesign(lib, asked.cell, asked.view, false));
        const evaluation::DesignName name = evaluation::nameOf(*design);
        drawing::Picture picture = collect(*design);
        picture.title = name.library + " / " + name.cell + " / " + name.view;
        return picture;
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(where + what + ": " + error.what());
    }
}

} // namespace

int drawCommand(const DrawOptions& options, Console& console) {
    const drawing::Picture picture = pictureOf(options);
    if (options.outputFile.empty()) {
        drawing::writeSvg(console.out, picture);
        return success;
    }
    writeSvgFile(options.outputFile, picture);
    console.talk << "wrote " << options.outputFile << '\n';
    return success;
}

} // namespace cli

#include <stdexcept>

#include "cli/collect.h"
#include "cli/commands.h"
#include "cli/library_access.h"
#include "cli/svg_file.h"
#include "drawing/svg.h"

namespace cli {
namespace {

drawing::Picture pictureOf(const DrawOptions& options) {
    const ovalis::LibPtr lib = openForReading(options.design.library);
    const std::string where = directoryOf(options.design.library) + ": ";
    const std::string what = options.design.cell + "/" + options.design.view;
    if (ovalis::getCellView(*lib, options.design.cell, options.design.view) == nullptr)
        throw std::runtime_error(where + "no cell view \"" + what + "\"");
    try {
        const OpenDesign design(
            ovalis::openDesign(*lib, options.design.cell, options.design.view, false));
        drawing::Picture picture = collect(*design);
        picture.title = nameOf(options.design.library) + " / " + options.design.cell + " / " +
                        options.design.view;
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

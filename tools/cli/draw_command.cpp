#include <sstream>
#include <stdexcept>

#include "cli/collect.h"
#include "cli/commands.h"
#include "cli/library_access.h"
#include "drawing/svg.h"
#include "platform/file.h"

namespace cli {
namespace {

drawing::Picture pictureOf(const DrawOptions& options) {
    const ovalis::LibPtr lib = openForReading(options.library);
    const std::string where = directoryOf(options.library) + ": ";
    const std::string what = options.cell + "/" + options.view;
    if (ovalis::getCellView(*lib, options.cell, options.view) == nullptr)
        throw std::runtime_error(where + "no cell view \"" + what + "\"");
    try {
        const OpenDesign design(ovalis::openDesign(*lib, options.cell, options.view, false));
        drawing::Picture picture = collect(*design);
        picture.title = nameOf(options.library) + " / " + options.cell + " / " + options.view;
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
    std::ostringstream svg;
    drawing::writeSvg(svg, picture);
    const std::string text = svg.str();
    platform::File file(options.outputFile, platform::OpenMode::write);
    file.write(text.data(), text.size());
    file.close();
    console.talk << "wrote " << options.outputFile << '\n';
    return success;
}

} // namespace cli

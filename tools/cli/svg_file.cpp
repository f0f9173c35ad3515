#include "cli/svg_file.h"

#include <sstream>

#include "drawing/svg.h"
#include "platform/file.h"

namespace cli {

void writeSvgFile(const std::string& path, const drawing::Picture& picture) {
    std::ostringstream svg;
    drawing::writeSvg(svg, picture);
    const std::string text = svg.str();
    platform::File file(path, platform::OpenMode::write);
    file.write(text.data(), text.size());
    file.close();
}

} // namespace cli

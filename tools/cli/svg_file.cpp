#include "cli/svg_file.h"

#include <sstream>

#include "cli/result_file.h"
#include "drawing/svg.h"

namespace cli {

void writeSvgFile(const std::string& path, const drawing::Picture& picture) {
    std::ostringstream svg;
    drawing::writeSvg(svg, picture);
    const std::string text = svg.str();
    ResultFile file(path);
    file.write(text.data(), text.size());
    file.finish();
}

} // namespace cli

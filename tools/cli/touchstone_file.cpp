#include "cli/touchstone_file.h"

#include <ovalis/dm_files.h>

#include "platform/file.h"
#include "platform/path.h"

namespace cli {

std::string storeTouchstone(oa::oaLib& lib, const component::Component& component) {
    const std::string name = platform::fileName(component.touchstoneFile);
    const std::string path = ovalis::addDMFile(lib, component.name, name);
    platform::copyFile(component.touchstoneFile, path);
    // The directory of a cell is not always spelled as the cell.
    return platform::fileName(platform::parentPath(path)) + "/" + platform::fileName(path);
}

void referToTouchstone(component::Component& component, const std::string& path) {
    const std::string name = platform::fileName(component.touchstoneFile);
    bool isNamed = false;
    for (component::Parameter& parameter : component.parameters) {
        auto* const text = std::get_if<std::string>(&parameter.value);
        if (text == nullptr || (parameter.name != "File" && platform::fileName(*text) != name))
            continue;
        *text = path;
        isNamed = true;
    }
    if (isNamed || component.kind != component::Kind::sParameter)
        return;
    component::Parameter file;
    file.name = "File";
    file.description = "Touchstone file of the S-parameters";
    file.value = path;
    component.parameters.push_back(std::move(file));
}

} // namespace cli

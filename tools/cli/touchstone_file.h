#pragma once

#include <string>

#include <ovalis/core.h>

#include "component/component.h"

namespace cli {

/// Copies the component's Touchstone file into its cell, which is there already, as a file that the
/// database manages; answers its path within the library, with slashes.
std::string storeTouchstone(oa::oaLib& lib, const component::Component& component);

/// Lets the component's parameter name its Touchstone file by `path`. That is the text parameter
/// `File`, or one that names the file now; an S-parameter component without one gets `File`.
void referToTouchstone(component::Component& component, const std::string& path);

} // namespace cli

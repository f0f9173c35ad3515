#pragma once

#include "component/component.h"
#include "component/json_node.h"

namespace component {

/// Reads a component description; its geometry file is named, not read.
/// @throws InputError  with one line that says where the file departs from the form.
Component readComponent(const std::string& file);

/// Reads the geometry of `component` from its layout file.
/// @throws InputError  as `readComponent`; also when a layer is not declared by the component.
Layout readLayout(const Component& component);

} // namespace component

#pragma once

#include <string>
#include <vector>

#include <ovalis/library.h>

#include "component/component.h"

namespace cli {

/// Gives the technology of `lib` the units and the names of layers and purposes that the component
/// and the EM product need, and saves it when something was missing; makes it when there is none.
///
/// Names for labels, the symbol's layer and purposes that the database reserves are given where
/// they are free and left out where they are not.
/// @throws std::runtime_error  the technology contradicts the component; nothing is changed then.
/// @throws ovalis::Exception   the database failed.
void prepareTechnology(oa::oaLib& lib, const component::Component& component,
                       const component::Layout& layout);

} // namespace cli

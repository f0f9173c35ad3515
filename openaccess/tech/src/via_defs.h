#pragma once

#include "oa/oaViaDef.h"

#include <string>

namespace OpenAccess_4::impl {

class TechDatabase;

/// True when what came from a file can be: definitions of different names, with cut patterns.
bool areViaDefsSound(TechDatabase& tech);

/// Lets the via definitions of a technology follow a layer to another number.
void renumberLayerOfViaDefs(TechDatabase& tech, oaLayerNum before, oaLayerNum after);

/// The native names of the library, cell and view of the master of a custom via.
struct ViaMasterNames {
    std::string lib;
    std::string cell;
    std::string view;
};
ViaMasterNames masterNamesOf(const oaCustomViaDef* def);

} // namespace OpenAccess_4::impl

#include <ovalis/ports.h>

#include "core/statics.h"

namespace ovalis {

namespace {

constexpr std::uint32_t drawing = 0xFFFFFFFF;
constexpr std::uint32_t annotation = 0xFFFFFFFA;
constexpr std::uint32_t vexAnnotate = 240;

} // namespace

LayerPurposePairs vexDefaultLayerPurposePairs() {
    return {
        {"default:drawing", {0, drawing}},
        {"cond:drawing", {1, drawing}},
        {"cond:annotation", {1, annotation}},
        {"cond2:drawing", {2, drawing}},
        {"resi:drawing", {3, drawing}},
        {"diel:drawing", {4, drawing}},
        {"hole:drawing", {5, drawing}},
        {"bond:drawing", {6, drawing}},
        {"symbol:drawing", {7, drawing}},
        {"text:drawing", {8, drawing}},
        {"bound:drawing", {13, drawing}},
        {"bound:annotation", {13, annotation}},
        {"vex_text:drawing", {230, drawing}},
        {"vex_device:vex_annotate", {231, vexAnnotate}},
        {"vex_device:drawing", {231, drawing}},
        {"vex_annotate:drawing", {237, drawing}},
        {"vex_drc_error:drawing", {255, drawing}},
    };
}

LayerPurposePairs tessaDefaultLayerPurposePairs() {
    return {
        {"tessa_3dc_pins:drawing", {pinLayer, drawing}},
        {"tessa_3dc_pins:annotation", {pinLayer, annotation}},
        {"tessa_3dc_artwork:drawing", {artworkLayer, drawing}},
        {"tessa_3dc_artwork:annotation", {artworkLayer, annotation}},
    };
}

} // namespace ovalis

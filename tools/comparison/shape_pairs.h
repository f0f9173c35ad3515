#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include <oa/oaDesignDB.h>

namespace comparison {

/// A shape that has no equal on the other side.
struct Figure {
    const oa::oaPinFig* shape = nullptr;
    oa::oaPoint anchor;
    oa::oaBox extent;
    /// Digests of the kind and the form, of the layer-purpose pair, and of what the shape is
    /// connected with and carries.
    std::uint64_t form = 0;
    std::uint64_t layer = 0;
    std::uint64_t links = 0;
    bool isDone = false;
};

using Figures = std::vector<Figure>;
using KeyOf = std::function<std::uint64_t(const Figure&)>;
using Accept = std::function<bool(const Figure&, const Figure&)>;
using Take = std::function<void(Figure&, Figure&)>;

/// Pairs figures with equal keys, near ones first, and hands each acceptable pair on. Figures that
/// are done are left out; those of a pair are done afterwards. Many figures of one key are paired
/// in the order of their places, so that the time stays about linear.
void pairFigures(Figures& was, Figures& is, const KeyOf& keyOf, const Accept& accept,
                 const Take& take);

} // namespace comparison

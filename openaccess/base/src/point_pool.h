#pragma once

#include "base/src/large_array.h"
#include "base/src/refs.h"
#include "oa/oaPoint.h"

#include <span>
#include <vector>

namespace OpenAccess_4::impl {

/// The points of the outlines of one database. A run is never changed once it is added: a shape
/// that gets other points gets another run, and saving drops what no shape names any more.
class PointPool {
public:
    /// Adds a run of points to those of a group, a small number. The runs of one group lie together
    /// in blocks, in whatever order groups take turns, as do the shapes of one layer that are
    /// visited together; the unused end of a block is zeros.
    /// @throws oaError  oacPointPoolFull: the pool would pass 2^32 points.
    PointsRef add(std::span<const oaPoint> points, std::uint32_t group = 0);

    /// Adds a run of points right behind the last one of all.
    /// @throws oaError  oacPointPoolFull
    PointsRef append(std::span<const oaPoint> points);

    /// Makes room in an empty pool for the points of a database file.
    std::span<oaPoint> makeRoom(std::size_t count) { return points_.grow(count); }

    std::span<const oaPoint> get(PointsRef run) const {
        return points_.all().subspan(run.first, run.count);
    }
    std::span<const oaPoint> all() const { return points_.all(); }

private:
    /// The block that the next run of a group goes to, as far as it has room.
    struct Block {
        std::uint32_t next = 0;
        std::uint32_t end = 0;
        std::uint32_t size = 0;
    };

    void newBlock(Block& block, std::size_t least);
    std::uint32_t grow(std::size_t count);

    LargeArray<oaPoint> points_;
    std::vector<Block> blocks_; // by group
};

} // namespace OpenAccess_4::impl

#include "base/src/point_pool.h"

#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"

#include <algorithm>
#include <limits>

namespace OpenAccess_4::impl {

namespace {

// Blocks double up to eight pages of 4 KiB, so that small designs have small files.
constexpr std::uint32_t kLargestBlock = 8 * 4096 / sizeof(oaPoint);

} // namespace

PointsRef PointPool::add(std::span<const oaPoint> points, std::uint32_t group) {
    if (group >= blocks_.size())
        blocks_.resize(group + 1);
    Block& block = blocks_[group];
    if (points.size() > block.end - block.next)
        newBlock(block, points.size());
    const PointsRef run{block.next, std::uint32_t(points.size())};
    std::copy(points.begin(), points.end(), points_.part(run.first, run.count).begin());
    block.next += run.count;
    return run;
}

PointsRef PointPool::append(std::span<const oaPoint> points) {
    const PointsRef run{grow(points.size()), std::uint32_t(points.size())};
    std::copy(points.begin(), points.end(), points_.part(run.first, run.count).begin());
    return run;
}

void PointPool::newBlock(Block& block, std::size_t least) {
    const std::size_t size = std::max<std::size_t>(least, std::min(2 * block.size, kLargestBlock));
    block.next = grow(size);
    block.end = block.next + std::uint32_t(size);
    block.size = std::min(std::uint32_t(size), kLargestBlock);
}

/// Adds `count` points at the end and answers the number of the first.
std::uint32_t PointPool::grow(std::size_t count) {
    const std::size_t first = points_.size();
    if (first + count > std::numeric_limits<std::uint32_t>::max())
        throw oaError(oacPointPoolFull);
    points_.grow(count);
    return std::uint32_t(first);
}

} // namespace OpenAccess_4::impl

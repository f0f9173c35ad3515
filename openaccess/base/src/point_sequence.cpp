#include "base/src/point_sequence.h"

#include "base/src/geometry.h"
#include "oaBox.h"

#include <algorithm>
#include <deque>

namespace OpenAccess_4::impl {

namespace {

// Of an open line, the tip of an edge that runs back is where the line reaches farthest: it stays.
bool isExtra(const oaPoint& before, const oaPoint& point, const oaPoint& after, bool isClosed) {
    if (point == before || point == after)
        return true;
    if (area2(before, point, after) != 0)
        return false;
    return isClosed || oaSegment(before, after).collinearContains(point);
}

void addCompressed(std::deque<oaPoint>& kept, const oaPoint& point, bool isClosed) {
    while (kept.size() > 1 && isExtra(kept[kept.size() - 2], kept.back(), point, isClosed))
        kept.pop_back();
    if (kept.empty() || kept.back() != point)
        kept.push_back(point);
}

// Removes what is superfluous around the seam between the last and the first point.
void compressSeam(std::deque<oaPoint>& kept) {
    while (kept.size() > 2) {
        if (isExtra(kept[kept.size() - 2], kept.back(), kept.front(), true))
            kept.pop_back();
        else if (isExtra(kept.back(), kept.front(), kept[1], true))
            kept.pop_front();
        else
            return;
    }
    if (kept.size() == 2 && kept.front() == kept.back())
        kept.pop_back();
}

struct Edge {
    oaSegment segment;
    oaBox box;
    std::size_t index;
};

std::vector<Edge> edgesOf(std::span<const oaPoint> points, bool isClosed) {
    std::vector<Edge> edges;
    allEdges(points, isClosed, [&](const oaSegment& segment) {
        if (segment.head() == segment.tail())
            return true;
        oaBox box(segment.head(), segment.tail());
        box.fix();
        edges.push_back({segment, box, edges.size()});
        return true;
    });
    return edges;
}

// Edges that follow one another share a point; they must not share more.
bool meetWrongly(const Edge& a, const Edge& b, std::size_t numEdges, bool isClosed) {
    const Edge& first = a.index < b.index ? a : b;
    const Edge& second = a.index < b.index ? b : a;
    const bool follow = second.index == first.index + 1;
    const bool seam = isClosed && first.index == 0 && second.index + 1 == numEdges;
    if (!follow && !seam)
        return first.segment.intersects(second.segment);
    if (numEdges == 2 && isClosed)
        return true;
    const oaPoint& shared = follow ? first.segment.head() : first.segment.tail();
    const oaPoint& start = follow ? first.segment.tail() : first.segment.head();
    const oaPoint& end = follow ? second.segment.head() : second.segment.tail();
    return area2(start, shared, end) == 0 && !oaSegment(start, end).contains(shared);
}

} // namespace

std::vector<oaPoint> compressed(std::span<const oaPoint> points, bool isClosed) {
    std::deque<oaPoint> kept;
    for (const oaPoint& point : points)
        addCompressed(kept, point, isClosed);
    if (isClosed)
        compressSeam(kept);
    return {kept.begin(), kept.end()};
}

bool hasExtraPoints(std::span<const oaPoint> points, bool isClosed) {
    return compressed(points, isClosed).size() != points.size();
}

bool isSelfIntersecting(std::span<const oaPoint> points, bool isClosed) {
    const std::vector<Edge> edges = edgesOf(points, isClosed);
    std::vector<const Edge*> byLeft;
    for (const Edge& edge : edges)
        byLeft.push_back(&edge);
    std::sort(byLeft.begin(), byLeft.end(),
              [](const Edge* a, const Edge* b) { return a->box.left() < b->box.left(); });
    std::vector<const Edge*> active;
    for (const Edge* edge : byLeft) {
        std::erase_if(active, [&](const Edge* a) { return a->box.right() < edge->box.left(); });
        for (const Edge* other : active) {
            if (other->box.overlaps(edge->box) &&
                meetWrongly(*other, *edge, edges.size(), isClosed))
                return true;
        }
        active.push_back(edge);
    }
    return false;
}

} // namespace OpenAccess_4::impl

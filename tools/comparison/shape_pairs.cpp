#include "comparison/shape_pairs.h"

#include <algorithm>
#include <tuple>

namespace comparison {
namespace {

// So many pairs of one key are looked at one by one.
constexpr std::size_t mostPairs = 4096;

struct Keyed {
    std::uint64_t key;
    Figure* figure;
};

auto orderOf(const Keyed& keyed) {
    const oa::oaPoint& anchor = keyed.figure->anchor;
    return std::tuple(keyed.key, anchor.x(), anchor.y());
}

std::vector<Keyed> sorted(Figures& figures, const KeyOf& keyOf) {
    std::vector<Keyed> all;
    for (Figure& figure : figures)
        if (!figure.isDone)
            all.push_back({keyOf(figure), &figure});
    std::stable_sort(all.begin(), all.end(), [](const Keyed& left, const Keyed& right) {
        return orderOf(left) < orderOf(right);
    });
    return all;
}

double distance2(const Figure& left, const Figure& right) {
    return left.anchor.distanceFrom2(right.anchor);
}

using Iterator = std::vector<Keyed>::const_iterator;

/// The figures of one key on both sides.
struct Rivals {
    Iterator was;
    Iterator wasEnd;
    Iterator is;
    Iterator isEnd;
};

void finish(Figure& was, Figure& is, const Take& take) {
    was.isDone = true;
    is.isDone = true;
    take(was, is);
}

void pairNearest(const Rivals& rivals, const Accept& accept, const Take& take) {
    std::vector<std::tuple<double, Figure*, Figure*>> pairs;
    for (Iterator was = rivals.was; was != rivals.wasEnd; ++was)
        for (Iterator is = rivals.is; is != rivals.isEnd; ++is)
            if (accept(*was->figure, *is->figure))
                pairs.emplace_back(distance2(*was->figure, *is->figure), was->figure, is->figure);
    std::stable_sort(pairs.begin(), pairs.end(), [](const auto& left, const auto& right) {
        return std::get<0>(left) < std::get<0>(right);
    });
    for (const auto& [distance, was, is] : pairs)
        if (!was->isDone && !is->isDone)
            finish(*was, *is, take);
}

void pairInOrder(const Rivals& rivals, const Accept& accept, const Take& take) {
    Iterator is = rivals.is;
    for (Iterator was = rivals.was; was != rivals.wasEnd && is != rivals.isEnd; ++was, ++is)
        if (accept(*was->figure, *is->figure))
            finish(*was->figure, *is->figure, take);
}

Iterator endOfKey(Iterator from, Iterator end) {
    const std::uint64_t key = from->key;
    return std::find_if(from, end, [key](const Keyed& keyed) { return keyed.key != key; });
}

} // namespace

void pairFigures(Figures& was, Figures& is, const KeyOf& keyOf, const Accept& accept,
                 const Take& take) {
    const std::vector<Keyed> left = sorted(was, keyOf);
    const std::vector<Keyed> right = sorted(is, keyOf);
    Iterator at = left.begin();
    Iterator other = right.begin();
    while (at != left.end() && other != right.end()) {
        if (at->key < other->key) {
            ++at;
        } else if (other->key < at->key) {
            ++other;
        } else {
            const Rivals rivals{at, endOfKey(at, left.end()), other, endOfKey(other, right.end())};
            const auto pairs = std::size_t(rivals.wasEnd - at) * std::size_t(rivals.isEnd - other);
            if (pairs <= mostPairs)
                pairNearest(rivals, accept, take);
            else
                pairInOrder(rivals, accept, take);
            at = rivals.wasEnd;
            other = rivals.isEnd;
        }
    }
}

} // namespace comparison

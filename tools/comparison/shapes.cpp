#include "comparison/shapes.h"

#include <algorithm>
#include <tuple>

#include "comparison/attachments.h"
#include "comparison/shape_form.h"
#include "comparison/shape_pairs.h"
#include "comparison/text.h"

namespace comparison {
namespace {

/// A shape with the digest of everything that there is to say about it.
struct Entry {
    std::uint64_t first;
    std::uint64_t second;
    const oa::oaPinFig* shape;

    bool isLike(const Entry& other) const { return first == other.first && second == other.second; }
    bool operator<(const Entry& other) const {
        return std::tie(first, second) < std::tie(other.first, other.second);
    }
};

std::uint64_t wordOf(std::uint32_t high, std::uint32_t low) {
    return std::uint64_t{high} << 32 | low;
}

std::uint64_t wordOf(const oa::oaPoint& point) {
    return wordOf(std::uint32_t(point.x()), std::uint32_t(point.y()));
}

/// The shapes and vias of two blocks, and what became of them.
class ShapeComparison {
public:
    ShapeComparison(const Place& place, Labels& labels) : place_(place), labels_(labels) {}

    void compare(const oa::oaBlock& was, const oa::oaBlock& is) {
        std::vector<Entry> left = entriesOf(was);
        std::vector<Entry> right = entriesOf(is);
        dropEqual(left, right);
        was_ = figuresOf(left);
        is_ = figuresOf(right);
        pairAll();
        tellAll();
    }

private:
    std::vector<Entry> entriesOf(const oa::oaBlock& block) const;
    Entry entryOf(const oa::oaPinFig& shape) const;
    Figures figuresOf(const std::vector<Entry>& entries) const;
    static void dropEqual(std::vector<Entry>& was, std::vector<Entry>& is);

    /// True for a figure of a pin that is on one side only: it is told with the pin.
    bool isOfLonePin(const oa::oaPinFig& shape) const {
        return shape.hasPin() && !labels_.hasPartner(shape.getPin());
    }
    std::uint64_t linksOf(const oa::oaPinFig& shape) const;
    Fields linkFields(const oa::oaPinFig& shape, bool withConnections) const;

    void pairAll();
    void pairBy(const KeyOf& keyOf, const Accept& accept);
    void dropFiguresOfLonePins();
    void tellAll();
    void tell(const Figure& was, const Figure& is);

    const Place& place_;
    Labels& labels_;
    Figures was_;
    Figures is_;
    std::vector<std::pair<const Figure*, const Figure*>> pairs_;
};

std::uint64_t ShapeComparison::linksOf(const oa::oaPinFig& shape) const {
    Digest digest;
    if (shape.hasPin()) {
        const oa::oaPin* const pin = shape.getPin();
        digest.add(labels_.hasPartner(pin) ? labels_.numberOf(pin) : 0);
    } else if (shape.hasNet()) {
        digest.add(labels_.numberOf(shape.getNet()));
    } else {
        digest.add(std::uint64_t{0});
    }
    if (hasAttachments(shape)) {
        Fields fields;
        addAttachments(fields, shape);
        digest.add(textOf(fields));
    }
    return digest.first();
}

Fields ShapeComparison::linkFields(const oa::oaPinFig& shape, bool withConnections) const {
    Fields fields;
    addAttachments(fields, shape);
    if (const std::uint64_t layer = layerOf(shape); layer != 0)
        fields.set("layer and purpose",
                   labels_.layerText(oa::oaLayerNum(layer >> 32), oa::oaPurposeNum(layer)));
    if (withConnections && shape.hasPin())
        fields.set("pin", labels_.nameOf(*shape.getPin()));
    else if (withConnections && shape.hasNet())
        fields.set("net", labels_.nameOf(*shape.getNet()));
    return fields;
}

std::vector<Entry> ShapeComparison::entriesOf(const oa::oaBlock& block) const {
    std::vector<Entry> entries;
    const auto shapes = block.getShapes();
    const auto vias = block.getVias();
    entries.reserve(shapes.getCount() + vias.getCount());
    oa::oaIter<oa::oaShape> allShapes(shapes);
    while (const oa::oaShape* shape = allShapes.getNext())
        entries.push_back(entryOf(*shape));
    oa::oaIter<oa::oaVia> allVias(vias);
    while (const oa::oaVia* via = allVias.getNext())
        entries.push_back(entryOf(*via));
    return entries;
}

Entry ShapeComparison::entryOf(const oa::oaPinFig& shape) const {
    const oa::oaPoint anchor = anchorOf(shape);
    Digest digest;
    addForm(digest, shape, anchor, labels_);
    digest.add(wordOf(anchor));
    digest.add(layerOf(shape));
    digest.add(linksOf(shape));
    return {digest.first(), digest.second(), &shape};
}

/// Leaves of each side what has no equal on the other one. Copies have their shapes in one order,
/// so most go without sorting.
void ShapeComparison::dropEqual(std::vector<Entry>& was, std::vector<Entry>& is) {
    const std::size_t shared = std::min(was.size(), is.size());
    std::size_t kept = 0;
    for (std::size_t at = 0; at < shared; ++at)
        if (!was[at].isLike(is[at])) {
            was[kept] = was[at];
            is[kept++] = is[at];
        }
    const auto drop = [kept, shared](std::vector<Entry>& entries) {
        entries.erase(entries.begin() + std::ptrdiff_t(kept),
                      entries.begin() + std::ptrdiff_t(shared));
    };
    drop(was);
    drop(is);
    std::stable_sort(was.begin(), was.end());
    std::stable_sort(is.begin(), is.end());
    std::vector<Entry> onlyWas;
    std::vector<Entry> onlyIs;
    std::set_difference(was.begin(), was.end(), is.begin(), is.end(), std::back_inserter(onlyWas));
    std::set_difference(is.begin(), is.end(), was.begin(), was.end(), std::back_inserter(onlyIs));
    was.swap(onlyWas);
    is.swap(onlyIs);
}

/// In the order in which they are told.
Figures ShapeComparison::figuresOf(const std::vector<Entry>& entries) const {
    Figures figures;
    figures.reserve(entries.size());
    for (const Entry& entry : entries) {
        const oa::oaPinFig& shape = *entry.shape;
        const oa::oaPoint anchor = anchorOf(shape);
        Digest digest;
        addForm(digest, shape, anchor, labels_);
        figures.push_back({&shape, anchor, extentOf(shape), digest.first(), layerOf(shape),
                           linksOf(shape), false});
    }
    const auto orderOf = [](const Figure& figure) {
        return std::tuple(figure.layer, figure.extent.left(), figure.extent.bottom(),
                          std::uint32_t(figure.shape->getType()), figure.form);
    };
    std::stable_sort(figures.begin(), figures.end(),
                     [&orderOf](const Figure& left, const Figure& right) {
                         return orderOf(left) < orderOf(right);
                     });
    return figures;
}

template <class... Words>
std::uint64_t keyOf(Words... words) {
    Digest digest;
    (digest.add(std::uint64_t(words)), ...);
    return digest.first();
}

void ShapeComparison::pairBy(const KeyOf& key, const Accept& accept) {
    pairFigures(was_, is_, key, accept, [this](Figure& was, Figure& is) {
        pairs_.emplace_back(&was, &is);
        labels_.pair(was.shape, is.shape, describe(*was.shape, labels_));
    });
}

/// From what is alike in most to what is alike in least.
void ShapeComparison::pairAll() {
    const Accept always = [](const Figure&, const Figure&) { return true; };
    const Accept touching = [](const Figure& was, const Figure& is) {
        return was.extent.overlaps(is.extent) != 0;
    };
    pairBy([](const Figure& of) { return keyOf(of.form, of.layer, wordOf(of.anchor)); }, always);
    dropFiguresOfLonePins();
    pairBy([](const Figure& of) { return keyOf(of.form, wordOf(of.anchor), of.links); }, always);
    pairBy([](const Figure& of) { return keyOf(of.form, of.layer, of.links); }, always);
    pairBy([](const Figure& of) { return keyOf(of.form, wordOf(of.anchor)); }, always);
    pairBy([](const Figure& of) { return keyOf(of.form, of.layer); }, always);
    pairBy([](const Figure& of) { return keyOf(of.shape->getType(), of.layer, of.links); },
           touching);
    pairBy([](const Figure& of) { return keyOf(of.shape->getType(), of.layer); }, touching);
}

void ShapeComparison::dropFiguresOfLonePins() {
    for (Figures* figures : {&was_, &is_})
        for (Figure& figure : *figures)
            figure.isDone = figure.isDone || isOfLonePin(*figure.shape);
}

void ShapeComparison::tell(const Figure& was, const Figure& is) {
    const std::string label = describe(*was.shape, labels_);
    const bool withConnections = !isOfLonePin(*was.shape) && !isOfLonePin(*is.shape);
    if (was.form != is.form) {
        compareOutlines(place_, label, *was.shape, *is.shape);
        compareFields(place_, label, formOf(*was.shape, labels_), formOf(*is.shape, labels_));
    } else if (was.anchor != is.anchor) {
        place_.moved(label, textOf(is.anchor - was.anchor));
    }
    compareFields(place_, label, linkFields(*was.shape, withConnections),
                  linkFields(*is.shape, withConnections));
}

void ShapeComparison::tellAll() {
    std::sort(pairs_.begin(), pairs_.end()); // as the figures lie
    for (const auto& [was, is] : pairs_)
        tell(*was, *is);
    for (const Figure& figure : was_)
        if (!figure.isDone)
            place_.removed(describe(*figure.shape, labels_));
    for (const Figure& figure : is_)
        if (!figure.isDone)
            place_.added(describe(*figure.shape, labels_));
}

} // namespace

void compareShapes(const Place& place, const oa::oaBlock& was, const oa::oaBlock& is,
                   Labels& labels) {
    ShapeComparison(place, labels).compare(was, is);
}

std::uint64_t digestOf(const std::vector<const oa::oaPinFig*>& shapes, const Labels& labels) {
    std::uint64_t sum = 0;
    for (const oa::oaPinFig* shape : shapes) {
        const oa::oaPoint anchor = anchorOf(*shape);
        Digest digest;
        addForm(digest, *shape, anchor, labels);
        digest.add(wordOf(anchor));
        digest.add(layerOf(*shape));
        sum += digest.first();
    }
    return sum;
}

} // namespace comparison

// How long a description will be, from the descriptions of a few of its objects.

#include "xml/estimate.h"

#include "xml/describe.h"

namespace ovalis {

namespace {

// What is shorter may be there twice for a moment.
constexpr std::size_t smallText = std::size_t(1) << 20;

// So few objects make a small text; looking at some of them would take as long as describing all.
constexpr std::size_t few = 500;

constexpr std::size_t sampleSize = 100;

// A shape without its points, and a point with coordinates of all lengths.
constexpr std::size_t outlineSize = 160;
constexpr std::size_t pointSize = 44;

/// The average of the objects that were described, times all of them and a quarter more; nothing of
/// a few objects.
class Sample {
public:
    explicit Sample(std::size_t all) : step_(all < few ? 0 : all / sampleSize) {}

    template <class Object>
    void take(const Object& object) {
        if (step_ != 0 && count_++ % step_ == 0) {
            describe(text_, object);
            ++taken_;
        }
    }

    std::size_t size() const {
        return taken_ == 0 ? 0 : (text_.size() / taken_ + 1) * count_ / 4 * 5;
    }

private:
    std::size_t step_;
    std::size_t count_ = 0;
    std::size_t taken_ = 0;
    XmlText text_;
};

template <class Element, class Owner>
std::size_t sizeOf(const oa::oaCollection<Element, Owner>& collection) {
    const std::size_t all = collection.getCount();
    if (all < few) {
        return 0;
    }
    Sample sample(all);
    oa::oaIter<Element> iterator(collection);
    while (const Element* element = iterator.getNext()) {
        sample.take(*element);
    }
    return sample.size();
}

// Outlines differ too much in length for a sample.
std::size_t sizeOfShapes(const oa::oaBlock& block) {
    const auto shapes = block.getShapes();
    Sample others(shapes.getCount());
    std::size_t outlines = 0;
    std::size_t points = 0;
    oa::oaIter<oa::oaShape> iterator(shapes);
    while (const oa::oaShape* shape = iterator.getNext()) {
        switch (oa::oaTypeEnum(shape->getType())) {
        case oa::oacPolygonType:
            ++outlines;
            points += static_cast<const oa::oaPolygon*>(shape)->getNumPoints();
            break;
        case oa::oacLineType:
            ++outlines;
            points += static_cast<const oa::oaLine*>(shape)->getNumPoints();
            break;
        default:
            others.take(*shape);
        }
    }
    return outlines * outlineSize + points * pointSize + others.size();
}

} // namespace

std::size_t estimatedSize(const oa::oaDesign& design) {
    std::size_t size = 0;
    if (const oa::oaBlock* block = design.getTopBlock()) {
        size = sizeOfShapes(*block) + sizeOf(block->getNets()) + sizeOf(block->getPins()) +
               sizeOf(block->getInstTerms());
    }
    if (const oa::oaOccurrence* occurrence = design.getTopOccurrence()) {
        size += sizeOf(occurrence->getInsts());
    }
    return size < smallText ? 0 : size + smallText; // of which there are few fits in there as well
}

} // namespace ovalis

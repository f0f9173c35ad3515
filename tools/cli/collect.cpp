#include "cli/collect.h"

#include <algorithm>
#include <set>

#include <ovalis/core.h>
#include <ovalis/ports.h>

#include "cli/library_access.h"
#include "evaluation/identity.h"

namespace cli {
namespace {

using drawing::LayerPurpose;
using drawing::Picture;
using drawing::Points;

constexpr oa::oaUInt4 curveSides = 64;
constexpr int deepestInstance = 40;

/// Names by number from the default tables, for technologies that do not define them.
std::string defaultName(std::uint32_t number, bool layer) {
    for (const auto& table :
         {ovalis::vexDefaultLayerPurposePairs(), ovalis::tessaDefaultLayerPurposePairs()})
        for (const auto& [key, pair] : table)
            if ((layer ? pair.first : pair.second) == number) {
                const std::size_t colon = key.find(':');
                return layer ? key.substr(0, colon) : key.substr(colon + 1);
            }
    return std::to_string(number);
}

template <class Named>
std::string nameIn(oa::oaTech* tech, std::uint32_t number) {
    constexpr bool layer = std::is_same_v<Named, oa::oaLayer>;
    const Named* found = tech == nullptr ? nullptr : Named::find(tech, oa::oaUInt4{number});
    if (found == nullptr)
        return defaultName(number, layer);
    oa::oaString name;
    found->getName(name);
    return ovalis::fromOa(name);
}

drawing::Point toDrawing(oa::oaPoint point, const oa::oaTransform& transform) {
    point.transform(transform);
    return {point.x(), point.y()};
}

Points toDrawing(const oa::oaPointArray& points, const oa::oaTransform& transform) {
    Points drawn;
    for (oa::oaUInt4 at = 0; at < points.getNumElements(); ++at)
        drawn.push_back(toDrawing(points[at], transform));
    return drawn;
}

Points cornersOf(const oa::oaBox& box, const oa::oaTransform& transform) {
    return {toDrawing({box.left(), box.bottom()}, transform),
            toDrawing({box.right(), box.bottom()}, transform),
            toDrawing({box.right(), box.top()}, transform),
            toDrawing({box.left(), box.top()}, transform)};
}

/// What one figure adds to a picture: closed outlines, open lines and dots.
struct Shown {
    std::vector<Points> closed;
    std::vector<Points> open;
    Points dots;
};

void showDot(const oa::oaDot& dot, const oa::oaTransform& transform, Shown& shown) {
    oa::oaPoint place;
    dot.getLocation(place);
    shown.dots.push_back(toDrawing(place, transform));
}

/// Shapes without an area or a line of their own, and kinds unknown here, show nothing.
Shown show(oa::oaShape& shape, const oa::oaTransform& transform) {
    Shown shown;
    oa::oaPointArray points;
    oa::oaBox box;
    switch (shape.getType()) {
    case oa::oacRectType:
        shape.getBBox(box);
        shown.closed.push_back(cornersOf(box, transform));
        break;
    case oa::oacPolygonType:
        static_cast<oa::oaPolygon&>(shape).getPoints(points);
        shown.closed.push_back(toDrawing(points, transform));
        break;
    case oa::oacEllipseType:
        static_cast<oa::oaEllipse&>(shape).getBoundary(points, curveSides);
        shown.closed.push_back(toDrawing(points, transform));
        break;
    case oa::oacDonutType:
        static_cast<oa::oaDonut&>(shape).getBoundary(points, curveSides);
        shown.closed.push_back(toDrawing(points, transform));
        break;
    case oa::oacPathType:
        static_cast<oa::oaPath&>(shape).getBoundary(points);
        shown.closed.push_back(toDrawing(points, transform));
        break;
    case oa::oacPathSegType:
        static_cast<oa::oaPathSeg&>(shape).getBoundary(points);
        shown.closed.push_back(toDrawing(points, transform));
        break;
    case oa::oacLineType:
        static_cast<oa::oaLine&>(shape).getPoints(points);
        shown.open.push_back(toDrawing(points, transform));
        break;
    case oa::oacArcType:
        static_cast<oa::oaArc&>(shape).getPoints(points, curveSides);
        shown.open.push_back(toDrawing(points, transform));
        break;
    case oa::oacDotType:
        showDot(static_cast<oa::oaDot&>(shape), transform, shown);
        break;
    default:
        break;
    }
    return shown;
}

struct Alignment {
    drawing::Horizontal horizontal;
    drawing::Vertical vertical;
};

Alignment alignmentOf(oa::oaTextAlign align) {
    using drawing::Horizontal;
    using drawing::Vertical;
    // The enumeration goes through the columns from left to right, each from top to bottom.
    const auto value = static_cast<unsigned>(static_cast<oa::oaTextAlignEnum>(align));
    constexpr Horizontal columns[] = {Horizontal::left, Horizontal::center, Horizontal::right};
    constexpr Vertical rows[] = {Vertical::upper, Vertical::center, Vertical::lower};
    return {columns[value / 3 % 3], rows[value % 3]};
}

/// The unit vectors of the text's own system after its orientation and that of its instance.
void setMatrix(drawing::Text& text, oa::oaOrient own, oa::oaOrient outer) {
    const auto turned = [&](oa::oaPoint unit) {
        unit.transform(oa::oaTransform(0, 0, own));
        return toDrawing(unit, oa::oaTransform(0, 0, outer));
    };
    const drawing::Point x = turned({1, 0});
    const drawing::Point y = turned({0, 1});
    text.matrix[0] = static_cast<double>(x.x);
    text.matrix[1] = static_cast<double>(x.y);
    text.matrix[2] = static_cast<double>(y.x);
    text.matrix[3] = static_cast<double>(y.y);
}

/// The direction in which a pin leaves: the angle noted on it, else its one direction of access.
double angleOf(oa::oaPin& pin) {
    const double noted = ovalis::vexPinAngle->get(&pin);
    if (noted != 0)
        return noted;
    switch (pin.getAccessDir()) {
    case oa::oacTop:
        return 90;
    case oa::oacLeft:
        return 180;
    case oa::oacBottom:
        return 270;
    default:
        return 0;
    }
}

/// Walks a block and the masters of its instances, each as long as it does not contain itself.
class Collector {
public:
    Collector(Picture& picture, oa::oaDesign& design)
        : picture_(picture), tech_(design.getTech()), open_{&design} {}

    void addBlock(oa::oaBlock& block, const oa::oaTransform& transform, int depth) {
        oa::oaIter<oa::oaShape> shapes(block.getShapes());
        while (oa::oaShape* shape = shapes.getNext())
            addShape(*shape, transform);
        oa::oaIter<oa::oaInst> insts(block.getInsts());
        while (oa::oaInst* inst = insts.getNext())
            addInstance(*inst, transform, depth);
        oa::oaIter<oa::oaVia> vias(block.getVias());
        while (oa::oaVia* via = vias.getNext())
            addVia(*via, transform, depth);
    }

    void addPins(oa::oaBlock& block) {
        oa::oaIter<oa::oaPin> pins(block.getPins());
        while (oa::oaPin* pin = pins.getNext())
            addPin(*pin);
    }

private:
    drawing::LayerFigures& layer(const LayerPurpose& key) {
        const auto [found, isNew] = picture_.layers.try_emplace(key);
        if (isNew) {
            found->second.layerName = nameIn<oa::oaLayer>(tech_, key.layer);
            found->second.purposeName = nameIn<oa::oaPurpose>(tech_, key.purpose);
        }
        return found->second;
    }

    void addShape(oa::oaShape& shape, const oa::oaTransform& transform) {
        const LayerPurpose key{shape.getLayerNum(), shape.getPurposeNum()};
        if (shape.getType() == oa::oacTextType) {
            addText(static_cast<oa::oaText&>(shape), key, transform);
            return;
        }
        const Shown shown = show(shape, transform);
        drawing::LayerFigures& figures = layer(key);
        figures.closed.insert(figures.closed.end(), shown.closed.begin(), shown.closed.end());
        figures.open.insert(figures.open.end(), shown.open.begin(), shown.open.end());
        figures.dots.insert(figures.dots.end(), shown.dots.begin(), shown.dots.end());
    }

    void addText(oa::oaText& from, const LayerPurpose& key, const oa::oaTransform& transform) {
        if (!from.isVisible())
            return;
        oa::oaString characters;
        from.getText(characters);
        oa::oaPoint origin;
        from.getOrigin(origin);
        const Alignment alignment = alignmentOf(from.getAlignment());
        drawing::Text text;
        text.text = ovalis::fromOa(characters);
        text.layer = key;
        text.origin = toDrawing(origin, transform);
        text.height = from.getHeight();
        text.horizontal = alignment.horizontal;
        text.vertical = alignment.vertical;
        setMatrix(text, from.getOrient(), transform.orient());
        ++layer(key).texts;
        picture_.texts.push_back(text);
    }

    /// The block of the master of an instance or via; null when there is none to show.
    static oa::oaBlock* masterOf(oa::oaRef& ref, int depth) {
        oa::oaDesign* master = depth < deepestInstance ? ref.getMaster() : nullptr;
        return master == nullptr ? nullptr : master->getTopBlock();
    }

    /// The same instance, or thousands alike, may be met often.
    void noteOnce(const std::string& note) {
        if (std::ranges::find(picture_.notes, note) == picture_.notes.end())
            picture_.notes.push_back(note);
    }

    void addPlaced(oa::oaRef& ref, oa::oaBlock& block, const oa::oaTransform& transform,
                   int depth) {
        oa::oaTransform place;
        ref.getTransform(place);
        place.concat(transform);
        addBlock(block, place, depth + 1);
    }

    void addVia(oa::oaVia& via, const oa::oaTransform& transform, int depth) {
        if (oa::oaBlock* block = masterOf(via, depth)) {
            addPlaced(via, *block, transform, depth);
            return;
        }
        oa::oaString name;
        via.getViaDefName(name);
        noteOnce("via " + ovalis::fromOa(name) + " has no master to show");
    }

    void addInstance(oa::oaInst& inst, const oa::oaTransform& transform, int depth) {
        oa::oaBlock* block = masterOf(inst, depth);
        oa::oaString name;
        inst.getName(oa::oaNativeNS(), name);
        const std::string who = "instance " + ovalis::fromOa(name);
        if (block == nullptr) {
            picture_.notes.push_back(who + " has no master to show");
            return;
        }
        oa::oaDesign* master = block->getDesign();
        if (std::ranges::find(open_, master) != open_.end()) {
            noteOnce(who + " is not shown, its master " + evaluation::nameOf(*master).text() +
                     " contains it");
            return;
        }
        open_.push_back(master);
        if (inst.getType() == oa::oacArrayInstType)
            addArray(static_cast<oa::oaArrayInst&>(inst), *block, transform, depth);
        else
            addPlaced(inst, *block, transform, depth);
        open_.pop_back();
    }

    void addArray(oa::oaArrayInst& array, oa::oaBlock& block, const oa::oaTransform& transform,
                  int depth) {
        for (oa::oaUInt4 row = 0; row < array.getNumRows(); ++row)
            for (oa::oaUInt4 column = 0; column < array.getNumCols(); ++column) {
                oa::oaTransform place;
                array.getTransform(row, column, place);
                place.concat(transform);
                addBlock(block, place, depth + 1);
            }
    }

    void addPin(oa::oaPin& from) {
        const oa::oaTransform identity;
        drawing::Pin pin;
        oa::oaString name;
        from.getName(name);
        pin.name = ovalis::fromOa(name);
        pin.angle = angleOf(from);
        oa::oaIter<oa::oaPinFig> figures(from.getFigs());
        while (oa::oaPinFig* figure = figures.getNext()) {
            if (!figure->isShape())
                continue;
            const Shown shown = show(static_cast<oa::oaShape&>(*figure), identity);
            pin.figures.insert(pin.figures.end(), shown.closed.begin(), shown.closed.end());
            pin.figures.insert(pin.figures.end(), shown.open.begin(), shown.open.end());
            for (const drawing::Point& dot : shown.dots)
                pin.figures.push_back({dot});
        }
        if (!pin.figures.empty())
            picture_.pins.push_back(pin);
    }

    Picture& picture_;
    oa::oaTech* tech_;
    /// The designs from the top down to the block that is being walked.
    std::vector<const oa::oaDesign*> open_;
};

} // namespace

Picture collect(oa::oaDesign& design) {
    return calling([&] {
        Picture picture;
        oa::oaBlock* block = design.getTopBlock();
        if (block == nullptr) {
            picture.notes.push_back("the design has no contents");
            return picture;
        }
        picture.dbuPerUserUnit = block->getDBUPerUU();
        picture.userUnit = ovalis::fromOa(block->getUserUnits().getName());
        Collector collector(picture, design);
        collector.addBlock(*block, oa::oaTransform(), 0);
        collector.addPins(*block);
        return picture;
    });
}

} // namespace cli

#include "flat_layout.h"

#include "platform/file.h"

#include <algorithm>
#include <span>

namespace bench {

namespace {

struct Counts {
    std::uint64_t rectangles = 0;
    std::uint64_t octagons = 0;
};

using Header = std::array<Counts, kLayers>;

/// A file as it lies in memory.
class FlatView {
public:
    explicit FlatView(std::span<const std::byte> bytes) : bytes_(bytes) {
        header_ = take<Header>(1).front();
    }

    template <class Visit>
    void forEachLayer(Visit visit) {
        for (const Counts& counts : header_) {
            const auto rectangles = take<Box>(counts.rectangles);
            visit(rectangles, take<Octagon>(counts.octagons));
        }
    }

private:
    template <class Element>
    std::span<const Element> take(std::size_t count) {
        const auto* first = reinterpret_cast<const Element*>(bytes_.data());
        bytes_ = bytes_.subspan(count * sizeof(Element));
        return {first, count};
    }

    std::span<const std::byte> bytes_;
    Header header_;
};

FlatView readFlat(const std::string& path, std::vector<std::byte>& buffer) {
    platform::File file(path, platform::OpenMode::read);
    const auto size = std::size_t(file.size());
    if (buffer.size() < size)
        buffer.resize(size);
    file.read(buffer.data(), size);
    return FlatView(std::span(buffer).first(size));
}

void add(BoxSum& sum, const Box& box) {
    sum.add(box.low.x, box.low.y, box.high.x, box.high.y);
}

Box enclosing(std::span<const Point> points) {
    Box box{points[0], points[0]};
    for (const Point& point : points) {
        box.low.x = std::min(box.low.x, point.x);
        box.low.y = std::min(box.low.y, point.y);
        box.high.x = std::max(box.high.x, point.x);
        box.high.y = std::max(box.high.y, point.y);
    }
    return box;
}

} // namespace

BoxSum expectedSum(std::size_t shapes) {
    BoxSum sum;
    draw(
        shapes, [&](std::uint32_t, const Box& box) { add(sum, box); },
        [&](std::uint32_t, const Octagon& octagon) { add(sum, boxOf(octagon)); });
    return sum;
}

FlatLayout flatLayout(std::size_t shapes) {
    FlatLayout layout;
    draw(
        shapes,
        [&](std::uint32_t layer, const Box& box) { layout[layer].rectangles.push_back(box); },
        [&](std::uint32_t layer, const Octagon& octagon) {
            layout[layer].octagons.push_back(octagon);
        });
    return layout;
}

namespace {

void writeTo(platform::File& file, const FlatLayout& layout) {
    Header header;
    for (std::size_t i = 0; i < kLayers; ++i)
        header[i] = {layout[i].rectangles.size(), layout[i].octagons.size()};
    file.write(&header, sizeof(header));
    for (const FlatLayer& layer : layout) {
        file.write(layer.rectangles.data(), layer.rectangles.size() * sizeof(Box));
        file.write(layer.octagons.data(), layer.octagons.size() * sizeof(Octagon));
    }
}

} // namespace

void writeFlat(const FlatLayout& layout, const std::string& path) {
    platform::File file(path, platform::OpenMode::write);
    writeTo(file, layout);
    file.close();
}

void replaceFlat(const FlatLayout& layout, const std::string& path) {
    const std::string temporary = path + ".new";
    platform::File file(temporary, platform::OpenMode::write);
    writeTo(file, layout);
    file.flushToDisk();
    file.close();
    platform::renameFile(temporary, path);
}

BoxSum visitFlatInPlace(const std::string& path, std::vector<std::byte>& buffer) {
    BoxSum sum;
    readFlat(path, buffer).forEachLayer([&](auto rectangles, auto octagons) {
        for (const Box& box : rectangles)
            add(sum, box);
        for (const Octagon& octagon : octagons)
            add(sum, enclosing(octagon));
    });
    return sum;
}

struct FlatObjects::Shape {
    virtual ~Shape() = default;
    virtual Box box() const = 0;
};

struct FlatObjects::Rectangle final : Shape {
    explicit Rectangle(const Box& outline) : outline_(outline) {}
    Box box() const override { return outline_; }

    Box outline_;
};

struct FlatObjects::Polygon final : Shape {
    explicit Polygon(std::span<const Point> points) : points_(points) {}
    Box box() const override { return enclosing(points_); }

    std::span<const Point> points_;
};

struct FlatObjects::Layer {
    std::vector<Point> points;
    std::vector<Rectangle> rectangles;
    std::vector<Polygon> polygons;
};

FlatObjects::FlatObjects() = default;
FlatObjects::~FlatObjects() = default;

void FlatObjects::read(const std::string& path, std::vector<std::byte>& buffer) {
    layers_.reserve(kLayers);
    readFlat(path, buffer).forEachLayer([&](auto rectangles, auto octagons) {
        Layer& layer = layers_.emplace_back();
        layer.rectangles.reserve(rectangles.size());
        for (const Box& box : rectangles)
            layer.rectangles.emplace_back(box);
        layer.points.reserve(octagons.size() * Octagon{}.size());
        layer.polygons.reserve(octagons.size());
        for (const Octagon& octagon : octagons) {
            layer.points.insert(layer.points.end(), octagon.begin(), octagon.end());
            layer.polygons.emplace_back(std::span(layer.points).last(octagon.size()));
        }
    });
}

BoxSum FlatObjects::visit() const {
    BoxSum sum;
    const auto visitShape = [&](const Shape* shape) { add(sum, shape->box()); };
    for (const Layer& layer : layers_) {
        for (const Rectangle& rectangle : layer.rectangles)
            visitShape(&rectangle);
        for (const Polygon& polygon : layer.polygons)
            visitShape(&polygon);
    }
    return sum;
}

} // namespace bench

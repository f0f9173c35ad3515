#include "drawing/svg.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "drawing/geometry.h"
#include "drawing/labels.h"
#include "drawing/legend.h"
#include "drawing/svg_text.h"

namespace drawing {
namespace {

constexpr double longestSide = 900;
constexpr double margin = 16;
constexpr double titleHeight = 30;
constexpr double footHeight = 40;

/// Path data with whole numbers, relative moves and no character too many.
class PathData {
public:
    explicit PathData(Point origin) : origin_(origin), start_(origin), here_(origin) {}

    void add(const Points& points, bool closed) {
        const Point first = points.front();
        command(text_.empty() ? 'M' : 'm', first.x - start_.x, first.y - start_.y);
        start_ = here_ = first;
        for (std::size_t at = 1; at < points.size(); ++at)
            lineTo(points[at]);
        if (closed)
            text_ += 'z';
        else
            start_ = here_;
    }

    const std::string& text() const { return text_; }

private:
    void lineTo(const Point& point) {
        const std::int64_t x = point.x - here_.x;
        const std::int64_t y = point.y - here_.y;
        if (y == 0)
            text_ += 'h' + std::to_string(x);
        else if (x == 0)
            text_ += 'v' + std::to_string(y);
        else
            command('l', x, y);
        here_ = point;
    }

    void command(char letter, std::int64_t x, std::int64_t y) {
        text_ += letter + std::to_string(x) + (y < 0 ? "" : " ") + std::to_string(y);
    }

    Point origin_;
    Point start_;
    Point here_;
    std::string text_;
};

struct Frame {
    Scale scale;
    Point origin; ///< database units that the figures' path data start from
    double width = 0;
    double height = 0;
};

Frame frameOf(const Picture& picture) {
    Extent extent = extentOf(picture);
    if (extent.isEmpty)
        extent.add(0, 0);
    Frame frame;
    const double longest = std::max({extent.width(), extent.height(), 1.0});
    frame.scale = {extent.left, extent.top, longestSide / longest};
    frame.origin = {static_cast<std::int64_t>(extent.left),
                    static_cast<std::int64_t>(extent.bottom)};
    frame.width = extent.width() * frame.scale.pixels;
    frame.height = extent.height() * frame.scale.pixels;
    return frame;
}

/// Outlines that overlap would cut holes into each other if they ran in opposite directions.
Points counterClockwise(const Points& outline) {
    if (doubleArea(outline) >= 0)
        return outline;
    return {outline.rbegin(), outline.rend()};
}

/// Thin where figures are dense, so that their edges do not cover them.
double strokePixels(const LayerFigures& figures) {
    return figures.closed.size() > 200 ? 0.4 : 0.9;
}

void writePath(std::ostream& out, const PathData& path, const std::string& attributes) {
    if (!path.text().empty())
        out << "<path " << attributes << " d=\"" << path.text() << "\"/>\n";
}

void writeFigures(std::ostream& out, const LayerFigures& figures, const Style& style,
                  const Frame& frame) {
    const auto units = [&](double pixels) { return decimal(pixels / frame.scale.pixels, 3); };
    out << "<g fill=\"" << style.colour << "\" stroke=\"" << style.colour << "\">\n<title>"
        << xmlText(figures.layerName + ":" + figures.purposeName) << "</title>\n";
    PathData closed(frame.origin);
    for (const Points& outline : figures.closed)
        closed.add(counterClockwise(outline), true);
    PathData open(frame.origin);
    for (const Points& line : figures.open)
        open.add(line, false);
    const std::string dashes =
        style.dashed ? " stroke-dasharray=\"" + units(6) + " " + units(4) + "\"" : "";
    writePath(out, closed,
              "fill-opacity=\"" + decimal(style.fillOpacity) + "\" stroke-width=\"" +
                  units(strokePixels(figures)) + "\"" + dashes);
    writePath(out, open, "fill=\"none\" stroke-width=\"" + units(1.5) + "\"" + dashes);
    out << "</g>\n";
}

/// Layers in the order they are painted: those that cover the picture lie below the others.
std::vector<const std::pair<const LayerPurpose, LayerFigures>*>
paintingOrder(const Picture& picture, const std::map<LayerPurpose, Style>& styles) {
    std::vector<const std::pair<const LayerPurpose, LayerFigures>*> order;
    for (const auto& layer : picture.layers)
        if (!layer.second.closed.empty() || !layer.second.open.empty())
            order.push_back(&layer);
    std::stable_sort(order.begin(), order.end(), [&](const auto* a, const auto* b) {
        return styles.at(a->first).covers > styles.at(b->first).covers;
    });
    return order;
}

void writeDots(std::ostream& out, const Picture& picture, const Frame& frame,
               const std::map<LayerPurpose, Style>& styles) {
    for (const auto& [key, figures] : picture.layers)
        for (const Point& dot : figures.dots)
            out << "<circle cx=\"" << decimal(frame.scale.x(static_cast<double>(dot.x)))
                << "\" cy=\"" << decimal(frame.scale.y(static_cast<double>(dot.y)))
                << "\" r=\"2.5\" fill=\"" << styles.at(key).colour << "\"/>\n";
}

const char* anchorName(Anchor anchor) {
    return anchor == Anchor::start ? "start" : anchor == Anchor::middle ? "middle" : "end";
}

void writeText(std::ostream& out, const Text& text, const Scale& scale, const Style& style) {
    const Anchor anchor = static_cast<Anchor>(text.horizontal);
    out << "<text transform=\"matrix(" << decimal(text.matrix[0]) << ' ' << decimal(-text.matrix[1])
        << ' ' << decimal(-text.matrix[2]) << ' ' << decimal(text.matrix[3]) << ' '
        << decimal(scale.x(static_cast<double>(text.origin.x))) << ' '
        << decimal(scale.y(static_cast<double>(text.origin.y))) << ")\" y=\""
        << decimal(baseLineShift(text, scale)) << "\" font-size=\""
        << decimal(text.height * scale.pixels) << "\" text-anchor=\"" << anchorName(anchor)
        << "\" fill=\"" << style.colour << "\">" << xmlText(text.text) << "</text>\n";
}

void writePinFigure(std::ostream& out, const Points& figure, const Scale& scale) {
    if (figure.size() == 1) {
        out << "<circle cx=\"" << decimal(scale.x(static_cast<double>(figure[0].x))) << "\" cy=\""
            << decimal(scale.y(static_cast<double>(figure[0].y))) << "\" r=\"4\"/>\n";
        return;
    }
    out << (figure.size() == 2 ? "<polyline points=\"" : "<polygon points=\"");
    const char* separator = "";
    for (const Point& point : figure) {
        out << separator << decimal(scale.x(static_cast<double>(point.x))) << ','
            << decimal(scale.y(static_cast<double>(point.y)));
        separator = " ";
    }
    out << "\"/>\n";
}

void writePins(std::ostream& out, const std::vector<PinLabel>& labels, const Scale& scale) {
    if (labels.empty())
        return;
    out << "<g fill=\"#000\" fill-opacity=\"0.25\" stroke=\"#000\" stroke-width=\"2\">\n";
    for (const PinLabel& label : labels)
        for (const Points& figure : label.pin->figures)
            writePinFigure(out, figure, scale);
    out << "</g>\n<g stroke=\"#000\" stroke-width=\"1.5\">\n";
    for (const PinLabel& label : labels) {
        if (label.moved)
            out << "<line x1=\"" << decimal(label.tipX) << "\" y1=\"" << decimal(label.tipY)
                << "\" x2=\"" << decimal(label.textX) << "\" y2=\"" << decimal(label.textY - 4)
                << "\" stroke-width=\"0.6\" stroke=\"#666\"/>\n";
        out << "<line x1=\"" << decimal(label.startX) << "\" y1=\"" << decimal(label.startY)
            << "\" x2=\"" << decimal(label.tipX) << "\" y2=\"" << decimal(label.tipY)
            << "\" marker-end=\"url(#arrow)\"/>\n";
    }
    out << "</g>\n<g font-size=\"" << decimal(pinFontSize) << "\" font-weight=\"bold\">\n";
    for (const PinLabel& label : labels)
        // The white copy below keeps the name readable on top of figures.
        for (const char* paint : {"fill=\"#fff\" stroke=\"#fff\" stroke-width=\"3\" "
                                  "stroke-linejoin=\"round\"",
                                  "fill=\"#000\""})
            out << "<text x=\"" << decimal(label.textX) << "\" y=\"" << decimal(label.textY)
                << "\" text-anchor=\"" << anchorName(label.anchor) << "\" " << paint << ">"
                << xmlText(label.pin->name) << "</text>\n";
    out << "</g>\n";
}

std::string shortUnit(const std::string& unit) {
    static const std::map<std::string, std::string> names = {
        {"micron", "\xC2\xB5m"}, {"millimeter", "mm"}, {"centimeter", "cm"}, {"meter", "m"},
        {"nanometer", "nm"},     {"mil", "mil"},       {"inch", "in"}};
    const auto found = names.find(unit);
    return found == names.end() ? unit : found->second;
}

std::string sizeText(const Picture& picture, const Frame& frame) {
    const double perUnit = frame.scale.pixels * picture.dbuPerUserUnit;
    return decimal(frame.width / perUnit, 3) + " x " + decimal(frame.height / perUnit, 3) + " " +
           shortUnit(picture.userUnit);
}

void writeScaleBar(std::ostream& out, const Picture& picture, const Frame& frame, double x,
                   double y) {
    const double perUnit = frame.scale.pixels * picture.dbuPerUserUnit;
    const double length = roundLength(200 / perUnit);
    out << "<g stroke=\"#222\" stroke-width=\"1.5\" fill=\"none\"><path d=\"M" << decimal(x) << ' '
        << decimal(y - 4) << "v8m0-4h" << decimal(length * perUnit) << "m0-4v8\"/></g>\n"
        << "<text x=\"" << decimal(x + length * perUnit + 8) << "\" y=\"" << decimal(y + 4)
        << "\" font-size=\"12\">" << xmlText(decimal(length, 6) + " " + shortUnit(picture.userUnit))
        << "</text>\n";
}

/// Everything in the frame of the figures, which begins at (0, 0).
void writePlot(std::ostream& out, const Picture& picture, const Frame& frame,
               const std::map<LayerPurpose, Style>& styles, const std::vector<PinLabel>& labels) {
    out << "<g stroke-linejoin=\"round\" transform=\"matrix(" << decimal(frame.scale.pixels, 9)
        << " 0 0 -" << decimal(frame.scale.pixels, 9) << " 0 " << decimal(frame.height) << ")\">\n";
    for (const auto* layer : paintingOrder(picture, styles))
        writeFigures(out, layer->second, styles.at(layer->first), frame);
    out << "</g>\n";
    writeDots(out, picture, frame, styles);
    for (const Text& text : picture.texts)
        writeText(out, text, frame.scale, styles.at(text.layer));
    writePins(out, labels, frame.scale);
}

void writeHead(std::ostream& out, const Picture& picture, const Extent& page) {
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << decimal(page.width(), 0)
        << "\" height=\"" << decimal(page.height(), 0) << "\" viewBox=\"" << decimal(page.left)
        << ' ' << decimal(page.bottom) << ' ' << decimal(page.width()) << ' '
        << decimal(page.height()) << "\" font-family=\"sans-serif\">\n"
        << "<title>" << xmlText(picture.title) << "</title>\n"
        << "<defs><marker id=\"arrow\" viewBox=\"0 0 10 10\" refX=\"9\" refY=\"5\" "
           "markerWidth=\"6\" markerHeight=\"6\" orient=\"auto\">"
           "<path d=\"M0 0L10 5L0 10z\" stroke=\"none\" fill=\"#000\"/></marker></defs>\n"
        << "<rect x=\"" << decimal(page.left) << "\" y=\"" << decimal(page.bottom) << "\" width=\""
        << decimal(page.width()) << "\" height=\"" << decimal(page.height())
        << "\" fill=\"#fff\"/>\n";
}

} // namespace

void writeSvg(std::ostream& out, const Picture& picture) {
    const Frame frame = frameOf(picture);
    const auto styles = stylesOf(picture);
    const std::vector<PinLabel> labels = placePinLabels(picture.pins, frame.scale);

    Extent page;
    page.add(0, 0);
    page.add(frame.width, std::max(frame.height, 1.0));
    for (const PinLabel& label : labels)
        page.add(label.box);
    for (const Text& text : picture.texts)
        page.add(extentOf(text, frame.scale));

    std::ostringstream body;
    writePlot(body, picture, frame, styles, labels);
    const double titleY = page.bottom - titleHeight / 2;
    const std::string title = picture.title + ", " + sizeText(picture, frame);
    body << "<text x=\"" << decimal(page.left) << "\" y=\"" << decimal(titleY)
         << "\" font-size=\"16\" font-weight=\"bold\">" << xmlText(title) << "</text>\n";
    const double left = page.left;
    const double legendX = page.right + 32;
    const double noteY = page.top + footHeight;
    writeScaleBar(body, picture, frame, left, page.top + footHeight / 2);
    for (std::size_t at = 0; at < picture.notes.size(); ++at)
        body << "<text x=\"" << decimal(left) << "\" y=\""
             << decimal(noteY + static_cast<double>(at + 1) * 16) << "\" font-size=\"12\">"
             << xmlText(picture.notes[at]) << "</text>\n";
    page.add(left + textWidth(title, 16), page.bottom - titleHeight);
    page.add(left + 300, noteY + static_cast<double>(picture.notes.size()) * 16);
    page.add(writeLegend(body, picture, styles, {legendX, 0, frame.height}));
    page.add(page.left - margin, page.bottom - margin / 2);
    page.add(page.right + margin, page.top + margin);

    writeHead(out, picture, page);
    out << body.str() << "</svg>\n";
}

} // namespace drawing

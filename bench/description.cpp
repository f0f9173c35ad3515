// Goal: the description of a large design as text, against the same text appended by hand and
// against libxml2; and the memory that the text takes while it is made.

#include "design_library.h"
#include "measure.h"
#include "scratch_directory.h"

#include "platform/child_process.h"
#include "platform/file.h"

#include <ovalis/xml.h>

#include <libxml/xmlwriter.h>

#include <charconv>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace {

using bench::measure;
using bench::require;

struct Shape {
    std::uint32_t layer;
    std::variant<bench::Box, bench::Octagon> outline;
};

std::vector<Shape> makeShapes() {
    std::vector<Shape> shapes;
    shapes.reserve(bench::kShapes);
    bench::draw(
        bench::kShapes,
        [&](std::uint32_t layer, const bench::Box& box) {
            shapes.push_back({layer, box});
        },
        [&](std::uint32_t layer, const bench::Octagon& octagon) {
            shapes.push_back({layer, octagon});
        });
    return shapes;
}

/// The text of a description that is of its shapes.
std::size_t shapeBytes(const std::string& text) {
    return text.find("</shapes>\n") - text.find("<shapes>\n") - std::string("<shapes>\n").size();
}

/// Appends to a text that has its room already.
class Appender {
public:
    explicit Appender(std::string& text) : text_(text) {}

    Appender& operator<<(const char* piece) {
        text_ += piece;
        return *this;
    }
    template <std::integral Integer>
    Appender& operator<<(Integer number) {
        char digits[16];
        text_.append(digits, std::to_chars(digits, digits + sizeof(digits), number).ptr);
        return *this;
    }

private:
    std::string& text_;
};

void append(Appender out, std::uint32_t layer, const bench::Box& box) {
    out << "<shape \n    layerNum=\"" << layer << "\"\n    purposeNum=\"" << bench::kDrawing
        << "\"\n    type=\"Rect\"\n    hasAppDef=\"0\">\n<rect><box upperLeft=\"" << box.low.x
        << "," << box.high.y << "\" lowerRight=\"" << box.high.x << "," << box.low.y
        << "\"/></rect>\n</shape>\n";
}

void append(Appender out, std::uint32_t layer, const bench::Octagon& octagon) {
    out << "<shape \n    layerNum=\"" << layer << "\"\n    purposeNum=\"" << bench::kDrawing
        << "\"\n    type=\"Polygon\"\n    hasAppDef=\"0\">\n<polygon>\n";
    for (const bench::Point& point : octagon)
        out << "<vertex x=\"" << point.x << "\" y=\"" << point.y << "\"/>\n";
    out << "</polygon>\n</shape>\n";
}

const xmlChar* chars(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

template <class... Values>
void attribute(xmlTextWriterPtr writer, const char* name, const char* format, Values... values) {
    xmlTextWriterWriteFormatAttribute(writer, chars(name), format, values...);
}

void write(xmlTextWriterPtr writer, const bench::Box& box) {
    xmlTextWriterStartElement(writer, chars("rect"));
    xmlTextWriterStartElement(writer, chars("box"));
    attribute(writer, "upperLeft", "%d,%d", box.low.x, box.high.y);
    attribute(writer, "lowerRight", "%d,%d", box.high.x, box.low.y);
    xmlTextWriterEndElement(writer);
    xmlTextWriterEndElement(writer);
}

void write(xmlTextWriterPtr writer, const bench::Octagon& octagon) {
    xmlTextWriterStartElement(writer, chars("polygon"));
    for (const bench::Point& point : octagon) {
        xmlTextWriterStartElement(writer, chars("vertex"));
        attribute(writer, "x", "%d", point.x);
        attribute(writer, "y", "%d", point.y);
        xmlTextWriterEndElement(writer);
    }
    xmlTextWriterEndElement(writer);
}

void write(xmlTextWriterPtr writer, const Shape& shape) {
    xmlTextWriterStartElement(writer, chars("shape"));
    attribute(writer, "layerNum", "%u", shape.layer);
    attribute(writer, "purposeNum", "%u", bench::kDrawing);
    attribute(writer, "type", "%s", shape.outline.index() == 0 ? "Rect" : "Polygon");
    attribute(writer, "hasAppDef", "%d", 0);
    std::visit([&](const auto& outline) { write(writer, outline); }, shape.outline);
    xmlTextWriterEndElement(writer);
}

std::optional<bench::DesignLibrary> library;
oa::oaDesign* design = nullptr;
std::vector<Shape> shapes;
std::size_t bytes = 0;

void describe(benchmark::State& state) {
    std::string text;
    measure(
        state, [&] { std::string().swap(text); }, [&] { text = ovalis::xmlFormat(*design); },
        [&] { require(shapeBytes(text), bytes); });
}

void appendByHand(benchmark::State& state) {
    std::string text;
    measure(
        state, [&] { std::string().swap(text); },
        [&] {
            text.reserve(bytes);
            for (const Shape& shape : shapes)
                std::visit(
                    [&](const auto& outline) { append(Appender(text), shape.layer, outline); },
                    shape.outline);
        },
        [&] { require(text.size(), bytes); });
}

/// Its text has fewer line ends: the time is that of as many bytes as the others write.
void libxml(benchmark::State& state) {
    for (auto _ : state) {
        const double start = bench::now();
        xmlBufferPtr buffer = xmlBufferCreateSize(bytes);
        xmlTextWriterPtr writer = xmlNewTextWriterMemory(buffer, 0);
        xmlTextWriterStartElement(writer, chars("shapes"));
        for (const Shape& shape : shapes)
            write(writer, shape);
        xmlTextWriterEndElement(writer);
        xmlFreeTextWriter(writer);
        const double seconds = bench::now() - start;
        state.SetIterationTime(seconds * double(bytes) / xmlBufferLength(buffer));
        xmlBufferFree(buffer);
    }
}

void saveDesign(const std::string& path) {
    bench::DesignLibrary made(path);
    oa::oaDesign* large = made.create("large");
    bench::drawContent(large);
    large->save();
    large->close();
}

/// A line of the system's account of this process, in bytes.
double statusBytes(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        double kilobytes = 0;
        if (word == name + ":" && status >> kilobytes)
            return kilobytes * 1024;
    }
    throw std::runtime_error("the system does not tell " + name);
}

/// Prints what describing adds to the memory of this process at most, for each byte of the text.
int printPeak(const std::string& path) {
    library.emplace(path);
    design = library->open("large", 'r');
    bench::visitBoxes(design->getTopBlock());
    std::ofstream("/proc/self/clear_refs") << "5"; // the peak from here on
    const double before = statusBytes("VmRSS");
    const std::string text = ovalis::xmlFormat(*design);
    std::cout << std::fixed << (statusBytes("VmHWM") - before) / double(text.size()) << '\n';
    return 0;
}

void memory(benchmark::State& state, const std::string& path, const std::string& answer) {
    for (auto _ : state) {
        if (platform::ChildProcess("/proc/self/exe", {"--print-peak", path}, {answer, {}}).wait() !=
            0)
            throw std::runtime_error("the process that measures the memory failed");
        state.counters["bytesPerShape"] = std::stod(platform::readFile(answer));
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && argv[1] == std::string("--print-peak"))
        return printPeak(argv[2]);
    benchmark::Initialize(&argc, argv);
    const bench::ScratchDirectory directory;
    const std::string path = directory / "library";
    const std::string other = directory / "library_of_the_other_process";
    saveDesign(path);
    saveDesign(other);
    library.emplace(path);
    design = library->open("large", 'r');
    shapes = makeShapes();
    bytes = shapeBytes(ovalis::xmlFormat(*design));
    bench::once(benchmark::RegisterBenchmark("describe", describe));
    bench::once(benchmark::RegisterBenchmark("appendByHand", appendByHand));
    bench::once(benchmark::RegisterBenchmark("libxml", libxml));
    benchmark::RegisterBenchmark("memory", [&](benchmark::State& state) {
        memory(state, other, directory / "memory");
    })->Iterations(1);
    benchmark::RunSpecifiedBenchmarks();
    library.reset();
}

// Goal: ports of a large layout. 100,000 of them with four properties each, against what it takes
// to look up and insert their names in hash maps, alone and with records of the same content.

#include "design_library.h"
#include "measure.h"
#include "scratch_directory.h"

#include <ovalis/core.h>
#include <ovalis/ports.h>

#include <deque>
#include <memory>
#include <unordered_map>

namespace {

using bench::measure;
using bench::require;

std::vector<ovalis::Port> makePorts(std::size_t count) {
    std::vector<ovalis::Port> ports(count);
    for (std::size_t i = 0; i < count; ++i) {
        ovalis::Port& port = ports[i];
        port.setName("P" + std::to_string(i + 1));
        port.setLayerNum(1);
        port.setPurposeNum(bench::kDrawing);
        port.setAngle(90.0 * double(i % 4));
        const auto x = oa::oaCoord(i % 1000) * 100;
        const auto y = oa::oaCoord(i / 1000) * 100;
        const oa::oaPoint edge[] = {{x, y}, {x, y + 50}};
        port.setShapeOutline(oa::oaPointArray(edge, 2));
        port.setProperties({{"Z", "50.0 Ohm"},
                            {"Type", i % 2 ? "INPUT" : "OUTPUT"},
                            {"Number", std::to_string(i + 1)},
                            {"Reference", "ground plane"}});
    }
    return ports;
}

/// What was made: ports, and characters in the values of all properties.
struct Made {
    std::size_t ports = 0;
    std::size_t characters = 0;
    friend bool operator==(const Made&, const Made&) = default;
};

Made expectedOf(const std::vector<ovalis::Port>& ports) {
    Made made{ports.size(), 0};
    for (const ovalis::Port& port : ports)
        for (const auto& [key, value] : port.properties())
            made.characters += 2 * value.size();
    return made;
}

void visitProperties(const oa::oaObject* object, Made& made) {
    oa::oaString value;
    oa::oaIter<oa::oaProp> props(object->getProps());
    while (const oa::oaProp* prop = props.getNext()) {
        prop->getValue(value);
        made.characters += value.getLength();
    }
}

/// Walks through every terminal, its pins, their figures and all properties.
Made visitPorts(const oa::oaBlock* block) {
    Made made;
    oa::oaIter<oa::oaTerm> terms(block->getTerms());
    while (const oa::oaTerm* term = terms.getNext()) {
        visitProperties(term, made);
        oa::oaIter<oa::oaPin> pins(term->getPins());
        while (const oa::oaPin* pin = pins.getNext()) {
            visitProperties(pin, made);
            oa::oaIter<oa::oaPinFig> figures(pin->getFigs());
            oa::oaBox box;
            while (const oa::oaPinFig* figure = figures.getNext()) {
                figure->getBBox(box);
                made.ports += box.isInverted() ? 0 : 1;
            }
        }
    }
    return made;
}

void runOvalis(benchmark::State& state, bool visited) {
    const auto ports = makePorts(std::size_t(state.range(0)));
    const Made expected = expectedOf(ports);
    const bench::ScratchDirectory directory;
    bench::DesignLibrary library(directory / "library");
    oa::oaDesign* design = nullptr;
    Made made;
    measure(
        state, [&] { design = library.create("ports"); },
        [&] {
            ovalis::addPorts(*design, ports, false);
            if (visited)
                made = visitPorts(design->getTopBlock());
        },
        [&] {
            if (!visited)
                made = visitPorts(design->getTopBlock());
            require(made, expected);
            design->purge();
        });
}

void addPorts(benchmark::State& state) {
    runOvalis(state, false);
}

void addPortsAndVisit(benchmark::State& state) {
    runOvalis(state, true);
}

struct Names {
    std::vector<std::string> nets;
    std::vector<std::string> terms;

    explicit Names(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            nets.push_back("net_ovalis_" + std::to_string(i));
            terms.push_back("P" + std::to_string(i + 1));
        }
    }
};

using NameMap = std::unordered_map<std::string, std::uint32_t>;

/// Looks the name up and inserts it as new.
void insertNew(NameMap& map, const std::string& name, std::size_t number) {
    if (map.find(name) == map.end())
        map.emplace(name, std::uint32_t(number));
}

std::size_t visitMap(const NameMap& map) {
    std::size_t sum = 0;
    for (const auto& [name, number] : map)
        sum += name.size() + number;
    return sum;
}

void runMaps(benchmark::State& state, bool visited) {
    const auto count = std::size_t(state.range(0));
    const Names names(count);
    NameMap nets;
    NameMap terms;
    measure(
        state, [] {},
        [&] {
            for (std::size_t i = 0; i < count; ++i) {
                insertNew(nets, names.nets[i], i);
                insertNew(terms, names.terms[i], i);
            }
            if (visited)
                benchmark::DoNotOptimize(visitMap(nets) + visitMap(terms));
        },
        [&] {
            require(nets.size() + terms.size(), 2 * count);
            nets = {};
            terms = {};
        });
}

void maps(benchmark::State& state) {
    runMaps(state, false);
}

void mapsAndVisit(benchmark::State& state) {
    runMaps(state, true);
}

struct PropertyRecord {
    std::string name;
    std::string value;
};

/// The same content as plain structures, without a database around them.
struct Records {
    struct Term {
        std::string name;
        std::uint32_t net = 0;
        std::uint32_t position = 0;
        std::uint32_t firstProperty = 0;
    };
    struct Pin {
        std::string name;
        std::uint32_t term = 0;
        double angle = 0;
        std::uint32_t firstProperty = 0;
    };
    struct Figure {
        std::uint32_t layer = 0;
        std::uint32_t purpose = 0;
        std::uint32_t pin = 0;
        std::array<oa::oaPoint, 2> points;
    };

    NameMap netNames;
    NameMap termNames;
    std::deque<std::string> nets;
    std::deque<Term> terms;
    std::deque<Pin> pins;
    std::deque<Figure> figures;
    std::deque<PropertyRecord> properties;

    std::uint32_t addProperties(const ovalis::Port& port) {
        const auto first = std::uint32_t(properties.size());
        for (const auto& [name, value] : port.properties())
            properties.push_back({name, value});
        return first;
    }

    void add(const ovalis::Port& port, std::size_t i, const std::string& net) {
        const auto number = std::uint32_t(i);
        insertNew(netNames, net, i);
        insertNew(termNames, port.name(), i);
        nets.push_back(net);
        terms.push_back({port.name(), number, number, addProperties(port)});
        pins.push_back({port.name(), number, port.angle(), addProperties(port)});
        const oa::oaPointArray& outline = port.shapeOutline();
        figures.push_back({port.layerNum(), port.purposeNum(), number, {outline[0], outline[1]}});
    }

    Made visit() const {
        Made made;
        for (const PropertyRecord& property : properties)
            made.characters += property.value.size();
        for (const Figure& figure : figures)
            made.ports += figure.points[0].y() <= figure.points[1].y() ? 1 : 0;
        return made;
    }
};

void runRecords(benchmark::State& state, bool visited) {
    const auto count = std::size_t(state.range(0));
    const auto ports = makePorts(count);
    const Names names(count);
    const Made expected = expectedOf(ports);
    auto records = std::make_unique<Records>();
    Made made;
    measure(
        state, [] {},
        [&] {
            for (std::size_t i = 0; i < count; ++i)
                records->add(ports[i], i, names.nets[i]);
            if (visited)
                made = records->visit();
        },
        [&] {
            require(records->visit(), expected);
            records = std::make_unique<Records>();
        });
}

void mapsAndRecords(benchmark::State& state) {
    runRecords(state, false);
}

void mapsAndRecordsAndVisit(benchmark::State& state) {
    runRecords(state, true);
}

constexpr int kFew = 25'000;
constexpr int kMany = 100'000;

BENCHMARK(addPorts)->Apply(bench::once)->Arg(kFew)->Arg(kMany);
BENCHMARK(addPortsAndVisit)->Apply(bench::once)->Arg(kFew)->Arg(kMany);
BENCHMARK(maps)->Apply(bench::once)->Arg(kFew)->Arg(kMany);
BENCHMARK(mapsAndVisit)->Apply(bench::once)->Arg(kFew)->Arg(kMany);
BENCHMARK(mapsAndRecords)->Apply(bench::once)->Arg(kMany);
BENCHMARK(mapsAndRecordsAndVisit)->Apply(bench::once)->Arg(kMany);

} // namespace

BENCHMARK_MAIN();

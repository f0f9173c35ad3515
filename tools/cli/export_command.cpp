#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "cli/commands.h"
#include "cli/export_component.h"
#include "cli/library_access.h"
#include "component/port_map.h"
#include "component/read_component.h"

namespace cli {
namespace {

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// "3 rectangles, 1 text": what there is none of is not mentioned.
std::string listed(const std::vector<std::pair<std::size_t, std::string>>& counts) {
    std::string list;
    for (const auto& [count, what] : counts)
        if (count > 0)
            list += (list.empty() ? "" : ", ") + counted(count, what);
    return list.empty() ? "nothing" : list;
}

void say(Console& console, const component::Component& component, const ExportOptions& options,
         const ExportReport& report) {
    const ArtworkReport& art = report.artwork;
    const bool scripted = component.kind == component::Kind::scriptMacro;
    console.talk << (report.replaced ? "replaced " : "made ") << component.name << " in "
                 << (report.newLibrary ? "the new library " : "the library ")
                 << directoryOf(options.library) << "\n  layout: "
                 << listed({{art.rectangles, "rectangle"},
                            {art.polygons, "polygon"},
                            {art.lines, "line"},
                            {art.texts, "text"},
                            {component.ports.size(), "port"}})
                 << ", " << counted(art.layers, "layer")
                 << "\n  pcell: " << (scripted ? "script macro" : "S-parameters") << " with "
                 << counted(component.parameters.size(), "parameter") << '\n';
    if (component.symbol.kind != component::SymbolKind::none)
        console.talk << "  symbol: " << counted(component.symbol.ports, "port") << '\n';
    if (art.dropped > 0)
        console.talk << "  left out: " << counted(art.dropped, "figure")
                     << " without area, length or text\n";
}

void sayPorts(Console& console, const component::Component& component, const ExportReport& report,
              const std::vector<component::FilePort>& ports) {
    console.talk << "  touchstone: " << report.touchstone << ", " << counted(ports.size(), "port")
                 << '\n';
    for (std::size_t at = 0; at < ports.size(); ++at) {
        const component::FilePort& port = ports[at];
        console.talk << "    port " << at + 1;
        if (!port.name.empty())
            console.talk << " \"" << port.name << '"';
        for (const std::size_t pin : port.pins)
            console.talk << (pin == port.pins.front() ? " -> " : ", ") << component.ports[pin].name;
        console.talk << " (" << component::shortText(port.impedance) << " Ohm)\n";
    }
}

void warn(Console& console, const std::string& text) {
    console.talk << "ovalis: warning: " << text << '\n';
}

} // namespace

int exportCommand(const ExportOptions& options, Console& console) {
    requireUsablePath(directoryOf(options.library));
    component::Component component = component::readComponent(options.componentFile);
    const component::Layout layout = component::readLayout(component);
    std::vector<component::FilePort> filePorts;
    if (!component.touchstoneFile.empty())
        filePorts = component::connectTouchstone(component);
    for (const std::string& warning : component.warnings)
        warn(console, warning);
    for (const std::string& warning : layout.warnings)
        warn(console, warning);
    ExportReport report;
    try {
        report = exportComponent(component, layout, options.library, options.replace, [](Step) {});
    } catch (const std::runtime_error& error) {
        const std::string path = directoryOf(options.library);
        const std::string text = error.what();
        throw std::runtime_error(text.find(path) == std::string::npos ? path + ": " + text : text);
    }
    say(console, component, options, report);
    if (!filePorts.empty())
        sayPorts(console, component, report, filePorts);
    std::istringstream lacks(report.lacks);
    for (std::string line; std::getline(lacks, line);)
        warn(console, directoryOf(options.library) + ": " + line);
    return success;
}

} // namespace cli

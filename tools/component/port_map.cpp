#include "component/port_map.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <numeric>
#include <optional>

#include "component/json_node.h"
#include "component/touchstone.h"
#include "component/touchstone_text.h"

namespace component {
namespace {

using Order = std::vector<std::size_t>;

std::string inQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

[[noreturn]] void fail(const Component& component, const std::string& text) {
    throw InputError(component.file + ": " + text);
}

std::string counted(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " port" : " ports");
}

/// Answers how many ports of the component make one of the file.
std::size_t pinsOfAPort(const Component& component, const Touchstone& file) {
    const std::size_t ports = component.ports.size();
    const std::uint32_t stated = component.touchstonePorts;
    const std::string& name = component.touchstoneFile;
    if (stated != 0 && stated != file.ports)
        fail(component, "/touchstone/ports: expected " + std::to_string(file.ports) +
                            ", as many as " + name + " has, found " + std::to_string(stated));
    for (const Parameter& parameter : component.parameters)
        if (const auto* number = std::get_if<std::int32_t>(&parameter.value);
            number != nullptr && parameter.name == "NumPorts" &&
            std::int64_t{*number} != std::int64_t{file.ports})
            fail(component, "/parameters: NumPorts is " + std::to_string(*number) + ", but " +
                                name + " has " + counted(file.ports));
    if (ports == file.ports)
        return 1;
    const bool isDifferential = stated != 0 || component.symbol.kind == SymbolKind::differential;
    if (isDifferential && ports == std::size_t{2} * file.ports)
        return 2;
    fail(component, "/ports: expected " + counted(file.ports) + ", as " + name + " has, found " +
                        std::to_string(ports));
}

/// The places in the order of what `key` answers for them; nothing unless the keys are 1, 2, 3, ...
template <class Key>
std::optional<Order> orderedBy(const Component& component, Key key) {
    Order order(component.ports.size(), component.ports.size());
    for (std::size_t at = 0; at < order.size(); ++at) {
        const std::optional<std::uint32_t> number = key(component.ports[at]);
        if (!number || *number < 1 || *number > order.size() || order[*number - 1] < order.size())
            return std::nullopt;
        order[*number - 1] = at;
    }
    return order;
}

std::optional<Order> orderedByNumber(const Component& component) {
    return orderedBy(component, [](const Port& port) {
        const auto found = port.properties.find("port_number");
        return found == port.properties.end() ? std::nullopt : countOf(found->second);
    });
}

std::optional<Order> orderedByName(const Component& component, const Touchstone& file) {
    return orderedBy(component, [&](const Port& port) -> std::optional<std::uint32_t> {
        const auto found = std::ranges::find(file.portNames, port.name);
        if (found == file.portNames.end())
            return std::nullopt;
        return std::uint32_t(found - file.portNames.begin() + 1);
    });
}

/// Numbers that a person has given count more than names, and those more than the order.
Order orderOf(Component& component, const Touchstone& file) {
    const auto byNumber = orderedByNumber(component);
    const auto byName = orderedByName(component, file);
    if (byNumber) {
        for (std::size_t at = 0; byName && at < byName->size(); ++at)
            if ((*byName)[at] != (*byNumber)[at])
                component.warnings.push_back(component.file + ": port_number makes " +
                                             inQuotes(component.ports[(*byNumber)[at]].name) +
                                             " port " + std::to_string(at + 1) + ", which " +
                                             component.touchstoneFile + " names " +
                                             inQuotes(file.portNames[at]));
        return *byNumber;
    }
    if (byName)
        return *byName;
    Order order(component.ports.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    return order;
}

void describe(Component& component, Port& port, const FilePort& from, const std::string& number,
              bool isPair) {
    port.properties.emplace("touchstone_port", number);
    if (!from.name.empty())
        port.properties.emplace("touchstone_name", from.name);
    const std::string impedance = shortText(from.impedance) + " Ohm";
    const auto [stated, isNew] = port.properties.emplace("reference_impedance", impedance);
    // Half a differential port has a reference of its own.
    if (isNew || isPair)
        return;
    const auto words = wordsOf(stated->second);
    if (words.empty() || numberOf(words[0]) != from.impedance)
        component.warnings.push_back(component.file + ": port " + inQuotes(port.name) +
                                     " has the reference impedance " + inQuotes(stated->second) +
                                     ", " + component.touchstoneFile + " says " +
                                     inQuotes(impedance));
}

} // namespace

std::string shortText(double number) {
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), number);
    return std::string(text.data(), written.ptr);
}

std::vector<FilePort> connectTouchstone(Component& component) {
    const Touchstone file = readTouchstone(component.touchstoneFile);
    const std::size_t each = pinsOfAPort(component, file);
    const Order order = orderOf(component, file);
    std::vector<FilePort> ports;
    for (std::size_t at = 0; at < file.ports; ++at) {
        const auto first = order.begin() + std::ptrdiff_t(at * each);
        ports.push_back(
            {file.portNames[at], file.impedances[at], Order(first, first + std::ptrdiff_t(each))});
        const FilePort& port = ports.back();
        const std::string number = std::to_string(at + 1);
        for (const std::size_t pin : port.pins) {
            const std::string sign = pin == port.pins.front() ? "+" : "-";
            describe(component, component.ports[pin], port, each == 1 ? number : number + sign,
                     each > 1);
        }
    }
    return ports;
}

} // namespace component

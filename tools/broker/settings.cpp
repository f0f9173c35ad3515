#include "tools/broker/settings.h"

#include "platform/environment.h"

#include <charconv>
#include <optional>

namespace broker {

namespace {

std::optional<double> numberIn(const std::string& text) {
    double value = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value, std::chars_format::fixed);
    if (error != std::errc() || end != last)
        return std::nullopt;
    return value;
}

// Nothing when the variable is not set, is empty or is no number from `least` to `most`.
std::optional<double> variable(const char* name, double least, double most,
                               std::vector<std::string>& complaints) {
    const std::string text = platform::environmentVariable(name).value_or("");
    if (text.empty())
        return std::nullopt;
    const std::optional<double> value = numberIn(text);
    if (value && *value >= least && *value <= most)
        return value;
    complaints.push_back(std::string(name) + ": no usable number: '" + text + "'");
    return std::nullopt;
}

} // namespace

Settings readSettings(std::vector<std::string>& complaints) {
    constexpr double longest = 1e6;
    constexpr double mostMegabytes = 1e9;
    Settings settings;
    if (const auto seconds = variable("PCELLBROKER_EVALUATION_SECONDS", 0.001, longest, complaints))
        settings.deadline = std::chrono::milliseconds(static_cast<long long>(*seconds * 1000));
    if (const auto megabytes =
            variable("PCELLBROKER_EVALUATION_MEGABYTES", 0, mostMegabytes, complaints))
        settings.memory = static_cast<std::uint64_t>(*megabytes) << 20;
    return settings;
}

} // namespace broker

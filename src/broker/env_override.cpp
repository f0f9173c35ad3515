#include "broker/env_override.h"

#include <algorithm>

#include <platform/environment.h>
#include <platform/path.h>

namespace pcellBrokerClient {

EnvOverride::EnvOverride(const std::string& name, const std::string& value)
    : name_(name), before_(platform::environmentVariable(name)) {
    platform::setEnvironmentVariable(name_, value);
}

EnvOverride::~EnvOverride() {
    if (before_) {
        platform::setEnvironmentVariable(name_, *before_);
    } else {
        platform::unsetEnvironmentVariable(name_);
    }
}

EnvOverrides::~EnvOverrides() {
    while (!overrides_.empty()) {
        overrides_.pop_back();
    }
}

void EnvOverrides::set(const std::string& name, const std::string& value) {
    overrides_.emplace_back(name, value);
}

void EnvOverrides::prepend(const std::string& name, const std::string& first,
                           const std::string& second) {
    std::string joined;
    for (const std::string& part : {platform::nativePath(first), platform::nativePath(second),
                                    platform::environmentVariable(name).value_or("")}) {
        if (!part.empty()) {
            joined += (joined.empty() ? "" : std::string(1, platform::pathListSeparator())) + part;
        }
    }
    set(name, joined);
}

void EnvOverrides::setUserVariables() {
    const std::string names = platform::environmentVariable("PCELLBROKER_ENV").value_or("");
    for (std::size_t begin = 0; begin < names.size();) {
        const std::size_t end = std::min(names.find('=', begin), names.size());
        const std::string name = names.substr(begin, end - begin);
        if (!name.empty() && !isSet(name)) {
            set(name, platform::environmentVariable("PCELLBROKER_ENV_" + name).value_or(""));
        }
        begin = end + 1;
    }
}

bool EnvOverrides::isSet(const std::string& name) const {
    return std::any_of(overrides_.begin(), overrides_.end(),
                       [&name](const EnvOverride& each) { return each.name() == name; });
}

} // namespace pcellBrokerClient

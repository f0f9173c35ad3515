#pragma once

#include <string>
#include <vector>

#include <ovalis/diagnostics.h>

#include "support/environment_override.h"

namespace ovalis::test {

using Lines = std::vector<std::string>;

/// Gives the collectors that are made while it lives a setting of the environment.
class Setting : public EnvironmentOverride {
public:
    explicit Setting(const std::optional<std::string>& value)
        : EnvironmentOverride("TESSA_OAINFO", value) {}
};

/// A collector that is made under a setting.
inline msgCollector collectorUnder(const std::optional<std::string>& setting) {
    const Setting set(setting);
    return msgCollector();
}

} // namespace ovalis::test

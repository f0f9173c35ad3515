#pragma once

#include <optional>
#include <string>

namespace ovalis::test {

/// Gives an environment variable another value, or none, and restores it at scope end.
class EnvironmentOverride {
public:
    EnvironmentOverride(const std::string& name, const std::optional<std::string>& value);
    ~EnvironmentOverride();
    EnvironmentOverride(const EnvironmentOverride&) = delete;
    EnvironmentOverride& operator=(const EnvironmentOverride&) = delete;

private:
    std::string name_;
    std::optional<std::string> before_;
};

} // namespace ovalis::test

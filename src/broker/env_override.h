#pragma once

#include <list>
#include <optional>
#include <string>

namespace pcellBrokerClient {

/// Gives a variable of this process another value and puts the old one back at its end.
class EnvOverride {
public:
    EnvOverride(const std::string& name, const std::string& value);
    EnvOverride(const EnvOverride&) = delete;
    EnvOverride& operator=(const EnvOverride&) = delete;
    ~EnvOverride();

    const std::string& name() const { return name_; }

private:
    std::string name_;
    std::optional<std::string> before_;
};

/// Variables that were changed one after the other; they are put back in reverse order.
class EnvOverrides {
public:
    EnvOverrides() = default;
    EnvOverrides(const EnvOverrides&) = delete;
    EnvOverrides& operator=(const EnvOverrides&) = delete;
    ~EnvOverrides();

    void set(const std::string& name, const std::string& value);

    /// Puts what is not empty of `first`, `second` and the old value into a variable that lists
    /// directories.
    void prepend(const std::string& name, const std::string& first, const std::string& second);

    /// Sets the variables that PCELLBROKER_ENV names to what the user wants the programs to see.
    void setUserVariables();

private:
    bool isSet(const std::string& name) const;

    std::list<EnvOverride> overrides_;
};

} // namespace pcellBrokerClient

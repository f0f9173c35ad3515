#include "support/environment_override.h"

namespace ovalis::test {

EnvironmentOverride::EnvironmentOverride(const std::string& name,
                                         const std::optional<std::string>& value)
    : name_(name), before_(environmentVariable(name)) {
    setEnvironmentVariable(name, value);
}

EnvironmentOverride::~EnvironmentOverride() {
    setEnvironmentVariable(name_, before_);
}

} // namespace ovalis::test

#include "support/environment_override.h"

#include "platform/environment.h"

namespace ovalis::test {

namespace {

void assign(const std::string& name, const std::optional<std::string>& value) {
    if (value)
        platform::setEnvironmentVariable(name, *value);
    else
        platform::unsetEnvironmentVariable(name);
}

} // namespace

EnvironmentOverride::EnvironmentOverride(const std::string& name,
                                         const std::optional<std::string>& value)
    : name_(name), before_(platform::environmentVariable(name)) {
    assign(name, value);
}

EnvironmentOverride::~EnvironmentOverride() {
    assign(name_, before_);
}

} // namespace ovalis::test

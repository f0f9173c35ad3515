#pragma once

#include "support/environment_override.h"
#include "support/files.h"
#include "support/temporary_directory.h"

namespace ovalis::test {

/// A configuration of brokers in which no pcell type is named, for programs that are started while
/// the object lives: without any they say at start-up that there is none.
class NoBrokers {
public:
    NoBrokers() {
        writeText(home_.path() / "pcellBroker.cfg",
                  "PROBE_EXE=none\nBROKER_EXE_5=none\nBROKER_EXE_6=none\nCONFIG=,\n");
    }

private:
    TemporaryDirectory home_;
    EnvironmentOverride variable_{"PCELLBROKER_HOME", home_.str()};
    EnvironmentOverride types_{"PCELLBROKER_CONFIG", std::nullopt};
};

} // namespace ovalis::test

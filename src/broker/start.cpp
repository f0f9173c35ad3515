#include "broker/start.h"

#include <stdexcept>

#include <platform/environment.h>
#include <platform/path.h>
#include <platform/system_error.h>

#include "broker/env_override.h"
#include "broker/pipe_streams.h"

namespace pcellBrokerClient {

namespace {

using platform::PipeDirection;
using platform::PipeEnd;

/// The ends of one pipe: ours, and the one that the broker is to inherit.
struct Ends {
    PipeEnd own;
    PipeEnd brokers;
};

Ends makePipe(PipeDirection own, ProcessSystem& system) {
    PipeEnd reading;
    PipeEnd writing;
    if (!system.createPipe(reading, writing)) {
        throw std::runtime_error("CreatePipe failed: " + platform::lastSystemErrorText());
    }
    PipeEnd& kept = own == PipeDirection::read ? reading : writing;
    PipeEnd& given = own == PipeDirection::read ? writing : reading;
    PipeEnd copy = system.inheritableCopy(given);
    if (!copy) {
        throw std::runtime_error("DuplicateHandle failed: " + platform::lastSystemErrorText());
    }
    return {std::move(kept), std::move(copy)};
}

void start(const platform::ProgramStart& program, platform::StartedProcess& started,
           ProcessSystem& system) {
    if (!system.start(program, started)) {
        throw std::runtime_error("CreateProcess(\"" + program.path +
                                 "\") failed: " + platform::lastSystemErrorText());
    }
}

void startWithPipes(const BrokerConnection& connection, const PipeEnd& input, const PipeEnd& output,
                    ProcessSystem& system) {
    EnvOverrides environment;
    setBrokerVariables(environment, connection);
    const std::string name = "pcellBroker" + std::to_string(connection.key.apiVersion) + ".exe";
    platform::StartedProcess started;
    start({connection.exePath,
           {name, platform::pipeEndText(input), platform::pipeEndText(output)},
           {&input, &output}},
          started, system);
}

std::FILE* streamOver(PipeEnd& end, PipeDirection direction, ProcessSystem& system) {
    platform::StreamDescriptor descriptor = system.openDescriptor(end, direction);
    if (!descriptor) {
        throw std::runtime_error("_open_osfhandle failed");
    }
    std::FILE* const stream = system.openStream(descriptor, direction);
    if (stream == nullptr) {
        throw std::runtime_error("_fdopen failed");
    }
    return stream;
}

void connect(BrokerConnection& connection, ProcessSystem& system) {
    Ends fromBroker = makePipe(PipeDirection::read, system);
    Ends toBroker = makePipe(PipeDirection::write, system);
    startWithPipes(connection, toBroker.brokers, fromBroker.brokers, system);
    fromBroker.brokers.close();
    toBroker.brokers.close();

    auto input =
        std::make_unique<PipeInput>(streamOver(fromBroker.own, PipeDirection::read, system));
    auto output =
        std::make_unique<PipeOutput>(streamOver(toBroker.own, PipeDirection::write, system));
    connection.fromBroker = std::move(input);
    connection.toBroker = std::move(output);
    connection.alive = true;
    connection.setUpNeeded = true;
}

void runProbe(BrokerConfig& config, ProcessSystem& system) {
    std::uint32_t exitCode = 0;
    {
        EnvOverrides environment;
        environment.setUserVariables();
        platform::StartedProcess started;
        start({config.probeExe, {"pcbProbeOaVersion.exe"}, {}}, started, system);
        if (!system.wait(started, exitCode)) {
            throw std::runtime_error("GetExitCodeProcess failed: " +
                                     platform::lastSystemErrorText());
        }
    }
    if (exitCode > 9) {
        throw std::runtime_error("pcbProbeOaVersion exited with an error");
    }
    if (exitCode == 5 || exitCode == 6) {
        config.probedOaApiVersion = static_cast<std::int32_t>(exitCode);
    }
}

/// Runs `action` and says in front of every failure what it was doing.
template <class Action>
void inContext(const std::string& context, Action action) {
    try {
        action();
    } catch (const std::exception& error) {
        throw std::runtime_error(context + ": " + error.what());
    } catch (...) {
        throw std::runtime_error(context + ": unknown error");
    }
}

} // namespace

void setBrokerVariables(EnvOverrides& environment, const BrokerConnection& connection) {
    environment.setUserVariables();
    environment.prepend(platform::libraryPathVariable(), connection.libDirs[0],
                        connection.libDirs[1]);
    environment.prepend("OA_PLUGIN_PATH", connection.pluginDirs[0], connection.pluginDirs[1]);
    if (!connection.tclLibDir.empty()) {
        environment.set("TCL_LIBRARY", platform::nativePath(connection.tclLibDir));
    }
}

void startBroker(BrokerConnection& connection, ProcessSystem& system) {
    inContext("while starting " + connection.displayName(), [&] { connect(connection, system); });
}

void probeOaApiVersion(BrokerConfig& config, ProcessSystem& system) {
    if (config.probedOaApiVersion >= 0) {
        return;
    }
    config.probedOaApiVersion = 0; // a failed probe is not run again
    inContext("while probing the OpenAccess API version", [&] { runProbe(config, system); });
}

} // namespace pcellBrokerClient

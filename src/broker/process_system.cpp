#include "broker/process_system.h"

#include <platform/path.h>
#include <platform/system_error.h>

namespace pcellBrokerClient {

bool ProcessSystem::createPipe(platform::PipeEnd& reading, platform::PipeEnd& writing) {
    return platform::createPipe(reading, writing);
}

platform::PipeEnd ProcessSystem::inheritableCopy(const platform::PipeEnd& end) {
    return platform::inheritableCopy(end);
}

bool ProcessSystem::start(const platform::ProgramStart& program,
                          platform::StartedProcess& started) {
    return platform::startProcess(program, started);
}

bool ProcessSystem::wait(platform::StartedProcess& started, std::uint32_t& exitCode) {
    return started.wait(exitCode);
}

platform::StreamDescriptor ProcessSystem::openDescriptor(platform::PipeEnd& end,
                                                         platform::PipeDirection direction) {
    return platform::openDescriptor(end, direction);
}

std::FILE* ProcessSystem::openStream(platform::StreamDescriptor& descriptor,
                                     platform::PipeDirection direction) {
    return platform::openStream(descriptor, direction);
}

bool ProcessSystem::currentDirectory(std::string& directory) {
    try {
        directory = platform::currentDirectory();
        return true;
    } catch (const platform::SystemFailure& failure) {
        platform::setLastSystemError(failure.error());
        return false;
    }
}

} // namespace pcellBrokerClient

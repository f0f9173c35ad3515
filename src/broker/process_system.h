#pragma once

#include <cstdint>
#include <string>

#include <platform/started_process.h>

namespace pcellBrokerClient {

/// The calls to the operating system that starting a broker or a probe makes, one member for each.
/// A call that fails says so by its result and leaves the reason as the last system error.
class ProcessSystem {
public:
    virtual ~ProcessSystem() = default;

    virtual bool createPipe(platform::PipeEnd& reading, platform::PipeEnd& writing);
    virtual platform::PipeEnd inheritableCopy(const platform::PipeEnd& end);
    virtual bool start(const platform::ProgramStart& program, platform::StartedProcess& started);
    virtual bool wait(platform::StartedProcess& started, std::uint32_t& exitCode);
    virtual platform::StreamDescriptor openDescriptor(platform::PipeEnd& end,
                                                      platform::PipeDirection direction);
    virtual std::FILE* openStream(platform::StreamDescriptor& descriptor,
                                  platform::PipeDirection direction);
    virtual bool currentDirectory(std::string& directory);
};

} // namespace pcellBrokerClient

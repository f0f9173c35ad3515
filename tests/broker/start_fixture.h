#pragma once

#include <list>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <platform/environment.h>
#include <platform/system_error.h>

#include "broker/start.h"
#include "support/environment_override.h"
#include "support/files.h"
#include "support/places.h"
#include "support/temporary_directory.h"

namespace pcellBrokerClient::test {

inline std::string program(const std::string& name) {
    return ovalis::test::utf8(ovalis::test::builtProgram(name));
}

/// The text of what `action` throws.
template <class Action>
std::string failureOf(Action action) {
    try {
        action();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "none";
}

/// The operating system, but for one call of those that are made through it, which fails.
class FailingSystem : public ProcessSystem {
public:
    /// Calls are counted from 0. A count that is not reached lets everything through.
    explicit FailingSystem(int failing) : failing_(failing) {}

    bool createPipe(platform::PipeEnd& reading, platform::PipeEnd& writing) override {
        return !fails() && ProcessSystem::createPipe(reading, writing);
    }
    platform::PipeEnd inheritableCopy(const platform::PipeEnd& end) override {
        return fails() ? platform::PipeEnd() : ProcessSystem::inheritableCopy(end);
    }
    bool start(const platform::ProgramStart& program, platform::StartedProcess& started) override {
        return !fails() && ProcessSystem::start(program, started);
    }
    bool wait(platform::StartedProcess& started, std::uint32_t& exitCode) override {
        return ProcessSystem::wait(started, exitCode) && !fails();
    }
    platform::StreamDescriptor openDescriptor(platform::PipeEnd& end,
                                              platform::PipeDirection direction) override {
        return fails() ? platform::StreamDescriptor()
                       : ProcessSystem::openDescriptor(end, direction);
    }
    std::FILE* openStream(platform::StreamDescriptor& descriptor,
                          platform::PipeDirection direction) override {
        return fails() ? nullptr : ProcessSystem::openStream(descriptor, direction);
    }
    bool currentDirectory(std::string& directory) override {
        return !fails() && ProcessSystem::currentDirectory(directory);
    }

    /// The reason of the failure.
    static platform::SystemError error() { return platform::SystemError(5); }

    static std::string errorText() {
        platform::setLastSystemError(error());
        return platform::lastSystemErrorText();
    }

protected:
    bool fails() {
        const bool fails = calls_++ == failing_;
        if (fails) {
            platform::setLastSystemError(error());
        }
        return fails;
    }

private:
    int failing_;
    int calls_ = 0;
};

/// Variables for the small brokers and for the code that starts them; everything is put back.
class StartTest : public testing::Test {
protected:
    StartTest() {
        for (const char* name : {"PCELLBROKER_ENV", "TCL_LIBRARY", "OA_PLUGIN_PATH"}) {
            set(name, std::nullopt);
        }
    }
    ~StartTest() override {
        while (!overrides_.empty()) {
            overrides_.pop_back();
        }
    }

    void set(const std::string& name, const std::optional<std::string>& value) {
        overrides_.emplace_back(name, value);
    }
    /// What the small brokers are to do.
    void tell(const std::string& name, const std::string& value) {
        set("TEST_BROKER_" + name, value);
    }

    std::string path(const std::string& name) const { return directory_.str() + "/" + name; }
    std::string textOf(const std::string& name) const {
        std::string text = ovalis::test::readText(path(name));
        std::erase(text, '\r');
        return text;
    }

    static BrokerConnection connectionTo(const std::string& programName,
                                         BrokerKey key = {6, false}) {
        BrokerConnection connection;
        connection.key = key;
        connection.exePath = program(programName);
        return connection;
    }

    ProcessSystem system;

private:
    ovalis::test::TemporaryDirectory directory_;
    std::list<ovalis::test::EnvironmentOverride> overrides_;
};

} // namespace pcellBrokerClient::test

#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "platform/environment.h"
#include "platform/file.h"
#include "platform/process.h"
#include "support/environment_override.h"
#include "support/places.h"
#include "support/temporary_directory.h"
#include "tools/conformance/dialogue.h"
#include "tools/conformance/request_writer.h"

namespace broker::test {

using conformance::Dialogue;
using conformance::Evaluated;
using namespace std::chrono_literals;

/// How long a broker may outlive its host.
inline constexpr auto timeToGo = 2s;

inline std::string program(const std::string& name) {
    return ovalis::test::utf8(ovalis::test::builtProgram(name));
}

/// True once `condition` holds, which is looked at again and again for `time`.
inline bool holdsWithin(std::chrono::milliseconds time, const std::function<bool()>& condition) {
    const auto last = std::chrono::steady_clock::now() + time;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > last)
            return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

/// Gives the brokers of a test a directory for temporary files of their own.
class BrokerTest : public ::testing::Test {
protected:
    BrokerTest() : tmpdir("TMPDIR", below()), tmp("TMP", below()), temp("TEMP", below()) {}

    std::string pathOf(const std::string& name) const { return folder.str() + "/" + name; }

    /// What brokers have lying in their directory for temporary files.
    std::size_t leftovers() const { return platform::listDirectory(below()).size(); }

    /// The front of the broker whose directory lies there; the name of the directory tells it.
    platform::ProcessId ownerOfResults() const {
        const std::string name = platform::listDirectory(below()).at(0).name;
        const std::size_t number = name.find('-') + 1;
        return static_cast<platform::ProcessId>(std::stoul(name.substr(number)));
    }

    /// A process number that a worker wrote to a file.
    static platform::ProcessId numberIn(const std::string& file) {
        return static_cast<platform::ProcessId>(std::stoul(platform::readFile(file)));
    }

private:
    std::string below() const {
        const std::string path = folder.str() + "/temporary";
        if (!platform::isDirectory(path))
            platform::createDirectory(path);
        return path;
    }

    ovalis::test::TemporaryDirectory folder;
    ovalis::test::EnvironmentOverride tmpdir;
    ovalis::test::EnvironmentOverride tmp;
    ovalis::test::EnvironmentOverride temp;
};

} // namespace broker::test

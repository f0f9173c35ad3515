#pragma once

#include "platform/file.h"
#include "support/files.h"
#include "support/places.h"
#include "support/run_program.h"
#include "support/temporary_directory.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace ovalis::test {

/// Files in a directory of the test's own, and the child process that meets the test there.
class PlatformTest : public testing::Test {
protected:
    std::string path(const std::string& name) const { return directory.str() + "/" + name; }
    void put(const std::string& name, const std::string& text) { writeText(path(name), text); }
    std::string get(const std::string& name) { return readText(path(name)); }

    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (const platform::DirectoryEntry& entry : platform::listDirectory(directory.str()))
            result.push_back(entry.name);
        return result;
    }

    /// The exit status of the child that did `action` to a file.
    int child(const std::string& action, const std::string& name) {
        return runProgram(builtProgram("platform_child"), {action, path(name)}).exitCode;
    }

    static constexpr int died = 3;
    const TemporaryDirectory directory;
};

} // namespace ovalis::test

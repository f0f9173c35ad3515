#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ovalis::test {

/// A program of this build by its bare name.
std::filesystem::path builtProgram(const std::string& name);

/// The root of the source tree that the tests were built from.
std::filesystem::path sourceTree();

/// Sample data kept outside the source tree, where OVALIS_SHARED_DATA names it; tests that need
/// it are skipped without it.
std::optional<std::filesystem::path> sharedData();

} // namespace ovalis::test

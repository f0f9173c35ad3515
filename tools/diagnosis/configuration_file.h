#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace diagnosis {

/// A line of the configuration file of brokers.
struct ConfigurationLine {
    std::size_t number = 0;
    std::string text;
    std::optional<std::string> key; ///< nothing in a line without "="
    std::string value;
};

/// The lines of `pcellBroker.cfg` that are not empty, for saying what stands where. Whether they
/// are right is decided by the client.
class ConfigurationFile {
public:
    explicit ConfigurationFile(std::string_view content);

    const std::vector<ConfigurationLine>& lines() const { return lines_; }

    /// The line that sets the key, which is the last one that names it; null without any.
    const ConfigurationLine* find(std::string_view key) const;

    /// "BROKER_EXE_5 (line 3)", or the key alone.
    std::string label(std::string_view key) const;

private:
    std::vector<ConfigurationLine> lines_;
};

/// True for a path that begins at a root or a drive.
bool isAbsolutePath(const std::string& path);

/// Every key that the file may have.
const std::vector<std::string>& knownKeys();

} // namespace diagnosis

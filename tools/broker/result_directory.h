#pragma once

#include <string>

namespace broker {

/// The directory of one broker's results: made for it, closed to other users, removed at the end.
class ResultDirectory {
public:
    /// Makes one below the system's directory for temporary files, and removes those that brokers
    /// of this computer left behind which were killed.
    /// @throws platform::SystemFailure  none can be made
    ResultDirectory();
    ResultDirectory(const ResultDirectory&) = delete;
    ResultDirectory& operator=(const ResultDirectory&) = delete;
    ~ResultDirectory() { remove(); }

    const std::string& path() const noexcept { return directory; }

    /// The path of the result of a token.
    std::string resultPath(const std::string& token) const;

    /// Removes the directory with all results. Files that are open for a moment longer are tried
    /// again for half a second. Never throws.
    void remove() noexcept;

private:
    std::string directory;
};

/// The path of the result of a token in a directory.
std::string resultPath(const std::string& directory, const std::string& token);

/// A text of 32 hexadecimal digits that nobody can guess.
std::string unguessableToken();

/// Removes a directory with all in it, and tries again for half a second what is still in use.
void removeDirectory(const std::string& directory) noexcept;

} // namespace broker

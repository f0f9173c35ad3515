#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/file.h"

namespace cli {

/// A library's directory with everything in it, as a copy takes it over.
///
/// Symbolic links are not followed: one that stays within the library is copied as the link that it
/// is, whether or not there is something at its end. A link that would lead out of the copy, and
/// what is neither file, directory nor link, cannot be copied and is named by the error.
class LibraryTree {
public:
    /// @throws platform::SystemFailure  there is no such directory.
    explicit LibraryTree(std::string directory);

    /// The bytes of all files.
    /// @throws std::runtime_error  something cannot be copied, or not be looked at.
    std::uint64_t bytes() const;

    /// Makes the directory `destination`, which must not lie in the library, a copy.
    /// @throws std::runtime_error  something cannot be copied; what was copied until then stays.
    void copyTo(const std::string& destination) const;

private:
    enum class Kind { file, directory, link };

    /// Is given each kind and each path, from the library's directory on.
    using Visit = std::function<void(Kind, const std::string&)>;

    void walk(const std::string& inner, const Visit& visit) const;
    Kind kindOf(const std::string& inner, platform::EntryKind followed) const;
    void requireStays(const std::string& inner) const;

    std::string root_;
    std::string canonicalRoot_;
};

} // namespace cli

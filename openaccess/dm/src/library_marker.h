#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace OpenAccess_4::impl {

/// The rules by which a library spells the names of its cells and views on disk.
enum class FileSystem { Unix, Windows };

/// A file of a library holds something else than it should. The text is complete: it names the
/// file, the place and what is wrong.
class DamagedFile : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The file ".oalib", which makes a directory a library and holds its attributes.
class LibraryMarker {
public:
    using Attributes = std::vector<std::pair<std::string, std::string>>;

    static constexpr const char* kFileName = ".oalib";
    static constexpr const char* kSystemName = "oaDMFileSys";
    static constexpr const char* kReadOnly = "libReadOnly";
    static constexpr const char* kFileSystem = "origFileSystem";

    /// The marker of a library that is made on the running system.
    LibraryMarker();

    /// @throws DamagedFile  the file is no marker, or one of another design-management system.
    /// @throws platform::SystemFailure  the file cannot be read.
    static LibraryMarker read(const std::string& path);

    /// Replaces the file in one step. @throws platform::SystemFailure
    void write(const std::string& path) const;
    std::string text() const;

    /// Every attribute in the order of the file. Of the two that steer the library, kReadOnly
    /// always is there; kFileSystem may be missing or name another system in a file that others
    /// wrote.
    const Attributes& attributes() const { return attributes_; }

    /// Sets an attribute or appends a new one. @returns what is wrong with it, empty when nothing
    std::string set(const std::string& name, const std::string& value);
    /// Replaces the attributes by these, in their order. Of the two that steer the library, those
    /// that are not given keep their value and come first.
    /// @returns what is wrong, empty when nothing; otherwise the marker is not to be used
    std::string replace(const Attributes& given);

    bool readOnly() const;
    /// Unix unless the attribute says Windows.
    FileSystem fileSystem() const;

private:
    std::string value(const char* name) const;

    Attributes attributes_;
};

} // namespace OpenAccess_4::impl

#pragma once

#include <string>
#include <vector>

#include <ovalis/library.h>

namespace evaluation {

/// The library that a command is about, with every library of a top library definition list.
///
/// - The list is the file given, else `lib.defs` in the library's directory when there is one. It
///   becomes the top list of the database, and its libraries are opened.
/// - The library is the listed one in that directory; one that the list does not define is opened
///   under the name given.
/// - The destructor closes every library that was opened here, and drops the list with what it
/// includes.
class OpenLibraries {
public:
    /// `directory` may be empty when there is a `listFile`; there is no `library()` then.
    /// @throws std::runtime_error  there is no library, or its access was refused
    /// @throws ovalis::Exception   the list cannot be read, or the database failed
    OpenLibraries(const std::string& directory, const std::string& name,
                  const std::string& listFile);
    OpenLibraries(const OpenLibraries&) = delete;
    OpenLibraries& operator=(const OpenLibraries&) = delete;
    ~OpenLibraries();

    /// @throws std::runtime_error  no directory was given
    oa::oaLib& library() const;

    /// The open library in a directory; one that is not open yet is opened under the name given. It
    /// can be read.
    /// @throws as the constructor
    oa::oaLib& open(const std::string& directory, const std::string& name);

    /// The full path of the list; empty when there is none.
    const std::string& listPath() const { return listPath_; }

    /// What the database found wrong in the list, one text each.
    const std::vector<std::string>& warnings() const { return warnings_; }

    /// Those of the warnings that tell of libraries which the list defines and which are not open:
    /// one that cannot be opened, an included file that cannot be read, and what is no statement.
    const std::vector<std::string>& unopened() const { return unopened_; }

    /// Every library that is open because of this object, the listed ones first.
    std::vector<oa::oaLib*> all() const;

private:
    void openList(const std::string& listFile);
    void closeAll() noexcept;

    std::vector<oa::oaLib*> before_;
    std::vector<oa::oaLibDefList*> listsBefore_;
    std::string listPath_;
    std::vector<std::string> warnings_;
    std::vector<std::string> unopened_;
    oa::oaLib* library_ = nullptr;
};

} // namespace evaluation

#pragma once

#include <set>
#include <string>
#include <vector>

#include <ovalis/library_list.h>

namespace cli {

/// A definition of a library, as it stands in a library definition file.
struct ListedLibrary {
    std::string name;
    /// As the file states it, with the values of variables.
    std::string path;
    /// What the path means in the directory of the file.
    std::string directory;
    /// The file.
    std::string list;
    /// The directory is there.
    bool exists = false;
    /// No later definition of the name counts instead.
    bool effective = false;
    /// The library is open from this directory.
    bool open = false;
    /// The path names a variable that is not set.
    bool unresolved = false;
};

/// Loads a library definition file and tells what became of each definition. Libraries and lists
/// that are open because of it are closed and destroyed with it.
class ListedLibraries {
public:
    /// An empty path means the default file.
    /// @throws std::runtime_error  there is no list.
    explicit ListedLibraries(const std::string& file);
    ListedLibraries(const ListedLibraries&) = delete;
    ListedLibraries& operator=(const ListedLibraries&) = delete;
    ~ListedLibraries();

    /// The full path of the file.
    const std::string& file() const { return file_; }

    /// In the order of the files, as `getFlattenedLibraryList` answers them.
    const std::vector<ListedLibrary>& libraries() const { return libraries_; }

    /// What the database found wrong, one text each, with file and line.
    const std::vector<std::string>& warnings() const { return warnings_; }

    /// True when every library that counts is open, as far as the files do not say that it may be
    /// missing.
    bool allOpen() const { return allOpen_; }

private:
    void load(const std::string& file);
    void close() noexcept;

    std::set<const oa::oaLib*> librariesBefore_;
    std::set<const oa::oaLibDefList*> listsBefore_;
    std::string file_;
    std::vector<ListedLibrary> libraries_;
    std::vector<std::string> warnings_;
    bool allOpen_ = true;
};

} // namespace cli

#pragma once

#include "oaString.h"

namespace OpenAccess_4 {

/// A path and what may lie there: a file, a directory or nothing.
///
/// Paths are UTF-8. Both slashes separate directories, on every system.
class OA_API oaFSComponent {
public:
    explicit oaFSComponent(const oaString& path) : name_(path) {}
    virtual ~oaFSComponent();

    /// The path as it was given.
    const oaString& getName() const { return name_; }
    /// The absolute path; what lies there need not exist.
    /// @throws oaError  oacGetFullPathFailed.
    void getFullName(oaString& pathName) const;

    oaBoolean exists() const;
    oaBoolean isFile() const;
    oaBoolean isDir() const;
    oaBoolean isSymbolicLink() const;
    /// Whether this process may read (write) it now.
    oaBoolean isReadable() const;
    oaBoolean isWritable() const;
    /// Whether it lies directly in the working directory of the process.
    oaBoolean isInCWD() const;
    /// Whether both paths lead to one file or directory that exists.
    oaBoolean isSameDiskFile(const oaFSComponent& other) const;

    /// Removes the file, or the directory with everything in it.
    /// @throws oaError  oacUnableToRemove: nothing is there, or the system refused.
    void destroy();
    /// Moves it; the object then stands for the new path. A file there is replaced.
    /// @throws oaError  oacFileRenameFailed.
    void rename(const oaString& newPath);

private:
    oaString name_;
};

} // namespace OpenAccess_4

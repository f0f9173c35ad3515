#pragma once

#include "oaBaseEnums.h"
#include "oaFSComponent.h"

#include <vector>

namespace OpenAccess_4 {

/// A directory.
class OA_API oaDir : public oaFSComponent {
public:
    explicit oaDir(const oaString& path) : oaFSComponent(path) {}

    /// Creates the directory, in one that exists.
    /// @throws oaError  oacDirCreateFailed: the name is taken, or the system refused.
    void create() const;
    /// Whether there is a directory (not a file) at the path.
    oaBoolean exists() const { return isDir(); }
    /// Whether there is nothing in it.
    /// @throws oaError  oacUnableToOpenDir.
    oaBoolean isEmpty() const;
    /// Whether it is the working directory of the process.
    oaBoolean isCWD() const;
};

/// Walks over the names in a directory, without "." and "..", in the order of their bytes. Names
/// that come or go during the walk change nothing until reset().
class OA_API oaDirIter {
public:
    /// @throws oaError  oacUnableToOpenDir.
    explicit oaDirIter(const oaString& dirPath, oaDirIterModeEnum mode = oacAllDirIterMode);
    /// Only names that fit `wildcard`: "*" stands for any characters, "?" for one.
    oaDirIter(const oaString& dirPath, const oaString& wildcard,
              oaDirIterModeEnum mode = oacAllDirIterMode);

    /// Fills in the next name; false, and `name` untouched, at the end.
    oaBoolean getNext(oaString& name);
    /// Reads the directory again and starts over.
    void reset();

private:
    oaString dirPath_;
    oaString wildcard_;
    oaDirIterModeEnum mode_;
    std::vector<oaString> names_;
    std::size_t next_ = 0;
};

} // namespace OpenAccess_4

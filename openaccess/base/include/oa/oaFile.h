#pragma once

#include "oaFSComponent.h"

#include <memory>

namespace OpenAccess_4 {

/// A file that is read and written as bytes, without any translation. Closes itself at its end,
/// without a word about failures: who wants to know calls close().
class OA_API oaFile : public oaFSComponent {
public:
    explicit oaFile(const oaString& path);
    oaFile(const oaFile&) = delete;
    oaFile& operator=(const oaFile&) = delete;
    ~oaFile() override;

    /// Opens the file: 'r' for reading; 'w' for writing, emptied or created; 'a' for writing at
    /// its end, created when it is missing. An open file is closed first.
    /// @throws oaError  oacInvalidFileAccessMode, oacFileOpenFailed.
    void open(oaChar mode);
    /// Closes the file; nothing happens when it is not open.
    /// @throws oaError  oacFileCloseFailed.
    void close();
    /// Returns once everything written has reached the disk.
    /// @throws oaError  oacFileNotOpen, oacFileWriteFailed.
    void flush();

    /// Reads up to `numBytes`; answers how many there were.
    /// @throws oaError  oacFileNotOpen, oacFileReadFailed.
    oaUInt4 read(oaByte* data, oaUInt4 numBytes);
    /// Writes `numBytes`; answers as many.
    /// @throws oaError  oacFileNotOpen, oacFileWriteFailed.
    oaUInt4 write(const oaByte* data, oaUInt4 numBytes);

    /// Whether there is a file (not a directory) at the path.
    oaBoolean exists() const { return isFile(); }
    oaBoolean isOpen() const;
    /// Whether there is a file with at least one byte.
    oaBoolean isNonEmpty() const;
    /// The mode given to open(); 0 when the file is not open.
    oaChar getMode() const { return mode_; }

    /// @throws oaError  oacFileGetInfoFailed: there is no such file.
    oaUInt8 getSize() const;
    oaTime getLastWriteTime() const;
    oaTime getCreateTime() const;

    /// Copies a file over `dstPath`.
    /// @throws oaError  oacFileCopyFailed.
    static void copyFile(const oaString& srcPath, const oaString& dstPath);

private:
    struct Handle;

    Handle& openHandle() const;

    std::unique_ptr<Handle> handle_;
    oaChar mode_ = '\0';
};

} // namespace OpenAccess_4

#pragma once

#include "oa/oaBaseTypes.h"
#include "oa/oaExport.h"
#include "oa/oaString.h"

#include <memory>

namespace OpenAccess_4 {

class oaDesign;

/// A file of evaluated submasters, one behind the other, each found by the byte at which it begins.
/// The first one begins at 0.
///
///     PcellFile file(path);
///     file.open("w");
///     file.append(submaster);
///     file.close();
///
/// What is written takes the place of the file in one step when it is closed: until then, and when
/// anything fails or the object goes without close(), the file is what it was.
class OA_API PcellFile {
public:
    explicit PcellFile(const oaString& path);
    PcellFile(const PcellFile&) = delete;
    PcellFile& operator=(const PcellFile&) = delete;
    ~PcellFile();

    /// True when there is a file at the path.
    oaBoolean exists() const;

    /// Opens the file: "r" for reading; "w" for appending to a new, empty one; "a" for appending to
    /// what is there. A file that is open is given up first.
    /// @throws oaError  oacInvalidFileAccessMode, oacDatabaseFileNotRead,
    /// oacDatabaseFileNotWritten;
    ///                  oacDatabaseFileDamaged: what is to be appended to is no pcell file
    void open(const oaChar* mode);

    /// Puts the stored content into the place of what `design` holds. A submaster keeps its names,
    /// parameters and super master, and need not be under evaluation. Other designs must be
    /// editable; a super master stays one. After a failure the design is what it was.
    /// @throws oaError        oacFileNotOpen: not open for reading; oacDatabaseFileNotRead,
    ///                        oacDatabaseFileDamaged
    /// @throws oaDesignError  oacCannotModifyReadModeDesign
    void read(oaDesign* design, oaUInt8 offset = 0);

    /// Adds the content of any design, without what makes it a super master, and answers where it
    /// begins.
    /// @throws oaError  oacFileNotOpen: not open for writing; oacDatabaseFileNotWritten, after
    ///                  which the file is closed and on disk as it was
    oaUInt8 append(oaDesign* design);

    /// Ends reading, or puts what was written onto the disk. Nothing happens when it is not open.
    /// @throws oaError  oacDatabaseFileNotWritten
    void close();

private:
    struct State;

    std::unique_ptr<State> state_;
};

} // namespace OpenAccess_4

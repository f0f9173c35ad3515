#pragma once

#include "oaLibDef.h"
#include "oaLibDefListRef.h"

namespace OpenAccess_4 {

/// A library definition file in memory: which libraries there are, and which further files name
/// more of them.
///
/// - openLibs() is what an application calls once: it reads a file with all that it includes,
///   opens the libraries and makes the list the top list.
/// - get() reads one file alone, to look at it or to change it; save() writes it back with every
///   comment and every variable that a person wrote.
/// - What is wrong in a file does not stop the reading: observers of this class are told.
class OA_API oaLibDefList : public oaSessionObject {
public:
    /// Reads the default file. Without one, or when it cannot be read, the observers get a warning
    /// without a list and everything stays as it was.
    static void openLibs();

    /// Reads a file and all that it includes, and opens the libraries. The list becomes the top
    /// list unless an observer refuses the opening.
    /// @throws oaDMError  oacLibDefListFileNotReadable; the top list stays the one that it was
    static void openLibs(const oaString& path);

    /// Opens the libraries that this list and the files included by it define.
    ///
    /// Of two definitions of one name the later one counts. A library that is open under the name
    /// from another directory is closed first. Nothing is opened when one of the files has a syntax
    /// error.
    void open();

    /// The list of the last openLibs() that was carried out, null when there is none.
    static oaLibDefList* getTopList();

    /// The list of that file: the one in memory, whose mode is set, or else read from the disk
    /// alone, without what it includes. `mode` is 'r', 'a', or 'w', which starts empty.
    /// @throws oaDMError  oacUndefinedLibDefListMode, oacLibDefListFileNotReadable,
    ///                    oacLibDefListFileNotWritable
    static oaLibDefList* get(const oaString& filePath, oaChar mode);

    /// The list of that file if it is in memory, else null.
    static oaLibDefList* find(const oaString& filePath);

    /// Makes a list without a file; save() writes one.
    /// @throws oaDMError  oacLibDefListFileNotWritable: there is such a file or list, or there can
    ///                    be none
    static oaLibDefList* create(const oaString& filePath);

    /// Every list in memory, in the order in which they came there.
    static oaCollection<oaLibDefList, oaLibDefList> getLibDefLists();

    /// "lib.defs" in the working directory, else in the home directory, else in data/libraries or
    /// in data of the installation; empty when there is none.
    static void getDefaultPath(oaString& path);
    static void getDefaultFileName(oaString& fileName);

    /// Definitions and references in the order of the file.
    oaCollection<oaLibDefListMem, oaLibDefList> getMembers() const;

    /// The path by which the list was asked for.
    void getPath(oaString& path) const;
    void getFullPath(oaString& path) const;
    oaChar getMode() const;

    /// Writes the file in one step.
    /// @throws oaDMError  oacSaveReadOnlyLibDefList, oacLibDefListFileNotWritable
    void save();

    /// Writes the list to another file; the list keeps its own path and its changes.
    /// @throws oaDMError  oacLibDefListFileNotWritable
    void saveAs(const oaString& path);

    /// Drops the list from memory with all its members. File and open libraries stay.
    void destroy();

    OA_HANDLE(oaLibDefList);
};

} // namespace OpenAccess_4

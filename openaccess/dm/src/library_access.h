#pragma once

// What the packages above need of libraries.

#include "oa/oaLib.h"

#include <functional>
#include <string>

namespace OpenAccess_4::impl {

/// The open library of that name. @throws oaDMError  oacCannotFindLibrary
oaLib* openLibrary(const oaScalarName& name);

/// Access to a library for a scope, for the application that does not hold it itself.
///
/// Nothing is taken when the application holds enough. Others are waited for a moment. A scope that
/// reads first and writes then takes write access from the start: access cannot be raised.
class ShortAccess {
public:
    /// @throws oaDMError  oacLibAccessCannotUpgrade: the application holds read access and write
    ///                    access is asked for; oacLibAccessDenied: refused, with the reason
    ShortAccess(const oaLib* lib, oaLibAccessEnum kind);
    ShortAccess(const ShortAccess&) = delete;
    ShortAccess& operator=(const ShortAccess&) = delete;
    ~ShortAccess();

private:
    const oaLib* lib_;
};

/// The absolute directory of a library, where its technology lies.
std::string libraryPath(const oaLib* lib);

/// The absolute path of the file that holds the content of a cell view; the file need not exist.
std::string primaryPath(const oaCellView* cellView);

/// A cell view that is there for a design, and what was made for it.
struct DesignPlace {
    oaCellView* cellView = nullptr;
    bool cellViewIsNew = false;
    bool cellIsNew = false;
};

/// Finds or makes the cell view and its cell; the caller holds write access.
/// @throws oaDMError  oacMismatchViewType
DesignPlace makeDesignPlace(const oaLib* lib, const oaScalarName& cell, const oaScalarName& view,
                            const oaViewType* viewType);

/// Takes back what makeDesignPlace() made, when the design was never saved: the cell view unless it
/// holds files, and its cell unless it holds anything else. The caller holds write access.
void removeUnsaved(const DesignPlace& place);

/// Calls `hook` for each library that is about to close, while all its objects are valid. Hooks
/// that were added later come first: what they purge may lean on the others.
void beforeLibraryCloses(std::function<void(oaLib*)> hook);

} // namespace OpenAccess_4::impl

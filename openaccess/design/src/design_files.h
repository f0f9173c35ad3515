#pragma once

#include "design/src/instances.h"
#include "dm/src/library_access.h"

#include <optional>
#include <string>

namespace OpenAccess_4::impl {

/// Access to the library of a design for a scope. Refusals are the design package's errors.
/// @throws oaDesignError  oacDesignCannotGetReadAccess, oacDesignCannotGetWriteAccess,
///                        oacDesignHasReadNeedWriteAccess
class DesignAccess {
public:
    DesignAccess(const oaLib* lib, const DesignNames& names, oaLibAccessEnum kind);

private:
    std::optional<ShortAccess> access_;
};

oaLib* libraryOf(const DesignNames& names);

/// @throws oaDesignError  oacInvalidDesignViewType: it is none of the five types of designs
void requireDesignType(const oaViewType* viewType);

/// @throws oaDesignError  oacMismatchViewTypeForOpen
void requireSameType(const DesignNames& names, const oaViewType* actual, const oaViewType* wanted);

/// The cell view of a design, or null. The caller holds read access.
oaCellView* findCellView(const oaLib* lib, const DesignNames& names);

/// The view type of a design to open: that of its cell view, which must be `wanted` if that is
/// given; else `wanted`; else the type that the name of the view tells. The caller holds access.
/// @throws oaDesignError  oacInvalidDesignViewType, oacMismatchViewTypeForOpen
const oaViewType* viewTypeFor(const oaLib* lib, const DesignNames& names, const oaViewType* wanted);

DesignPlace makePlace(const oaLib* lib, const DesignNames& names, const oaViewType* viewType);

/// True when there is a file with a content.
bool hasContent(const std::string& path);

/// The first bytes of a database file: their checksums tell one content from another. Empty when
/// there is no file.
std::string headerOf(const std::string& path);

} // namespace OpenAccess_4::impl

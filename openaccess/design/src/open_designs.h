#pragma once

#include "base/src/table.h"
#include "design/src/instances.h"
#include "dm/src/edit_lock.h"
#include "dm/src/library_access.h"
#include "oa/oaDesign.h"

#include <memory>
#include <optional>
#include <string>

namespace OpenAccess_4::impl {

class DesignDatabase;

/// An open design as the session knows it.
struct OpenDesignRecord {
    DesignNames names;
    oaLib* lib = nullptr;
    const oaViewType* viewType = nullptr;
    oaChar mode = 'r';
    std::uint32_t openings = 0; // by the application
    oaTime readInTime = 0;
    oaTime lastSavedTime = 0;
    DesignPlace place;            // what was made on disk for a design that is new
    std::string path;             // of the primary file
    std::string header;           // of the file that the content came from or went to
    std::optional<EditLock> lock; // held in every mode but 'r'
    oaTech* tech = nullptr;       // opened by getTech(), to be closed with the design
    std::unique_ptr<DesignDatabase> content;

    static constexpr oaTypeEnum kType = oacDesignType;
    using Handle = oaDesign;

    Location location() const;
};

// Tables of the session.
inline constexpr std::uint32_t kOpenDesignTable = 48;

Table<OpenDesignRecord>& openDesigns();

/// The open design of these names, or null.
oaDesign* findOpenDesign(const DesignNames& names);

// What oaDesign documents for the calls of these names. A view type may be null.
oaDesign* openDesign(const DesignNames& names, const oaViewType* viewType, oaChar mode);
void reopenDesign(oaDesign* design, oaChar mode);
void revertDesign(oaDesign* design);
void saveDesign(oaDesign* design);
void saveDesignAs(oaDesign* design, const DesignNames& names);
void destroyDesign(const DesignNames& names);
bool designExists(const DesignNames& names);
void closeDesign(oaDesign* design);
void purgeDesign(oaDesign* design);
std::uint32_t refCountOf(const oaDesign* design);

/// The design as a master: open already, or opened for reading now; null when it cannot be. One
/// opened here is purged with the last design whose instances are bound to it, unless the
/// application has opened it as well.
oaDesign* openMaster(const DesignNames& names);

} // namespace OpenAccess_4::impl

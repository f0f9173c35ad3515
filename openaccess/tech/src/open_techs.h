#pragma once

#include "base/src/table.h"
#include "dm/src/edit_lock.h"
#include "oa/oaTech.h"

#include <memory>
#include <optional>
#include <string>

namespace OpenAccess_4::impl {

class TechDatabase;

/// An open technology as the session knows it.
struct TechRecord {
    oaLib* lib = nullptr;
    oaChar mode = 'r';
    std::uint32_t refCount = 0;
    std::optional<EditLock> lock; // held in every mode but 'r'
    std::string header;           // of the file that the content came from or went to
    std::unique_ptr<TechDatabase> content;

    static constexpr oaTypeEnum kType = oacTechType;
    using Handle = oaTech;

    Location location() const;
};

// Tables of the session.
inline constexpr std::uint32_t kOpenTechTable = 32;
inline constexpr std::uint32_t kDerivedLayerDefTable = 33;

Table<TechRecord>& openTechs();

/// The open technology of a library, or null.
oaTech* findOpenTech(const oaLib* lib);

bool hasTechFile(const oaLib* lib);

// What oaTech documents for the calls of these names.
oaTech* createTech(oaLib* lib);
oaTech* openTech(const oaLib* lib, oaChar mode);
void reopenTech(oaTech* tech, oaChar mode);
void revertTech(oaTech* tech);
void saveTech(oaTech* tech);
void saveTechAs(oaTech* tech, oaLib* lib);
void destroyTech(oaLib* lib);
void purgeTech(oaTech* tech);

/// The name of a library, and of that of a technology, as messages say it.
std::string nameOf(const oaLib* lib);
std::string nameOf(const TechDatabase& tech);

} // namespace OpenAccess_4::impl

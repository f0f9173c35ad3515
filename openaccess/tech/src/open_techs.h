#pragma once

#include "base/src/table.h"
#include "dm/src/edit_lock.h"
#include "oa/oaTech.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

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
    std::vector<oaTech*> heldRefs; // counted openings of those that it refers to
    bool opening = false;          // while those are opened

    static constexpr oaTypeEnum kType = oacTechType;
    using Handle = oaTech;

    Location location() const;
};

// Tables of the session.
inline constexpr std::uint32_t kOpenTechTable = 32;
inline constexpr std::uint32_t kDerivedLayerDefTable = 33;
inline constexpr std::uint32_t kDerivedLayerParamDefTable = 34;

Table<TechRecord>& openTechs();

/// The open technology that a library has itself, or null.
oaTech* findOpenTech(const oaLib* lib);

bool hasTechFile(const oaLib* lib);
/// True when a library has a technology itself, open or on disk.
bool hasOwnTech(const oaLib* lib);

/// The library that has the technology of a library, itself or over attachments; null when there is
/// none, or its library is not open.
const oaLib* techLibOf(const oaLib* lib);

// What oaTech documents for the calls of these names.
oaTech* createTech(oaLib* lib);
oaTech* openTech(const oaLib* lib, oaChar mode);
/// The same without looking at attachments.
oaTech* openOwnTech(const oaLib* lib, oaChar mode);
void reopenTech(oaTech* tech, oaChar mode);
void revertTech(oaTech* tech);
void saveTech(oaTech* tech);
void saveTechAs(oaTech* tech, oaLib* lib);
void destroyTech(oaLib* lib);
void purgeTech(oaTech* tech);

void attachTech(oaLib* lib, const oaScalarName& attachLibName);
void detachTech(oaLib* lib);
/// The name of the library whose technology a library uses; empty when it uses none.
std::string attachmentOf(const oaLib* lib);

/// The name of a library, and of that of a technology, as messages say it.
std::string nameOf(const oaLib* lib);
std::string nameOf(const TechDatabase& tech);

} // namespace OpenAccess_4::impl

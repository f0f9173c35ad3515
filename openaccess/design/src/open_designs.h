#pragma once

#include "base/src/table.h"
#include "design/src/instances.h"
#include "design/src/via_masters.h"
#include "dm/src/edit_lock.h"
#include "dm/src/library_access.h"
#include "oa/oaDesign.h"
#include "oa/oaDesignException.h"
#include "oa/oaParamArray.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace OpenAccess_4::impl {

class DesignDatabase;

enum class EvaluationState { Pending, Running, Done };

/// What a submaster follows from.
struct SubmasterOrigin {
    oaDesign* superMaster = nullptr;
    oaParamArray params; // the effective ones, in the order of the super master
    oaParamArray given;  // those of them that are not there by default
    std::string key;     // what `params` are found by
    EvaluationState state = EvaluationState::Pending;
};

/// The submasters of a super master.
struct Submasters {
    std::map<std::uint32_t, oaDesign*> made; // by slot: in the order in which they were
    std::unordered_map<std::string, oaDesign*> byKey;
    std::uint32_t opened = 0; // those that the application has opened

    std::vector<oaDesign*> all() const;
};

/// An open design as the session knows it.
struct OpenDesignRecord {
    DesignNames names;
    oaLib* lib = nullptr;
    const oaViewType* viewType = nullptr;
    oaChar mode = 'r';
    std::uint32_t openings = 0; // by the application
    oaTime readInTime = 0;
    oaTime lastSavedTime = 0;
    DesignPlace place;                          // what was made on disk for a design that is new
    std::string path;                           // of the primary file
    std::string header;                         // of the file that the content came from or went to
    std::optional<EditLock> lock;               // held in every mode but 'r'
    oaTech* tech = nullptr;                     // opened by getTech(), to be closed with the design
    std::unique_ptr<SubmasterOrigin> origin;    // of a submaster, which has neither file nor lock
    std::unique_ptr<ViaMasterOrigin> viaOrigin; // of the master of a standard via: the same
    Submasters submasters;                      // of a super master
    std::uint32_t evaluations = 0;              // of it, or of its submasters, that are running
    std::unordered_set<oaDesign*> binders; // designs with instances that are, or were, bound to it
    std::unique_ptr<DesignDatabase> content;

    static constexpr oaTypeEnum kType = oacDesignType;
    using Handle = oaDesign;

    Location location() const;
};

// Tables of the session.
inline constexpr std::uint32_t kOpenDesignTable = 48;
inline constexpr std::uint32_t kSubmasterTable = 49;
inline constexpr std::uint32_t kViaMasterTable = 50;

/// The designs that are found by their names.
Table<OpenDesignRecord>& openDesigns();
/// The submasters, which have the names of their super masters.
Table<OpenDesignRecord>& openSubmasters();

inline OpenDesignRecord& recordFor(const oaDesign* design) {
    return recordOf<OpenDesignRecord>(design);
}

/// An error whose text begins with the names of a design.
template <class... Arguments>
oaDesignError designError(oaUInt4 id, const DesignNames& names, Arguments... arguments) {
    return oaDesignError(id, names.lib.c_str(), names.cell.c_str(), names.view.c_str(),
                         arguments...);
}

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

/// Counts one more opening of a submaster by the application.
void addOpening(oaDesign* submaster);
/// Notes that instances of `binder` are bound to `design` from now on. They need not be forever:
/// what is noted here is looked at again when references are counted.
void noteBinder(oaDesign* design, oaDesign* binder);
/// Purges the designs among these that nothing refers to any more.
void purgeUnused(std::vector<oaDesign*> designs);
/// Puts other content in the place of what the design may have.
void replaceContent(OpenDesignRecord& design, std::unique_ptr<DesignDatabase> content);

/// The design as a master: open already, or opened for reading now; null when it cannot be. One
/// opened here is purged with the last design whose instances are bound to it, unless the
/// application has opened it as well.
oaDesign* openMaster(const DesignNames& names);

} // namespace OpenAccess_4::impl

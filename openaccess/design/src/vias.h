#pragma once

#include "design/src/connectivity.h"
#include "design/src/via_records.h"
#include "oa/oaBox.h"
#include "oa/oaParamArray.h"
#include "oa/oaTransform.h"
#include "oa/oaViaParam.h"

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace OpenAccess_4 {
class oaDesign;
class oaViaDef;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

class DesignDatabase;

struct ViaSub {
    std::uint32_t operator()(const ViaRecord& via) const { return via.sub; }
};
struct SubHeader {
    std::uint32_t operator()(const ViaSubHeaderRecord& sub) const { return sub.header; }
};
struct ParamSub {
    std::uint32_t operator()(const ViaParamRecord& param) const { return param.owner; }
};

/// The designs that the slots of one table are bound to.
class BoundDesigns {
public:
    /// Null when none is bound, or it is open no longer.
    oaDesign* at(std::uint32_t slot) const;
    /// Puts another design, or null, in the place of one; answers that.
    oaDesign* set(std::uint32_t slot, oaDesign* design);
    bool hold(const oaDesign* design) const {
        return uses_.contains(const_cast<oaDesign*>(design));
    }
    void addTo(std::vector<oaDesign*>& designs) const;

private:
    std::vector<oaDesign*> bound_;
    std::unordered_map<oaDesign*, std::uint32_t> uses_; // slots bound to a design
};

/// The vias of a block. They share headers, which come and go with them.
class Vias {
public:
    explicit Vias(DesignDatabase& database);

    /// The slot of the header of a definition, or kNone.
    std::uint32_t findHeader(std::string_view defName, ViaDefKind kind);
    /// The slots of the sub headers for these parameters, made when they are new. A via must be
    /// added to one before anything else happens.
    std::uint32_t stdSub(std::string_view defName, const oaViaParam& given);
    std::uint32_t customSub(std::string_view defName, const oaParamArray& given);

    oaObject* add(std::uint32_t sub, const oaTransform& xform);
    void setSub(std::uint32_t via, std::uint32_t sub);
    void destroy(std::uint32_t via);
    void destroyAll();

    std::uint32_t headerOf(std::uint32_t via) const { return subs[vias[via].sub].header; }
    oaViaParam stdParamsOf(std::uint32_t sub) const;
    oaParamArray customParamsOf(std::uint32_t sub);

    /// The definition that the vias of a header follow now, or null.
    oaViaDef* definitionOf(std::uint32_t header) const;

    oaDesign* boundMaster(std::uint32_t sub) const { return subMasters_.at(sub); }
    oaDesign* boundHeaderMaster(std::uint32_t header) const { return headerMasters_.at(header); }
    /// The master, made, opened or evaluated when it is not there; null when it cannot be.
    oaDesign* masterOf(std::uint32_t sub);
    oaDesign* headerMasterOf(std::uint32_t header);
    /// All designs that are bound, or were and may still be open only for that.
    std::vector<oaDesign*> boundMasters() const;
    bool isBoundTo(const oaDesign* design) const {
        return subMasters_.hold(design) || headerMasters_.hold(design);
    }
    /// True also when only former vias were.
    bool knows(const oaDesign* design) const {
        return isBoundTo(design) || former_.contains(const_cast<oaDesign*>(design));
    }

    /// The box around all vias.
    oaBox extent();
    oaBox boxOf(std::uint32_t via);
    bool isSound();

    Table<ViaHeaderRecord>& headers;
    Table<ViaSubHeaderRecord>& subs;
    Table<ViaParamRecord>& params;
    Table<ViaRecord>& vias;
    OwnedSlots<ViaSubHeaderRecord, SubHeader> headerSubs;
    OwnedSlots<ViaParamRecord, ParamSub> subParams;
    OwnedSlots<ViaRecord, ViaSub> subVias;

private:
    std::uint32_t header(std::string_view defName, ViaDefKind kind);
    std::uint32_t subFor(const ViaSubHeaderRecord& sub, const std::vector<ViaParamRecord>& given);
    std::string keyOf(const ViaSubHeaderRecord& sub, std::vector<ViaParamRecord> given) const;
    std::string keyOf(std::uint32_t sub);
    void catchUp();
    void release(std::uint32_t sub);
    void bind(BoundDesigns& bound, std::uint32_t slot, oaDesign* design);
    void forget(BoundDesigns& bound, std::uint32_t slot);
    oaDesign* customMasterOf(std::uint32_t sub, std::uint32_t header);
    oaBox masterBoxOf(std::uint32_t sub);
    oaBox placed(oaBox masterBox, const ViaRecord& via) const;

    DesignDatabase& database_;
    std::map<std::pair<StringId, ViaDefKind>, std::uint32_t> headerSlots_;
    std::unordered_map<std::string, std::uint32_t> subSlots_;
    std::uint32_t indexedHeaders_ = 0; // slots that the maps know
    std::uint32_t indexedSubs_ = 0;
    BoundDesigns subMasters_;
    BoundDesigns headerMasters_;
    std::unordered_set<oaDesign*> former_;
};

} // namespace OpenAccess_4::impl

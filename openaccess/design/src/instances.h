#pragma once

#include "design/src/connectivity.h"

#include "oa/oaBox.h"

#include <array>
#include <map>

namespace OpenAccess_4 {
class oaDesign;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

/// The names of a design in the native name space.
struct DesignNames {
    std::string lib;
    std::string cell;
    std::string view;

    friend auto operator<=>(const DesignNames&, const DesignNames&) = default;
};

/// The instances of a block and their masters.
class Instances {
public:
    explicit Instances(DesignDatabase& database);

    /// The slot of a master, which is made when it is new.
    std::uint32_t master(const DesignNames& design);
    DesignNames namesOf(std::uint32_t master) const;

    /// The open master if it is bound, or null.
    oaDesign* boundMaster(std::uint32_t master) const;
    /// The master, opened for reading when it is not open; null when it cannot be.
    oaDesign* bind(std::uint32_t master);
    void bind(std::uint32_t master, oaDesign* design);
    /// All designs that are bound.
    std::vector<oaDesign*> boundMasters() const;
    /// True when an instance, not only a former one, is bound to `design`.
    bool isBoundTo(const oaDesign* design) const;

    void destroy(std::uint32_t slot);
    oaParamArray paramsOf(std::uint32_t slot);
    void setParams(std::uint32_t slot, const oaParamArray& params);
    /// The box around all instances.
    oaBox extent();
    oaBox boxOf(std::uint32_t slot);
    /// The box of the first one of an array.
    oaBox boxOfOne(std::uint32_t slot);
    /// Destroys the masters that have no instance any more.
    void dropUnusedMasters();
    bool isSound();

    Table<MasterRecord>& masters;
    Table<InstRecord>& insts;
    Table<InstParamRecord>& params;
    NamedSlots<InstRecord> names;
    OwnedSlots<InstParamRecord, ParamInst> instParams;

private:
    void clearParams(std::uint32_t slot);

    DesignDatabase& database_;
    std::map<std::array<StringId, 3>, std::uint32_t> masterSlots_;
    std::uint32_t indexed_ = 0;    // masters that the map knows
    std::vector<oaDesign*> bound_; // by master; a closed design is no longer valid
};

} // namespace OpenAccess_4::impl

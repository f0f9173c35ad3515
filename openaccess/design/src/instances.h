#pragma once

#include "design/src/connectivity.h"
#include "design/src/inst_headers.h"
#include "design/src/inst_terms.h"

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

/// The instances of a block, their masters and their connections.
class Instances {
public:
    explicit Instances(DesignDatabase& database);

    /// The slot of a master, which is made when it is new.
    std::uint32_t master(const DesignNames& design);
    /// The slot of a master, or kNone.
    std::uint32_t findMaster(const DesignNames& design);
    DesignNames namesOf(std::uint32_t master) const;

    // What masters are bound to: for a pcell, the super master.
    /// The open master if it is bound, or null.
    oaDesign* boundMaster(std::uint32_t master) const;
    /// The master, opened for reading when it is not open; null when it cannot be.
    oaDesign* bind(std::uint32_t master);
    void bind(std::uint32_t master, oaDesign* design);
    /// True when the master is bound and a super master, or is not and must be one.
    bool isPcell(std::uint32_t master);

    // What instances are bound to: for one of a pcell, the submaster.
    oaDesign* boundMasterOf(std::uint32_t inst);
    /// The master, opened or evaluated when it is not there; null when it cannot be.
    oaDesign* masterOf(std::uint32_t inst);
    /// All designs that are bound: masters, super masters and submasters.
    std::vector<oaDesign*> boundMasters() const;
    /// True when an instance, not only a former one, is bound to `design`.
    bool isBoundTo(const oaDesign* design);
    /// True also when only former instances were: others of the same master would be bound again.
    bool knows(const oaDesign* design);
    /// Groups the instances anew when their super master has got other parameters: parameters that
    /// it does not have become properties, properties that it has become parameters.
    void regroup(const oaDesign* superMaster);

    /// The instance that says everything but the name of an instance.
    std::uint32_t explicitOf(std::uint32_t inst) const {
        return insts[inst].isImplicit() ? insts[inst].vector() : inst;
    }
    void setMaster(std::uint32_t slot, std::uint32_t master);
    void destroy(std::uint32_t slot);
    oaParamArray paramsOf(std::uint32_t slot);
    void setParams(std::uint32_t slot, const oaParamArray& params);

    /// The slots of the vectors.
    const std::vector<std::uint32_t>& vectors();
    /// The implicit bits of a vector, from the start to the stop of its range.
    std::vector<std::uint32_t> bitsOf(std::uint32_t vector);
    void addBits(std::uint32_t vector);
    /// Gives an instance another name, which must be free, and a vector the bits that go with it.
    void rename(std::uint32_t slot, std::string_view name);
    /// Adds an instance to those that a collection with these flags shows, if it does.
    void collect(std::uint32_t slot, std::uint32_t filterFlags, std::vector<oaObject*>& shown);

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
    OwnedSlots<InstRecord, InstMaster> masterInsts;
    InstTerms terms;
    SubHeaders subHeaders;

private:
    std::uint32_t masterBoundTo(const oaDesign* design);
    void clearParams(std::uint32_t slot);
    bool hasParams(std::uint32_t master);
    oaDesign* bindSub(std::uint32_t inst, oaDesign* superMaster);
    void regroup(std::uint32_t inst, const oaDesign* superMaster);
    bool areVectorsSound();

    DesignDatabase& database_;
    std::map<std::array<StringId, 3>, std::uint32_t> masterSlots_;
    std::uint32_t indexed_ = 0;    // masters that the map knows
    std::vector<oaDesign*> bound_; // by master; a closed design is no longer valid
    std::vector<std::uint32_t> vectors_;
    struct {
        std::uint32_t slots = 0;
        std::uint32_t destroyed = 0;
    } paramsSeen_;
    std::vector<bool> mastersWithParams_; // as far as parameters were seen
    std::uint32_t searched_ = 0;          // instances that were searched for vectors
};

} // namespace OpenAccess_4::impl

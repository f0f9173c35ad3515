#pragma once

#include "base/src/chain_index.h"
#include "design/src/records.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace OpenAccess_4::impl {

class DesignDatabase;

/// The groups of instances that have the same master and were given the same parameters. They are
/// found lazily, and each knows the submaster that it is bound to.
class SubHeaders {
public:
    explicit SubHeaders(DesignDatabase& database);

    /// The sub header of an instance.
    std::uint32_t of(std::uint32_t inst);
    std::vector<std::uint32_t> instsOf(std::uint32_t sub);
    std::vector<std::uint32_t> ofMaster(std::uint32_t master);
    /// An instance of a sub header.
    std::uint32_t firstInst(std::uint32_t sub) const { return insts_.first(sub); }

    /// The submaster if it is bound, or null.
    oaDesign* bound(std::uint32_t sub) const;
    /// True also when the submaster is no longer there.
    bool isBound(std::uint32_t sub) const { return table[sub].bound != nullptr; }
    /// Lets another submaster take the place of the one that is bound; null for none.
    void bind(std::uint32_t sub, oaDesign* submaster);
    /// All submasters that are bound, each once.
    std::vector<oaDesign*> boundDesigns() const;
    bool isBoundTo(const oaDesign* design) const {
        return uses_.contains(const_cast<oaDesign*>(design));
    }
    /// Lets the submasters of a master go.
    void unbind(std::uint32_t master);

    /// To be called before an instance changes its master or its parameters, or is destroyed.
    void forget(std::uint32_t inst);

    Table<SubHeaderRecord>& table;

private:
    std::string keyOf(std::uint32_t inst);
    void groupAll(std::uint32_t master);

    DesignDatabase& database_;
    std::unordered_map<std::string, std::uint32_t> byParams_;
    std::vector<std::uint32_t> subs_;    // by instance; kNone for those not grouped yet
    std::vector<std::uint32_t> grouped_; // by master: how many of its instances are
    ChainIndex insts_;                   // by sub header
    std::unordered_map<oaDesign*, std::uint32_t> uses_; // sub headers bound to a design
};

} // namespace OpenAccess_4::impl

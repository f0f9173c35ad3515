#pragma once

#include "design/src/connectivity.h"

namespace OpenAccess_4::impl {

struct InstTermNet {
    std::uint32_t operator()(const InstTermRecord& term) const { return term.net; }
};
struct InstTermInst {
    std::uint32_t operator()(const InstTermRecord& term) const { return term.inst; }
};

/// What the terminals of one instance are found by.
struct InstTermNameKey {
    static std::uint64_t of(std::uint32_t inst, StringId name) {
        return (std::uint64_t(inst) << 32) | name;
    }
    std::uint64_t operator()(const InstTermRecord& term) const {
        return term.name == 0 ? ~std::uint64_t(0) : of(term.inst, term.name);
    }
};
struct InstTermPositionKey {
    std::uint64_t operator()(const InstTermRecord& term) const {
        return term.position == kNone ? ~std::uint64_t(0)
                                      : InstTermNameKey::of(term.inst, term.position);
    }
};

/// The connections of the instances of a block.
class InstTerms {
public:
    explicit InstTerms(DesignDatabase& database);

    /// True when the instance goes by the positions of the terminals.
    bool usesPositions(std::uint32_t inst);
    /// The one of that terminal, or kNone.
    std::uint32_t find(std::uint32_t inst, std::string_view name);
    std::uint32_t find(std::uint32_t inst, std::uint32_t position);

    void setNet(std::uint32_t slot, std::uint32_t net);
    void destroy(std::uint32_t slot);
    void destroyOfInst(std::uint32_t inst);
    /// Takes everything off a net.
    void clearNet(std::uint32_t net);
    bool isSound() { return byName_.isSound() && byPosition_.isSound(); }

    Table<InstTermRecord>& table;
    OwnedSlots<InstTermRecord, InstTermNet> ofNet;
    OwnedSlots<InstTermRecord, InstTermInst> ofInst;

private:
    DesignDatabase& database_;
    KeyedSlots<InstTermRecord, InstTermNameKey> byName_;
    KeyedSlots<InstTermRecord, InstTermPositionKey> byPosition_;
};

} // namespace OpenAccess_4::impl

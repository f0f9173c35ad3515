#pragma once

#include "design/src/fig_owners.h"
#include "design/src/named_slots.h"
#include "design/src/records.h"

namespace OpenAccess_4::impl {

class DesignDatabase;

struct TermPositionKey {
    std::uint64_t operator()(const TermRecord& term) const {
        return term.position == kNone ? ~std::uint64_t(0) : term.position;
    }
};

/// Names of pins differ on one terminal.
struct PinNameKey {
    static std::uint64_t of(std::uint32_t term, StringId name) {
        return (std::uint64_t(term) << 32) | name;
    }
    std::uint64_t operator()(const PinRecord& pin) const { return of(pin.term, pin.name); }
};

struct TermNet {
    std::uint32_t operator()(const TermRecord& term) const { return term.net; }
};
struct PinTerm {
    std::uint32_t operator()(const PinRecord& pin) const { return pin.term; }
};
struct ParamInst {
    std::uint32_t operator()(const InstParamRecord& param) const { return param.owner; }
};

/// The instances of a master. Implicit ones belong to no master, but to their vector.
struct InstMaster {
    std::uint32_t operator()(const InstRecord& inst) const {
        return inst.isImplicit() ? kNone : inst.master;
    }
};

/// The slots of one table that belong to the slots of another: terminals of nets, pins of
/// terminals. `Owner` answers the owner of a record.
template <class Record, class Owner>
class OwnedSlots {
public:
    explicit OwnedSlots(Table<Record>& table) : table_(table) {}

    std::vector<std::uint32_t> of(std::uint32_t owner) {
        catchUp();
        return chains_.slots(owner);
    }
    bool any(std::uint32_t owner) {
        catchUp();
        return chains_.first(owner) != kNone;
    }
    std::uint32_t count(std::uint32_t owner) {
        catchUp();
        return chains_.count(owner);
    }
    /// The first one, or kNone.
    std::uint32_t first(std::uint32_t owner) {
        catchUp();
        return chains_.first(owner);
    }
    /// To be called before a record changes its owner or is destroyed.
    void remove(std::uint32_t slot) {
        catchUp();
        chains_.remove(Owner()(table_[slot]), slot);
    }
    /// To be called after a record has changed its owner; remove() came before.
    void insert(std::uint32_t slot) { chains_.append(Owner()(table_[slot]), slot); }

private:
    void catchUp() {
        for (; indexed_ < table_.slots(); ++indexed_)
            if (table_.isLive(indexed_))
                insert(indexed_);
    }

    Table<Record>& table_;
    ChainIndex chains_;
    std::uint32_t indexed_ = 0; // slots that the chains know
};

/// The nets, terminals and pins of a block, and what is on them.
class Connectivity {
public:
    explicit Connectivity(DesignDatabase& database);

    void destroyNet(std::uint32_t slot);
    void destroyTerm(std::uint32_t slot);
    void destroyPin(std::uint32_t slot);
    bool isSound();

    Table<NetRecord>& nets;
    Table<TermRecord>& terms;
    Table<PinRecord>& pins;
    NamedSlots<NetRecord> netNames;
    NamedSlots<TermRecord> termNames;
    KeyedSlots<TermRecord, TermPositionKey> termPositions;
    KeyedSlots<PinRecord, PinNameKey> pinNames;
    OwnedSlots<TermRecord, TermNet> netTerms;
    OwnedSlots<PinRecord, PinTerm> termPins;
    FigOwners<FigNetRecord> netFigs;
    FigOwners<FigPinRecord> pinFigs;

private:
    DesignDatabase& database_;
};

} // namespace OpenAccess_4::impl

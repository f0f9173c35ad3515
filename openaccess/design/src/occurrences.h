#pragma once

#include "base/src/refs.h"
#include "base/src/table.h"
#include "design/src/records.h"
#include "oa/oaOccInst.h"

#include <memory>
#include <vector>

namespace OpenAccess_4::impl {

class DesignDatabase;

/// The content of a design as others hold on to it: they ask whether it is there still.
struct ContentAnchor {
    DesignDatabase* database = nullptr;
};
using ContentPtr = std::shared_ptr<const ContentAnchor>;

/// A block at one place of the hierarchy.
struct OccurrenceRecord {
    ContentPtr content;               // that the block lies in
    std::uint32_t occInst = kNone;    // that leads here
    std::vector<std::uint32_t> insts; // by slot of the instance; kNone where none was asked for

    using Handle = oaOccurrence;
    static constexpr oaTypeEnum kType = oacOccurrenceType;
};

/// An instance at one place of the hierarchy.
struct OccInstRecord {
    std::uint32_t occurrence = 0;
    std::uint32_t inst = 0;      // in the content of the occurrence
    std::uint32_t below = kNone; // the occurrence of the master
    InstKind kind = InstKind::Scalar;

    oaTypeEnum type() const;
    oaObject* construct(void* where) const;
};

/// The hierarchy below a design, as far as it was asked for. Not stored.
class Occurrences {
public:
    explicit Occurrences(DesignDatabase& database) : database_(database) {}
    Occurrences(const Occurrences&) = delete;
    Occurrences& operator=(const Occurrences&) = delete;
    ~Occurrences();

    /// The occurrence of the top block, or null.
    oaOccurrence* top();
    std::uint32_t topSlot() const { return top_; }

    OccurrenceRecord& occurrence(std::uint32_t slot) { return (*occurrences_)[slot]; }
    OccInstRecord& inst(std::uint32_t slot) { return (*insts_)[slot]; }
    oaOccurrence* occurrenceHandle(std::uint32_t slot);
    oaOccInst* instHandle(std::uint32_t slot);

    /// The instance of an occurrence; null when the slot is kNone.
    oaOccInst* find(std::uint32_t occurrence, std::uint32_t inst);
    /// Destroys what stands for instances that are no more.
    void dropDestroyed(std::uint32_t occurrence);
    /// The occurrence of an instance's master, or kNone.
    std::uint32_t below(std::uint32_t occInst, bool expand);
    /// Everything that stands for an instance of this very design.
    std::vector<oaObject*> standingFor(const ContentPtr& content, std::uint32_t inst);

    /// What others hold this content by.
    const ContentPtr& anchor();

private:
    void makeTables();
    bool holds(std::uint32_t occurrence, const DesignDatabase& content);
    void destroy(std::uint32_t occurrence);
    void destroyInst(std::uint32_t occInst);

    DesignDatabase& database_;
    Table<OccurrenceRecord>* occurrences_ = nullptr; // made when they are needed
    Table<OccInstRecord>* insts_ = nullptr;
    std::uint32_t top_ = kNone;
    std::shared_ptr<ContentAnchor> anchor_;
    ContentPtr sharedAnchor_;
};

/// The place of an occurrence or an instance, and what lies there.
/// @throws oaError  oacInvalidObject: the block or the instance is no more
DesignDatabase& contentOf(const oaOccurrence* occurrence);
oaInst* instOf(const oaOccInst* occInst);
/// True when nothing of that is thrown.
bool stands(const oaOccInst* occInst);

} // namespace OpenAccess_4::impl

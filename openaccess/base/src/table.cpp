#include "base/src/table.h"

#include "base/src/database.h"
#include "base/src/handle_pool.h"
#include "base/src/unset_records.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"

#include <algorithm>
#include <bit>

namespace OpenAccess_4::impl {

namespace {

// Slabs double from 64 slots, or from as many as a table has that is read from a file, to 131072,
// the size at which the handles of a slab fill one huge page; from there on they keep that size.
constexpr std::uint32_t kSmallestSlabBits = 6;
constexpr std::uint32_t kLargestSlabBits = 17;

} // namespace

void throwInvalidObject() {
    throw oaError(oacInvalidObject);
}

TableBase::TableBase(Database& database, TableId id, std::size_t recordSize)
    : database_(database), id_(id), recordSize_(recordSize), firstSlabBits_(kSmallestSlabBits) {}

TableBase::~TableBase() {
    for (std::size_t number = 0; number < slabs(); ++number) {
        const Slab& slab = slabAt(number);
        freeRecords(slab.records, slab.capacity * recordSize_);
        if (!slab.handles)
            continue;
        for (std::uint32_t i = 0; i < slab.made; ++i)
            Handles::setSlab(slab.handles + i, nullptr);
        HandlePool::instance().giveBack(slab.handles, slab.capacity);
    }
}

oaObject* TableBase::handle(std::uint32_t slot) {
    Slab& slab = slabOf(slot);
    if (slab.made < slab.used)
        makeHandles(slab);
    return slab.handles + (slot - slab.first);
}

std::span<oaObject> TableBase::handlesFrom(std::uint32_t slot) {
    Slab& slab = slabOf(slot);
    if (slab.made < slab.used)
        makeHandles(slab);
    return {slab.handles + (slot - slab.first), slab.first + slab.used - slot};
}

Location TableBase::locate(std::uint32_t slot) const {
    return {&database_, {id_.number, slot}};
}

void TableBase::appendSlots(std::uint32_t count) {
    assert(slots_ == 0 && "only a table that is read from a file grows by many slots at once");
    if (count > 0)
        firstSlabBits_ = std::clamp(std::uint32_t(std::bit_width(count - 1)), kSmallestSlabBits,
                                    kLargestSlabBits);
    while (count > 0) {
        Slab& slab = addSlab();
        slab.used = std::min(count, slab.capacity);
        slots_ += slab.used;
        count -= slab.used;
    }
}

void TableBase::renumber(RecordRemapper& remapper) const {
    if (destroyed_ == 0)
        return;
    std::vector<std::uint32_t> numbers(slots_, kNone);
    std::uint32_t next = 0;
    for (std::uint32_t slot = 0; slot < slots_; ++slot)
        if (isLive(slot))
            numbers[slot] = next++;
    remapper.setNumbers(id_.number, std::move(numbers));
}

std::uint32_t TableBase::appendSlot() {
    if (slots_ == kNone)
        throw oaError(oacTableFull);
    if (slabs() == 0 || lastSlab().used == lastSlab().capacity)
        addSlab();
    Slab& slab = lastSlab();
    ++slab.used;
    if (!gone_.empty())
        gone_.push_back(false);
    return slots_++;
}

void TableBase::retire(std::uint32_t slot) {
    if (gone_.empty())
        gone_.resize(slots_);
    gone_[slot] = true;
    ++destroyed_;
    Slab& slab = slabOf(slot);
    const std::uint32_t place = slot - slab.first;
    if (place < slab.made)
        Handles::setSlab(slab.handles + place, nullptr);
    database_.noteGarbage();
}

std::byte* TableBase::recordAt(std::uint32_t slot) const {
    const Slab& slab = slabOf(slot);
    return slab.records + (slot - slab.first) * recordSize_;
}

Slab& TableBase::slabOf(std::uint32_t slot) const {
    assert(slot < slots_);
    return slabAt(slabNumber(slot));
}

std::size_t TableBase::slabNumber(std::uint32_t slot) const {
    const std::uint32_t doublings = kLargestSlabBits - firstSlabBits_;
    const std::uint32_t doubledSlots = ((1u << (doublings + 1)) - 1) << firstSlabBits_;
    if (slot >= doubledSlots)
        return doublings + 1 + ((slot - doubledSlots) >> kLargestSlabBits);
    return std::size_t(std::bit_width((slot >> firstSlabBits_) + 1)) - 1;
}

std::uint32_t TableBase::slabCapacity(std::size_t number) const {
    return 1u << std::min<std::size_t>(firstSlabBits_ + number, kLargestSlabBits);
}

Slab& TableBase::addSlab() {
    const std::size_t number = slabs();
    std::unique_ptr<Slab> further = number > 0 ? std::make_unique<Slab>() : nullptr;
    Slab& slab = further ? *further : firstSlab_;
    slab.table = this;
    slab.first = slots_;
    slab.capacity = slabCapacity(number);
    slab.records = allocateUnsetRecords(slab.capacity * recordSize_);
    if (further)
        furtherSlabs_.push_back(std::move(further));
    return slab;
}

void TableBase::makeHandles(Slab& slab) {
    if (!slab.handles)
        slab.handles = HandlePool::instance().take(slab.capacity);
    std::uint32_t place = slab.made;
    construct(slab);
    for (; place < slab.used; ++place)
        if (isLive(slab.first + place))
            Handles::setSlab(slab.handles + place, &slab);
}

} // namespace OpenAccess_4::impl

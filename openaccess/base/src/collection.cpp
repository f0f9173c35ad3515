#include "oa/oaCollection.h"

#include "base/src/source.h"
#include "oa/oaObject.h"

#include <algorithm>

namespace OpenAccess_4 {

namespace impl {

Source::~Source() = default;

bool TablesSource::nextRun(oaUInt8& position, Run& run) const {
    auto table = std::size_t(position >> 32);
    auto slot = std::uint32_t(position);
    while (table < tables_.size() && slot >= tables_[table]->slots()) {
        ++table;
        slot = 0;
    }
    if (table == tables_.size())
        return false;
    const auto handles = tables_[table]->handlesFrom(slot);
    run = {handles.data(), handles.data() + handles.size()};
    position = (oaUInt8(table) << 32) | (slot + std::uint32_t(handles.size()));
    return true;
}

oaUInt4 TablesSource::count() const {
    oaUInt4 count = 0;
    for (const TableBase* table : tables_)
        count += table->live();
    return count;
}

bool ListSource::nextRun(oaUInt8& position, Run& run) const {
    if (position == objects_.size())
        return false;
    oaObject* object = objects_[std::size_t(position++)];
    run = {object, object + 1};
    return true;
}

oaUInt4 ListSource::count() const {
    return oaUInt4(std::count_if(objects_.begin(), objects_.end(),
                                 [](const oaObject* object) { return object->isValid(); }));
}

} // namespace impl

oaBaseCollection::oaBaseCollection(impl::SourcePtr source) : source_(std::move(source)) {}

oaUInt4 oaBaseCollection::getCount() const {
    return source_->count();
}

oaBoolean oaBaseCollection::includes(const oaObject* object) const {
    oaBaseIter walk(*this);
    while (const oaObject* member = walk.getNext())
        if (member == object)
            return true;
    return false;
}

oaBoolean oaBaseCollection::isEmpty() const {
    return getCount() == 0;
}

oaBaseIter::oaBaseIter(const oaBaseCollection& collection) : source_(collection.source_) {}

oaObject* oaBaseIter::getNext() {
    while (run_.begin != run_.end || findRun()) {
        oaObject* object = run_.begin++;
        if (object->isValid())
            return object;
    }
    return nullptr;
}

bool oaBaseIter::findRun() {
    return source_->nextRun(position_, run_);
}

void oaBaseIter::reset() {
    run_ = {};
    position_ = 0;
}

} // namespace OpenAccess_4

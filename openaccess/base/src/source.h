#pragma once

#include "base/src/table.h"
#include "oa/oaCollection.h"

#include <utility>
#include <vector>

namespace OpenAccess_4::impl {

/// The live objects of some tables, one table after the other.
class TablesSource final : public Source {
public:
    explicit TablesSource(std::vector<TableBase*> tables) : tables_(std::move(tables)) {}

    bool nextRun(oaUInt8& position, Run& run) const override;
    oaUInt4 count() const override;

private:
    std::vector<TableBase*> tables_;
};

/// A list of objects as it was when the collection was asked for.
class ListSource final : public Source {
public:
    explicit ListSource(std::vector<oaObject*> objects) : objects_(std::move(objects)) {}

    bool nextRun(oaUInt8& position, Run& run) const override;
    oaUInt4 count() const override;

private:
    std::vector<oaObject*> objects_;
};

/// The collection type that a call answers, over some tables.
template <class Collection>
Collection collectionOf(std::vector<TableBase*> tables) {
    return Collection(std::make_shared<TablesSource>(std::move(tables)));
}

/// The collection type that a call answers, over a list of objects.
template <class Collection>
Collection collectionOf(std::vector<oaObject*> objects) {
    return Collection(std::make_shared<ListSource>(std::move(objects)));
}

} // namespace OpenAccess_4::impl

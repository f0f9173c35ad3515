#include <ovalis/library.h>

#include "core/boundary.h"
#include "core/names.h"

namespace ovalis {

namespace {

const oa::oaCell& cellNamed(const oa::oaLib& lib, const std::string& name) {
    const oa::oaCell* cell = oa::oaCell::find(&lib, scalarName(name));
    if (cell == nullptr) {
        throw std::runtime_error("Cell not found in library.");
    }
    return *cell;
}

TStringPair namesOf(const oa::oaCellView& cellView) {
    return TStringPair(nativeName(*cellView.getCell()), nativeName(*cellView.getView()));
}

TStringTriplet namesAndTypeOf(const oa::oaCellView& cellView) {
    oa::oaString type;
    cellView.getView()->getViewType()->getName(type);
    return TStringTriplet(nativeName(*cellView.getCell()), nativeName(*cellView.getView()),
                          fromOa(type));
}

/// Lists what `describe` says of each element, in the order of the collection.
template <class Element, class Owner, class Describe>
auto listed(const oa::oaCollection<Element, Owner>& collection, Describe describe) {
    std::vector<decltype(describe(std::declval<const Element&>()))> list;
    list.reserve(collection.getCount());
    oa::oaIter<Element> iterator(collection);
    while (const Element* element = iterator.getNext()) {
        list.push_back(describe(*element));
    }
    return list;
}

} // namespace

std::vector<std::string> getCellNames(const oa::oaLib& lib) {
    return atBoundary([&] {
        initOa();
        return listed(lib.getCells(), nativeName<oa::oaCell>);
    });
}

std::vector<TStringPair> getCellViewNames(const oa::oaLib& lib) {
    return atBoundary([&] {
        initOa();
        return listed(lib.getCellViews(), namesOf);
    });
}

std::vector<TStringPair> getCellViewNames(const oa::oaLib& lib, const std::string& cellName) {
    return atBoundary([&] {
        initOa();
        return listed(cellNamed(lib, cellName).getCellViews(), namesOf);
    });
}

std::vector<TStringTriplet> getCellViewNamesAndTypes(const oa::oaLib& lib) {
    return atBoundary([&] {
        initOa();
        return listed(lib.getCellViews(), namesAndTypeOf);
    });
}

std::vector<TStringTriplet> getCellViewNamesAndTypes(const oa::oaLib& lib,
                                                     const std::string& cellName) {
    return atBoundary([&] {
        initOa();
        return listed(cellNamed(lib, cellName).getCellViews(), namesAndTypeOf);
    });
}

} // namespace ovalis

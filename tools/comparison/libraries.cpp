#include "comparison/libraries.h"

#include <functional>

#include "comparison/data.h"
#include "comparison/designs.h"
#include "comparison/fields.h"
#include "comparison/files.h"
#include "comparison/matching.h"
#include "comparison/opened.h"
#include "comparison/technologies.h"
#include "comparison/text.h"

namespace comparison {
namespace {

/// Whether the library may be written is no part of what it holds.
const std::string writability = "libReadOnly";

Fields attributesOf(const oa::oaLib& lib) {
    Fields fields;
    oa::oaDMAttrArray attributes;
    lib.getAttributes(attributes);
    for (oa::oaUInt4 at = 0; at < attributes.getNumElements(); ++at) {
        const std::string name = ovalis::fromOa(attributes[at].getName());
        if (name != writability)
            fields.add("attribute " + quoted(name), quoted(attributes[at].getValue()));
    }
    return fields;
}

std::string attachmentOf(const oa::oaLib& lib, const LibraryNames& libraries, bool isSecond) {
    if (!oa::oaTech::hasAttachment(&lib))
        return "";
    oa::oaScalarName name;
    oa::oaString text;
    oa::oaTech::getAttachment(&lib, name);
    name.get(oa::oaNativeNS(), text);
    const std::string attached = ovalis::fromOa(text);
    return quoted(isSecond ? libraries.shared(attached) : attached);
}

bool ends(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// True for the data of a library, cell, view or cell view, which are compared as objects.
bool holdsData(const oa::oaDMFile& file) {
    const std::string name = plainNameOf(file);
    return name.compare(0, 5, "data.") == 0 && ends(name, ".dm");
}

template <class Object, class Owner>
Named<Object> byName(const oa::oaCollection<Object, Owner>& collection) {
    Named<Object> named;
    oa::oaIter<Object> all(collection);
    while (const Object* object = all.getNext())
        named[nameOf(*object)] = object;
    return named;
}

Named<oa::oaCellView> viewsOf(const oa::oaCell& cell) {
    Named<oa::oaCellView> named;
    oa::oaIter<oa::oaCellView> all(cell.getCellViews());
    while (const oa::oaCellView* view = all.getNext())
        named[nameOf(*view->getView())] = view;
    return named;
}

oa::oaDesign* openDesign(const oa::oaCellView& view, bool onlyIfThere) {
    oa::oaScalarName lib;
    oa::oaScalarName cell;
    oa::oaScalarName name;
    view.getLib()->getName(lib);
    view.getCell()->getName(cell);
    view.getView()->getName(name);
    if (onlyIfThere && !oa::oaDesign::exists(lib, cell, name))
        return nullptr;
    return oa::oaDesign::open(lib, cell, name, 'r');
}

/// Two open libraries and the listener.
class LibraryComparison {
public:
    LibraryComparison(const oa::oaLib& was, const oa::oaLib& is, const LibraryNames& libraries,
                      Listener& listener)
        : was_(was), is_(is), libraries_(libraries), listener_(listener) {}

    void compare() const {
        compareLibrary();
        compareTechs();
        compareViews();
        const Place place("library", listener_);
        const Matching<oa::oaCell> cells =
            matchByName(byName(was_.getCells()), byName(is_.getCells()));
        for (const auto& [was, is] : cells.both)
            compareCell(*was, *is);
        for (const oa::oaCell* cell : cells.removed)
            place.removed("cell " + quoted(nameOf(*cell)));
        for (const oa::oaCell* cell : cells.added)
            place.added("cell " + quoted(nameOf(*cell)));
    }

private:
    void compareLibrary() const;
    void compareTechs() const;
    void compareViews() const;
    void compareCell(const oa::oaCell& was, const oa::oaCell& is) const;
    void compareView(const std::string& name, const oa::oaCellView& was,
                     const oa::oaCellView& is) const;

    const oa::oaLib& was_;
    const oa::oaLib& is_;
    const LibraryNames& libraries_;
    Listener& listener_;
};

void LibraryComparison::compareLibrary() const {
    const Place place("library", listener_);
    compareFields(place, "library", attributesOf(was_), attributesOf(is_));
    compareData(place, "library", &was_, &is_);
    compareFiles(place, was_, is_, [](const oa::oaDMFile& file) {
        return holdsData(file) || plainNameOf(file) == "tech.db";
    });
}

void LibraryComparison::compareTechs() const {
    const Place place("technology", listener_);
    guarded(place, [&] {
        Fields was;
        Fields is;
        was.set("attached to", attachmentOf(was_, libraries_, false));
        is.set("attached to", attachmentOf(is_, libraries_, true));
        compareFields(place, "technology", was, is);
        const auto open = [](const oa::oaLib& lib) {
            return oa::oaTech::exists(&lib, false) ? oa::oaTech::open(&lib, 'r') : nullptr;
        };
        const Opened<oa::oaTech> first(open(was_));
        const Opened<oa::oaTech> second(open(is_));
        if (first && second)
            compareTechnologies(place, *first, *second, libraries_);
        else if (first)
            place.removed("technology");
        else if (second)
            place.added("technology");
    });
}

/// The views of the library are those of its cells; only their data are their own.
void LibraryComparison::compareViews() const {
    const auto named = [](const oa::oaLib& lib) {
        Named<oa::oaView> views;
        oa::oaIter<oa::oaView> all(lib.getViews());
        while (const oa::oaView* view = all.getNext())
            views[nameOf(*view) + "\" of the type \"" + plainNameOf(*view->getViewType())] = view;
        return views;
    };
    const Place place("library", listener_);
    const Named<oa::oaView> was = named(was_);
    const Named<oa::oaView> is = named(is_);
    for (const auto& [name, view] : was) {
        const auto other = is.find(name);
        compareData(place, "view \"" + name + '"', view,
                    other == is.end() ? nullptr : other->second);
    }
    for (const auto& [name, view] : is)
        if (!was.contains(name))
            compareData(place, "view \"" + name + '"', nullptr, view);
}

void LibraryComparison::compareCell(const oa::oaCell& was, const oa::oaCell& is) const {
    const std::string name = nameOf(was);
    const Place place(name, listener_);
    compareData(place, "cell", &was, &is);
    compareFiles(place, was, is, holdsData);
    const Matching<oa::oaCellView> views = matchByName(viewsOf(was), viewsOf(is));
    for (const auto& [first, second] : views.both)
        compareView(name + "/" + nameOf(*first->getView()), *first, *second);
    for (const oa::oaCellView* view : views.removed)
        place.removed("view " + quoted(nameOf(*view->getView())));
    for (const oa::oaCellView* view : views.added)
        place.added("view " + quoted(nameOf(*view->getView())));
}

void LibraryComparison::compareView(const std::string& name, const oa::oaCellView& was,
                                    const oa::oaCellView& is) const {
    const Place place(name, listener_);
    compareData(place, "view", &was, &is);
    bool bothAreDesigns = false;
    guarded(place, [&] {
        // With a design on one side only, the files tell.
        const Opened<oa::oaDesign> first(openDesign(was, true));
        const Opened<oa::oaDesign> second(first ? openDesign(is, true) : nullptr);
        bothAreDesigns = first && second;
        if (bothAreDesigns)
            compareDesigns(place, *first, *second, libraries_);
    });
    Fields first;
    Fields second;
    first.set("view type", plainNameOf(*was.getView()->getViewType()));
    second.set("view type", plainNameOf(*is.getView()->getViewType()));
    if (!bothAreDesigns)
        compareFields(place, "view", first, second);
    compareFiles(place, was, is, [bothAreDesigns](const oa::oaDMFile& file) {
        return holdsData(file) || (bothAreDesigns && file.isPrimary());
    });
}

} // namespace

void compareLibraries(const oa::oaLib& was, const oa::oaLib& is, const LibraryNames& libraries,
                      Listener& listener) {
    LibraryComparison(was, is, libraries, listener).compare();
}

} // namespace comparison

#pragma once

#include <oa/oaDesignDB.h>

#include "xml/xml_text.h"

namespace ovalis {

// Each puts the description of one object, with its line end.

void describe(XmlText& text, const oa::oaLib& lib);
void describe(XmlText& text, const oa::oaCell& cell);
void describe(XmlText& text, const oa::oaCellView& cellView);
void describe(XmlText& text, const oa::oaDMContainer& container);
void describe(XmlText& text, const oa::oaDesign& design);
void describe(XmlText& text, const oa::oaTech& tech);
void describe(XmlText& text, const oa::oaNet& net);
void describe(XmlText& text, const oa::oaPin& pin);
void describe(XmlText& text, const oa::oaInstTerm& instTerm);
void describe(XmlText& text, const oa::oaShape& shape);
void describe(XmlText& text, const oa::oaParam& param);
void describe(XmlText& text, const oa::oaBox& box);
void describe(XmlText& text, const oa::oaOccurrence& occurrence);
void describe(XmlText& text, const oa::oaOccInst& inst);

/// Puts a box without a line end.
void describeInLine(XmlText& text, const oa::oaBox& box);

/// Put the application-defined values and the properties of an object.
void describeAppDefs(XmlText& text, const oa::oaObject& object);
void describeProps(XmlText& text, const oa::oaObject& object);

/// Puts the descriptions of a collection's elements.
template <class Element, class Owner>
void describeAll(XmlText& text, const oa::oaCollection<Element, Owner>& collection) {
    oa::oaIter<Element> iterator(collection);
    while (const Element* element = iterator.getNext()) {
        describe(text, *element);
    }
}

} // namespace ovalis

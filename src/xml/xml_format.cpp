#include <ovalis/xml.h>

#include "core/boundary.h"
#include "xml/describe.h"

namespace ovalis {

namespace {

template <class Object>
std::string described(const Object& object) {
    return atBoundary([&] {
        std::string result;
        XmlText text(result);
        describe(text, object);
        text.flush();
        return result;
    });
}

template <class Object>
void write(const Object& object, std::ostream& out) {
    atBoundary([&] {
        initOa();
        XmlText text(out);
        describe(text, object);
        text.flush();
    });
}

/// What is opened on the way may need the evaluators of pcells.
template <class Object>
std::string describedFromDisk(const Object& object) {
    atBoundary([] { initOa(); });
    return described(object);
}

} // namespace

std::string xmlFormat(const oa::oaLib& lib) {
    return describedFromDisk(lib);
}

std::string xmlFormat(const oa::oaCell& cell) {
    return describedFromDisk(cell);
}

std::string xmlFormat(const oa::oaCellView& cellView) {
    return describedFromDisk(cellView);
}

std::string xmlFormat(const oa::oaDMContainer& container) {
    return described(container);
}

std::string xmlFormat(const oa::oaDesign& design) {
    return described(design);
}

std::string xmlFormat(const oa::oaTech& tech) {
    return described(tech);
}

std::string xmlFormat(const oa::oaNet& net) {
    return described(net);
}

std::string xmlFormat(const oa::oaPin& pin) {
    return described(pin);
}

std::string xmlFormat(const oa::oaShape& shape) {
    return described(shape);
}

std::string xmlFormat(const oa::oaParam& param) {
    return described(param);
}

std::string xmlFormat(const oa::oaBox& box) {
    return described(box);
}

void xmlWrite(const oa::oaLib& lib, std::ostream& out) {
    write(lib, out);
}

void xmlWrite(const oa::oaCell& cell, std::ostream& out) {
    write(cell, out);
}

void xmlWrite(const oa::oaCellView& cellView, std::ostream& out) {
    write(cellView, out);
}

} // namespace ovalis

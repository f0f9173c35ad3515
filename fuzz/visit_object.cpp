#include "definitions.h"
#include "digest.h"
#include "visit.h"

#include <vector>

namespace fuzz {

namespace {

// A file may hold properties of properties of properties.
constexpr int kDeepest = 8;

template <class Range>
void visitRange(const Range* range, Digest& digest) {
    digest.add(range->getLowerBound());
    digest.add(range->getValue());
    digest.add(range->getUpperBound());
}

void visitBytes(const oa::oaAppProp* prop, Digest& digest) {
    oa::oaString type;
    prop->getAppType(type);
    digest.add(type);
    std::vector<oa::oaByte> bytes(prop->getSize());
    prop->getValue(bytes.data());
    for (const oa::oaByte byte : bytes)
        digest.add(byte);
}

void visitEnums(const oa::oaEnumProp* prop, Digest& digest) {
    oa::oaEnumPropIter enums(prop->getEnums());
    oa::oaString text;
    while (enums.getNext(text))
        digest.add(text);
}

void visitValue(const oa::oaProp* prop, Digest& digest) {
    switch (prop->getType()) {
    case oa::oacIntRangePropType:
        return visitRange(static_cast<const oa::oaIntRangeProp*>(prop), digest);
    case oa::oacFloatRangePropType:
        return visitRange(static_cast<const oa::oaFloatRangeProp*>(prop), digest);
    case oa::oacDoubleRangePropType:
        return visitRange(static_cast<const oa::oaDoubleRangeProp*>(prop), digest);
    case oa::oacTimeRangePropType:
        return visitRange(static_cast<const oa::oaTimeRangeProp*>(prop), digest);
    case oa::oacAppPropType:
        return visitBytes(static_cast<const oa::oaAppProp*>(prop), digest);
    case oa::oacEnumPropType:
        return visitEnums(static_cast<const oa::oaEnumProp*>(prop), digest);
    default:
        return; // the text of the value says it all
    }
}

void visitProps(const oa::oaObject* object, Digest& digest, int depth) {
    digest.add(object->hasProp());
    oa::oaIter<oa::oaProp> props(object->getProps());
    while (const oa::oaProp* prop = props.getNext()) {
        oa::oaString text;
        prop->getName(text);
        digest.add(text);
        digest.add(oa::oaProp::find(object, text) != nullptr);
        prop->getValue(text);
        digest.add(text);
        digest.add(prop->getOwner()->getType());
        visitValue(prop, digest);
        if (depth < kDeepest)
            visitProps(prop, digest, depth + 1);
    }
}

} // namespace

const Definitions& definitions() {
    static const Definitions known;
    return known;
}

void makeDefinitions() {
    definitions();
}

void visitObject(const oa::oaObject* object, Digest& digest) {
    digest.add(object->getType());
    digest.add(object->isValid());
    visitProps(object, digest, 0);
    oa::oaIter<oa::oaAppDef> defs(object->getAppDefs());
    while (const oa::oaAppDef* def = defs.getNext()) {
        oa::oaString name;
        def->getName(name);
        digest.add(name);
    }
}

} // namespace fuzz

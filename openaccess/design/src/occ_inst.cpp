#include "oa/oaOccInst.h"

#include "design/src/design_database.h"
#include "design/src/names.h"
#include "design/src/vector_insts.h"
#include "oa/oaInst.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

/// The instances from the top to this one.
std::vector<const oaInst*> pathTo(const oaOccInst* inst) {
    std::vector<const oaInst*> path;
    for (; inst; inst = inst->getOccurrence()->getOccInst())
        path.insert(path.begin(), instOf(inst));
    return path;
}

std::string internalNameOf(const oaInst* inst) {
    return designDatabaseOf(inst).strings.chars(recordOf<InstRecord>(inst).name);
}

/// The path in the internal form, without the indices that it may end with when `last` leaves
/// them out.
template <class Spelling>
std::string internalPath(const oaOccInst* inst, Spelling last) {
    std::string path;
    const std::vector<const oaInst*> insts = pathTo(inst);
    for (std::size_t i = 0; i + 1 < insts.size(); ++i)
        path += internalNameOf(insts[i]) + "/";
    return path + last(internalNameOf(insts.back()));
}

std::string internalPath(const oaOccInst* inst) {
    return internalPath(inst, [](const std::string& name) { return name; });
}

oaScalarName basePath(const oaOccInst* inst) {
    const auto base = [](const std::string& name) { return std::string(rangeOf(name).base); };
    return scalarName(internalPath(inst, base).c_str());
}

template <class OccInst, class Inst>
OccInst* findIn(const oaOccurrence* occurrence, Inst* inst) {
    if (!inst)
        return nullptr;
    Occurrences& occurrences = designDatabaseOf(occurrence).occurrences;
    return static_cast<OccInst*>(occurrences.find(slotOf(occurrence), slotOf(inst)));
}

template <class Inst>
Inst* instAs(const oaOccInst* inst) {
    return static_cast<Inst*>(instOf(inst));
}

const oaBlock* blockOf(const oaOccurrence* occurrence) {
    const oaBlock* block = contentOf(occurrence).block();
    if (!block)
        throwInvalidObject();
    return block;
}

} // namespace

oaOccInst* oaOccInst::find(const oaOccurrence* occurrence, const oaSimpleName& name) {
    return findIn<oaOccInst>(occurrence, oaInst::find(blockOf(occurrence), name));
}

oaInst* oaOccInst::getInst() const {
    return instOf(this);
}

oaOccurrence* oaOccInst::getMasterOccurrence(oaBoolean expand) const {
    instOf(this);
    Occurrences& occurrences = designDatabaseOf(this).occurrences;
    const std::uint32_t below = occurrences.below(slotOf(this), expand);
    return below == kNone ? nullptr : occurrences.occurrenceHandle(below);
}

void oaOccInst::getName(oaSimpleName& name) const {
    instOf(this)->getName(name);
}

void oaOccInst::getName(const oaNameSpace& ns, oaString& name) const {
    instOf(this)->getName(ns, name);
}

void oaOccInst::getPathName(oaSimpleName& pathName) const {
    const oaTypeEnum type = getType();
    const std::string path = internalPath(this);
    if (type == oacOccScalarInstType || type == oacOccArrayInstType)
        pathName = scalarName(path.c_str());
    else
        pathName = simpleName(path.c_str());
}

void oaOccInst::getPathName(const oaNameSpace& ns, oaString& pathName) const {
    oaString path;
    for (const oaInst* inst : pathTo(this)) {
        oaString name;
        inst->getName(ns, name);
        path += path.isEmpty() ? "" : "/";
        path += name;
    }
    pathName = path;
}

oaUInt4 oaOccInst::getNumBits() const {
    return instOf(this)->getNumBits();
}

oaBoolean oaOccInst::isBound() const {
    return instOf(this)->isBound();
}

oaBoolean oaOccInst::isImplicit() const {
    return instOf(this)->isImplicit();
}

oaBoolean oaOccInst::isOccDesignInst() const {
    return !isOccModuleInst();
}

oaBoolean oaOccInst::isOccModuleInst() const {
    return false;
}

oaBoolean oaOccInst::usesTermPositions() const {
    return instOf(this)->usesTermPositions();
}

oaDesign* oaOccDesignInst::getMaster() const {
    return instOf(this)->getMaster();
}

void oaOccDesignInst::getLibName(oaScalarName& libName) const {
    instOf(this)->getLibName(libName);
}

void oaOccDesignInst::getLibName(const oaNameSpace& ns, oaString& libName) const {
    instOf(this)->getLibName(ns, libName);
}

void oaOccDesignInst::getCellName(oaScalarName& cellName) const {
    instOf(this)->getCellName(cellName);
}

void oaOccDesignInst::getCellName(const oaNameSpace& ns, oaString& cellName) const {
    instOf(this)->getCellName(ns, cellName);
}

void oaOccDesignInst::getViewName(oaScalarName& viewName) const {
    instOf(this)->getViewName(viewName);
}

void oaOccDesignInst::getViewName(const oaNameSpace& ns, oaString& viewName) const {
    instOf(this)->getViewName(ns, viewName);
}

void oaOccDesignInst::getParams(oaParamArray& params) const {
    instOf(this)->getParams(params);
}

oaBoolean oaOccDesignInst::findParam(const oaString& name, oaParam& param) const {
    return instOf(this)->findParam(name, param);
}

oaOccScalarInst* oaOccScalarInst::find(const oaOccurrence* occurrence, const oaScalarName& name) {
    return findIn<oaOccScalarInst>(occurrence, oaScalarInst::find(blockOf(occurrence), name));
}

oaScalarInst* oaOccScalarInst::getInst() const {
    return instAs<oaScalarInst>(this);
}

void oaOccScalarInst::getName(oaScalarName& name) const {
    getInst()->getName(name);
}

void oaOccScalarInst::getPathName(oaScalarName& pathName) const {
    pathName = scalarName(internalPath(this).c_str());
}

oaOccArrayInst* oaOccArrayInst::find(const oaOccurrence* occurrence, const oaScalarName& name) {
    return findIn<oaOccArrayInst>(occurrence, oaArrayInst::find(blockOf(occurrence), name));
}

oaArrayInst* oaOccArrayInst::getInst() const {
    return instAs<oaArrayInst>(this);
}

void oaOccArrayInst::getName(oaScalarName& name) const {
    getInst()->getName(name);
}

void oaOccArrayInst::getPathName(oaScalarName& pathName) const {
    pathName = scalarName(internalPath(this).c_str());
}

oaOccVectorInstBit* oaOccVectorInstBit::find(const oaOccurrence* occurrence,
                                             const oaScalarName& baseName, oaUInt4 bitIndex) {
    return findIn<oaOccVectorInstBit>(
        occurrence, oaVectorInstBit::find(blockOf(occurrence), baseName, bitIndex));
}

oaVectorInstBit* oaOccVectorInstBit::getInst() const {
    return instAs<oaVectorInstBit>(this);
}

oaUInt4 oaOccVectorInstBit::getBitIndex() const {
    return getInst()->getBitIndex();
}

void oaOccVectorInstBit::getName(oaVectorBitName& name) const {
    getInst()->getName(name);
}

void oaOccVectorInstBit::getPathName(oaVectorBitName& pathName) const {
    pathName = oaVectorBitName(basePath(this), getBitIndex());
}

oaOccVectorInst* oaOccVectorInst::find(const oaOccurrence* occurrence, const oaScalarName& baseName,
                                       oaUInt4 start, oaUInt4 stop) {
    return findIn<oaOccVectorInst>(occurrence,
                                   oaVectorInst::find(blockOf(occurrence), baseName, start, stop));
}

oaVectorInst* oaOccVectorInst::getInst() const {
    return instAs<oaVectorInst>(this);
}

oaUInt4 oaOccVectorInst::getStart() const {
    return getInst()->getStart();
}

oaUInt4 oaOccVectorInst::getStop() const {
    return getInst()->getStop();
}

oaOccVectorInstBit* oaOccVectorInst::getBit(oaUInt4 bitIndex) const {
    return findIn<oaOccVectorInstBit>(getOccurrence(), getInst()->getBit(bitIndex));
}

void oaOccVectorInst::getName(oaVectorName& name) const {
    getInst()->getName(name);
}

void oaOccVectorInst::getPathName(oaVectorName& pathName) const {
    pathName = oaVectorName(basePath(this), getStart(), getStop());
}

} // namespace OpenAccess_4

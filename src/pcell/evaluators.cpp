#include <algorithm>

#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include "pcell/names.h"
#include "pcell/submaster_cache.h"

namespace ovalis {

namespace {

constexpr oa::oaUInt4 submasterNotProduced = 1201;

oa::oaString macroName(oa::oaPcellDef& def) {
    oa::oaString name;
    def.getDataValue(toOa(scriptMacroDataName), name);
    return name;
}

constexpr oa::oaUInt4 roundedToWords(oa::oaUInt4 bytes) {
    return (bytes + 3) / 4 * 4;
}

} // namespace

oa::oaPcellDef* VexPcell::getPcellDef() {
    return new oa::oaPcellDef(this); // handed back to onUnbind
}

void VexPcell::onBind(oa::oaDesign*, oa::oaPcellDef*) {}

void VexPcell::onUnbind(oa::oaDesign*, oa::oaPcellDef* def) {
    delete def;
}

void VexPcell::onEval(oa::oaDesign* design, oa::oaPcellDef*) {
    if (!readCachedSubmaster(*design)) {
        throw oa::oaDesignError(submasterNotProduced);
    }
}

void VexPcell::onRead(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) {}

void VexPcell::onWrite(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) {}

oa::oaUInt4 VexPcell::calcDiskSize(oa::oaPcellDef*) const {
    return 0;
}

std::string VexSKRPcell::dataName_SKRMacro() {
    return scriptMacroDataName;
}

void VexSKRPcell::getName(oa::oaString& name) {
    name = skrEvaluatorName.c_str();
}

void VexSKRPcell::onRead(oa::oaDesign*, oa::oaMapFileWindow& mapWindow, oa::oaUInt4& loc,
                         oa::oaPcellDef* def) {
    oa::oaUInt4 length = 0;
    mapWindow.data().readUInt4(loc, length);
    // A length that cannot be true fails in the read, before there is memory for it.
    std::string name(std::min(length, mapWindow.getSize()), '\0');
    mapWindow.data().readByteArray(loc, static_cast<oa::oaUInt4>(name.size()),
                                   reinterpret_cast<oa::oaByte*>(name.data()));
    def->addData(toOa(scriptMacroDataName), toOa(name));
}

void VexSKRPcell::onWrite(oa::oaDesign*, oa::oaMapFileWindow& mapWindow, oa::oaUInt4& loc,
                          oa::oaPcellDef* def) {
    std::string name = fromOa(macroName(*def));
    const auto length = static_cast<oa::oaUInt4>(name.size());
    mapWindow.data().writeUInt4(loc, length);
    mapWindow.data().writeByteArray(loc, length, reinterpret_cast<oa::oaByte*>(name.data()));
}

oa::oaUInt4 VexSKRPcell::calcDiskSize(oa::oaPcellDef* def) const {
    return sizeof(oa::oaUInt4) + roundedToWords(macroName(*def).getLength());
}

void VexLayerMappingPcell::getName(oa::oaString& name) {
    name = layerMappingEvaluatorName.c_str();
}

void VexNestedTechnologyPcell::getName(oa::oaString& name) {
    name = nestedTechnologyEvaluatorName.c_str();
}

void VexPSNPcell::getName(oa::oaString& name) {
    name = psnEvaluatorName.c_str();
}

void VexReferencePcell::getName(oa::oaString& name) {
    name = referenceEvaluatorName.c_str();
}

void VexViaPadPcell::getName(oa::oaString& name) {
    name = viaPadEvaluatorName.c_str();
}

} // namespace ovalis

#include <memory>

#include <ovalis/pcell.h>

#include "core/boundary.h"
#include "core/names.h"
#include "pcell/names.h"

namespace ovalis {

namespace {

constexpr char itemDefinitionFile[] = "itemdef.skr";

using PcellDefPtr = std::unique_ptr<oa::oaPcellDef>;

oa::oaScalarName cellNameOf(const oa::oaDesign& design) {
    oa::oaScalarName name;
    design.getCellName(name);
    return name;
}

std::string nativeCellName(const oa::oaDesign& design) {
    oa::oaString name;
    design.getCellName(nativeNameSpace, name);
    return fromOa(name);
}

PcellDefPtr pcellDef(const std::string& evaluatorName) {
    return PcellDefPtr(oa::oaPcellLink::getPcellDef(toOa(evaluatorName)));
}

oa::oaParamArray nativeParams(const std::vector<Param*>& params) {
    oa::oaParamArray natives;
    for (const Param* param : params) {
        const oa::oaParam native = param->asNativeOaParam();
        if (native.getType() == oa::oacAppParamType) {
            throw std::runtime_error("Failed to obtain the native oaParam for the Param specified");
        }
        natives.append(native);
    }
    return natives;
}

std::string namesJoined(const std::vector<Param*>& params) {
    std::string text;
    const char* separator = "";
    for (const Param* param : params) {
        text += separator + param->name();
        separator = ",";
    }
    return text;
}

void saveAsSuperMaster(oa::oaDesign& design, PcellDefPtr def, const oa::oaParamArray& params) {
    design.defineSuperMaster(def.release(), params); // the database owns the definition now
    design.save();
}

std::string itemDefinitionPath(const oa::oaDesign& design) {
    oa::oaCell* cell = oa::oaCell::get(design.getLib(), cellNameOf(design));
    oa::oaDMFile* file = oa::oaDMFile::find(cell, itemDefinitionFile);
    if (file == nullptr) {
        file = oa::oaDMFile::create(cell, itemDefinitionFile);
    }
    oa::oaString path;
    file->getPath(path);
    return fromOa(path);
}

void writeItemDefinition(const oa::oaDesign& design, const std::string& text) {
    const oa::oaString content = toOa(text); // ends at the first NUL
    const oa::oaChar* bytes = content;
    oa::oaFile file(toOa(itemDefinitionPath(design)));
    file.open('w');
    file.write(reinterpret_cast<const oa::oaByte*>(bytes), content.getLength());
    file.close();
}

} // namespace

void makeSKRPcell(oa::oaDesign& design, const std::vector<Param*>& params,
                  const CellOptions& options, const std::string& macroBody) {
    atBoundary([&] {
        initOa();
        if (!design.isValid()) {
            throw std::runtime_error("Invalid design given.");
        }
        const std::string cellName = nativeCellName(design);
        // Append mode is refused on purpose, unlike for the PSN kind.
        if (design.getMode() != 'w') {
            throw std::runtime_error("Design is not writeable.");
        }
        const std::string macroName = cellName + "Artwork";
        PcellDefPtr def = pcellDef(skrEvaluatorName);
        def->addData(toOa(VexSKRPcell::dataName_SKRMacro()), toOa(macroName));
        saveAsSuperMaster(design, std::move(def), nativeParams(params));
        const std::string macroHeader = "defun " + macroName + "(" + namesJoined(params) + ")\n";
        writeItemDefinition(design, createSKRPItemDef(cellName, params, options) + "\n" +
                                        macroHeader + macroBody);
    });
}

void makePSNPcell(oa::oaDesign& design, const std::vector<Param*>& params,
                  const CellOptions& options) {
    atBoundary([&] {
        initOa();
        if (!design.isValid()) {
            throw std::runtime_error("Invalid design given.");
        }
        if (design.getMode() != 'w' && design.getMode() != 'a') {
            throw std::runtime_error("Design is not writeable.");
        }
        PcellDefPtr def = pcellDef(psnEvaluatorName);
        saveAsSuperMaster(design, std::move(def), nativeParams(params));
        writeItemDefinition(design, createPSNPItemDef(nativeCellName(design), params, options));
    });
}

} // namespace ovalis

#include "design/src/via_masters.h"

#include "base/src/append_bytes.h"
#include "base/src/session.h"
#include "design/src/design_database.h"
#include "design/src/open_designs.h"
#include "design/src/submasters.h"
#include "oa/oaLib.h"
#include "oa/oaNameSpace.h"
#include "oa/oaPurpose.h"
#include "oa/oaTech.h"
#include "oa/oaViewType.h"
#include "tech/src/via_defs.h"
#include "tech/src/via_params.h"

#include <array>
#include <climits>
#include <ctime>
#include <optional>
#include <unordered_map>
#include <vector>

namespace OpenAccess_4 {

using namespace impl;

namespace impl {

namespace {

/// A box whose corners may lie beyond the range of coordinates.
struct WideBox {
    std::int64_t left = 0;
    std::int64_t bottom = 0;
    std::int64_t right = 0;
    std::int64_t top = 0;

    WideBox grown(const oaVector& by) const {
        return {left - by.x(), bottom - by.y(), right + by.x(), top + by.y()};
    }
    WideBox shifted(const oaVector& by) const {
        return {left + by.x(), bottom + by.y(), right + by.x(), top + by.y()};
    }
    bool hasArea() const { return left < right && bottom < top; }
    bool isInRange() const {
        return left >= INT_MIN && bottom >= INT_MIN && right <= INT_MAX && top <= INT_MAX;
    }
    oaBox box() const {
        return oaBox(oaCoord(left), oaCoord(bottom), oaCoord(right), oaCoord(top));
    }
};

/// One direction of the array of cuts.
struct CutRow {
    std::int64_t first;  // the lower end of cut 0
    std::int64_t step;   // from a cut to the next
    std::int64_t length; // of a cut
    std::int64_t low;    // the ends of all cuts together
    std::int64_t high;

    std::int64_t at(oaUInt4 index) const { return first + step * index; }
};

/// The cuts lie around `centre`; half a unit that is left over is on the upper side.
CutRow cutRow(oaUInt4 count, oaDist length, oaOffset spacing, oaOffset centre) {
    const std::int64_t step = std::int64_t(length) + spacing;
    const std::int64_t reach = step * (count - 1);
    const std::int64_t low = std::min<std::int64_t>(reach, 0);
    const std::int64_t high = std::max<std::int64_t>(reach, 0) + length;
    const std::int64_t first = centre - (high - low) / 2 - low;
    return {first, step, length, first + low, first + high};
}

struct LayerBox {
    oaLayerNum layer;
    WideBox box;
};

/// Everything that a standard via draws.
std::vector<LayerBox> shapesOf(const oaStdViaDef* def, const oaViaParam& params) {
    const oaVector& origin = params.getOriginOffset();
    const oaVector& spacing = params.getCutSpacing();
    const CutRow columns =
        cutRow(params.getCutColumns(), params.getCutWidth(), spacing.x(), origin.x());
    const CutRow rows = cutRow(params.getCutRows(), params.getCutHeight(), spacing.y(), origin.y());
    const WideBox cuts{columns.low, rows.low, columns.high, rows.high};
    const WideBox layer1 = cuts.grown(params.getLayer1Enc()).shifted(params.getLayer1Offset());
    const WideBox layer2 = cuts.grown(params.getLayer2Enc()).shifted(params.getLayer2Offset());
    std::vector<LayerBox> shapes = {{def->getLayer1Num(), layer1}, {def->getLayer2Num(), layer2}};
    for (oaUInt4 row = 0; row < params.getCutRows(); ++row)
        for (oaUInt4 column = 0; column < params.getCutColumns(); ++column)
            if (params.getCutPatternVal(row, column))
                shapes.push_back(
                    {params.getCutLayer(),
                     {columns.at(column), rows.at(row), columns.at(column) + columns.length,
                      rows.at(row) + rows.length}});
    if (def->hasImplant1())
        shapes.push_back({def->getImplant1Num(), layer1.grown(params.getImplant1Enc())});
    if (def->hasImplant2())
        shapes.push_back({def->getImplant2Num(), layer2.grown(params.getImplant2Enc())});
    std::erase_if(shapes, [](const LayerBox& shape) { return !shape.box.hasArea(); });
    return shapes;
}

std::unordered_map<std::string, oaDesign*>& mastersByKey() {
    static auto& masters = *new std::unordered_map<std::string, oaDesign*>;
    return masters;
}

void purgeViaMastersOf(const oaLib* lib) {
    std::vector<oaDesign*> masters;
    for (const auto& [key, master] : mastersByKey())
        if (recordFor(master).lib == lib)
            masters.push_back(master);
    for (oaDesign* master : masters)
        if (master->isValid())
            purgeDesign(master);
}

Table<OpenDesignRecord>& viaMasters() {
    static Table<OpenDesignRecord>& masters = []() -> Table<OpenDesignRecord>& {
        beforeLibraryCloses(purgeViaMastersOf);
        return Session::instance().addTable<OpenDesignRecord>(kViaMasterTable);
    }();
    return masters;
}

/// What distinguishes one master from another: the technology, the definition, and what it draws.
std::string keyOf(const oaStdViaDef* def, const oaViaParam& params) {
    oaString name;
    def->getName(name);
    const oaTech* tech = def->getTech();
    const std::array<oaLayerNum, 4> layers = {def->getLayer1Num(), def->getLayer2Num(),
                                              def->getImplant1Num(), def->getImplant2Num()};
    std::string key;
    appendBytes(key, tech);
    appendBytes(key, layers);
    key.append(name, name.getLength() + 1);
    return key + ViaParams::key(params);
}

std::unique_ptr<DesignDatabase> drawn(oaDesign* master, const std::vector<LayerBox>& shapes) {
    auto content = std::make_unique<DesignDatabase>(master);
    content->info().cellType = oacViaCellType;
    content->blocks.add({1});
    for (const LayerBox& shape : shapes)
        content->shapes.add(content->shapes.pair(shape.layer, oavPurposeNumberDrawing),
                            RectRecord{shape.box.box()});
    content->setModified(false);
    return content;
}

oaDesign* makeMaster(const oaStdViaDef* def, ViaMasterOrigin origin) {
    const std::vector<LayerBox> shapes = shapesOf(def, origin.params);
    for (const LayerBox& shape : shapes)
        if (!shape.box.isInRange())
            return nullptr;
    oaString lib;
    oaString name;
    def->getTech()->getLibName(oaNativeNS(), lib);
    def->getName(name);
    OpenDesignRecord record;
    record.names = {std::string(lib), std::string(name), "via"};
    record.lib = def->getTech()->getLib();
    record.viewType = oaViewType::get(oacMaskLayout);
    record.mode = 's';
    record.readInTime = oaTime(std::time(nullptr));
    record.viaOrigin = std::make_unique<ViaMasterOrigin>(std::move(origin));
    const std::uint32_t slot = viaMasters().add(std::move(record));
    auto* master = static_cast<oaDesign*>(viaMasters().handle(slot));
    OpenDesignRecord& added = viaMasters()[slot];
    added.content = drawn(master, shapes);
    mastersByKey().emplace(added.viaOrigin->key, master);
    return master;
}

} // namespace

oaDesign* stdViaMasterOf(const oaStdViaDef* def, const oaViaParam& given) {
    ViaMasterOrigin origin;
    oaViaParam defaults;
    def->getParams(defaults);
    origin.params = ViaParams::overlaid(defaults, given);
    if (!ViaParams::isDrawable(origin.params))
        return nullptr;
    origin.key = keyOf(def, origin.params);
    const auto known = mastersByKey().find(origin.key);
    return known != mastersByKey().end() ? known->second : makeMaster(def, std::move(origin));
}

void forgetViaMaster(const OpenDesignRecord& master) {
    mastersByKey().erase(master.viaOrigin->key);
}

void requireNoViaMaster(const oaDesign* design) {
    const OpenDesignRecord& record = recordFor(design);
    if (record.viaOrigin)
        throw designError(oacCannotModifyViaMaster, record.names);
}

} // namespace impl

oaDesign* oaDesign::open(oaStdViaDef* viaDef, oaViaParam* params) {
    oaDesign* master = stdViaMasterOf(viaDef, params ? *params : oaViaParam());
    if (master)
        ++recordFor(master).openings;
    return master;
}

oaDesign* oaDesign::open(oaCustomViaDef* viaDef, oaParamArray* params) {
    const ViaMasterNames master = masterNamesOf(viaDef);
    const DesignNames names{master.lib, master.cell, master.view};
    const oaParamArray given = params ? *params : oaParamArray();
    oaDesign* design = openDesign(names, nullptr, 'r');
    if (!design)
        return nullptr;
    if (!design->isSuperMaster()) {
        try {
            requireParamsOf(design, given);
        } catch (...) {
            design->close();
            throw;
        }
        return design;
    }
    --recordFor(design).openings; // its submaster keeps it open
    return openSubmaster(names, given);
}

oaBoolean oaDesign::isStdViaMaster() const {
    return recordFor(this).viaOrigin != nullptr;
}

void oaDesign::getParams(oaViaParam& params) const {
    const OpenDesignRecord& record = recordFor(this);
    if (!record.viaOrigin)
        throw designError(oacInvalidViaMaster, record.names);
    params = record.viaOrigin->params;
}

} // namespace OpenAccess_4

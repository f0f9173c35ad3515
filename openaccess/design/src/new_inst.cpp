#include "design/src/new_inst.h"

#include "design/src/names.h"
#include "design/src/open_designs.h"
#include "design/src/shape_edit.h"
#include "design/src/vector_insts.h"
#include "oa/oaDesign.h"
#include "oa/oaDesignException.h"
#include "oa/oaTransform.h"

namespace OpenAccess_4::impl {

void requireNoSubmasterGiven(const oaDesign* master) {
    const DesignNames& names = designDatabaseOf(master).names();
    if (master->isStdViaMaster())
        throw oaDesignError(oacInvalidInstMaster, names.lib.c_str(), names.cell.c_str(),
                            names.view.c_str());
    if (master->isSubMaster())
        throw oaDesignError(oacInvalidSuperMaster, names.lib.c_str(), names.cell.c_str(),
                            names.view.c_str());
}

NewInst newInst(oaBlock* block, oaDesign* master, const oaTransform& xform,
                const oaParamArray* params, oaPlacementStatus status) {
    requireNoSubmasterGiven(master);
    return {block, designDatabaseOf(master).names(), master, xform, params, status};
}

NewInst newInst(oaBlock* block, const oaScalarName& libName, const oaScalarName& cellName,
                const oaScalarName& viewName, const oaTransform& xform, const oaParamArray* params,
                oaPlacementStatus status) {
    return {block, designNames(libName, cellName, viewName), nullptr, xform, params, status};
}

const char* nameOf(const oaInst* inst) {
    return databaseOf(inst).strings.chars(recordOf<InstRecord>(inst).name);
}

void requireFreeInstName(DesignDatabase& database, std::string_view name) {
    if (name.empty())
        throw oaDesignError(oacInvalidInstName, "", "it is empty");
    if (database.instances.names.find(name) != kNone)
        throw oaDesignError(oacInstNameExists, std::string(name).c_str());
}

oaInst* createInst(const NewInst& inst, std::string_view name) {
    DesignDatabase& database = designDatabaseOf(inst.block);
    Instances& instances = database.instances;
    requireFreeInstName(database, name);
    if (inst.record.isVector())
        requireFreeBits(database, name, {});
    database.requireEditable();
    if (inst.params)
        requireParamsOf(inst.open ? inst.open : findOpenDesign(inst.master), *inst.params);
    database.edit();
    InstRecord record = inst.record;
    record.name = database.strings.intern(name);
    record.master = instances.master(inst.master);
    record.status = std::uint8_t(inst.status);
    record.x = inst.xform.xOffset();
    record.y = inst.xform.yOffset();
    record.orient = std::uint8_t(oaOrientEnum(inst.xform.orient()));
    if (inst.open)
        instances.bind(record.master, inst.open);
    const std::uint32_t slot = instances.insts.add(record);
    if (inst.params)
        instances.setParams(slot, *inst.params);
    if (record.isVector())
        instances.addBits(slot);
    if (inst.open)
        instances.masterOf(slot);
    return static_cast<oaInst*>(instances.insts.handle(slot));
}

oaInst* createInst(const NewInst& inst) {
    return createInst(inst, designDatabaseOf(inst.block).instances.names.automaticName("I__"));
}

void renameInst(oaInst* inst, std::string_view name) {
    DesignDatabase& database = designDatabaseOf(inst);
    requireExplicitInst(inst);
    if (name == nameOf(inst))
        return;
    requireFreeInstName(database, name);
    if (recordOf<InstRecord>(inst).isVector())
        requireFreeBits(database, name, database.instances.bitsOf(slotOf(inst)));
    database.edit();
    database.instances.rename(slotOf(inst), name);
    database.noteGarbage();
}

void requireExplicitInst(const oaObject* inst) {
    const InstRecord& record = recordOf<InstRecord>(inst);
    if (record.isImplicit())
        throw oaDesignError(oacCannotModifyImplicitInst,
                            databaseOf(inst).strings.chars(record.name));
}

InstRecord& editedInst(oaObject* inst) {
    requireExplicitInst(inst);
    edited(inst);
    return recordOf<InstRecord>(inst);
}

const InstRecord& shownInst(const oaObject* inst) {
    const InstRecord& record = recordOf<InstRecord>(inst);
    if (!record.isImplicit())
        return record;
    return designDatabaseOf(inst).instances.insts[record.vector()];
}

} // namespace OpenAccess_4::impl

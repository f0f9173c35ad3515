#pragma once

#include "design/src/instances.h"
#include "oa/oaInst.h"

#include <string_view>

namespace OpenAccess_4 {
class oaTransform;
} // namespace OpenAccess_4

/// What the classes of instances share.
namespace OpenAccess_4::impl {

/// What all forms of create() have in common.
struct NewInst {
    oaBlock* block;
    DesignNames master;
    oaDesign* open; // the master when it was given, not named
    const oaTransform& xform;
    const oaParamArray* params;
    oaPlacementStatus status;
    InstRecord record{};
};

NewInst newInst(oaBlock* block, oaDesign* master, const oaTransform& xform,
                const oaParamArray* params, oaPlacementStatus status);
NewInst newInst(oaBlock* block, const oaScalarName& libName, const oaScalarName& cellName,
                const oaScalarName& viewName, const oaTransform& xform, const oaParamArray* params,
                oaPlacementStatus status);
inline NewInst visible(NewInst inst, oaBlockDomainVisibility view) {
    inst.record.visibility = std::uint8_t(view);
    return inst;
}

/// @throws oaDesignError  oacInvalidSuperMaster: instances are made of the super master instead;
///                        oacInvalidInstMaster: it is the master of a standard via
void requireNoSubmasterGiven(const oaDesign* master);

/// Makes the instance, with the implicit bits of a vector, and binds a master that was given.
oaInst* createInst(const NewInst& inst, std::string_view name);
/// The same with an automatic name.
oaInst* createInst(const NewInst& inst);

/// The internal form of the name of an instance.
const char* nameOf(const oaInst* inst);

/// @throws oaDesignError  oacInstNameExists, oacInvalidInstName
void requireFreeInstName(DesignDatabase& database, std::string_view name);

/// Gives an explicit instance another name, and a vector the bits that go with it.
/// @throws oaDesignError  oacInstNameExists, oacInvalidInstName, oacCannotModifyImplicitInst
void renameInst(oaInst* inst, std::string_view name);

/// The record of an instance that may be changed.
/// @throws oaDesignError  oacCannotModifyReadModeDesign, oacCannotModifyImplicitInst
InstRecord& editedInst(oaObject* inst);

/// The record that says everything of an instance but its name.
const InstRecord& shownInst(const oaObject* inst);

/// @throws oaDesignError  oacCannotModifyImplicitInst
void requireExplicitInst(const oaObject* inst);

template <class Class>
Class* findInst(const oaBlock* block, const oaSimpleName& name) {
    return dynamic_cast<Class*>(oaInst::find(block, name));
}

} // namespace OpenAccess_4::impl

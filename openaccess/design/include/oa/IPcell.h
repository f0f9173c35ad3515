#pragma once

#include "oa/oaBaseTypes.h"
#include "oa/oaCommonPlugInBase.h"
#include "oa/oaString.h"

namespace OpenAccess_4 {

class oaDesign;
class oaMapFileWindow;
class oaPcellDef;

/// An evaluator of pcells: what fills the designs that follow from a super master and parameters.
///
/// The order of the virtual members is part of the binary interface. A component derives from
/// PlugInBase<IPcell>, which implements the members of IBase, and is made known by
/// oaPcellLink::create() under the name that getName() answers.
class OA_API IPcell : public oaCommon::IBase {
public:
    ~IPcell() override;

    /// The number of this interface.
    static const oaCommon::Guid& getId();

    /// A definition that names this evaluator, a new one or the same each time. The database keeps
    /// it from defineSuperMaster(), or from opening a super master, until it hands it to
    /// onUnbind().
    virtual oaPcellDef* getPcellDef() = 0;

    /// Assigns the name under which designs store their evaluator.
    virtual void getName(oaString& name) = 0;

    /// `design` is a super master with this definition from now on.
    virtual void onBind(oaDesign* design, oaPcellDef* def) = 0;

    /// The database is done with `def`; an evaluator that makes a new one each time deletes it
    /// here.
    virtual void onUnbind(oaDesign* design, oaPcellDef* def) = 0;

    /// Fills the submaster `design` for the parameters that it has.
    virtual void onEval(oaDesign* design, oaPcellDef* def) = 0;

    /// Reads the definition data of a super master that is being opened, from `loc` on.
    virtual void onRead(oaDesign* design, oaMapFileWindow& mapWindow, oaUInt4& loc,
                        oaPcellDef* def) = 0;

    /// Writes the definition data of a super master that is being saved, from `loc` on: at most as
    /// many bytes as calcDiskSize() answered.
    virtual void onWrite(oaDesign* design, oaMapFileWindow& mapWindow, oaUInt4& loc,
                         oaPcellDef* def) = 0;

    /// The size of the definition data in bytes.
    virtual oaUInt4 calcDiskSize(oaPcellDef* def) const = 0;
};

} // namespace OpenAccess_4

namespace oaPlugIn {
using OpenAccess_4::IPcell;
} // namespace oaPlugIn

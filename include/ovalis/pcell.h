#pragma once

#include <string>
#include <vector>

#include <oa/oaCommonPlugInBase.h>
#include <oa/oaCommonPlugInBase.inl>
#include <oa/oaDesignDB.h>
#include <oa/oaDesignInterfaces.h>

#include <ovalis/export.h>

namespace ovalis {

// Evaluators

/// Serves OpenAccess as evaluator of a pcell kind that the circuit-design environment writes.
///
/// - `initOa` registers one object of each derived class under its evaluator name.
/// - OpenAccess holds it by its reference count, for the life of the process.
/// - It never runs a component's script: it loads what was evaluated elsewhere from a cache.
class OVALIS_API VexPcell : public oaCommon::PlugInBase<oa::IPcell> {
public:
    /// Returns a new definition that refers to this evaluator; the caller owns it.
    oa::oaPcellDef* getPcellDef() override;

    /// Does nothing.
    void onBind(oa::oaDesign* design, oa::oaPcellDef* def) override;

    /// Deletes a definition made by `getPcellDef`; null is ignored.
    void onUnbind(oa::oaDesign* design, oa::oaPcellDef* def) override;

    /// Fills a submaster from the cache: the file that `calculateSubmasterIdHash` names, in the
    /// directory ".vexPcells" beside the top library definition list.
    /// @throws oa::oaDesignError  message number 1201: there is no top list, or no such file; the
    ///                            design is left as it is.
    /// @throws oa::oaException    the database cannot read the file.
    void onEval(oa::oaDesign* design, oa::oaPcellDef* def) override;

    /// Does nothing: the kind has no data of its own.
    void onRead(oa::oaDesign* design, oa::oaMapFileWindow& mapWindow, oa::oaUInt4& loc,
                oa::oaPcellDef* def) override;

    /// Does nothing: the kind has no data of its own.
    void onWrite(oa::oaDesign* design, oa::oaMapFileWindow& mapWindow, oa::oaUInt4& loc,
                 oa::oaPcellDef* def) override;

    /// Returns 0: the kind has no data of its own.
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef* def) const override;
};

/// Stands for components whose artwork a script macro produces; keeps that macro's name.
class OVALIS_API VexSKRPcell : public VexPcell {
public:
    /// Returns the name of the data item that holds the macro's name.
    static std::string dataName_SKRMacro();

    /// Gives "SKRPcell".
    void getName(oa::oaString& name) override;

    /// Reads the macro's name at `loc` and adds it to `def`.
    void onRead(oa::oaDesign* design, oa::oaMapFileWindow& mapWindow, oa::oaUInt4& loc,
                oa::oaPcellDef* def) override;

    /// Writes the macro's name, empty when `def` has none, and moves `loc` past it.
    void onWrite(oa::oaDesign* design, oa::oaMapFileWindow& mapWindow, oa::oaUInt4& loc,
                 oa::oaPcellDef* def) override;

    /// Returns the room of the macro's name: its length, and its bytes rounded up to words.
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef* def) const override;
};

/// Stands for pcells that map layers.
class OVALIS_API VexLayerMappingPcell : public VexPcell {
public:
    /// Gives "LayerMappingPcell".
    void getName(oa::oaString& name) override;
};

/// Stands for pcells that carry a technology of their own.
class OVALIS_API VexNestedTechnologyPcell : public VexPcell {
public:
    /// Gives "NestedTechnologyPcell".
    void getName(oa::oaString& name) override;
};

/// Stands for components without a script macro.
class OVALIS_API VexPSNPcell : public VexPcell {
public:
    /// Gives "PSNPcell".
    void getName(oa::oaString& name) override;
};

/// Stands for pcells that refer to another cell.
class OVALIS_API VexReferencePcell : public VexPcell {
public:
    /// Gives "ReferencePcell".
    void getName(oa::oaString& name) override;
};

/// Stands for via pads.
class OVALIS_API VexViaPadPcell : public VexPcell {
public:
    /// Gives "CorvidViaPad".
    void getName(oa::oaString& name) override;
};

// Identity of submasters

/// Returns what names the evaluated submaster in a cache: the SHA-256 digest of library, cell and
/// view name and all parameter values, defaults included, as 64 lower-case hexadecimal digits.
///
/// The order of the parameters does not count; of several with one name the last counts. A super
/// master has the identity of the submaster with its defaults, and a design that is no pcell that
/// of one without parameters.
/// @throws std::runtime_error  the design is null or invalid.
/// @throws Exception           the database failed.
OVALIS_API std::string calculateSubmasterIdHash(oa::oaDesign* design);

/// What identifies a submaster.
struct SubmasterIdentity {
    /// Names and parameters in the form that is the same however the parameters are ordered.
    std::string bytes;
    /// The digest of those bytes, as `calculateSubmasterIdHash` gives it.
    std::string hash;
};

/// Identifies the submaster of the pcell `libName`, `cellName`, `viewName` that has these
/// parameters, defaults included, without making or evaluating it.
/// @throws std::runtime_error  a parameter has a type without an encoding.
/// @throws Exception           the database failed.
OVALIS_API SubmasterIdentity identifySubmaster(const std::string& libName,
                                               const std::string& cellName,
                                               const std::string& viewName,
                                               const oa::oaParamArray& params);

// Component parameters

/// Describes one parameter of a component.
///
/// - Make one of the kinds below, set what differs from the defaults, and pass a pointer to it.
/// - `parm()` renders it for the item definition, `asNativeOaParam()` for the database.
/// - The library only reads it; it stays the caller's.
///
/// Nothing is escaped: a double quote in a name, description or text breaks the script line.
class OVALIS_API Param {
public:
    virtual ~Param();

protected:
    /// Returns the parameter as the database's own type.
    virtual oa::oaParam asNativeOaParamImpl() const = 0;

public:
    /// Returns the attribute bits of the kind.
    virtual int parmType() const = 0;

    /// Returns the value as script text.
    virtual std::string parmValue() const = 0;

protected:
    /// Returns the whole `create_parm` call; this form serves kinds with a plain value.
    virtual std::string parmImpl() const;

public:
    /// Returns the `create_parm` call of the parameter, without semicolon or newline.
    std::string parm() const { return parmImpl(); }

    /// Returns the parameter as the database's own type, under the same name.
    oa::oaParam asNativeOaParam() const { return asNativeOaParamImpl(); }

    /// Returns the name.
    const std::string& name() const { return name_; }
    /// Replaces the name.
    void setName(const std::string& name) { name_ = name; }

    /// Returns the text shown to a user; empty at first.
    const std::string& description() const { return description_; }
    /// Replaces the text shown to a user.
    void setDescription(const std::string& description) { description_ = description; }

    /// Returns whether schematics show the parameter; true at first.
    bool displayOnSchematic() const { return displayOnSchematic_; }
    /// Says whether schematics show the parameter.
    void setDisplayOnSchematic(bool display) { displayOnSchematic_ = display; }

    /// Returns whether a user is kept from editing the parameter; false at first.
    bool notEdited() const { return notEdited_; }
    /// Says whether a user is kept from editing the parameter.
    void setNotEdited(bool notEdited) { notEdited_ = notEdited; }

    /// Returns whether net lists leave the parameter out; false at first.
    bool notNetListed() const { return notNetListed_; }
    /// Says whether net lists leave the parameter out.
    void setNotNetListed(bool notNetListed) { notNetListed_ = notNetListed; }

    /// Returns whether the value is evaluated; false at first.
    bool evaluated() const { return evaluated_; }
    /// Says whether the value is evaluated.
    void setEvaluated(bool evaluated) { evaluated_ = evaluated; }

protected:
    /// Sets the name and the two attribute flags, which nothing changes afterwards.
    explicit Param(const std::string& name, bool attributeA = false, bool attributeB = true);

    Param(const Param&) = default;
    Param(Param&&) = default;
    Param& operator=(const Param&) = default;
    Param& operator=(Param&&) = default;

    /// Returns the sum of the attribute bits that do not depend on the kind.
    int baseParmType() const;

    /// Returns the attribute bit for net lists, which each kind adds to its own sum.
    int netListBit() const { return notNetListed_ ? 64 : 0; }

private:
    std::string name_;
    std::string description_;
    bool displayOnSchematic_ = true;
    bool attributeA_;
    bool attributeB_;
    bool notEdited_ = false;
    bool notNetListed_ = false;
    bool evaluated_ = false;
};

/// Describes a parameter that is true or false.
class OVALIS_API BoolParam : public Param {
public:
    /// Sets name and value.
    BoolParam(const std::string& name, bool value);

    /// Returns the value.
    bool value() const { return value_; }
    /// Replaces the value.
    void setValue(bool value) { value_ = value; }

    int parmType() const override;
    std::string parmValue() const override;

protected:
    oa::oaParam asNativeOaParamImpl() const override;
    std::string parmImpl() const override;

private:
    bool value_;
};

/// Describes a whole-number parameter.
class OVALIS_API IntParam : public Param {
public:
    /// Sets name and value.
    IntParam(const std::string& name, int value);

    /// Returns the value.
    int value() const { return value_; }
    /// Replaces the value.
    void setValue(int value) { value_ = value; }

    int parmType() const override;
    std::string parmValue() const override;

protected:
    oa::oaParam asNativeOaParamImpl() const override;

private:
    int value_;
};

/// Describes a real-number parameter, with or without a unit.
class OVALIS_API RealParam : public Param {
public:
    /// Sets name and value; no unit.
    RealParam(const std::string& name, double value);

    /// Returns the value.
    double value() const { return value_; }
    /// Replaces the value; a text with unit stays and still wins in the script.
    void setValue(double value) { value_ = value; }

    /// Returns the number of the unit's kind; -1 at first, which means none.
    int unitType() const { return unitType_; }
    /// Replaces the number of the unit's kind.
    void setUnitType(int unitType) { unitType_ = unitType; }

    /// Returns the text that the script shows in place of the number; empty when it shows that.
    const std::string& valueWithUnit() const { return valueWithUnit_; }
    /// Replaces the text that the script shows in place of the number.
    void setValueWithUnit(const std::string& text) { valueWithUnit_ = text; }

    int parmType() const override;

    /// Returns the text with unit, else the number in as few digits as reproduce it to about six
    /// places of its last digit, 17 at most.
    std::string parmValue() const override;

protected:
    oa::oaParam asNativeOaParamImpl() const override;
    std::string parmImpl() const override;

private:
    double value_;
    int unitType_ = -1;
    std::string valueWithUnit_;
};

/// Describes a text parameter.
class OVALIS_API StringParam : public Param {
public:
    /// Sets name and value.
    StringParam(const std::string& name, const std::string& value);

    /// Returns the value.
    const std::string& value() const { return value_; }
    /// Replaces the value.
    void setValue(const std::string& value) { value_ = value; }

    int parmType() const override;
    std::string parmValue() const override;

protected:
    oa::oaParam asNativeOaParamImpl() const override;

private:
    std::string value_;
};

/// Describes a parameter that is a layer.
class OVALIS_API LayerParam : public Param {
public:
    /// Sets the name and the text that the script shows; the layer number is 0.
    LayerParam(const std::string& name, const std::string& valueStr);

    /// Sets name and layer number; no text.
    LayerParam(const std::string& name, int value);

    /// Returns the layer number.
    int value() const { return value_; }
    /// Replaces the layer number.
    void setValue(int value) { value_ = value; }

    /// Returns the text that the script shows in place of the number; empty when it shows that.
    const std::string& valueStr() const { return valueStr_; }
    /// Replaces the text that the script shows in place of the number.
    void setValueStr(const std::string& text) { valueStr_ = text; }

    int parmType() const override;
    std::string parmValue() const override;

protected:
    oa::oaParam asNativeOaParamImpl() const override;
    std::string parmImpl() const override;

private:
    int value_;
    std::string valueStr_;
};

// Item definitions

/// Holds the options of a component's item definition.
struct CellOptions {
    /// The prefix of the names that placed components get.
    std::string itemPrefix = "X";
};

/// Returns the item definition of a component whose artwork a script macro produces.
///
/// The parameters come in the given order. Nothing is escaped.
OVALIS_API std::string createSKRPItemDef(const std::string& cellName,
                                         const std::vector<Param*>& params,
                                         const CellOptions& options);

/// Returns the item definition of a component of the PSN kind, which has no macro.
///
/// The parameters come in the given order. Nothing is escaped.
OVALIS_API std::string createPSNPItemDef(const std::string& cellName,
                                         const std::vector<Param*>& params,
                                         const CellOptions& options);

// Pcell masters

/// Turns a design that is open in mode 'w' into the master of a component whose artwork a script
/// macro produces, saves it, and writes item definition and macro into the cell's "itemdef.skr".
///
/// The macro takes the parameters by name, in the given order, and ends with `macroBody` as it is.
/// A design that is open for append is refused. The caller holds write access to the library.
/// After a failure the design may be saved, and the file be missing or written in part.
/// @throws std::runtime_error  the design is invalid or not writeable, or a parameter has no
///                             form that the database takes.
/// @throws Exception           the database failed.
OVALIS_API void makeSKRPcell(oa::oaDesign& design, const std::vector<Param*>& params,
                             const CellOptions& options, const std::string& macroBody);

/// Turns a design that is open in mode 'w' or 'a' into the master of a PSN component, saves it,
/// and writes the item definition into the cell's "itemdef.skr"; else as `makeSKRPcell`.
/// @throws std::runtime_error  as `makeSKRPcell`.
/// @throws Exception           the database failed.
OVALIS_API void makePSNPcell(oa::oaDesign& design, const std::vector<Param*>& params,
                             const CellOptions& options);

} // namespace ovalis

#pragma once

#include "base/src/database.h"
#include "design/src/table_numbers.h"
#include "oa/oaCommonSPtr.h"
#include "oa/oaDesignEnums.h"
#include "oa/oaParamArray.h"
#include "oa/oaPcellDef.h"

namespace OpenAccess_4::impl {

/// What makes a design a super master. There is at most one of them in a design.
struct SuperMasterRecord {
    StringId evaluator = 0;
    StringId data = 0; // the definition data: bytes that only the evaluator understands

    static constexpr oaTypeEnum kType = oacUnknownType;
    using Handle = oaObject;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.evaluator);
        visitor.string(self.data);
    }
};

/// A parameter of a super master with its default, in the order of the definition.
struct PcellParamRecord {
    StringId name = 0;
    std::uint32_t type = oacIntParamType;
    StringId text = 0;
    StringId appType = 0;
    std::uint64_t bits = 0;

    static constexpr oaTypeEnum kType = oacUnknownType;
    using Handle = oaObject;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.enumerator(self.type, oacTimeParamType + 1);
        visitor.string(self.text);
        visitor.string(self.appType);
    }
};

/// The pcell side of one design: what it stores, and the definition that stands for it while the
/// design is open.
class PcellMaster {
public:
    explicit PcellMaster(Database& database);

    bool isDefined() const { return masters_.live() > 0; }
    /// True when what came from a file can be.
    bool isSound() const { return masters_.slots() == 1 || (!isDefined() && params_.slots() == 0); }

    const char* evaluatorName() const;
    /// Null when the evaluator is not known, or refused the design.
    oaPcellDef* definition() const { return definition_; }

    /// Makes the design a super master with this definition, in the place of the one it may have.
    /// After a failure of the evaluator it is none, and the evaluator has the definition back.
    void define(oaPcellDef* definition, const oaParamArray& defaults);
    void undefine();

    void getParams(oaParamArray& params) const;
    bool findParam(const oaString& name, oaParam& param) const;

    /// Gives a super master that was read from a file its definition. When the evaluator is not
    /// known, or fails, the design stays without one and keeps its definition data, and the pcell
    /// observers are told. True when there is a definition that was not there before.
    bool bind();
    /// Has the evaluator fill `design`. There is a definition.
    void evaluate(oaDesign* design);
    /// Takes what makes another content of the same design a super master.
    void takeFrom(PcellMaster& other);
    /// Hands the definition back, before the content of the design goes.
    void unbind() noexcept;
    /// Has the evaluator write the definition data, before the design is written to a file.
    /// @throws oaDesignError  oacPcellDefinitionTooLong, and what the evaluator throws
    void pack();

private:
    SuperMasterRecord& master();
    const SuperMasterRecord& master() const;
    oaDesign* design() const;
    void clear();
    void store(const oaString& evaluatorName, const oaParamArray& defaults);
    void keep(oaPcellDef* definition, IPcell* evaluator);
    void takeDefinition();
    void write(oaMapFileWindow window);
    template <class Call>
    void tellWhenItFails(oaPcellErrorTypeEnum kind, Call call);

    Database& database_;
    Table<SuperMasterRecord>& masters_;
    Table<PcellParamRecord>& params_;
    oaPcellDef* definition_ = nullptr; // belongs to the evaluator
    oaCommon::SPtr<IPcell> evaluator_; // of the definition
};

/// Checks parameters that an instance of `master` is given; nothing is known of a null master.
/// @throws oaDesignError  oacParamsSuppliedForNonPCellInstMaster, oacInvalidDataTypeForParam
void requireParamsOf(const oaDesign* master, const oaParamArray& params);

} // namespace OpenAccess_4::impl

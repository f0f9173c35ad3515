#pragma once

#include "oa/IPcell.h"

#include <utility>
#include <vector>

namespace OpenAccess_4 {

/// What a super master is made of: its evaluator, and named texts that the evaluator keeps there.
///
/// The texts live as long as the definition. What an evaluator wants to find again in a design that
/// is opened later, it writes in onWrite() and reads in onRead().
class OA_API oaPcellDef {
public:
    explicit oaPcellDef(IPcell* evaluator);
    virtual ~oaPcellDef();
    oaPcellDef(const oaPcellDef&) = delete;
    oaPcellDef& operator=(const oaPcellDef&) = delete;

    IPcell* getIPcell() const { return evaluator_; }

    /// False, and nothing changes, when there is a text of that name.
    oaBoolean addData(const oaString& name, const oaString& value);
    /// False when there is none of that name.
    oaBoolean removeData(const oaString& name);
    /// False, and `value` stays as it is, when there is none of that name.
    oaBoolean getDataValue(const oaString& name, oaString& value);
    /// False when there is none of that name.
    oaBoolean setDataValue(const oaString& name, const oaString& value);

private:
    using Data = std::vector<std::pair<oaString, oaString>>;

    Data::iterator find(const oaString& name);

    IPcell* evaluator_;
    Data data_;
};

} // namespace OpenAccess_4

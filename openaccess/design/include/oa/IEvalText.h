#pragma once

#include "oa/oaBaseTypes.h"
#include "oa/oaCommonPlugInBase.h"
#include "oa/oaString.h"

namespace OpenAccess_4 {

/// An evaluator of texts, which computes what the oaEvalText shapes that name it show.
///
/// A component derives from PlugInBase<IEvalText>, which implements the members of IBase, and is
/// made known by oaEvalTextLink::create().
class OA_API IEvalText : public oaCommon::IBase {
public:
    ~IEvalText() override;

    /// The number of this interface.
    static const oaCommon::Guid& getId();

    /// Assigns the name under which designs store their evaluator.
    virtual void getName(oaString& name) = 0;

    /// Puts the text that stands for the expression `in` into `out`.
    virtual void onEval(const oaString& in, oaString& out) = 0;
};

} // namespace OpenAccess_4

#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaObserver.h"
#include "oa/oaString.h"

namespace OpenAccess_4 {

class oaDesign;
class oaPcellDef;

/// Is told what happens to pcells. Every onPreEval() is followed by onPostEval(), or by onError()
/// where the evaluation fails.
class OA_API oaPcellObserver : public oaBaseObserver {
public:
    explicit oaPcellObserver(oaUInt4 priority, oaBoolean enabled = true);
    ~oaPcellObserver() override;

    /// Something failed and the database went on without it. `design` is the submaster for failed
    /// evaluations, else the super master. `errorType` may be a number of an evaluator's own.
    /// Exceptions out of here are dropped.
    virtual void onError(oaDesign* design, const oaString& msg, oaPcellErrorTypeEnum errorType);
    /// `design` is about to be filled. Exceptions out of here make the evaluation a failed one.
    virtual void onPreEval(oaDesign* design, oaPcellDef* def);
    /// `design` is filled. Exceptions out of here make the evaluation a failed one.
    virtual void onPostEval(oaDesign* design, oaPcellDef* def);

    /// Calls onError() of all observers; evaluators report with it what they do not throw.
    static void notifyErrorObservers(oaDesign* design, const oaString& msg,
                                     oaPcellErrorTypeEnum errorType);
    static void notifyErrorObservers(oaDesign* design, const oaString& msg, oaUInt4 errorType) {
        notifyErrorObservers(design, msg, static_cast<oaPcellErrorTypeEnum>(errorType));
    }
};

} // namespace OpenAccess_4

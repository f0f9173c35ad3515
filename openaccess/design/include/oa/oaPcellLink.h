#pragma once

#include "oa/IPcell.h"
#include "oa/oaCommonSPtr.h"

namespace OpenAccess_4 {

class oaPcellDef;

namespace impl {
class PcellLinks;
}

/// An evaluator that the process knows, under its name.
class OA_API oaPcellLink {
public:
    /// Makes an evaluator known under the name that it answers, and holds a reference to it.
    /// Answers null for a null evaluator.
    /// @throws oaDesignError  oacPcellLinkExists: the name is taken; the evaluator is left alone
    static oaPcellLink* create(IPcell* evaluator);

    /// The link of that name. When there is none, one is made for the plug-in of that name; null
    /// when there is no such plug-in or it cannot be used.
    static oaPcellLink* find(const oaString& name);

    /// A definition from the evaluator that find() finds.
    /// @throws oaDesignError  oacPcellEvaluatorNotFound, with what is wrong with the plug-in
    static oaPcellDef* getPcellDef(const oaString& name);

    IPcell* getIPcell() const;

    /// Forgets the evaluator and deletes the link. Super masters that are open keep the evaluator
    /// alive until they are done with it.
    void destroy();

    oaPcellLink(const oaPcellLink&) = delete;
    oaPcellLink& operator=(const oaPcellLink&) = delete;

private:
    friend class impl::PcellLinks;

    oaPcellLink(const oaString& name, IPcell* evaluator);
    ~oaPcellLink();

    oaString name_;
    oaCommon::SPtr<IPcell> evaluator_;
};

} // namespace OpenAccess_4

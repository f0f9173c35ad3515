#pragma once

#include "oa/oaPcellLink.h"

#include <vector>

namespace OpenAccess_4::impl {

/// The evaluators that the process knows, in the order in which they were made known.
class PcellLinks {
public:
    static PcellLinks& instance();

    oaPcellLink* add(const oaString& name, IPcell* evaluator);
    oaPcellLink* find(const oaString& name) const;
    /// The link of that name, made for the plug-in of that name when there is none yet.
    /// @throws oaCommon::oaPlugInError  there is no plug-in of that name, or it cannot be used
    oaPcellLink* findOrLoad(const oaString& name);
    void remove(oaPcellLink* link);

    std::vector<oaString> names() const;

private:
    std::vector<oaPcellLink*> links_;
};

} // namespace OpenAccess_4::impl
